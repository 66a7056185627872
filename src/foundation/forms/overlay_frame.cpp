// The shade, the panel in its middle, and the ways out.
#include "foundation/forms/overlay_frame.h"

#include <QApplication>
#include <QFrame>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace vandrel {

OverlayFrame::OverlayFrame(QWidget* form, const QString& name, const QString& title) : QWidget(form) {
    setObjectName(name);
    setFocusPolicy(Qt::NoFocus);
    hide();
    auto* whole = new QVBoxLayout(this);
    whole->setAlignment(Qt::AlignCenter);
    auto* panel = new QFrame(this);
    panel->setFrameShape(QFrame::StyledPanel);
    panel->setAutoFillBackground(true);
    m_panel = panel;
    whole->addWidget(panel, 0, Qt::AlignCenter);
    auto* column = new QVBoxLayout(panel);
    column->setContentsMargins(16, 12, 16, 12);
    auto* head = new QHBoxLayout;
    m_title = new QLabel(title);
    m_title->setTextFormat(Qt::PlainText);
    QFont font = m_title->font();
    font.setBold(true);
    font.setPointSizeF(font.pointSizeF() + 2);
    m_title->setFont(font);
    head->addWidget(m_title, 1);
    auto* close = new QPushButton(u"Bezár"_s);
    close->setObjectName(name + u"_bezar"_s);
    close->setAccessibleName(u"Bezár"_s);
    close->setFocusPolicy(Qt::NoFocus); // a click must not run the check of the field that has the focus
    connect(close, &QPushButton::clicked, this, &OverlayFrame::closeAsked);
    head->addWidget(close);
    column->addLayout(head);
    m_body = new QVBoxLayout;
    m_body->setContentsMargins(0, 6, 0, 6);
    column->addLayout(m_body, 1);
    m_hint = new QLabel;
    m_hint->setTextFormat(Qt::PlainText);
    m_hint->hide();
    column->addWidget(m_hint);
    form->installEventFilter(this);
    setAccessibleName(title);
}

void OverlayFrame::setTitle(const QString& title) {
    m_title->setText(title);
    setAccessibleName(title);
}

QString OverlayFrame::title() const {
    return m_title->text();
}

void OverlayFrame::setKeysHint(const QString& hint) {
    m_hint->setText(hint);
    m_hint->show();
}

void OverlayFrame::setPanelSize(int width, int height) {
    if (width > 0) m_panel->setFixedWidth(width);
    if (height > 0) m_panel->setFixedHeight(height);
}

void OverlayFrame::cover() {
    setGeometry(parentWidget()->rect());
    raise();
    show();
}

void OverlayFrame::uncover() {
    hide();
}

bool OverlayFrame::eventFilter(QObject* watched, QEvent* event) {
    if (watched == parentWidget() && event->type() == QEvent::Resize) setGeometry(parentWidget()->rect());
    return QWidget::eventFilter(watched, event);
}

void OverlayFrame::paintEvent(QPaintEvent*) {
    QPainter(this).fillRect(rect(), QColor(40, 44, 52, 110));
}

void OverlayFrame::mousePressEvent(QMouseEvent* event) {
    if (!m_panel->geometry().contains(event->position().toPoint())) Q_EMIT closeAsked();
}

void OverlayFrame::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape)
        Q_EMIT closeAsked();
    else
        event->accept(); // nothing reaches the form behind
}

bool OverlayFrame::focusNextPrevChild(bool next) {
    QWidget* current = QApplication::focusWidget();
    if (current == nullptr || !isAncestorOf(current)) return false;
    QWidget* candidate = current;
    do {
        candidate = next ? candidate->nextInFocusChain() : candidate->previousInFocusChain();
        if (isAncestorOf(candidate) && (candidate->focusPolicy() & Qt::TabFocus) && candidate->isVisible() &&
            candidate->isEnabled() && candidate->focusProxy() == nullptr) {
            candidate->setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
            return true;
        }
    } while (candidate != current);
    return true;
}

} // namespace vandrel
