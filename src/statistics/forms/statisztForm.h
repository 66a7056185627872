// "Statisztikák készítése": one screen for the eight lists. It shows the list's panel and the progress of a
// run, and hands the finished document to the preview; how a list is made is in statistics/list_runner.h.
#pragma once

#include "foundation/forms/work_form.h"
#include "foundation/menu_map.h"
#include "print/qc_printer.h"
#include "statistics/list_request.h"

class QLabel;
class QProgressBar;

namespace vandrel {

class ListPanel;

class statisztForm : public WorkForm {
    Q_OBJECT

  public:
    // The menu entry brings the list's number and the texts of this opening. station.printing is set. All
    // fields are empty at every opening: a form is made for each.
    statisztForm(Workstation& station, QWidget* opener, const MenuEntry& entry);

  protected:
    void showEvent(QShowEvent* event) override;
    // Not during a run: that asks whether the list is to be broken off.
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override; // Esc closes, or asks the same

  private:
    ListPanel* makePanel(const MenuEntry& entry);
    QWidget* makeProgress();
    void process();
    void makeList(const ListRequest& request);
    ListOutcome run(const ListRequest& request);
    bool ending() const;
    void setRunning(bool running);

    const StatisticsList m_list;
    qcPrinter m_document;
    ListPanel* m_panel;
    QLabel *m_status, *m_sheets;
    QProgressBar* m_bar;
    bool m_shown = false;
    bool m_running = false;
    bool m_stopWanted = false;
};

} // namespace vandrel
