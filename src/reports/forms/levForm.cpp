#include "reports/forms/levForm.h"

#include "foundation/forms/field_chain.h"
#include "foundation/forms/masked_field.h"
#include "foundation/forms/openform.h"
#include "platform/format.h"
#include "reports/report_period.h"
#include "reports/selection.h"

#include <QCloseEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPointer>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace vandrel {

namespace {

constexpr int barSteps = 10'000; // a hundredth of a percent each

QString titleSuffix(const QString& mode) {
    if (mode == "1"_L1) return u" - Javítás"_s;
    if (mode == "E"_L1) return u" - EU jelentés"_s;
    return u" - Eredeti"_s;
}

QLabel* valueLabel(const QString& name, const QString& caption) {
    auto* label = new QLabel;
    label->setObjectName(name);
    label->setAccessibleName(caption);
    label->setTextFormat(Qt::PlainText);
    return label;
}

MaskedField* periodField(const QString& name, const QString& caption) {
    auto* field = new MaskedField(MaskedField::Mask::period);
    field->setObjectName(name);
    field->setAccessibleName(caption);
    field->setFixedWidth(field->fontMetrics().horizontalAdvance(u"0000.00"_s) + 26);
    return field;
}

QPushButton* button(const QString& name, const QString& text) {
    auto* result = new QPushButton(text);
    result->setObjectName(name);
    result->setAccessibleName(text);
    result->setAutoDefault(true); // Enter presses it
    return result;
}

} // namespace

levForm::levForm(Workstation& station, QWidget* opener, const QString& mode)
    : WorkForm(station, opener), m_mode(mode), m_chain(new FieldChain(this)) {
    setObjectName(u"levForm"_s);
    setWindowTitle(u"Havi jelentéskészítés"_s + titleSuffix(mode));
    station.reportTarget = u"a:\\"_s; // anew each time the screen loads

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(18, 16, 18, 14);
    column->setSpacing(12);
    column->addWidget(makePeriodPanel());
    column->addWidget(makeTargetPanel());
    column->addWidget(makeProgressPanel());
    m_hint = valueLabel(u"figyelmeztetes"_s, u"Figyelmeztetés"_s);
    column->addWidget(m_hint);
    column->addStretch();
    setMinimumWidth(640);

    FieldBehaviour numeric;
    numeric.numeric = true;
    for (MaskedField* field : {m_from, m_to, m_settlement})
        m_chain->add(field, numeric);
    m_chain->add(m_run, pressOnEnter(m_run));
    m_chain->add(m_choose, pressOnEnter(m_choose));

    const ReportPeriods periods = defaultPeriods(mode, station.clock.today());
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
    auto* periodLabel = new QLabel(period);
    periodLabel->setBuddy(m_from);
    grid->addWidget(periodLabel, 0, 0);
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
    auto* settlementLabel = new QLabel(settlement);
    settlementLabel->setBuddy(m_settlement);
    grid->addWidget(settlementLabel, 1, 0);
    grid->addWidget(m_settlement, 1, 1);
    const bool corrected = m_mode == "1"_L1;
    settlementLabel->setVisible(corrected);
    m_settlement->setVisible(corrected);

    grid->setColumnStretch(3, 1);
    m_run = button(u"Levalogatas"_s, u"Leválogatás"_s);
    m_run->setMinimumWidth(150);
    grid->addWidget(m_run, 0, 4);
    connect(m_run, &QPushButton::clicked, this, &levForm::run);
    return panel;
}

