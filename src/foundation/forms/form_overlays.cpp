#include "foundation/forms/form_overlays.h"

#include "foundation/forms/month_picker.h"
#include "foundation/forms/pick_list_frame.h"

#include <QApplication>
#include <QCheckBox>
#include <QLineEdit>

namespace vandrel {

FormOverlays::FormOverlays(FieldSetBase& fields, QWidget* form)
    : QObject(form), m_fields(fields), m_pickList(new PickListFrame(form)),
      m_calendar(new MonthPicker(form)) {
    add(m_pickList);
    add(m_calendar);
    connect(m_pickList, &PickListFrame::taken, this,
            [this](const QString& code) { take(*m_pickList, code); });
    connect(m_calendar, &MonthPicker::picked, this, [this](const QString& date) { take(*m_calendar, date); });
    fields.setAids({.openList = [this](PickMarker list, QLineEdit* field) { openList(list, field); },
                    .openCalendar = [this](QLineEdit* field) { openCalendar(field); }});
}

void FormOverlays::add(OverlayFrame* frame) {
    connect(frame, &OverlayFrame::closeAsked, this, [this, frame] { leave(*frame); });
}

bool FormOverlays::cover(OverlayFrame& frame, QWidget* focus) {
    if (!m_fields.chain.checkFocused()) return false;
    show(frame, QApplication::focusWidget(), focus);
    return true;
}

void FormOverlays::show(OverlayFrame& frame, QWidget* returnTo, QWidget* focus) {
    const ChecksPaused paused(m_fields.chain);
    frame.returnTo = returnTo;
    frame.cover();
    std::erase(m_open, &frame);
    m_open.push_back(&frame);
    SelectAll(focus);
}

void FormOverlays::close(OverlayFrame& frame, QWidget* focus) {
    const ChecksPaused paused(m_fields.chain);
    frame.uncover();
    std::erase(m_open, &frame);
    SelectAll(focus != nullptr ? focus : m_home.data());
}

void FormOverlays::leave(OverlayFrame& frame) {
    if (m_fields.chain.checkFocused() && frame.isVisible()) close(frame, frame.returnTo);
}

void FormOverlays::closeAll() {
    for (OverlayFrame* frame : m_open)
        frame->uncover();
    m_open.clear();
}

void FormOverlays::uncover(const QWidget* widget) {
    std::erase_if(m_open, [widget](OverlayFrame* frame) {
        if (frame->isAncestorOf(widget)) return false;
        frame->uncover();
        return true;
    });
}

bool FormOverlays::picking() const {
    return m_pickList->isVisible() || m_calendar->isVisible();
}

void FormOverlays::take(OverlayFrame& frame, const QString& value) {
    const QPointer<QWidget> field = frame.returnTo;
    close(frame, field);
    if (field == nullptr) return;
    m_fields.setTextOf(qobject_cast<QLineEdit*>(field), value);
    SelectAll(field);
}

void FormOverlays::openList(PickMarker list, QLineEdit* field) {
    m_fields.guarded([&] {
        m_pickList->switchBox()->setChecked(true);
        m_pickList->load(m_fields.station, list, field->text());
        show(*m_pickList, field, m_pickList->list());
    });
}

void FormOverlays::openCalendar(QLineEdit* field) {
    if (picking()) return;
    // By its button the calendar opens while another field has the focus, which is then left.
    if (QApplication::focusWidget() != field && !m_fields.chain.checkFocused()) return;
    m_calendar->load(FieldSetBase::textOf(field), m_fields.station.clock.today());
    show(*m_calendar, field, m_calendar->calendar());
}

} // namespace vandrel
