// List 1: the patient traffic log by unit and category.
#include "platform/format.h"
#include "statistics/log_parts.h"
#include "statistics/producers.h"

#include <QStringBuilder>

using namespace Qt::StringLiterals;

namespace vandrel {

namespace {

enum Column {
    AZONOSITO,
    PaciensId,
    SZAKREND,
    TERITES,
    NAPLO,
    ELL_TIP,
    F_DATUM,
    F_IDO,
    SZEM_SZAM,
    IGENYLO,
    DIAG1,
    DIAG2,
    TOVA,
    BALESET1,
    BALESET2,
    ORVKOD,
    LABOR,
    RTG,
    CTMR,
    FIZIO,
    K_KEP,
    UTKLTG,
    RECEPT,
    GYOGYSEG,
    GYOGYFURD
};
constexpr const char* columns =
    "AZONOSITO, PaciensId, SZAKREND, TERITES, NAPLO, ELL_TIP, F_DATUM, F_IDO, SZEM_SZAM, IGENYLO, DIAG1, "
    "DIAG2, TOVA, BALESET1, BALESET2, ORVKOD, LABOR, RTG, CTMR, FIZIO, K_KEP, UTKLTG, RECEPT, GYOGYSEG, "
    "GYOGYFURD";

const QStringList tableHeads =
    QStringLiteral("Munkahely;Munkahely neve;Kategória;Naplósorszám;Név;Típus;Dátum;Idő;TAJ;TAJ típusa;"
                   "Nem;Születési idő;Beküldő;BNO 1;BNO 2;Továbbküldés;Baleset;Orvos;Labor;Röntgen;CT-MR;"
                   "Fizioterápia;Keresőképesség;Útiköltség;Vény;Segédeszköz;Gyógyfürdő;Beavatkozások")
        .split(u';');

// The heads of the first unit and of the later ones differ, and that is wanted.
void titleBlock(ListRun& run, const QString& unit, const QString& category, bool first) {
    QString name;
    run.attempt([&] { name = run.lookUps.unit(unit).name; });
    run.text(u"<b>Munkahely: <LINDENT=30>"_s + unit + u' ' + name + u"</LINDENT></b>"_s);
    categoryLine(run, category);
    run.text(u"Ssz."_s + at(first ? 13 : 10, u"Neve"_s) + at(40, u"Tip."_s) + at(50, u"Ellát. idő"_s) +
             at(83, u"TAJ/Tip"_s) + (first ? at(105, u"NEM/Szül. idő"_s) : at(100, u"NEM/Születési idő"_s)) +
             at(130, u"Beküldő"_s) + at(150, u"BNO"_s));
    run.rule(logRuleSize);
}

void printSheet(ListRun& run, const Query& sheet, const PatientColumns& patient,
                const QStringList& procedures) {
    const auto t = [&](Column column) { return sheet.text(column); };
    run.text(t(NAPLO) % at(13, run.fitted(patient.name, 26)) % at(40, t(ELL_TIP)) %
             at(50, t(F_DATUM) % u" - "_s % t(F_IDO)) % at(83, t(SZEM_SZAM) % u'/' % patient.type) %
             at(105, patient.sex % u'/' % patient.birth) % at(130, run.fitted(t(IGENYLO), 19)) %
             at(150, t(DIAG1) % u", "_s % t(DIAG2)));
    run.text(u"Tov.: "_s % t(TOVA) % at(15, u"Bale.: "_s % t(BALESET1) % t(BALESET2)) %
             at(35, u"Orvos: "_s % t(ORVKOD)));
    run.text(u"Labor: "_s % t(LABOR) % at(15, u"Rtg.: "_s % t(RTG)) % at(30, u"CT-MR: "_s % t(CTMR)) %
             at(50, u"Fizio.: "_s % t(FIZIO)) % at(70, u"K.képt.: "_s % t(K_KEP)) %
             at(90, u"Utiktg: "_s % t(UTKLTG)) % at(110, u"Vény: "_s % t(RECEPT)) %
             at(130, u"Segéde.: "_s % t(GYOGYSEG)) % at(150, u"Gyógyf.: "_s % t(GYOGYFURD)));
    QString items;
    for (const QString& procedure : procedures)
        items += procedure + u", "_s; // behind the last one too
    run.text(u"Beavatkozások: "_s % items);
    run.blank();
}

void tableRow(ListRun& run, const Query& sheet, const PatientColumns& patient,
              const QStringList& procedures) {
    const auto t = [&](Column column) { return sheet.text(column).trimmed(); };
    QString unitName;
    run.attempt([&] { unitName = run.lookUps.unit(sheet.text(SZAKREND)).name; });
    run.row({t(SZAKREND),
             unitName,
             t(TERITES),
             t(NAPLO),
             patient.name,
             t(ELL_TIP),
             t(F_DATUM),
             t(F_IDO),
             t(SZEM_SZAM),
             patient.type,
             patient.sex,
             patient.birth,
             t(IGENYLO),
             t(DIAG1),
             t(DIAG2),
             t(TOVA),
             (sheet.text(BALESET1) + sheet.text(BALESET2)).trimmed(),
             t(ORVKOD),
             t(LABOR),
             t(RTG),
             t(CTMR),
             t(FIZIO),
             t(K_KEP),
             t(UTKLTG),
             t(RECEPT),
             t(GYOGYSEG),
             t(GYOGYFURD),
             procedures.join(u", "_s)});
}

} // namespace

void BetForg_naplo_Nyom(ListRun& run) {
    logHead(run, u"Ambuláns betegforgalmi napló"_s);
    run.row(tableHeads);
    QString unit, category;
    qint64 count = 0;
    run.eachSheet(columns, [&](const Query& sheet) {
        const QString thisUnit = sheet.text(SZAKREND);
        const QString thisCategory = sheet.text(TERITES);
        if (count == 0) {
            titleBlock(run, thisUnit, thisCategory, true);
        } else if (!sameCode(unit, thisUnit)) {
            run.blank();
            titleBlock(run, thisUnit, thisCategory, false);
        } else if (!sameCode(category, thisCategory)) {
            run.blank();
            categoryLine(run, thisCategory);
        }
        unit = thisUnit;
        category = thisCategory;
        ++count;

        QStringList procedures;
        for (const LineColumns& line : linesOf(run, sheet.text(AZONOSITO)))
            procedures << line.code + u" ("_s + format::number(line.quantity) + u')';
        const auto patientId =
            sheet.isNull(PaciensId) ? std::nullopt : std::optional(sheet.integer(PaciensId));
        const PatientColumns patient = patientById(run, patientId);
        printSheet(run, sheet, patient, procedures);
        tableRow(run, sheet, patient, procedures);
    });
    run.bold(u" "_s);
    // Despite its wording the sheets of the whole list, all units together, once at the end; that is wanted.
    run.closing(u"Munkahely összesen:  "_s + QString::number(count));
}

} // namespace vandrel
