#include "statistics/forms/statisztForm.h"

#include "foundation/forms/form_parts.h"
#include "foundation/forms/progress_line.h"
#include "statistics/forms/individual_panel.h"
#include "statistics/forms/monthly_panel.h"
#include "statistics/forms/traffic_log_panel.h"
#include "statistics/list_runner.h"

#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace vandrel {

statisztForm::statisztForm(Workstation& station, QWidget* opener, const MenuEntry& entry)
    : WorkForm(station, opener), m_list(static_cast<StatisticsList>(menuText(entry.code).toInt())),
      m_document(*station.printing) {
    setObjectName(u"statisztForm"_s);
    setWindowTitle(windowTitleFor(entry, u"Statisztikák készítése"_s));
    m_document.setAppName(menuText(entry.title).trimmed());

    auto* title = new ValueLabel(u"PanelCim"_s, u"A lista neve"_s);
    title->setText(menuText(entry.title));
    QFont font = title->font();
    font.setBold(true);
    font.setPointSizeF(font.pointSizeF() * 1.25);
    title->setFont(font);
    title->setMargin(2);

    m_panel = makePanel(entry);
    connect(m_panel, &ListPanel::processWanted, this, &statisztForm::process);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(18, 14, 18, 14);
    column->setSpacing(12);
    column->addWidget(title);
    column->addWidget(m_panel, 1);
    m_line =
        new ProgressLine(*this, ProgressLine::Figure::count, u"Adatlapok"_s, u"Feldolgozott adatlapok"_s);
    m_line->setMinimumWidth(600);
    column->addWidget(m_line);
    // While the screen closes nothing is checked any more.
    connect(this, &WorkForm::closed, m_panel, &ListPanel::leave);
}

ListPanel* statisztForm::makePanel(const MenuEntry& entry) {
    switch (m_list) {
    case StatisticsList::trafficLog:
    case StatisticsList::referrersItemised:
        return new TrafficLogPanel(station(), entry);
    case StatisticsList::unitPerformance:
    case StatisticsList::referrersMonthly:
    case StatisticsList::proceduresDone:
        return new MonthlyPanel(station(), m_list, entry);
    case StatisticsList::individualCosts:
    case StatisticsList::combined:
    case StatisticsList::visitFees:
        break;
    }
    return new IndividualPanel(station(), m_list, entry);
}

void statisztForm::showEvent(QShowEvent* event) {
    WorkForm::showEvent(event);
    if (m_shown) return;
    m_shown = true;
    SelectAll(m_panel->firstField());
    // This list asks for nothing: its preview comes at once, after the screen's own first picture.
    if (m_list == StatisticsList::unitPerformance)
        QMetaObject::invokeMethod(
            this,
            [this] {
                if (isVisible()) process();
            },
            Qt::QueuedConnection);
}

void statisztForm::process() {
    if (isRunning() || !m_panel->checkFocused()) return;
    const ListRequest request = m_panel->request();
    if (const auto complaint = checkRequest(m_list, request)) {
        m_panel->complain(*complaint);
        return;
    }
    makeList(request);
}

void statisztForm::makeList(const ListRequest& request) {
    switch (run(request)) {
    case ListOutcome::ready:
        break;
    case ListOutcome::stopped:
        m_line->stage(u"A lista készítése megszakítva."_s);
        return;
    case ListOutcome::noData:
    case ListOutcome::failed:
        m_line->stage({});
        return;
    }
    if (programEnds()) return; // nothing more is opened
    m_document.setSaveName(listFileName(m_document.AppName(), m_list, request));
    m_line->stage(list_status::makingPreview);
    m_line->repaint(); // laying out a long list takes a moment
    m_document.Preview();
    m_line->stage(list_status::ready);
    activateWindow();
    SelectAll(m_panel->processButton());
}

ListOutcome statisztForm::run(const ListRequest& request) {
    const Run guard(*this);
    m_line->clear();
    setFocus(Qt::OtherFocusReason); // Esc comes here, and what is typed ahead goes nowhere
    m_panel->setEnabled(false);
    const ListOutcome outcome = runList(station(), m_list, request, m_document, *m_line);
    m_panel->setEnabled(true);
    SelectAll(m_panel->processButton());
    return outcome;
}

} // namespace vandrel
