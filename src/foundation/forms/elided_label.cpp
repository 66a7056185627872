#include "foundation/forms/elided_label.h"

#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

namespace vandrel {

ElidedLabel::ElidedLabel(QWidget* parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
    setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
}

QSize ElidedLabel::minimumSizeHint() const {
    return {0, QLabel::minimumSizeHint().height()};
}

bool ElidedLabel::event(QEvent* event) {
    if (event->type() == QEvent::ToolTip &&
        fontMetrics().horizontalAdvance(text()) > contentsRect().width()) {
        // Escaped: a tool tip would take data for mark-up.
        QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), text().toHtmlEscaped(), this);
        return true;
    }
    return QLabel::event(event);
}

void ElidedLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setPen(palette().color(foregroundRole()));
    if (autoFillBackground()) painter.fillRect(rect(), palette().window());
    painter.drawText(contentsRect(), static_cast<int>(alignment()) | Qt::TextSingleLine,
                     fontMetrics().elidedText(text(), Qt::ElideRight, contentsRect().width()));
}

} // namespace vandrel
