// The panel of the lists about one patient or one unit: months and one code.
#pragma once

#include "statistics/forms/list_panel.h"

namespace vandrel {

class IndividualPanel : public ListPanel {
    Q_OBJECT

  public:
    IndividualPanel(Workstation& station, StatisticsList list, const MenuEntry& entry);

    ListRequest request() const override;
    QWidget* firstField() const override { return m_from; }

  private:
    MaskedField *m_from, *m_to;
    QLineEdit* m_code;
    QCheckBox* m_allUnits = nullptr; // list 8 only
};

} // namespace vandrel
