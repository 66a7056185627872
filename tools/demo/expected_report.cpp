#include "demo/expected_report.h"

#include "demo/visits.h"

#include <QMap>
#include <QStringEncoder>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace vandrel::demo {

namespace {

constexpr std::size_t linesOfARecord = 6;
const QString end = u"\r\n"_s;

QString blanks(const QString& value, qsizetype width) {
    return value.rightJustified(width, ' '_L1);
}

QString zeros(const QString& value, qsizetype width) {
    return value.rightJustified(width, '0'_L1);
}

// What a field holds at the store: typed, picked, or what a new sheet proposes.
QString stored(const Visit& visit, const QString& field, const QString& proposed = {}) {
    for (const std::vector<Entry>* entries : {&visit.picked, &visit.otherData, &visit.fields})
        for (const Entry& entry : *entries)
            if (entry.first == field) return entry.second;
    return proposed;
}

struct Record {
    QString unit;
    QString text;
    std::vector<Line> lines; // up to six
};

QString procedures(const std::vector<Line>& lines) {
    QString text;
    for (std::size_t i = 0; i < linesOfARecord; ++i)
        text +=
            i < lines.size()
                ? lines[i].code + blanks(lines[i].quantity.isEmpty() ? u"1"_s : lines[i].quantity, 2) + u'A'
                : blanks({}, 8);
    return text;
}

QString headRecord(const Visit& visit, const QString& journal, const std::vector<Line>& lines) {
    QString text = blanks(visit.unit, 9) + blanks(stored(visit, u"Orvkod"_s), 5);
    text += blanks(stored(visit, u"Igenylo"_s), 9) + blanks(stored(visit, u"BeutOrvos"_s), 5);
    text += zeros(stored(visit, u"BeutIndok"_s), 9) + blanks(stored(visit, u"BeutaloKelte"_s), 8);
    text += journal + QString(visit.date).remove(u'.') + visit.time;
    text += visit.citizenship + visit.taj + u'1' + visit.sex + visit.birth + visit.postalCode;
    text += stored(visit, u"Terites"_s, u"01"_s) + blanks(stored(visit, u"TerReszlDij"_s, u"0"_s), 6);
    text += stored(visit, u"Ell_tip"_s, u"1"_s) + blanks(visit.diagnosis, 5);
    for (const QString& field : {u"Diag2"_s, u"Diag3"_s, u"Diag4"_s, u"Diag5"_s})
        text += blanks(stored(visit, field), 5);
    text += procedures(lines) + stored(visit, u"Tova"_s, u"0"_s);
    for (const QString& field : {u"Labor"_s, u"Rtg"_s, u"Ctmr"_s, u"Fizio"_s, u"K_kep"_s, u"Utkltg"_s})
        text += stored(visit, field, u"0"_s);
    text += stored(visit, u"Baleset"_s, u"00"_s);
    for (const QString& field : {u"Recept"_s, u"Gyogyseg"_s, u"Gyogyfurd"_s})
        text += zeros(stored(visit, field, u"0"_s), 2);
    return text + u"10"_s + u"01"_s + blanks(stored(visit, u"VizitdijFizMod"_s), 2);
}

std::vector<Record> records() {
    std::vector<Record> all;
    QHash<QString, int> journals; // one running number a unit
    for (const Visit& visit : visits()) {
        const QString journal = zeros(QString::number(++journals[visit.unit]), 8);
        for (std::size_t from = 0; from < visit.lines.size(); from += linesOfARecord) {
            const std::size_t to = std::min(from + linesOfARecord, visit.lines.size());
            const std::vector<Line> lines(visit.lines.begin() + static_cast<std::ptrdiff_t>(from),
                                          visit.lines.begin() + static_cast<std::ptrdiff_t>(to));
            // After the first record of a sheet there are only unit, journal number and procedures.
            all.push_back({visit.unit,
                           from == 0 ? headRecord(visit, journal, lines)
                                     : blanks(visit.unit, 9) + blanks({}, 36) + journal + blanks({}, 72) +
                                           procedures(lines) + blanks({}, 21),
                           lines});
        }
    }
    return all;
}

QByteArray encoded(const QString& text) {
    QStringEncoder encoder("windows-1250");
    return encoder(text);
}

// Thousands parted by a no-break space.
QString grouped(int value) {
    QString text = QString::number(value);
    for (qsizetype at = text.size() - 3; at > 0; at -= 3)
        text.insert(at, QChar(0xA0));
    return text;
}

} // namespace

QByteArray expectedReport() {
    const std::vector<Record> all = records();
    QString text = u"0101000001234 "_s + end + u"123456782"_s + end + u"41 200803"_s + end +
                   zeros(QString::number(all.size()), 7) + end + u"11700001 "_s + end + u"20000003 "_s + end +
                   u"00000004 "_s + end + end;
    for (const Record& record : all)
        text += record.text + end;
    return encoded(text);
}

QByteArray expectedNote(const QHash<QString, int>& points) {
    struct Unit {
        QString name;
        int records = 0;
        int sum = 0;
    };
    QMap<QString, Unit> units = {{u"010100001"_s, {u"Belgyógyászat (minta)"_s}},
                                 {u"020100001"_s, {u"Sebészet (minta)"_s}},
                                 {u"040100001"_s, {u"Nőgyógyászat (minta)"_s}}};
    int total = 0;
    int positions = 0;
    for (const Record& record : records()) {
        Unit& unit = units[record.unit];
        ++unit.records;
        for (const Line& line : record.lines) {
            unit.sum += points.value(line.code) * (line.quantity.isEmpty() ? 1 : line.quantity.toInt());
            ++positions;
        }
        total += unit.sum; // the running sum after each record: the Fund's form wants it so
    }
    QString text = u"Készült: 2008.04.03."_s + blanks({}, 40) + u"Lapszám: 1/1"_s + end;
    for (const QString& line : {u"Kísérőjegyzék"_s, u"az egységes járóbeteg adatszolgáltatáshoz"_s,
                                u"Az intézet neve: Minta Egészségügyi Szolgálat, Járóbeteg-szakrendelő"_s,
                                u"   azonosító kódja: M123"_s, u"   finanszírozási NBK kódja: 1234"_s,
                                u"   adóigazgatási azonosító száma: 12345678-2-41"_s,
                                u"   pénzforgalmi jelzőszáma: 11700001-20000003-00000004"_s,
                                u"Elszámolási időszak: 2008.03"_s, u" "_s})
        text += line + end;
    text +=
        u"Munkahely"_s + blanks({}, 30) + u"Beküldött rekordok száma"_s + blanks({}, 5) + u"Pontszám"_s + end;
    text += QString(80, u'_') + end;
    for (auto unit = units.cbegin(); unit != units.cend(); ++unit)
        text += unit.key() + u' ' + unit->name + blanks({}, 30 - unit->name.size()) +
                QString::number(unit->records) + blanks({}, 15) + grouped(unit->sum) + end;
    text += end + end;
    text += blanks({}, 29) + u"Összesen: "_s + blanks({}, 15) + grouped(total) + end + end + end;
    text += u"A jelentett beavatkozások száma: "_s + QString::number(positions) + end + end + end;
    text += u"Beküldött mágneslemezek száma: ........"_s + end + end + end;
    text += u"A javítás visszavonást ....          plusz kifizetést .... eredményez."_s + end + end + end;
    text += u"      ......................             ......................"_s + end;
    text += u"  az adatszolgáltatásért felelôs              intézetvezetô"_s + end;
    return encoded(text);
}

} // namespace vandrel::demo
