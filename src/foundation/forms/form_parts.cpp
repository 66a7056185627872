#include "foundation/forms/form_parts.h"

#include <QAbstractButton>
#include <QKeyEvent>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace vandrel {

QPushButton* makeButton(const QString& objectName, const QString& text, int minimumWidth) {
    auto* button = named(new QPushButton(text), objectName, QString(text).remove('&'_L1));
    button->setAutoDefault(true);
    button->setMinimumWidth(minimumWidth);
    return button;
}

QLabel* makeLabel(const QString& text, QWidget* field) {
    auto* label = new QLabel(text);
    label->setBuddy(field);
    return label;
}

ValueLabel::ValueLabel(const QString& objectName, const QString& caption)
    : m_caption(caption.trimmed().endsWith(':'_L1) ? caption.trimmed().chopped(1) : caption.trimmed()) {
    setObjectName(objectName);
    setTextFormat(Qt::PlainText);
    setText({});
}

void ValueLabel::setText(const QString& text) {
    QLabel::setText(text);
    const QString value = text.trimmed();
    // Where the value brings its caption along, it is not said twice.
    const bool own = value.startsWith(m_caption);
    setAccessibleName(value.isEmpty() ? m_caption : own ? value : m_caption + u": "_s + value);
}

bool pressFocusedButton(const QWidget& window, const QKeyEvent& event) {
    if (event.key() != Qt::Key_Return && event.key() != Qt::Key_Enter) return false;
    auto* button = qobject_cast<QAbstractButton*>(window.focusWidget());
    if (button == nullptr || !button->isEnabled() || button->isCheckable() || event.isAutoRepeat())
        return false;
    button->click();
    return true;
}

} // namespace vandrel
