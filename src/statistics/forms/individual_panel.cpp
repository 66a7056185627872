#include "statistics/forms/individual_panel.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace vandrel {

IndividualPanel::IndividualPanel(Workstation& station, StatisticsList list, const MenuEntry& entry)
    : ListPanel(station) {
    auto* frame = new QGroupBox;
    auto* grid = new QGridLayout(frame);
    grid->setContentsMargins(16, 16, 16, 16);
    grid->setHorizontalSpacing(10);
    grid->setVerticalSpacing(9);
    addPeriod(grid, 0, MaskedField::Mask::period, m_from, m_to);
    grid->setRowMinimumHeight(3, 14);
    addHeading(grid, 4, textOr(entry.prompt, list_texts::units));
    const bool patient = list == StatisticsList::individualCosts;
    m_code = patient ? addCode(grid, 5,
                               {CodeKind::patient, u"Kod"_s, menuText(entry.label), menuText(entry.label)})
                     : addCode(grid, 5, {CodeKind::unit, u"Kod"_s, u"Munkahely kódja"_s, list_texts::code});
    grid->setRowMinimumHeight(6, 14);
    grid->addWidget(makeProcessButton(), 7, 0, 1, 4, Qt::AlignRight);
    grid->setColumnStretch(3, 1);
    grid->setRowStretch(8, 1);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(frame);
    linkChain();
}

ListRequest IndividualPanel::request() const {
    ListRequest result;
    result.from = m_from->value();
    result.to = m_to->value();
    result.code = m_code->text();
    return result;
}

} // namespace vandrel
