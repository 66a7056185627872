// "Gépazonosító": the workstation's label, with which every sheet key written here begins.
#pragma once

#include "foundation/forms/work_form.h"

class QLineEdit;

namespace vandrel {

class gepazonform : public WorkForm {
    Q_OBJECT

  public:
    // Faults of the data file pass through.
    gepazonform(Workstation& station, QWidget* opener);

  private:
    void store();

    QLineEdit* m_label;
};

} // namespace vandrel
