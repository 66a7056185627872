#include "statistics/traffic_log.h"

#include "platform/format.h"
#include "print/literal_text.h"
#include "statistics/log_parts.h"

#include <array>

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
    u"Munkahely;Munkahely neve;Kategória;Naplósorszám;Név;Típus;Dátum;Idő;TAJ;TAJ típusa;"
    "Nem;Születési idő;Beküldő;BNO 1;BNO 2;Továbbküldés;Baleset;Orvos;Labor;Röntgen;CT-MR;"
    "Fizioterápia;Keresőképesség;Útiköltség;Vény;Segédeszköz;Gyógyfürdő;Beavatkozások"_s.split(u';');

// Deliberate: the heads of the first unit and of the later ones differ.
void titleBlock(ListRun& run, const QString& unit, const QString& category, bool first) {
    QString name;
    run.attempt([&] { name = run.lookUps.unit(unit).name; });
    run.text(u"<b>Munkahely: <LINDENT=30>"_s + literalText(unit + u' ' + name) + u"</LINDENT></b>"_s);
    categoryLine(run, category);
    run.text(u"Ssz."_s + at(first ? 13 : 10, u"Neve"_s) + at(40, u"Tip."_s) + at(50, u"Ellát. idő"_s) +
             at(83, u"TAJ/Tip"_s) + (first ? at(105, u"NEM/Szül. idő"_s) : at(100, u"NEM/Születési idő"_s)) +
             at(130, u"Beküldő"_s) + at(150, u"BNO"_s));
    run.rule(logRuleSize);
}

using Texts = std::array<QString, GYOGYFURD + 1>; // the columns of a sheet

void printSheet(ListRun& run, const Texts& t, const PatientColumns& patient, const QString& procedures) {
    const auto shown = [&](Column column) { return literalText(t[column]); };
    run.text(TabbedLine(shown(NAPLO))
                 .at(13, run.fitted(patient.name, 26))
                 .at(40, shown(ELL_TIP))
                 .at(50, shown(F_DATUM), u" - ", shown(F_IDO))
                 .at(83, run.fitted(t[SZEM_SZAM] + u'/' + patient.type, 21))
                 .at(105, run.fitted(patient.sex + u'/' + patient.birth, 24))
                 .at(130, run.fitted(t[IGENYLO], 19))
                 .at(150, shown(DIAG1), u", ", shown(DIAG2))
                 .text());
    run.text(TabbedLine(QString(u"Tov.: "_s + shown(TOVA)))
                 .at(15, u"Bale.: ", shown(BALESET1), shown(BALESET2))
                 .at(35, u"Orvos: ", shown(ORVKOD))
                 .text());
    run.text(TabbedLine(QString(u"Labor: "_s + shown(LABOR)))
                 .at(15, u"Rtg.: ", shown(RTG))
                 .at(30, u"CT-MR: ", shown(CTMR))
                 .at(50, u"Fizio.: ", shown(FIZIO))
                 .at(70, u"K.képt.: ", shown(K_KEP))
                 .at(90, u"Utiktg: ", shown(UTKLTG))
                 .at(110, u"Vény: ", shown(RECEPT))
                 .at(130, u"Segéde.: ", shown(GYOGYSEG))
                 .at(150, u"Gyógyf.: ", shown(GYOGYFURD))
                 .text());
    run.text(u"Beavatkozások: "_s + literalText(procedures)); // a comma follows the last one too
    run.blank();
}

void tableRow(ListRun& run, const Texts& t, const PatientColumns& patient, const QString& procedures) {
    QString unitName;
    run.attempt([&] { unitName = run.lookUps.unit(t[SZAKREND]).name; });
    QStringList cells = {t[SZAKREND],
                         unitName,
                         t[TERITES],
                         t[NAPLO],
                         patient.name,
                         t[ELL_TIP],
                         t[F_DATUM],
                         t[F_IDO],
                         t[SZEM_SZAM],
                         patient.type,
                         patient.sex,
                         patient.birth,
                         t[IGENYLO],
                         t[DIAG1],
                         t[DIAG2],
                         t[TOVA],
                         t[BALESET1] + t[BALESET2],
                         t[ORVKOD]};
    for (int column = LABOR; column <= GYOGYFURD; ++column)
        cells << t[static_cast<std::size_t>(column)];
    cells << procedures.chopped(std::min<qsizetype>(2, procedures.size()));
    for (QString& cell : cells)
        cell = cell.trimmed();
    run.row(cells);
}

} // namespace

void BetForg_naplo_Nyom(ListRun& run) {
    logHead(run, u"Ambuláns betegforgalmi napló"_s);
    run.heads(tableHeads, 0);
    QString unit, category;
    qint64 count = 0;
    run.eachSheet(columns, [&](const Query& sheet) {
        Texts t;
        for (int column = 0; column <= GYOGYFURD; ++column)
            t[static_cast<std::size_t>(column)] = column == PaciensId ? QString() : sheet.text(column);
        const QString& thisUnit = t[SZAKREND];
        const QString& thisCategory = t[TERITES];
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

        QString procedures;
        for (const LineColumns& line : linesOf(run, t[AZONOSITO]))
            procedures += line.code + u" ("_s + format::number(line.quantity) + u"), "_s;
        const auto patientId =
            sheet.isNull(PaciensId) ? std::nullopt : std::optional(sheet.integer(PaciensId));
        const PatientColumns patient = patientById(run, patientId);
        printSheet(run, t, patient, procedures);
        tableRow(run, t, patient, procedures);
    });
    run.bold(u" "_s);
    // Deliberate: despite its wording the sheets of the whole list, all units together, once at the end.
    run.closing(u"Munkahely összesen:  "_s + QString::number(count));
}

} // namespace vandrel
