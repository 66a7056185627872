// The about box: the program's name and version, and what the machine is.
#pragma once

#include "foundation/forms/work_form.h"

class QPlainTextEdit;

namespace vandrel {

class frmAbout : public WorkForm {
    Q_OBJECT

  public:
    frmAbout(Workstation& station, QWidget* opener);

  private:
    void showMachine();

    QPlainTextEdit* m_machine;
};

} // namespace vandrel
