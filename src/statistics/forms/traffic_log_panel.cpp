#include "statistics/forms/traffic_log_panel.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace vandrel {

TrafficLogPanel::TrafficLogPanel(Workstation& station, const MenuEntry& entry) : ListPanel(station) {
    auto* frame = new QGroupBox(u"Betegforgalmi lista készítése"_s);
    auto* steps = new QHBoxLayout(frame);
    steps->setContentsMargins(14, 14, 14, 14);
    steps->setSpacing(28);
    steps->addWidget(makeCategories());
    steps->addWidget(makeRange(entry), 1);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(frame);
    linkChain();
    setSecondStep(false);
}

QWidget* TrafficLogPanel::makeCategories() {
    auto* step = new QWidget;
    auto* column = new QVBoxLayout(step);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(7);
    column->addWidget(heading(u"[    Mely betegekről kéri a listát?    ]"_s));
    const auto box = [&](const QString& caption, const QString& name) {
        auto* result = new QCheckBox(caption);
        result->setObjectName(name);
        result->setAccessibleName(caption);
        column->addWidget(result);
        chain(result);
        connect(result, &QCheckBox::toggled, this, [this, result] { categoryTicked(result); });
        return result;
    };
    for (std::size_t i = 0; i < m_boxes.size(); ++i)
        m_boxes[i] = box(feeCategoryBoxes()[i].caption, u"Terites"_s + feeCategoryBoxes()[i].value);
    m_all = box(u"Összes térítési kategória"_s, u"TeritesOsszes"_s);
    column->addSpacing(8);
    m_goOn = makeButton(u"Tovabb"_s, u"Tovább     >>"_s);
    connect(m_goOn, &QPushButton::clicked, this, &TrafficLogPanel::goOn);
    column->addWidget(m_goOn, 0, Qt::AlignRight);
    column->addStretch();
    return step;
}

QWidget* TrafficLogPanel::makeRange(const MenuEntry& entry) {
    auto* step = new QWidget;
    auto* grid = new QGridLayout(step);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(10);
    grid->setVerticalSpacing(9);
    FieldBehaviour leavesPeriod;
    leavesPeriod.leave = [this] { return periodLeft(); };
    addPeriod(grid, 0, MaskedField::Mask::date, m_from, m_to, leavesPeriod);
    grid->setRowMinimumHeight(3, 14);
    // Deliberate: in the list of referrers the prompt speaks of them, but the fields hold units there too.
    addHeading(grid, 4, textOr(entry.prompt, list_texts::units));
    addCodeRange(grid, 5, {}, CodeKind::unit, m_fromUnit, m_toUnit);
    auto* hint = new QLabel(u"A mezőkbe a munkahelyek kódja írandó."_s);
    hint->setObjectName(u"KodMagyarazat"_s);
    hint->setWordWrap(true);
    grid->addWidget(hint, 7, 1, 1, 3);
    for (QLineEdit* field : {m_fromUnit, m_toUnit})
        field->setAccessibleDescription(hint->text());
    grid->setRowStretch(8, 1);
    grid->addWidget(makeProcessButton(), 9, 0, 1, 4, Qt::AlignRight);
    grid->setColumnStretch(3, 1);
    return step;
}

void TrafficLogPanel::categoryTicked(QCheckBox* box) {
    if (box->isChecked()) {
        if (box == m_all) {
            for (QCheckBox* other : m_boxes)
                other->setChecked(false);
        } else {
            m_all->setChecked(false);
        }
    }
    // What the second step was opened for is no more what is ticked.
    setSecondStep(false);
}

void TrafficLogPanel::setSecondStep(bool enabled) {
    for (QWidget* field :
         std::initializer_list<QWidget*>{m_from, m_to, m_fromUnit, m_toUnit, processButton()})
        field->setEnabled(enabled);
}

void TrafficLogPanel::goOn() {
    if (const auto complaint = checkCategories(request())) {
        complain(*complaint);
        return;
    }
    setSecondStep(true);
    SelectAll(m_from);
}

bool TrafficLogPanel::periodLeft() {
    // An unfilled date is no date yet; "Feldolgozás" asks for it.
    if (m_from->isEmptyMask() || m_to->isEmptyMask()) return true;
    if (const auto complaint = checkPeriodOrder(request())) {
        complain(*complaint);
        return false;
    }
    m_fromUnit->setEnabled(true);
    m_toUnit->setEnabled(true);
    return true;
}

ListRequest TrafficLogPanel::request() const {
    ListRequest result;
    result.allCategories = m_all->isChecked();
    for (std::size_t i = 0; i < m_boxes.size(); ++i)
        if (m_boxes[i]->isChecked()) result.categories << feeCategoryBoxes()[i].value;
    result.from = m_from->value();
    result.to = m_to->value();
    result.fromCode = m_fromUnit->text();
    result.toCode = m_toUnit->text();
    return result;
}

QWidget* TrafficLogPanel::firstField() const {
    return m_boxes[0];
}

} // namespace vandrel
