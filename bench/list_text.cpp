#include "list_text.h"

#include <array>

using namespace Qt::StringLiterals;

namespace vandrel::bench {

namespace {

constexpr std::array surnames = {u"Kovács", u"Szabó",  u"Tóth",    u"Nagy",    u"Horváth", u"Varga",
                                 u"Őri",    u"Űrmösi", u"Székely", u"Lakatos", u"Balogh",  u"Németh"};
constexpr std::array givenNames = {u"Anna",  u"Éva",    u"Katalin", u"Zsófia", u"Béla", u"István",
                                   u"János", u"Sándor", u"Ödön",    u"Zoltán", u"Pál",  u"Ágnes"};

QString number(int value, int width) {
    return QString::number(value).rightJustified(width, u'0');
}

} // namespace

// The library's distributions differ between machines.
int TrafficLogTexts::below(int limit) {
    m_state = m_state * 6364136223846793005ULL + 1442695040888963407ULL;
    return static_cast<int>((m_state >> 33) % static_cast<std::uint64_t>(limit));
}

bool TrafficLogTexts::next(std::vector<QString>& batch) {
    batch.clear();
    if (m_done == m_sheets) return false;
    if (m_done == 0) head(batch);
    for (int i = 0; i < batchSheets && m_done < m_sheets; ++i, ++m_done) {
        if (m_done % sheetsOfUnit == 0) unit(batch);
        sheet(batch);
    }
    if (m_done == m_sheets) batch.push_back(u"<b>Munkahely összesen:  %1</b>"_s.arg(m_sheets));
    return true;
}

void TrafficLogTexts::head(std::vector<QString>& batch) {
    for (const char16_t* line : {u" ", u"Készült: 2008.04.03.", u" ", u"<b>Ambuláns betegforgalmi napló</b>",
                                 u" ", u"2008.01.01. - 2008.03.31.", u" ", u" "})
        batch.push_back(QString::fromUtf16(line));
}

void TrafficLogTexts::unit(std::vector<QString>& batch) {
    const int unit = m_done / sheetsOfUnit;
    batch.push_back(u"<b>Munkahely: <LINDENT=30>%1 %2. számú szakrendelés</LINDENT></b>"_s
                        .arg(number(120'000'100 + unit * 38'001, 9))
                        .arg(unit + 1));
    batch.push_back(u"<b>Kategória: <LINDENT=30>01</LINDENT></b>"_s);
    batch.push_back(
        u"Ssz.<LINDENT=13>Neve</LINDENT><LINDENT=40>Tip.</LINDENT><LINDENT=50>Ellát. idő</LINDENT>"
        "<LINDENT=83>TAJ/Tip</LINDENT><LINDENT=105>NEM/Szül. idő</LINDENT><LINDENT=130>Beküldő</LINDENT>"
        "<LINDENT=150>BNO</LINDENT>"_s);
    batch.push_back(QString(81, u'_'));
}

void TrafficLogTexts::sheet(std::vector<QString>& batch) {
    const auto flag = [&](int percent) { return chance(percent) ? u"1"_s : u"0"_s; };
    const auto column = [](int place, const QString& text) {
        return u"<LINDENT=%1>%2</LINDENT>"_s.arg(place).arg(text);
    };
    const auto diagnosis = [&] { return QChar(u'A' + below(20)) + number(below(10'000), 4); };
    const auto name = [&](const auto& from) {
        return QString::fromUtf16(from[static_cast<std::size_t>(below(static_cast<int>(from.size())))]);
    };
    QString first = QString::number(m_done + 1);
    first += column(13, name(surnames) + u' ' + name(givenNames)) + column(40, u"1"_s);
    first += column(50, u"2008.%1.%2. - %3:%4:00"_s.arg(number(1 + below(3), 2), number(1 + below(28), 2),
                                                        number(7 + below(12), 2), number(below(60), 2)));
    first += column(83, number(below(1'000'000'000), 9) + u"/1"_s);
    first += column(105, u"%1/%2.%3.%4."_s.arg(1 + below(2))
                             .arg(1920 + below(88))
                             .arg(number(1 + below(12), 2), number(1 + below(28), 2)));
    first += column(130, chance(40) ? number(990'000'000 + below(300) * 811, 9) : u" "_s);
    first += column(150, diagnosis() + u", "_s + (chance(60) ? diagnosis() : u" "_s));
    batch.push_back(std::move(first));
    batch.push_back(u"Tov.: "_s + flag(10) + column(15, u"Bale.: "_s + flag(3) + u'0') +
                    column(35, u"Orvos: "_s + number(40'001 + below(60) * 117, 5)));
    QString third = u"Labor: "_s + flag(20);
    for (const auto& [place, head] :
         {std::pair(15, u"Rtg.: "), std::pair(30, u"CT-MR: "), std::pair(50, u"Fizio.: "),
          std::pair(70, u"K.képt.: "), std::pair(90, u"Utiktg: "), std::pair(110, u"Vény: "),
          std::pair(130, u"Segéde.: "), std::pair(150, u"Gyógyf.: ")})
        third += column(place, QString::fromUtf16(head) + flag(10));
    batch.push_back(std::move(third));
    QString procedures = sheetMark + u' ';
    for (int line = 0; line < 4; ++line)
        procedures +=
            u"%1 (%2), "_s.arg(number(11'000 + below(5'000) * 17, 5)).arg(chance(90) ? 1 : 1 + below(40));
    batch.push_back(std::move(procedures));
    batch.push_back(u" "_s);
}

QString withTabs(const QString& text, std::vector<double>& stops) {
    static const QString indent = u"<LINDENT="_s;
    stops.clear();
    QString plain;
    for (qsizetype at = 0; at < text.size();) {
        const qsizetype close = text[at] == u'<' ? text.indexOf(u'>', at) : -1;
        if (close < 0) {
            plain += text[at++];
            continue;
        }
        if (QStringView(text).mid(at).startsWith(indent)) {
            const qsizetype value = at + indent.size();
            stops.push_back(QStringView(text).mid(value, close - value).toDouble());
            plain += u'\t';
        }
        at = close + 1;
    }
    return plain;
}

TextLook listLook() {
    TextLook look;
    look.fontName = listFont;
    look.fontSize = listFontSize;
    return look;
}

void prepareDocument(qcPrinter& document) {
    document.ResetItems();
    document.setScaleMode(scale_mode::millimetre);
    document.setMarginLeft(listMarginLeft);
    document.setMarginRight(listMargin);
    document.setMarginTop(listMargin);
    document.setMarginBottom(listMargin);
    constexpr int even = 3, odd = 2;
    qcTextItem& footer = document.Footer(even);
    footer.setText(u"#pagenumber# / #pagetotal# .oldal"_s);
    footer.setFontName(listFont);
    footer.setFontSize(10);
    footer.setFontBold(true);
    footer.setAlignment(item_alignment::centre);
    document.FooterCopy(even, odd);
    document.setSetFooter(even, true);
    document.setSetFooter(odd, true);
}

} // namespace vandrel::bench
