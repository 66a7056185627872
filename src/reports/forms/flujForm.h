// "Floppy mezők visszaírása": clears the report marks of a period. The rule stands in reports/write_back.h.
#pragma once

#include "foundation/forms/work_form.h"

class QLabel;
class QProgressBar;
class QPushButton;
class QRadioButton;

namespace vandrel {

class MaskedField;

class flujForm : public WorkForm {
    Q_OBJECT

  public:
    flujForm(Workstation& station, QWidget* opener);

  protected:
    void closeEvent(QCloseEvent* event) override;  // not while the marks are being cleared
    void keyPressEvent(QKeyEvent* event) override; // Esc closes

  private:
    void writeBack();

    MaskedField *m_from, *m_to;
    QRadioButton *m_original, *m_corrected, *m_both;
    QPushButton* m_start;
    QProgressBar* m_bar;
    QLabel* m_count;
    bool m_running = false;
};

} // namespace vandrel
