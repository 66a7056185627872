// The panel of the lists by fee categories and days ("Betegforgalmi lista készítése"), in two steps: the
// categories first, then the period and the units.
#pragma once

#include "statistics/forms/list_panel.h"

#include <array>

namespace vandrel {

class TrafficLogPanel : public ListPanel {
    Q_OBJECT

  public:
    TrafficLogPanel(Workstation& station, const MenuEntry& entry);

    ListRequest request() const override;
    QWidget* firstField() const override;

  private:
    QWidget* makeCategories();
    QWidget* makeRange(const MenuEntry& entry);
    void categoryTicked(QCheckBox* box);
    void goOn(); // "Tovább     >>"
    bool periodLeft();
    void setSecondStep(bool enabled);

    std::array<QCheckBox*, feeCategoryCount> m_boxes{};
    QCheckBox* m_all;
    QPushButton* m_goOn;
    MaskedField *m_from, *m_to;
    QLineEdit *m_fromUnit, *m_toUnit;
};

} // namespace vandrel
