#include "statistics/individual_costs.h"

#include "platform/format.h"
#include "print/literal_text.h"

using namespace Qt::StringLiterals;

namespace vandrel {

namespace {

constexpr float bodySize = 10;
constexpr int ruleLength = 100; // to the end of the last column at this size
constexpr qsizetype nameLength = 45;
constexpr int diagnoses = 5;

enum Column { AZONOSITO, SZAKREND, F_DATUM, PaciensId, DIAG1 };
constexpr const char* columns = "AZONOSITO, SZAKREND, F_DATUM, PaciensId, DIAG1, DIAG2, DIAG3, DIAG4, DIAG5";

// A caption and its value. Deliberate: the first end tag has nothing to end. The last one closes the line,
// also where there is no value.
QString caption(const QString& name, const QString& value) {
    return u"  "_s + name + u"</LINDENT><LINDENT=50>"_s + value + u"</LINDENT>"_s;
}

void institution(ListRun& run) {
    const Institution stored = institutionOf(run);
    run.text(u"INTÉZMÉNYI ADATOK:"_s);
    run.text(caption(u"neve:"_s, literalText(stored.Int_nev)));
    run.text(caption(u"kódja:"_s, u" "_s)); // Deliberate: no code is printed
    run.text(caption(u"bankszámlaszáma:"_s, literalText(stored.Bankszamla)));
    run.text(caption(u"adóigazgatási azonosító száma:"_s, literalText(stored.Adoig_szam)));
    run.rule(bodySize, ruleLength);
}

struct PatientHead {
    QString name, taj;
};

PatientHead patientHead(ListRun& run, qint64 id) {
    PatientHead found;
    QString postalCode, city, street;
    Query row = run.data().query(
        "select Neve, TAJ, Irszam, City, Cim from Paciensek where ID=?1 order by rowid limit 1", id);
    if (row.next()) {
        found = {row.text(0), row.text(1)};
        postalCode = row.text(2);
        city = row.text(3);
        street = row.text(4);
    }
    run.text(u"BETEG ADATOK:"_s);
    run.text(caption(u"neve:"_s, literalText(found.name)));
    run.text(caption(u"TAJ:"_s, literalText(found.taj)));
    run.text(caption(u"lakcíme:"_s, literalText(postalCode + u" - "_s + city + u", "_s + street)));
    run.rule(bodySize, ruleLength);
    return found;
}

void unitLine(ListRun& run, const QString& unit) {
    run.text(u"Munkahely: "_s + literalText(unit + u' ' + run.lookUps.unit(unit).name));
}

QString figureColumns(const CostFigures& figures) {
    return u"<LINDENT=80>"_s + format::thousands(figures.quantity) + u"</LINDENT>"_s +
           at(110, format::thousands(figures.unitPoints)) + at(130, format::thousands(figures.points)) +
           at(150, format::thousands(figures.value));
}

void sumLine(ListRun& run, int indent, const QString& name, const CostFigures& sums) {
    run.bold(at(indent, name) + figureColumns(sums));
}

// The heads of a sheet: its day, its diagnoses, and the columns of its procedures. Gives the diagnoses.
QString sheetHead(ListRun& run, const Query& sheet) {
    LineLook underlined = run.body();
    underlined.underline = true;
    run.look(u"<LINDENT=5>"_s + sheet.text(F_DATUM), underlined);
    run.blank();
    run.text(at(10, u"Kezelt diagnózisok: "_s));
    QStringList codes;
    for (int column = DIAG1; column < DIAG1 + diagnoses; ++column) {
        const QString code = sheet.text(column);
        const bool empty = code.trimmed().isEmpty();
        if (empty && column != DIAG1) continue; // the first has its line in any case
        run.text(u"<LINDENT=10>"_s + literalText(code + u' ' + run.lookUps.diagnosis(code)));
        if (!empty) codes << code;
    }
    run.blank();
    run.text(at(10, u"Beavatkozások: "_s) + at(80, u"Mennyiség"_s) + at(120, u"Pontszám"_s) +
             at(150, u"Összeg"_s));
    run.text(at(110, u"Egységre"_s) + at(130, u"Összesen"_s));
    return codes.join(u',');
}

} // namespace

void Egyeni_koltseg_nyom(ListRun& run) {
    run.setBodySize(bodySize);
    run.blank();
    run.made();
    run.blank();
    run.title(u"Egyéni szolgáltatás és ráfordított költség kimutatás"_s);
    run.blank();
    institution(run);
    run.heads({u"Név"_s, u"TAJ"_s, u"Munkahely"_s, u"Munkahely neve"_s, u"Dátum"_s, u"BNO-k"_s, u"WHO"_s,
               u"Megnevezés"_s, u"Mennyiség"_s, u"Pontszám egységre"_s, u"Pontszám összesen"_s, u"Összeg"_s},
              4);

    PatientHead who;
    QString unit;
    CostFigures daySums, unitSums, listSums;
    bool first = true;
    // The wording says day, the sum is a sheet's: two visits of one day have two of these lines.
    const auto endDay = [&] {
        sumLine(run, 40, u"Nap összesen: "_s, daySums);
        unitSums += daySums;
        daySums = {};
    };
    const auto endUnit = [&] {
        sumLine(run, 30, u"Munkahely összesen: "_s, unitSums);
        listSums += unitSums;
        unitSums = {};
    };
    run.eachSheet(columns, [&](const Query& sheet) {
        const QString thisUnit = sheet.text(SZAKREND);
        if (first) {
            who = patientHead(run, sheet.integer(PaciensId));
            unitLine(run, thisUnit);
        } else {
            endDay();
            if (!sameCode(unit, thisUnit)) {
                endUnit();
                run.blank();
                unitLine(run, thisUnit);
                run.blank();
            }
        }
        first = false;
        unit = thisUnit;

        const QString diagnosisList = sheetHead(run, sheet);
        const ListLookUps::Unit& found = run.lookUps.unit(unit);
        Query line =
            run.data().query("select BEAV, MENNY from EUSZOLG where Azonosito=?1 order by BEAV, rowid",
                             sheet.bytes(AZONOSITO));
        while (line.next()) {
            const QString code = line.text(0);
            const ProcedureEntry& procedure = run.lookUps.procedure(code);
            const CostFigures figures = CostFigures::of(line.number(1), procedure.points, found.multiplier);
            run.text(u"<LINDENT=10>"_s + run.fitted(code + u' ' + procedure.name.left(nameLength), 69) +
                     figureColumns(figures));
            run.row(QStringList{who.name, who.taj, unit.trimmed(), found.name, sheet.text(F_DATUM).trimmed(),
                                diagnosisList, code, procedure.name.trimmed()} +
                    cells(figures));
            daySums += figures;
        }
    });
    if (!first) {
        endDay();
        endUnit();
    }
    run.blank();
    run.rule(bodySize, ruleLength);
    sumLine(run, 30, u"Költség összesen: "_s, listSums);
}

} // namespace vandrel
