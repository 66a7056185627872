// The small parts that every form is made of, with their names: objectName for the tests, accessible name for
// screen readers. Knows no form.
#pragma once

#include <QLabel>
#include <QString>

class QKeyEvent;
class QPushButton;

namespace vandrel {

// Names a control and gives it back. accessible: its label, caption or tool tip.
template<class Widget>
Widget* named(Widget* widget, const QString& objectName, const QString& accessible) {
    widget->setObjectName(objectName);
    widget->setAccessibleName(accessible);
    return widget;
}

// A button that Enter presses. text may mark an access letter by '&'; the accessible name is without it.
QPushButton* makeButton(const QString& objectName, const QString& text, int minimumWidth = 0);

// A caption before its field.
QLabel* makeLabel(const QString& text, QWidget* field);

// A label that shows a changing value, always as plain text. Its accessible name gives caption and value.
class ValueLabel : public QLabel {
    Q_OBJECT

  public:
    ValueLabel(const QString& objectName, const QString& caption);

    // Instead of QLabel's own, which cannot be overridden: call them through a ValueLabel.
    void setText(const QString& text);
    void clear() { setText({}); }

  private:
    const QString m_caption;
};

// Enter on a focused button, tool button or link presses it, wherever it is; true: done.
bool pressFocusedButton(const QWidget& window, const QKeyEvent& event);

} // namespace vandrel
