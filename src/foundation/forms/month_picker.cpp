// A calendar in a frame over the sheet.
#include "foundation/forms/month_picker.h"

#include "platform/format.h"

#include <QCalendarWidget>
#include <QKeyEvent>
#include <QLocale>
#include <QTableView>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace vandrel {

MonthPicker::MonthPicker(QWidget* form)
    : OverlayFrame(form, u"naptar_keret"_s, u"Naptár"_s), m_calendar(new QCalendarWidget) {
    m_calendar->setObjectName(u"naptar"_s);
    m_calendar->setAccessibleName(u"Naptár"_s);
    m_calendar->setLocale(QLocale(QLocale::Hungarian, QLocale::Hungary));
    m_calendar->setFirstDayOfWeek(Qt::Monday);
    m_calendar->setVerticalHeaderFormat(QCalendarWidget::ISOWeekNumbers);
    m_calendar->setGridVisible(true);
    m_calendar->setMinimumSize(380, 260);
    body()->addWidget(m_calendar);
    m_days = m_calendar->findChild<QTableView*>();
    m_days->installEventFilter(this);
    const auto take = [this](QDate date) { Q_EMIT picked(format::shortDate(date)); };
    connect(m_calendar, &QCalendarWidget::clicked, this, take);
    setKeysHint(u"<Nyilak> nap     <PgUp>/<PgDn> hónap     <Enter> Átvesz     <Esc> Mégsem"_s);
}

void MonthPicker::load(const QString& value, QDate today) {
    m_calendar->setSelectedDate(format::parseDate(value).value_or(today));
}

QWidget* MonthPicker::calendar() const {
    return m_days;
}

bool MonthPicker::eventFilter(QObject* watched, QEvent* event) {
    if (watched == m_days && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            Q_EMIT picked(format::shortDate(m_calendar->selectedDate()));
            return true;
        }
        if (key == Qt::Key_Escape) {
            Q_EMIT closeAsked();
            return true;
        }
    }
    return OverlayFrame::eventFilter(watched, event);
}

} // namespace vandrel
