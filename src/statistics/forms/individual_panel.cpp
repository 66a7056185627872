#include "statistics/forms/individual_panel.h"

#include <QCheckBox>
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
    if (list == StatisticsList::visitFees) {
        m_allUnits = new QCheckBox(u"Minden munkahely"_s);
        m_allUnits->setObjectName(u"MindenMunkahely"_s);
        m_allUnits->setAccessibleName(m_allUnits->text());
        grid->addWidget(m_allUnits, 6, 1, 1, 3);
        adopt(m_allUnits); // Enter goes from the code to the button; the tick has its place among the Tabs
        connect(m_allUnits, &QCheckBox::toggled, m_code, &QWidget::setDisabled);
    }
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
    result.allUnits = m_allUnits != nullptr && m_allUnits->isChecked();
    return result;
}

} // namespace vandrel
