// The month picker behind the calendar buttons: Hungarian, Monday first, worked by keys or mouse.
#pragma once

#include "foundation/forms/overlay_frame.h"

#include <QDate>

class QCalendarWidget;

namespace vandrel {

class MonthPicker : public OverlayFrame {
    Q_OBJECT

  public:
    explicit MonthPicker(QWidget* form);

    // Marks the given day, or today where it is none.
    void load(const QString& value, QDate today);
    QWidget* calendar() const;

  Q_SIGNALS:
    void picked(const QString& date); // éééé.hh.nn.

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    QCalendarWidget* m_calendar;
    QWidget* m_days; // the part of the calendar that takes the keys
};

} // namespace vandrel
