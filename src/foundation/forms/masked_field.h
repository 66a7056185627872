// A line edit with a fixed mask whose value includes the mask's literals and blanks: an empty date is
// "    .  .  .", not an empty text.
#pragma once

#include <QLineEdit>

namespace vandrel {

class MaskedField : public QLineEdit {
    Q_OBJECT

  public:
    enum class Mask { date, time, period, account, taxNumber };

    explicit MaskedField(Mask mask, QWidget* parent = nullptr);

    // As wide as the mask: "2008.03.12.", "    .  .  .", "14:05", "2008.03".
    QString value() const { return displayText(); }
    void setValue(const QString& value) { setText(value.isEmpty() ? m_empty : value); }
    bool isEmptyMask() const { return displayText() == m_empty; }
    // A month, day or hour of one digit gets its zero: "2008.4 .1 ." becomes "2008.04.01.", "9 :30" "09:30".
    // Minutes of one digit stay as they are: 9:3 may be 9:30.
    void padSingleDigits();
    void clearValue() { setText(m_empty); }

  private:
    QString m_empty;
    Mask m_mask;
};

} // namespace vandrel
