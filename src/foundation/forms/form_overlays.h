// The frames that lie over a form, as a stack: who covers, who gets the focus back, and the pause of the
// field checks meanwhile. It brings the pick-list and the calendar, which any form with a field table has
// from here; frames of its own the form adds.
#pragma once

#include "foundation/forms/field_set.h"

#include <QObject>

#include <vector>

namespace vandrel {

class MonthPicker;
class OverlayFrame;
class PickListFrame;

class FormOverlays : public QObject {
    Q_OBJECT

  public:
    // Both outlive this. The lists and calendars of the fields open here from now on.
    FormOverlays(FieldSetBase& fields, QWidget* form);

    // A frame of the form: Esc, its close button and a click on the shade leave it.
    void add(OverlayFrame* frame);
    // The focus when a frame closes and nothing had it before.
    void setHome(QWidget* field) { m_home = field; }

    // Covers the form, unless the field that has the focus does not let it go; false then.
    bool cover(OverlayFrame& frame, QWidget* focus);
    // The same without a check; the focus goes back to returnTo.
    void show(OverlayFrame& frame, QWidget* returnTo, QWidget* focus);
    // Closes the frame, if the field of it that has the focus lets it go; the focus goes back.
    void leave(OverlayFrame& frame);
    void closeAll(); // the focus is the caller's business
    // Closes every frame that hides the widget.
    void uncover(const QWidget* widget);
    // The frame in front; null when none is open.
    OverlayFrame* top() const { return m_open.empty() ? nullptr : m_open.back(); }
    // The pick-list or the calendar is in front: it takes all input.
    bool picking() const;

    // Fills the list and shows it; a fault is shown in a box. The check of the field that asked waits until
    // the list is done with.
    void openList(PickMarker list, QLineEdit* field);
    void openCalendar(QLineEdit* field);
    PickListFrame& pickList() const { return *m_pickList; }

  private:
    void close(OverlayFrame& frame, QWidget* focus);
    void take(OverlayFrame& frame, const QString& value);

    FieldSetBase& m_fields;
    PickListFrame* m_pickList;
    MonthPicker* m_calendar;
    QPointer<QWidget> m_home;
    std::vector<OverlayFrame*> m_open; // the last one in front
};

} // namespace vandrel
