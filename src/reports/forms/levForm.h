// "Havi jelentéskészítés": the screen of the monthly reports. It shows the fields and the progress of a run;
// what a run does stands in reports/report_run.h.
#pragma once

#include "foundation/forms/work_form.h"
#include "reports/report_run.h"
#include "reports/report_target.h"

class QLabel;
class QProgressBar;
class QPushButton;

namespace vandrel {

class FieldChain;
class MaskedField;

class levForm : public WorkForm, private ReportProgress {
    Q_OBJECT

  public:
    // mode "0" original, "1" corrected, "E" EU report. Faults of the data files pass through.
    levForm(Workstation& station, QWidget* opener, const QString& mode);

  protected:
    // Not during a run: a report that stops half way would leave sheets marked and unreported. While a locked
    // file is being waited for, the wish to close ends the run. Not while another window stands before it.
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override; // Esc closes

  private:
    void run();
    void chooseTarget();
    void targetChosen(const VolumeTexts& texts);
    void setButtonsEnabled(bool enabled);

    QWidget* makePeriodPanel();
    QWidget* makeTargetPanel();
    QWidget* makeProgressPanel();

    void started() override;
    void noData() override;
    void checking(const QString& fileName) override;
    void selectedSheets(qint64 sheets) override;
    void outputRecords(qint64 records) override;
    void procedures(qint64 positions) override;
    void moved(const QString& stage, qint64 position, qint64 total) override;
    bool givesUpWaiting() override { return m_closeWished; }

    const QString m_mode;
    FieldChain* m_chain;
    MaskedField *m_from, *m_to, *m_settlement;
    QPushButton *m_run, *m_choose;
    QLabel *m_target, *m_drive, *m_total, *m_free;
    QLabel *m_allSheets, *m_periodSheets, *m_records, *m_procedures;
    QLabel *m_stage, *m_percent, *m_selected, *m_hint;
    QProgressBar* m_bar;
    bool m_running = false;
    bool m_closeWished = false;
};

} // namespace vandrel
