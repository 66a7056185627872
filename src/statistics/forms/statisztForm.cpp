#include "statistics/forms/statisztForm.h"

#include "statistics/forms/individual_panel.h"
#include "statistics/forms/monthly_panel.h"
#include "statistics/forms/traffic_log_panel.h"
#include "statistics/list_runner.h"

#include <QCloseEvent>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

#include <utility>

using namespace Qt::StringLiterals;

namespace vandrel {

namespace {

constexpr int barSteps = 1000;

QLabel* plainLabel(const QString& name, const QString& accessible) {
    auto* label = new QLabel;
    label->setObjectName(name);
    label->setAccessibleName(accessible);
    label->setTextFormat(Qt::PlainText);
    return label;
}

} // namespace

statisztForm::statisztForm(Workstation& station, QWidget* opener, const MenuEntry& entry)
    : WorkForm(station, opener), m_list(static_cast<StatisticsList>(menuText(entry.code).toInt())),
      m_document(*station.printing) {
    setObjectName(u"statisztForm"_s);
    setWindowTitle(textOr(entry.windowTitle, u"Statisztikák készítése"_s));
    m_document.setAppName(menuText(entry.title).trimmed());

    auto* title = plainLabel(u"PanelCim"_s, u"A lista neve"_s);
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
    column->addWidget(makeProgress());
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

QWidget* statisztForm::makeProgress() {
    auto* line = new QWidget;
    auto* grid = new QGridLayout(line);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setVerticalSpacing(4);
    m_status = plainLabel(u"Allapot"_s, u"Állapot"_s);
    m_status->setMargin(2);
    m_sheets = plainLabel(u"Adatlapok"_s, u"Feldolgozott adatlapok"_s);
    m_sheets->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    m_bar = new QProgressBar;
    m_bar->setObjectName(u"Folyamat"_s);
    m_bar->setAccessibleName(u"A feldolgozás állása"_s);
    m_bar->setRange(0, barSteps);
    m_bar->setValue(0);
    m_bar->setTextVisible(false);
    m_bar->setMinimumWidth(600);
    grid->addWidget(m_status, 0, 0);
    grid->addWidget(m_sheets, 0, 1);
    grid->addWidget(m_bar, 1, 0, 1, 2);
    grid->setColumnStretch(0, 1);
    return line;
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
    if (m_running || !m_panel->checkFocused()) return;
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
        m_status->setText(u"A lista készítése megszakítva."_s);
        return;
    case ListOutcome::noData:
    case ListOutcome::failed:
        m_status->clear();
        return;
    }
    if (ending()) return; // nothing more is opened
    m_document.setSaveName(listFileName(m_document.AppName(), m_list, request));
    m_status->setText(list_status::makingPreview);
    m_status->repaint(); // laying out a long list takes a moment
    m_document.Preview();
    m_status->setText(list_status::ready);
    activateWindow();
    SelectAll(m_panel->processButton());
}

// The main window was closed, which ends the program.
bool statisztForm::ending() const {
    return opener() != nullptr && !opener()->isVisible();
}

ListOutcome statisztForm::run(const ListRequest& request) {
    ListProgress progress;
    progress.status = [this](const QString& text) { m_status->setText(text); };
    progress.sheetsDone = [this](qint64 done, qint64 all) {
        m_sheets->setText(u"%1 / %2"_s.arg(done).arg(all));
        m_bar->setValue(all > 0 ? static_cast<int>(done * barSteps / all) : barSteps);
    };
    progress.stopWanted = [this] { return std::exchange(m_stopWanted, false); };
    progress.ending = [this] { return ending(); };
    setRunning(true);
    const ListOutcome outcome = runList(station(), m_list, request, m_document, progress);
    setRunning(false);
    SelectAll(m_panel->processButton());
    return outcome;
}

void statisztForm::setRunning(bool running) {
    m_running = running;
    m_stopWanted = false;
    if (running) {
        m_sheets->clear();
        m_bar->setValue(0);
        setFocus(Qt::OtherFocusReason); // Esc comes here, and what is typed ahead goes nowhere
    }
    m_panel->setEnabled(!running);
}

void statisztForm::closeEvent(QCloseEvent* event) {
    if (m_running) {
        m_stopWanted = true;
        event->ignore();
        return;
    }
    m_panel->leave();
    WorkForm::closeEvent(event);
}

void statisztForm::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape)
        close();
    else
        WorkForm::keyPressEvent(event);
}

} // namespace vandrel
