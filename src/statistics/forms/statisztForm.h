// "Statisztikák készítése": one screen for the eight lists. It shows the list's panel and the progress of a
// run, and hands the finished document to the preview; how a list is made is in statistics/list_runner.h.
#pragma once

#include "foundation/forms/work_form.h"
#include "foundation/menu_map.h"
#include "print/qc_printer.h"
#include "statistics/list_request.h"

namespace vandrel {

class ListPanel;
class ProgressLine;

class statisztForm : public WorkForm {
    Q_OBJECT

  public:
    // The menu entry brings the list's number and the texts of this opening. station.printing is set. All
    // fields are empty at every opening: a form is made for each.
    statisztForm(Workstation& station, QWidget* opener, const MenuEntry& entry);

  protected:
    void showEvent(QShowEvent* event) override;

  private:
    ListPanel* makePanel(const MenuEntry& entry);
    void process();
    void makeList(const ListRequest& request);
    ListOutcome run(const ListRequest& request);

    const StatisticsList m_list;
    qcPrinter m_document;
    ListPanel* m_panel;
    ProgressLine* m_line;
    bool m_shown = false;
};

} // namespace vandrel
