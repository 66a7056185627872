#include "statistics/individual_lists.h"

#include "platform/format.h"
#include "print/literal_text.h"

#include <map>

using namespace Qt::StringLiterals;

namespace vandrel {

namespace {

// "Készült", the institution and the title, as both lists begin.
void individualHead(ListRun& run, const QString& title) {
    const Institution institution = institutionOf(run);
    run.blank();
    run.made();
    run.blank();
    run.centred(literalText(institution.Int_nev + u", "_s + institution.City));
    run.blank();
    run.title(title);
    run.blank();
    run.period();
}

} // namespace

// --- list 7 ------------------------------------------------------------------------------------------------

namespace {

struct PatientCounts {
    double outpatient = 0;
    double inpatient = 0;
};

QString countColumns(const PatientCounts& counts) {
    return at(105, u"  "_s + format::thousands(counts.outpatient)) +
           at(134, u"  "_s + format::thousands(counts.inpatient)) +
           at(160, u"  "_s + format::thousands(counts.outpatient + counts.inpatient));
}

} // namespace

void Ossz_lista_nyom(ListRun& run) {
    individualHead(run, u"Összesített lista az ellátott ambuláns és fekvőbeteg esetekről"_s);
    run.text(u"Szakrendelő: "_s + literalText(run.request.code));
    run.blank();
    run.text(at(120, u"Beavatkozás mennyisége "_s));
    run.text(u"Who"_s + at(15, u"Megnevezés"_s) + at(105, u" ambuláns"_s) + at(134, u" fekvőbeteg"_s) +
             at(160, u" összesen"_s));
    run.heads({u"WHO"_s, u"Megnevezés"_s, u"Ambuláns"_s, u"Fekvőbeteg"_s, u"Összesen"_s}, 3);

    enum Column { AZONOSITO, TERITES };
    std::map<QString, PatientCounts, CodeOrder> procedures;
    run.eachSheet("AZONOSITO, TERITES", [&](const Query& sheet) {
        // Only this one category counts as inpatient.
        const bool inpatient = sheet.text(TERITES) == u"06";
        Query line =
            run.data().query("select BEAV, MENNY from EUSZOLG where Azonosito=?1", sheet.bytes(AZONOSITO));
        bool any = false;
        while (line.next()) {
            PatientCounts& counts = procedures[line.text(0)];
            (inpatient ? counts.inpatient : counts.outpatient) += line.number(1);
            any = true;
        }
        // Deliberate: a sheet without lines gives a line without a code.
        if (!any) procedures[QString()];
    });

    constexpr qsizetype nameLength = 60;
    PatientCounts sums;
    for (const auto& [code, counts] : procedures) {
        const QString name = run.lookUps.procedure(code).name;
        run.text(literalText(code) + at(15, run.fitted(name.left(nameLength), 89)) + countColumns(counts));
        run.row({code, name.trimmed(), format::number(counts.outpatient), format::number(counts.inpatient),
                 format::number(counts.outpatient + counts.inpatient)});
        sums.outpatient += counts.outpatient;
        sums.inpatient += counts.inpatient;
    }
    run.text(at(15, u"munkahely összesen: "_s) + countColumns(sums));
}

// --- list 8 ------------------------------------------------------------------------------------------------

namespace {
const QString allUnits = u"Minden munkahely"_s;
}

void VizDijStat_Nyom(ListRun& run) {
    individualHead(run, u"Vizitdíj statisztika"_s);
    run.text(u"Szakrendelő: "_s +
             literalText(run.request.allUnits ? allUnits : run.lookUps.unit(run.request.code).name));
    run.blank();
    run.text(u"Név"_s + at(80, u"Ellátás ideje"_s) + at(110, u" Orvos"_s) + at(150, u" Összeg (Ft)"_s));
    run.heads({u"Név"_s, u"Dátum"_s, u"Idő"_s, u"Munkahely"_s, u"Orvoskód"_s, u"Orvos"_s, u"Összeg (Ft)"_s},
              1);

    enum Column { PaciensId, ORVKOD, F_DATUM, F_IDO, SZAKREND, VizDijOsszeg };
    double total = 0;
    run.eachSheet("PaciensId, ORVKOD, F_DATUM, F_IDO, SZAKREND, VizDijOsszeg", [&](const Query& sheet) {
        const QString patient = patientCaption(run.station, sheet.integer(PaciensId));
        const QString time = sheet.text(F_IDO).left(5);
        const QString doctor = run.lookUps.doctor(sheet.text(ORVKOD));
        const double amount = sheet.number(VizDijOsszeg);
        run.text(run.fitted(patient, 79) + at(80, literalText(sheet.text(F_DATUM) + u' ' + time)) +
                 at(110, u"  "_s + run.fitted(doctor, 37)) + at(150, u"  "_s + format::thousands(amount)));
        run.row({patient, sheet.text(F_DATUM).trimmed(), time.trimmed(), sheet.text(SZAKREND).trimmed(),
                 sheet.text(ORVKOD).trimmed(), doctor, format::number(amount)});
        total += amount;
    });
    run.bold(at(15, u"munkahely összesen: "_s) + at(150, u"  "_s + format::thousands(total) + u" Ft "_s));
}

} // namespace vandrel
