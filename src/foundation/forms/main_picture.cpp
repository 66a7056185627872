#include "foundation/forms/main_picture.h"

#include <QFontMetrics>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>

using namespace Qt::StringLiterals;

namespace vandrel {

namespace {

const QColor deep(18, 74, 92);
const QColor light(52, 128, 140);
const QColor ink(28, 62, 78);
const QColor linkWhite(255, 255, 255);
const QColor linkLit(224, 224, 224);

// One beat of the pulse line, in units of a beat's width and half height.
constexpr std::pair<double, double> beat[] = {{0.00, 0.0},  {0.36, 0.0},  {0.42, -0.25}, {0.48, 0.0},
                                              {0.52, 0.15}, {0.57, -1.0}, {0.63, 0.7},   {0.68, 0.0},
                                              {0.78, -0.2}, {0.86, 0.0},  {1.00, 0.0}};

void drawPerson(QPainter& painter) {
    painter.setBrush(QColor(70, 130, 160));
    painter.drawEllipse(QRectF(8, 4, 10, 10));
    QPainterPath body;
    body.moveTo(3, 28);
    body.cubicTo(3, 12, 23, 12, 23, 28);
    body.closeSubpath();
    painter.drawPath(body);
}

void drawFloppy(QPainter& painter, const QColor& colour, QChar letter) {
    painter.setBrush(colour);
    painter.drawRoundedRect(QRectF(4, 4, 24, 24), 2, 2);
    painter.setBrush(Qt::white);
    painter.drawRect(QRectF(10, 4, 12, 8));
    painter.drawRect(QRectF(8, 16, 16, 12));
    QFont font = painter.font();
    font.setPixelSize(11);
    font.setBold(true);
    painter.setFont(font);
    painter.drawText(QRectF(8, 16, 16, 12), Qt::AlignCenter, letter);
}

void drawPlus(QPainter& painter) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(40, 140, 60));
    painter.drawRect(QRectF(22, 5, 3, 11));
    painter.drawRect(QRectF(18, 9, 11, 3));
}

void drawPencil(QPainter& painter) {
    painter.setBrush(QColor(235, 180, 60));
    painter.drawPolygon(QPolygonF({{18, 26}, {27, 9}, {30, 11}, {21, 27}, {17, 29}}));
}

void drawDoor(QPainter& painter) {
    painter.setBrush(QColor(165, 110, 60));
    painter.drawRect(QRectF(6, 4, 14, 25));
    painter.setBrush(QColor(250, 230, 140));
    painter.drawEllipse(QRectF(15, 15, 3, 3));
    painter.setPen(QPen(QColor(40, 140, 60), 2.5));
    painter.drawLine(QPointF(22, 16), QPointF(29, 16));
    painter.drawLine(QPointF(26, 12), QPointF(30, 16));
    painter.drawLine(QPointF(26, 20), QPointF(30, 16));
}

} // namespace

MainPicture::MainPicture(QWidget* parent) : QWidget(parent) {
    setMouseTracking(true);
}

void MainPicture::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QLinearGradient ground(0, 0, width(), height());
    ground.setColorAt(0, deep);
    ground.setColorAt(1, light);
    painter.fillRect(rect(), ground);

    // A calm pulse across the middle, with a white cross before it.
    const double beatWidth = 260.0;
    const double middle = height() * 0.56;
    const double lift = height() * 0.14;
    QPainterPath pulse(QPointF(0, middle));
    for (double start = 0; start < width(); start += beatWidth)
        for (const auto& [x, y] : beat)
            pulse.lineTo(start + x * beatWidth, middle + y * lift);
    painter.setPen(QPen(QColor(255, 255, 255, 70), 2.5));
    painter.drawPath(pulse);

    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::white);
    painter.drawRoundedRect(QRectF(48, 66, 24, 72), 4, 4);
    painter.drawRoundedRect(QRectF(24, 90, 72, 24), 4, 4);

    painter.setPen(Qt::white);
    QFont font = painter.font();
    font.setPixelSize(40);
    font.setBold(true);
    painter.setFont(font);
    painter.drawText(QRectF(120, 58, width() - 140, 50), Qt::AlignLeft | Qt::AlignVCenter, u"Vandrel"_s);
    font.setPixelSize(20);
    font.setBold(false);
    painter.setFont(font);
    painter.drawText(QRectF(121, 106, width() - 140, 34), Qt::AlignLeft | Qt::AlignVCenter,
                     u"Járóbeteg program"_s);
}

TextLink::TextLink(const QString& text, QWidget* parent) : QPushButton(text, parent) {
    setFlat(true);
    setCursor(Qt::PointingHandCursor);
    setAccessibleName(text);
    setLit(false);
}

void TextLink::setLit(bool lit) {
    const QColor colour = lit ? linkLit : linkWhite;
    setStyleSheet(u"QPushButton { color: %1; background: transparent; border: 1px solid "
                  "transparent; padding: 4px 8px; font-size: 15px; text-decoration: underline; }"
                  "QPushButton:focus { border-color: white; }"
                  "QPushButton:disabled { color: rgba(255, 255, 255, 110); text-decoration: "
                  "none; }"_s.arg(colour.name()));
}

void TextLink::enterEvent(QEnterEvent* event) {
    QPushButton::enterEvent(event);
    if (isEnabled()) setLit(true);
}

QIcon toolIcon(int index) {
    QPixmap pixmap(32, 32);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(ink, 1.2));
    switch (index) {
    case 1:
        drawPerson(painter);
        drawPlus(painter);
        break;
    case 2:
        drawPerson(painter);
        drawPencil(painter);
        break;
    case 3:
        drawFloppy(painter, QColor(70, 130, 160), 'E'_L1);
        break;
    case 4:
        drawFloppy(painter, QColor(190, 120, 60), 'J'_L1);
        break;
    case 5: {
        painter.setBrush(QColor(70, 130, 160));
        painter.drawEllipse(QRectF(4, 4, 24, 24));
        QFont font = painter.font();
        font.setPixelSize(18);
        font.setBold(true);
        painter.setFont(font);
        painter.setPen(Qt::white);
        painter.drawText(QRectF(4, 4, 24, 24), Qt::AlignCenter, u"i"_s);
        break;
    }
    case 6:
        drawDoor(painter);
        break;
    default:
        break;
    }
    return QIcon(pixmap);
}

} // namespace vandrel
