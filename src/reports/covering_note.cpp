#include "reports/covering_note.h"

#include "platform/format.h"

namespace vandrel {

namespace {

constexpr qsizetype nameWidth = 30;
constexpr qsizetype ruleLength = 80;

QString blanks(qsizetype count) {
    return QString(count > 0 ? count : 0, QLatin1Char(' '));
}

} // namespace

QStringList noteHead(const Institution& institution, QDate today, const QString& period) {
    return {
        QStringLiteral("Készült: ") + format::shortDate(today) + blanks(40) + QStringLiteral("Lapszám: 1/1"),
        QStringLiteral("Kísérőjegyzék"),
        QStringLiteral("az egységes járóbeteg adatszolgáltatáshoz"),
        QStringLiteral("Az intézet neve: ") + institution.Int_nev,
        QStringLiteral("   azonosító kódja: ") + institution.Gyogyi_kod,
        QStringLiteral("   finanszírozási NBK kódja: ") + institution.NBK_KOD,
        QStringLiteral("   adóigazgatási azonosító száma: ") + institution.Adoig_szam,
        QStringLiteral("   pénzforgalmi jelzőszáma: ") + institution.Bankszamla,
        QStringLiteral("Elszámolási időszak: ") + period,
        blanks(1),
        QStringLiteral("Munkahely") + blanks(30) + QStringLiteral("Beküldött rekordok száma") + blanks(5) +
            QStringLiteral("Pontszám"),
        QString(ruleLength, QLatin1Char('_')),
    };
}

QString noteUnitLine(const UnitFigures& unit, const QString& unitName) {
    return QString::fromStdString(unit.code) + blanks(1) + unitName + blanks(nameWidth - unitName.size()) +
           QString::number(unit.records) + blanks(15) + format::thousands(unit.points);
}

QStringList noteFoot(double grandTotal, qint64 procedures) {
    // "Two line ends" stand as an entry of their own: two empty lines.
    return {
        {},
        {},
        blanks(29) + QStringLiteral("Összesen: ") + blanks(15) + format::thousands(grandTotal),
        {},
        {},
        QStringLiteral("A jelentett beavatkozások száma: ") + QString::number(procedures),
        {},
        {},
        QStringLiteral("Beküldött mágneslemezek száma: ........"),
        {},
        {},
        QStringLiteral("A javítás visszavonást ....          plusz kifizetést .... eredményez."),
        {},
        {},
        QStringLiteral("      ......................             ......................"),
        // The circumflexes are the form's own spelling.
        QStringLiteral("  az adatszolgáltatásért felelôs              intézetvezetô"),
    };
}

} // namespace vandrel
