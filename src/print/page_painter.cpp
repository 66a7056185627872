#include "print/page_painter.h"

#include <QGlyphRun>
#include <QPaintEngine>

#include <algorithm>
#include <cmath>

namespace vandrel {

namespace {

constexpr double farthest = 1e6; // beyond it painting loses its precision, and no paper reaches so far

bool paintable(double length) {
    return std::abs(length) < farthest; // false for what is no number
}

} // namespace

QColor pageColor(long color) {
    return QColor(static_cast<int>(color & 0xFF), static_cast<int>(color >> 8 & 0xFF),
                  static_cast<int>(color >> 16 & 0xFF));
}

PagePainter::PagePainter(QPainter& painter, double scale) : m_painter(painter) {
    m_painter.save();
    if (scale != 1) m_painter.scale(scale, scale);
    m_painter.setRenderHint(QPainter::Antialiasing);
    m_painter.setRenderHint(QPainter::TextAntialiasing);
    m_painter.setBackgroundMode(Qt::TransparentMode);
    m_painter.setPen(Qt::black);
    // On a picture thin rules would be pale or vanish between two pixels.
    const double perTwip = m_painter.deviceTransform().m11();
    const bool raster = m_painter.paintEngine() && m_painter.paintEngine()->type() == QPaintEngine::Raster;
    m_pixel = raster && perTwip > 0 ? 1 / perTwip : 0;
}

PagePainter::~PagePainter() {
    m_painter.restore();
}

const PageFont& PagePainter::font(const Face& face) {
    if (m_lastFace != &face) {
        std::unique_ptr<PageFont>& made = m_fonts[&face];
        if (!made) made = std::make_unique<PageFont>(face.choice());
        m_lastFace = &face;
        m_lastFont = made.get();
    }
    return *m_lastFont;
}

void PagePainter::usePen(long color) {
    const long wanted = color & 0xFFFFFF;
    if (m_pen == wanted) return;
    m_painter.setPen(pageColor(wanted));
    m_pen = wanted;
}

void PagePainter::flushGlyphs(const PageFont& font, double baseLine) {
    if (m_glyphs.empty()) return;
    QGlyphRun glyphs;
    glyphs.setRawFont(font.raw());
    glyphs.setRawData(m_glyphs.data(), m_positions.data(), static_cast<int>(m_glyphs.size()));
    m_painter.drawGlyphRun(QPointF(0, baseLine), glyphs);
    m_glyphs.clear();
    m_positions.clear();
}

// One call for all glyphs of the run, stretched or not: giving the glyphs and their places skips the shaping
// of the text, which a character by character layout must not have. Only characters of other fonts are
// painted one by one.
void PagePainter::text(const TextRun& run) {
    if (run.text.isEmpty() || run.face == nullptr || !paintable(run.y)) return;
    const PageFont& face = font(*run.face);
    const double baseLine = run.y + run.face->ascent();
    usePen(run.color);
    const qsizetype units = std::min(run.text.size(), static_cast<qsizetype>(run.xs.size()));
    double left = farthest, right = -farthest;
    for (qsizetype at = 0; at < units; ++at) {
        const double x = run.xs[static_cast<std::size_t>(at)];
        const DecodedCharacter decoded = characterAt(run.text, at);
        const PageFont::Sign& sign = face.sign(decoded.character);
        if (decoded.pair) ++at;
        if (!paintable(x)) continue;
        left = std::min(left, x);
        right = std::max(right, x + sign.width);
        if (sign.byGlyph) {
            m_glyphs.push_back(sign.glyph);
            m_positions.emplace_back(x, 0);
        } else if (sign.byText) {
            flushGlyphs(face, baseLine); // searching the PDF needs the order
            const bool half = QChar::isSurrogate(decoded.character);
            const char32_t shown = half ? U'\uFFFD' : decoded.character;
            m_painter.setFont(face.font());
            m_painter.drawText(QPointF(x, baseLine), QString::fromUcs4(&shown, 1));
        }
    }
    flushGlyphs(face, baseLine);
    if (run.underline && left < right) underline(face, left, right, baseLine, run.color);
}

void PagePainter::underline(const PageFont& font, double left, double right, double baseLine, long color) {
    const double thickness = std::max(font.raw().lineThickness(), 1.0);
    const double middle = baseLine + font.raw().underlinePosition();
    rule(left, right, middle - thickness / 2, thickness, color);
}

void PagePainter::rule(double left, double right, double y, double width, long color) {
    if (width > 0) fill(left, y, right, y + width, color);
}

void PagePainter::box(double left, double top, double right, double bottom, long fillColor, double outline,
                      long color) {
    if (right < left) std::swap(left, right);
    if (bottom < top) std::swap(top, bottom);
    if (fillColor != -1) fill(left, top, right, bottom, fillColor);
    if (!(outline > 0)) return;
    // The line runs along the edge, half of it on each side.
    const double half = outline / 2;
    fill(left - half, top - half, right + half, top + half, color);
    fill(left - half, bottom - half, right + half, bottom + half, color);
    fill(left - half, top + half, left + half, bottom - half, color);
    fill(right - half, top + half, right + half, bottom - half, color);
}

void PagePainter::fill(double left, double top, double right, double bottom, long color) {
    if (!paintable(left) || !paintable(top) || !paintable(right) || !paintable(bottom)) return;
    if (right < left) std::swap(left, right);
    if (bottom < top) std::swap(top, bottom);
    if (m_pixel > 0) {
        const auto snapped = [this](double length) { return std::round(length / m_pixel) * m_pixel; };
        const double width = std::max(snapped(right - left), m_pixel);
        const double height = std::max(snapped(bottom - top), m_pixel);
        left = snapped(left);
        top = snapped(top);
        right = left + width;
        bottom = top + height;
    }
    m_painter.fillRect(QRectF(QPointF(left, top), QPointF(right, bottom)), pageColor(color));
}

} // namespace vandrel
