#include "statistics/forms/monthly_panel.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace vandrel {

MonthlyPanel::MonthlyPanel(Workstation& station, StatisticsList list, const MenuEntry& entry)
    : ListPanel(station) {
    auto* frame = new QGroupBox;
    auto* grid = new QGridLayout(frame);
    grid->setContentsMargins(16, 16, 16, 16);
    grid->setHorizontalSpacing(10);
    grid->setVerticalSpacing(9);
    addPeriod(grid, 0, MaskedField::Mask::period, m_from, m_to);
    grid->setRowMinimumHeight(3, 14);
    addHeading(grid, 4, textOr(entry.prompt, list_texts::units));
    const auto kind = list == StatisticsList::referrersMonthly ? CodeKind::referrer : CodeKind::unit;
    addCodeRange(grid, 5, list_texts::code, kind, m_fromCode, m_toCode);
    grid->setRowMinimumHeight(7, 14);
    addHeading(grid, 8, u"[    Térítési kategória    ]"_s);
    m_category =
        addCode(grid, 9, {CodeKind::category, u"Terites"_s, u"Térítési kategória"_s, list_texts::code});
    grid->setRowMinimumHeight(10, 14);
    // Deliberate: no list reads it, the lists print their lines whatever it says.
    m_totalsOnly = new QCheckBox(u"Csak összesen sorok?"_s);
    m_totalsOnly->setObjectName(u"CsakOsszesen"_s);
    m_totalsOnly->setAccessibleName(m_totalsOnly->text());
    chain(m_totalsOnly);
    auto* last = new QHBoxLayout;
    last->addWidget(m_totalsOnly);
    last->addStretch();
    last->addWidget(makeProcessButton());
    grid->addLayout(last, 11, 0, 1, 4);
    grid->setColumnStretch(3, 1);
    grid->setRowStretch(12, 1);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(frame);
    linkChain();

    // That list reads no data: there is nothing to fill in.
    if (list == StatisticsList::unitPerformance)
        for (QWidget* field :
             std::initializer_list<QWidget*>{m_from, m_to, m_fromCode, m_toCode, m_category, m_totalsOnly})
            field->setEnabled(false);
}

ListRequest MonthlyPanel::request() const {
    ListRequest result;
    result.from = m_from->value();
    result.to = m_to->value();
    result.fromCode = m_fromCode->text();
    result.toCode = m_toCode->text();
    result.category = m_category->text();
    return result;
}

QWidget* MonthlyPanel::firstField() const {
    return m_from->isEnabled() ? static_cast<QWidget*>(m_from) : processButton();
}

} // namespace vandrel
