// The groups of the visit itself: unit and referral, fee and care, diagnoses, correction; with the rules that
// bind their fields to each other.
#pragma once

#include "foundation/forms/form_group.h"

#include <functional>

class QPushButton;

namespace vandrel {

class SheetDesk;

// The dictionary for a table code of tetad_kieg1.
using OpenDictionary = std::function<void(int tableCode)>;

inline constexpr int leftLabelWidth = 156;
inline constexpr int rightLabelWidth = 186;

class UnitFrame : public FormGroup {
    Q_OBJECT

  public:
    UnitFrame(SheetDesk& desk, QWidget* parent);

  private:
    bool unitLeft(); // doctor and journal number follow the unit of a new sheet

    SheetDesk& m_desk;
};

class FeeFrame : public FormGroup {
    Q_OBJECT

  public:
    FeeFrame(SheetDesk& desk, QWidget* parent);

  private:
    void showCategory(); // the partial fee is there for "0R" only

    SheetDesk& m_desk;
    QLabel* m_categoryLabel;
    QLabel* m_currency;
};

class DiagnosesFrame : public FormGroup {
    Q_OBJECT

  public:
    DiagnosesFrame(SheetDesk& desk, const OpenDictionary& dictionary, QWidget* parent);
};

class CorrectionFrame : public FormGroup {
    Q_OBJECT

  public:
    CorrectionFrame(SheetDesk& desk, QWidget* parent);
};

} // namespace vandrel
