#include "print/forms/preview_area.h"

#include "print/page_painter.h"

#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace vandrel {

namespace {

const QColor ground(145, 148, 152);
const QColor shadow(105, 108, 112);
const QColor edge(70, 72, 75);
constexpr double shadowOffset = 3;
// A picture beyond this (256 MB) is not kept; the part in sight is painted straight.
constexpr double largestPicture = 64e6;

double pixels(double twips) {
    return twips / preview::twipsPerPixel;
}

PaperSize twips(const QSize& size) {
    return {size.width() * preview::twipsPerPixel, size.height() * preview::twipsPerPixel};
}

} // namespace

PreviewArea::PreviewArea(Draw draw, QWidget* parent)
    : QWidget(parent), m_draw(std::move(draw)), m_horizontal(new QScrollBar(Qt::Horizontal, this)),
      m_vertical(new QScrollBar(Qt::Vertical, this)) {
    setObjectName(u"lap"_s);
    setAccessibleName(u"Oldal képe"_s);
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_OpaquePaintEvent);
    m_horizontal->setAccessibleName(u"Vízszintes görgető"_s);
    m_vertical->setAccessibleName(u"Függőleges görgető"_s);
    for (QScrollBar* bar : {m_horizontal, m_vertical}) {
        bar->setFocusPolicy(Qt::ClickFocus);
        bar->setFocusProxy(this);
        bar->setSingleStep(preview::smallChange);
        bar->setCursor(Qt::ArrowCursor);
        connect(bar, &QScrollBar::valueChanged, this, qOverload<>(&QWidget::update));
    }
}

void PreviewArea::showPage(const PaperSize& paper) {
    m_paper = paper;
    m_drawnAnew = true;
    rescale();
}

void PreviewArea::setZoom(float zoom) {
    m_zoom = zoom;
    rescale();
}

void PreviewArea::setFrozen(bool frozen) {
    m_frozen = frozen;
    if (!frozen) rescale();
}

void PreviewArea::rescale() {
    if (m_frozen) return;
    const double before = m_scaling.factor;
    const PaperSize bar = twips({m_vertical->sizeHint().width(), m_horizontal->sizeHint().height()});
    m_scaling = preview::scale(m_paper, twips(size()), bar, m_zoom);
    if (m_scaling.factor != before) m_drawnAnew = true;
    placeBars();
    update();
}

// The bars keep to the edges. Setting their ranges is no move of the user's.
void PreviewArea::placeBars() {
    const QSignalBlocker quietHorizontal(m_horizontal), quietVertical(m_vertical);
    const auto set = [](QScrollBar* bar, bool needed, double holder, double view) {
        const preview::ScrollRange range = preview::scrollRange(holder, view);
        bar->setRange(0, needed ? range.maximum : 0);
        bar->setPageStep(range.largeChange);
        bar->setValue(0);
        bar->setVisible(needed);
    };
    set(m_horizontal, m_scaling.horizontalBar, m_scaling.holder.width, m_scaling.view.width);
    set(m_vertical, m_scaling.verticalBar, m_scaling.holder.height, m_scaling.view.height);
    const int thick = m_vertical->sizeHint().width();
    const int high = m_horizontal->sizeHint().height();
    m_horizontal->setGeometry(0, height() - high, width() - (m_scaling.verticalBar ? thick : 0), high);
    m_vertical->setGeometry(width() - thick, 0, thick, height() - (m_scaling.horizontalBar ? high : 0));
}

QPointF PreviewArea::pageCorner() const {
    double left = -m_horizontal->value() * preview::scrollUnit;
    double top = -m_vertical->value() * preview::scrollUnit;
    // A page that just fits has no bar to reach its last lines by: it is seen whole.
    if (!m_scaling.verticalBar) top = std::min(0.0, (m_scaling.view.height - m_scaling.holder.height) / 2);
    // Without a bar the page is in the middle.
    if (!m_scaling.horizontalBar) left = (m_scaling.view.width - m_scaling.holder.width) / 2;
    // On whole pixels of the screen, or a copied picture would blur.
    const double ratio = devicePixelRatioF();
    const auto whole = [ratio](double length) { return std::round(pixels(length) * ratio) / ratio; };
    return {whole(left + preview::pageMargin), whole(top + preview::pageMargin)};
}