QWidget* levForm::makeTargetPanel() {
    auto* panel = new QGroupBox;
    auto* grid = new QGridLayout(panel);
    grid->setHorizontalSpacing(10);
    m_choose = button(u"MentesiUt"_s, u"Mentési út..."_s);
    m_choose->setMinimumWidth(150);
    m_target = valueLabel(u"MentesiUtKijelzo"_s, u"Mentési út"_s);
    m_target->setFrameStyle(QFrame::Panel | QFrame::Sunken);
    m_target->setMargin(4);
    m_target->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_target->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred); // a long path widens no window
    m_target->setText(station().reportTarget);
    grid->addWidget(m_target, 0, 0);
    grid->addWidget(m_choose, 0, 1);
    m_drive = valueLabel(u"Meghajto"_s, u"Meghajtó"_s);
    m_total = valueLabel(u"TeljesLemez"_s, u"Teljes lemezterület"_s);
    m_free = valueLabel(u"SzabadLemez"_s, u"Szabad lemezterület"_s);
    auto* volume = new QHBoxLayout;
    volume->setSpacing(18);
    for (QLabel* label : {m_drive, m_total, m_free})
        volume->addWidget(label);
    volume->addStretch();
    grid->addLayout(volume, 1, 0, 1, 2);
    grid->setColumnStretch(0, 1);
    connect(m_choose, &QPushButton::clicked, this, &levForm::chooseTarget);
    return panel;
}

QWidget* levForm::makeProgressPanel() {
    auto* panel = new QGroupBox;
    auto* grid = new QGridLayout(panel);
    grid->setHorizontalSpacing(10);
    grid->setVerticalSpacing(6);
    int line = 0;
    const auto counter = [&](const QString& name, const QString& caption) {
        QLabel* value = valueLabel(name, caption);
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

    m_stage = valueLabel(u"Allapot"_s, u"Állapot"_s);
    m_percent = valueLabel(u"Szazalek"_s, u"Százalék"_s);
    m_percent->setAlignment(Qt::AlignRight);
    m_bar = new QProgressBar;
    m_bar->setObjectName(u"Folyamat"_s);
    m_bar->setAccessibleName(u"A feldolgozás állása"_s);
    m_bar->setRange(0, barSteps);
    m_bar->setValue(0);
    m_bar->setTextVisible(false);
    m_selected = valueLabel(u"Levalogatott"_s, u"Leválogatott adatlapok"_s);
    m_selected->setMinimumWidth(70);
    auto* captions = new QHBoxLayout;
    captions->addWidget(m_stage, 1);
    captions->addWidget(m_percent);
    auto* bar = new QGridLayout;
    bar->addLayout(captions, 0, 0);
    bar->addWidget(m_bar, 1, 0);
    bar->addWidget(m_selected, 1, 1);
    bar->setColumnStretch(0, 1);
    bar->setHorizontalSpacing(10);
    bar->setVerticalSpacing(4);
    grid->setRowMinimumHeight(line++, 6);
    grid->addLayout(bar, line, 0, 1, 3);
    grid->setColumnStretch(2, 1);
    return panel;
}

void levForm::setButtonsEnabled(bool enabled) {
    m_run->setEnabled(enabled);
    m_choose->setEnabled(enabled);
}

void levForm::run() {
    if (m_running) return;
    m_running = true;
    m_closeWished = false;
    setButtonsEnabled(false);
    const ReportOutcome outcome =
        runReport(station(), {m_mode, m_from->value(), m_to->value(), m_settlement->value()}, *this);
    m_running = false;
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
    const double share = total > 0 ? static_cast<double>(position) / static_cast<double>(total) : 1.0;
    m_stage->setText(stage + QString::number(position));
    m_percent->setText(format::percent(share * 100.0));
    m_bar->setValue(static_cast<int>(share * barSteps));
}

void levForm::chooseTarget() {
    auto* picker = new openform(station(), this, u"1"_s,
                                [form = QPointer<levForm>(this)](const QString&, const VolumeTexts& texts) {
                                    if (form != nullptr) form->targetChosen(texts);
                                });
    connect(picker, &WorkForm::closed, picker, &QObject::deleteLater);
    picker->open();
}

void levForm::targetChosen(const VolumeTexts& texts) {
    m_target->setText(station().reportTarget);
    m_drive->setText(texts.drive);
    m_total->setText(texts.total);
    m_free->setText(texts.free);
}

void levForm::closeEvent(QCloseEvent* event) {
    if (m_running) {
        m_closeWished = true;
        m_hint->setText(u"A leválogatás fut, kérem várjon, amíg befejeződik!"_s);
    }
    if (m_running || !isEnabled()) {
        event->ignore();
        return;
    }
    WorkForm::closeEvent(event);
}

void levForm::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape)
        close();
    else
        WorkForm::keyPressEvent(event);
}

} // namespace vandrel
