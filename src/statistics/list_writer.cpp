#include "statistics/list_writer.h"

#include "print/literal_text.h"
#include "print/qc_printer.h"

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace vandrel {

namespace {

const QString listFont = u"Times New Roman"_s;
constexpr float smallestSize = 7; // points; below it paper is hard to read
constexpr QChar ellipsis(0x2026);

} // namespace

void ListWriter::text(const QString& line, const LineLook& look) {
    TextLook full;
    full.fontName = listFont;
    full.fontSize = look.size;
    full.bold = look.bold;
    full.underline = look.underline;
    full.alignment = look.centred ? item_alignment::centre : item_alignment::left;
    m_document.AddText(line, full);
}

void ListWriter::caption(const QString& title, const QString& subtitle) {
    m_document.table().setCaption(title, subtitle);
}

void ListWriter::heads(const QStringList& names, int numbers) {
    m_document.table().addHeads(names, numbers);
}

void ListWriter::row(const QStringList& cells) {
    m_document.table().addRow(cells);
}

QString ListWriter::fitted(const QString& text, double millimetres, const LineLook& look) const {
    PrintEngine& engine = m_document.engine();
    const double room = toTwips(millimetres, scale_mode::millimetre, Axis::horizontal, engine.paper);
    const auto width = [&](float size) {
        return engine.meter.face({listFont, size, look.bold, false}).width(text);
    };
    const double natural = width(look.size);
    if (natural <= room) return literalText(text);
    // Widths grow with the size, but not to the last twip: the first guess may need a step more. Half points
    // keep the number of fonts small.
    float size = std::floor(static_cast<float>(look.size * room / natural) * 2) / 2;
    while (size > smallestSize && width(size) > room)
        size -= 0.5F;
    size = std::max(size, smallestSize);
    const Face& face = engine.meter.face({listFont, size, look.bold, false});
    QString kept = text, shown = text;
    while (!kept.isEmpty() && face.width(shown) > room) {
        kept.chop(kept.size() > 1 && kept.back().isLowSurrogate() ? 2 : 1);
        while (kept.endsWith(u' '))
            kept.chop(1);
        shown = kept + ellipsis;
    }
    return u"<SIZE="_s + QString::number(size) + u'>' + literalText(shown) + u"</SIZE>"_s;
}

} // namespace vandrel