void PreviewArea::drawPicture() {
    const double ratio = devicePixelRatioF();
    const double wide = std::max(std::round(pixels(m_scaling.copy.width) * ratio), 1.0);
    const double high = std::max(std::round(pixels(m_scaling.copy.height) * ratio), 1.0);
    m_drawnAnew = false;
    if (wide * high > largestPicture) {
        m_picture = {};
        return;
    }
    const QSize size(static_cast<int>(wide), static_cast<int>(high));
    // The same memory again: at a large zoom taking it anew costs as much as the drawing.
    if (m_picture.size() != size) m_picture = QImage(size, QImage::Format_RGB32);
    if (m_picture.isNull()) return;
    m_picture.setDevicePixelRatio(ratio);
    m_picture.fill(Qt::white);
    QPainter painter(&m_picture);
    PagePainter page(painter, pixels(m_scaling.factor));
    m_draw(page);
}

void PreviewArea::paintEvent(QPaintEvent*) {
    const bool stale = m_drawnAnew || m_picture.devicePixelRatio() != devicePixelRatioF();
    if (stale && !m_frozen) drawPicture();

    QPainter painter(this);
    painter.fillRect(rect(), ground);
    painter.setClipRect(QRectF(0, 0, pixels(m_scaling.view.width), pixels(m_scaling.view.height)));
    const QSizeF size = m_picture.isNull()
                            ? QSizeF(pixels(m_scaling.copy.width), pixels(m_scaling.copy.height))
                            : m_picture.deviceIndependentSize();
    const QRectF page(pageCorner(), size);
    painter.fillRect(page.translated(shadowOffset, shadowOffset), shadow);
    painter.fillRect(page.adjusted(-1, -1, 1, 1), edge);
    if (!m_picture.isNull()) {
        painter.drawImage(page.topLeft(), m_picture);
        return;
    }
    painter.fillRect(page, Qt::white);
    if (m_frozen) return;
    painter.setClipRect(page, Qt::IntersectClip);
    painter.translate(page.topLeft());
    PagePainter straight(painter, pixels(m_scaling.factor));
    m_draw(straight);
}

void PreviewArea::resizeEvent(QResizeEvent*) {
    if (!window()->isMinimized() && height() > 0) rescale();
}

void PreviewArea::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_Up:
        return m_vertical->triggerAction(QScrollBar::SliderSingleStepSub);
    case Qt::Key_Down:
        return m_vertical->triggerAction(QScrollBar::SliderSingleStepAdd);
    case Qt::Key_Left:
        return m_horizontal->triggerAction(QScrollBar::SliderSingleStepSub);
    case Qt::Key_Right:
        return m_horizontal->triggerAction(QScrollBar::SliderSingleStepAdd);
    case Qt::Key_Home:
        return m_vertical->triggerAction(QScrollBar::SliderToMinimum);
    case Qt::Key_End:
        return m_vertical->triggerAction(QScrollBar::SliderToMaximum);
    case Qt::Key_Space:
        return m_vertical->triggerAction(event->modifiers() & Qt::ShiftModifier
                                             ? QScrollBar::SliderPageStepSub
                                             : QScrollBar::SliderPageStepAdd);
    default:
        QWidget::keyPressEvent(event);
    }
}

void PreviewArea::wheelEvent(QWheelEvent* event) {
    const QPoint turn = event->angleDelta();
    QScrollBar* bar = m_vertical;
    if (std::abs(turn.x()) > std::abs(turn.y()) || (event->modifiers() & Qt::ShiftModifier))
        bar = m_horizontal;
    const int steps = (turn.x() + turn.y()) * 3 * preview::smallChange / 120; // three small changes a notch
    bar->setValue(bar->value() - steps);
    event->accept();
}

} // namespace vandrel
