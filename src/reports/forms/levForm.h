// "Havi jelentéskészítés": the screen of the monthly reports. It shows the fields and the progress of a run;
// what a run does stands in reports/report_run.h.
#pragma once

#include "foundation/forms/work_form.h"
#include "foundation/menu_map.h"
#include "reports/report_run.h"

class QPushButton;

namespace vandrel {

class FieldChain;
class MaskedField;
class PathPanel;
class ProgressLine;
class ValueLabel;

class levForm : public WorkForm, private ReportProgress {
    Q_OBJECT

  public:
    // The entry's code is the mode: "0" original, "1" corrected, "E" EU report. Faults of the data files pass
    // through.
    levForm(Workstation& station, QWidget* opener, const MenuEntry& entry);

  protected:
    // A report that stops half way would leave sheets marked and unreported: the run goes on. While a locked
    // file is being waited for, the wish ends it.
    void closeWished() override;

  private:
    void run();
    void setButtonsEnabled(bool enabled);

    QWidget* makePeriodPanel();
    QWidget* makeProgressPanel();

    void started() override;
    void noData() override;
    void checking(const QString& fileName) override;
    void selectedSheets(qint64 sheets) override;
    void outputRecords(qint64 records) override;
    void procedures(qint64 positions) override;
    void moved(const QString& stage, qint64 position, qint64 total) override;
    bool givesUpWaiting() override { return takeStopWish(); }

    const QString m_mode;
    FieldChain* m_chain;
    MaskedField *m_from, *m_to, *m_settlement;
    QPushButton* m_run;
    PathPanel* m_target;
    ValueLabel *m_allSheets, *m_periodSheets, *m_records, *m_procedures, *m_selected, *m_hint;
    ProgressLine* m_line;
};

} // namespace vandrel
