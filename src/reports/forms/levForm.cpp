#include "reports/forms/levForm.h"

#include "foundation/forms/field_chain.h"
#include "foundation/forms/form_parts.h"
#include "foundation/forms/masked_field.h"
#include "foundation/forms/path_panel.h"
#include "foundation/forms/progress_line.h"
#include "reports/report_period.h"
#include "reports/selection.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace vandrel {

namespace {

MaskedField* periodField(const QString& name, const QString& caption) {
    auto* field = named(new MaskedField(MaskedField::Mask::period), name, caption);
    field->setFixedWidth(field->fontMetrics().horizontalAdvance(u"0000.00"_s) + 26);
    return field;
}

} // namespace

levForm::levForm(Workstation& station, QWidget* opener, const MenuEntry& entry)
    : WorkForm(station, opener), m_mode(menuText(entry.code)), m_chain(new FieldChain(this)) {
    setObjectName(u"levForm"_s);
    setWindowTitle(windowTitleFor(entry, u"Havi jelentéskészítés"_s));
    station.reportTarget = u"a:\\"_s; // anew each time the screen loads

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(18, 16, 18, 14);
    column->setSpacing(12);
    column->addWidget(makePeriodPanel());
    m_target = new PathPanel(
        station, *this, {u"1"_s, u"MentesiUt"_s, u"Mentési út..."_s, u"MentesiUtKijelzo"_s, u"Mentési út"_s});
    m_target->setPath(station.reportTarget);
    column->addWidget(m_target);
    column->addWidget(makeProgressPanel());
    m_hint = new ValueLabel(u"figyelmeztetes"_s, u"Figyelmeztetés"_s);
    column->addWidget(m_hint);
    column->addStretch();
    setMinimumWidth(640);

    FieldBehaviour numeric;
    numeric.numeric = true;
    for (MaskedField* field : {m_from, m_to, m_settlement})
        m_chain->add(field, numeric);
    m_chain->add(m_run, pressOnEnter(m_run));
    m_chain->add(m_target->button(), pressOnEnter(m_target->button()));

    const ReportPeriods periods = defaultPeriods(m_mode, station.clock.today());
    m_from->setValue(periods.period);
    m_to->setValue(periods.period);
    m_settlement->setValue(periods.settlement);
    m_allSheets->setText(QString::number(countSheets(station)));
    SelectAll(m_from);
}

QWidget* levForm::makePeriodPanel() {
    auto* panel = new QGroupBox;
    auto* grid = new QGridLayout(panel);
    grid->setHorizontalSpacing(10);
    grid->setVerticalSpacing(10);
    const QString period = u"Időszak (éééé.hh): "_s;
    m_from = periodField(u"IdoszakTol"_s, period + u"-tól"_s);
    m_to = periodField(u"IdoszakIg"_s, period + u"-ig"_s);
    grid->addWidget(makeLabel(period, m_from), 0, 0);
    grid->addWidget(m_from, 0, 1);
    // In mode "E" only the from-field counts.
    auto* toPanel = new QWidget;
    toPanel->setObjectName(u"IdoszakIgPanel"_s);
    auto* toRow = new QHBoxLayout(toPanel);
    toRow->setContentsMargins(0, 0, 0, 0);
    toRow->addWidget(new QLabel(u"-"_s));
    toRow->addWidget(m_to);
    toPanel->setVisible(m_mode != "E"_L1);
    grid->addWidget(toPanel, 0, 2);

    const QString settlement = u"Elszámolási időszak (éééé.hh): "_s;
    m_settlement = periodField(u"ElszIdoszak"_s, settlement);
    QLabel* settlementLabel = makeLabel(settlement, m_settlement);
    grid->addWidget(settlementLabel, 1, 0);
    grid->addWidget(m_settlement, 1, 1);
    const bool corrected = m_mode == "1"_L1;
    settlementLabel->setVisible(corrected);
    m_settlement->setVisible(corrected);

    grid->setColumnStretch(3, 1);
    m_run = makeButton(u"Levalogatas"_s, u"Leválogatás"_s, 150);
    grid->addWidget(m_run, 0, 4);
    connect(m_run, &QPushButton::clicked, this, &levForm::run);
    return panel;
}

