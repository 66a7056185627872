#include "reports/covering_note.h"

#include "platform/format.h"

using namespace Qt::StringLiterals;

namespace vandrel {

namespace {

constexpr qsizetype nameWidth = 30;
constexpr qsizetype ruleLength = 80;

QString blanks(qsizetype count) {
    return QString(count > 0 ? count : 0, ' '_L1);
}

} // namespace

QStringList noteHead(const NoteForm& form, const Institution& institution, QDate today,
                     const QString& period) {
    QStringList lines = {
        u"Készült: "_s + format::shortDate(today) + blanks(40) + u"Lapszám: 1/1"_s,
        form.title,
        u"az egységes járóbeteg adatszolgáltatáshoz"_s,
    };
    lines << form.afterHeading;
    lines << u"Az intézet neve: "_s + institution.Int_nev
          << u"   azonosító kódja: "_s + institution.Gyogyi_kod
          << u"   finanszírozási NBK kódja: "_s + institution.NBK_KOD
          << u"   adóigazgatási azonosító száma: "_s + institution.Adoig_szam
          << u"   pénzforgalmi jelzőszáma: "_s + institution.Bankszamla << u"Elszámolási időszak: "_s + period
          << blanks(1)
          << u"Munkahely"_s + blanks(form.blanksInTableHead) + u"Beküldött rekordok száma"_s + blanks(5) +
                 u"Pontszám"_s
          << QString(ruleLength, '_'_L1);
    return lines;
}

QString noteUnitLine(const NoteForm& form, const UnitFigures& unit, const QString& unitName) {
    return QString::fromStdString(unit.code) + blanks(1) + unitName + blanks(nameWidth - unitName.size()) +
           QString::number(unit.records) + blanks(form.blanksBeforePoints) + format::thousands(unit.points);
}

QStringList noteFoot(const NoteForm& form, double grandTotal, qint64 procedures) {
    // "Two line ends" are an entry of their own: two empty lines.
    QStringList lines = {
        {}, {}, blanks(29) + u"Összesen: "_s + blanks(15) + format::thousands(grandTotal),
        {}, {}, u"A jelentett beavatkozások száma: "_s + QString::number(procedures),
        {}, {}, u"Beküldött mágneslemezek száma: ........"_s,
        {}, {},
    };
    lines << form.beforeClosing;
    lines << u"A javítás visszavonást ....          plusz kifizetést .... eredményez."_s << QString()
          << QString()
          << u"      ......................             ......................"_s
          // Deliberate: the circumflexes are the form's own spelling.
          << u"  az adatszolgáltatásért felelôs              intézetvezetô"_s;
    return lines;
}

} // namespace vandrel
