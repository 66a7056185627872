// "Floppy mezők visszaírása": clears the report marks of a period. The rule stands in reports/write_back.h.
#pragma once

#include "foundation/forms/work_form.h"

class QPushButton;
class QRadioButton;

namespace vandrel {

class MaskedField;
class ProgressLine;

class flujForm : public WorkForm {
    Q_OBJECT

  public:
    flujForm(Workstation& station, QWidget* opener);

  private:
    void writeBack();

    MaskedField *m_from, *m_to;
    QRadioButton *m_original, *m_corrected, *m_both;
    QPushButton* m_start;
    ProgressLine* m_line;
};

} // namespace vandrel