QWidget* levForm::makeProgressPanel() {
    auto* panel = new QGroupBox;
    auto* grid = new QGridLayout(panel);
    grid->setHorizontalSpacing(10);
    grid->setVerticalSpacing(6);
    int line = 0;
    const auto counter = [&](const QString& name, const QString& caption) {
        auto* value = new ValueLabel(name, caption);
        value->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        value->setMinimumWidth(90);
        value->setText(u"0"_s);
        auto* label = new QLabel(caption);
        label->setMargin(2); // the marks of a capital stand above the font's own height
        grid->addWidget(label, line, 0);
        grid->addWidget(value, line, 1);
        ++line;
        return value;
    };
    m_allSheets = counter(u"OsszesInput"_s, u"Összes input rekord:"_s);
    m_periodSheets = counter(u"IdoszakInput"_s, u"Input rekord az adott időszakban: "_s);
    m_records = counter(u"Output"_s, u"Output rekord:"_s);
    m_procedures = counter(u"OsszesBeavatkozas"_s, u"Összes beavatkozás (db):"_s);

    m_selected = new ValueLabel(u"Levalogatott"_s, u"Leválogatott adatlapok"_s);
    m_selected->setMinimumWidth(70);
    m_line = new ProgressLine(*this, ProgressLine::Figure::percent, u"Szazalek"_s, u"Százalék"_s);
    m_line->addBesideBar(m_selected);
    grid->setRowMinimumHeight(line++, 6);
    grid->addWidget(m_line, line, 0, 1, 3);
    grid->setColumnStretch(2, 1);
    return panel;
}

void levForm::setButtonsEnabled(bool enabled) {
    m_run->setEnabled(enabled);
    m_target->button()->setEnabled(enabled);
}

void levForm::run() {
    ReportOutcome outcome;
    {
        const Run guard(*this);
        if (!guard) return;
        setButtonsEnabled(false);
        outcome =
            runReport(station(), {m_mode, m_from->value(), m_to->value(), m_settlement->value()}, *this);
    }
    m_hint->setText(outcome.detail);
    using Result = ReportOutcome::Result;
    switch (outcome.result) {
    case Result::refused:
        setButtonsEnabled(true);
        // All three checks lead back to the from-field.
        SelectAll(m_from);
        break;
    case Result::notBuilt:
    case Result::notStarted:
        setButtonsEnabled(true);
        m_run->setFocus();
        break;
    case Result::broken:
        // The wait cursor and the closed fields stay as the fault found them: wanted, the run is not over
        // until the marks are released or the run is started again.
        setButtonsEnabled(true);
        m_run->setFocus();
        break;
    case Result::noData:
        setButtonsEnabled(true);
        SelectAll(m_from);
        break;
    case Result::writerEnded:
        // One report an opening: for another one the screen is closed and opened again.
        m_from->setEnabled(false);
        m_to->setEnabled(false);
        unsetCursor();
        break;
    }
}

void levForm::started() {
    setCursor(Qt::WaitCursor);
    for (MaskedField* field : {m_from, m_to, m_settlement})
        field->setEnabled(false);
}

void levForm::noData() {
    unsetCursor();
    m_from->setEnabled(true);
    m_to->setEnabled(true);
}

void levForm::checking(const QString& fileName) {
    m_hint->setText(u"Az adatállományok ellenőrzése: %1"_s.arg(fileName));
}

void levForm::selectedSheets(qint64 sheets) {
    m_periodSheets->setText(QString::number(sheets));
    m_selected->setText(QString::number(sheets));
}

void levForm::outputRecords(qint64 records) {
    m_records->setText(QString::number(records));
}

void levForm::procedures(qint64 positions) {
    m_procedures->setText(QString::number(positions));
}

void levForm::moved(const QString& stage, qint64 position, qint64 total) {
    m_line->stage(stage);
    m_line->moved(position, total);
}

void levForm::closeWished() {
    m_hint->setText(u"A leválogatás fut, kérem várjon, amíg befejeződik!"_s);
}

} // namespace vandrel
