// The panel of the monthly summaries: months, a range of codes and one fee category.
#pragma once

#include "statistics/forms/list_panel.h"

namespace vandrel {

class MonthlyPanel : public ListPanel {
    Q_OBJECT

  public:
    MonthlyPanel(Workstation& station, StatisticsList list, const MenuEntry& entry);

    ListRequest request() const override;
    QWidget* firstField() const override;

  private:
    MaskedField *m_from, *m_to;
    QLineEdit *m_fromCode, *m_toCode, *m_category;
    QCheckBox* m_totalsOnly;
};

} // namespace vandrel
