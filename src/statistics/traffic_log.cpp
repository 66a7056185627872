// Lists 1 and 5: the patient traffic log by unit and category, and the itemised list by referrer and
// category.
#include "platform/format.h"
#include "statistics/producers.h"

using namespace Qt::StringLiterals;

namespace vandrel {

namespace {

// The rule under the heads reaches to the last column at this size.
constexpr float ruleSize = 12;

// Opening of both lists.
void logHead(ListRun& run, const QString& title) {
    run.blank();
    run.made();
    run.blank();
    run.title(title);
    run.blank();
    run.text(u"Időszak: "_s + run.request.from + u" - "_s + run.request.to);
    run.blank();
    run.blank();
}

void categoryLine(ListRun& run, const QString& category) {
    run.text(u"<b>Kategória: <LINDENT=30>"_s + category + u"</LINDENT></b>"_s);
}

// A patient as the lists print one; empty texts where the register has none.
struct PatientColumns {
    QString taj, name, type, sex, birth;
    bool found = false;

    void read(const Query& row) {
        taj = row.text(0);
        name = row.text(1);
        type = row.text(2);
        sex = row.text(3);
        birth = row.text(4);
        found = true;
    }
};

PatientColumns patientById(ListRun& run, const Query& sheet, int column) {
    PatientColumns patient;
    run.attempt([&] {
        if (sheet.isNull(column)) return;
        Query row = run.data().query("select TAJ, Neve, Azon_Tipus, Nem, Szul_Dat from Paciensek where "
                                     "ID=?1 order by rowid limit 1",
                                     sheet.integer(column));
        if (row.next()) patient.read(row);
    });
    return patient;
}

PatientColumns patientByTaj(ListRun& run, const QString& taj) {
    PatientColumns patient;
    if (taj.trimmed().isEmpty()) return patient; // no number is nobody's number
    run.attempt([&] {
        Query row = run.data().query("select TAJ, Neve, Azon_Tipus, Nem, Szul_Dat from Paciensek where "
                                     "TAJ=?1 order by rowid limit 1",
                                     taj);
        if (row.next()) patient.read(row);
    });
    return patient;
}

struct LineColumns {
    QString code;
    double quantity;
};

std::vector<LineColumns> linesOf(ListRun& run, const QString& sheetKey) {
    std::vector<LineColumns> lines;
    run.attempt([&] {
        Query row = run.data().query(
            "select BEAV, MENNY from EUSZOLG where Azonosito=?1 order by BEAV, rowid", sheetKey);
        while (row.next())
            lines.push_back({row.text(0), row.number(1)});
    });
    return lines;
}

} // namespace

// --- list 1 ------------------------------------------------------------------------------------------------

namespace {

namespace traffic {

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

const QStringList tableHeads = {u"Munkahely"_s,
                                u"Munkahely neve"_s,
                                u"Kategória"_s,
                                u"Naplósorszám"_s,
                                u"Név"_s,
                                u"Típus"_s,
                                u"Dátum"_s,
                                u"Idő"_s,
                                u"TAJ"_s,
                                u"TAJ típusa"_s,
                                u"Nem"_s,
                                u"Születési idő"_s,
                                u"Beküldő"_s,
                                u"BNO 1"_s,
                                u"BNO 2"_s,
                                u"Továbbküldés"_s,
                                u"Baleset"_s,
                                u"Orvos"_s,
                                u"Labor"_s,
                                u"Röntgen"_s,
                                u"CT-MR"_s,
                                u"Fizioterápia"_s,
                                u"Keresőképesség"_s,
                                u"Útiköltség"_s,
                                u"Vény"_s,
                                u"Segédeszköz"_s,
                                u"Gyógyfürdő"_s,
                                u"Beavatkozások"_s};

// The heads of the first unit and of the later ones differ, and that is wanted.
void titleBlock(ListRun& run, const QString& unit, const QString& category, bool first) {
    QString name;
    run.attempt([&] { name = run.lookUps.unit(unit).name; });
    run.text(u"<b>Munkahely: <LINDENT=30>"_s + unit + u' ' + name + u"</LINDENT></b>"_s);
    categoryLine(run, category);
    run.text(u"Ssz."_s + at(first ? 13 : 10, u"Neve"_s) + at(40, u"Tip."_s) + at(50, u"Ellát. idő"_s) +
             at(83, u"TAJ/Tip"_s) + (first ? at(105, u"NEM/Szül. idő"_s) : at(100, u"NEM/Születési idő"_s)) +
             at(130, u"Beküldő"_s) + at(150, u"BNO"_s));
    run.rule(ruleSize);
}

void printSheet(ListRun& run, const Query& sheet, const PatientColumns& patient, const QString& procedures) {
    const auto t = [&](Column column) { return sheet.text(column); };
    run.text(t(NAPLO) + at(13, run.fitted(patient.name, 26)) + at(40, t(ELL_TIP)) +
             at(50, t(F_DATUM) + u" - "_s + t(F_IDO)) + at(83, t(SZEM_SZAM) + u'/' + patient.type) +
             at(105, patient.sex + u'/' + patient.birth) + at(130, run.fitted(t(IGENYLO), 19)) +
             at(150, t(DIAG1) + u", "_s + t(DIAG2)));
    run.text(u"Tov.: "_s + t(TOVA) + at(15, u"Bale.: "_s + t(BALESET1) + t(BALESET2)) +
             at(35, u"Orvos: "_s + t(ORVKOD)));
    run.text(u"Labor: "_s + t(LABOR) + at(15, u"Rtg.: "_s + t(RTG)) + at(30, u"CT-MR: "_s + t(CTMR)) +
             at(50, u"Fizio.: "_s + t(FIZIO)) + at(70, u"K.képt.: "_s + t(K_KEP)) +
             at(90, u"Utiktg: "_s + t(UTKLTG)) + at(110, u"Vény: "_s + t(RECEPT)) +
             at(130, u"Segéde.: "_s + t(GYOGYSEG)) + at(150, u"Gyógyf.: "_s + t(GYOGYFURD)));
    run.text(u"Beavatkozások: "_s + procedures);
    run.blank();
}

void tableRow(ListRun& run, const Query& sheet, const PatientColumns& patient, const QString& procedures) {
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
             procedures.trimmed()});
}

} // namespace traffic

} // namespace

void BetForg_naplo_Nyom(ListRun& run) {
    using namespace traffic;
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

        QString procedures;
        for (const LineColumns& line : linesOf(run, sheet.text(AZONOSITO)))
            procedures += line.code + u" ("_s + format::number(line.quantity) + u"), "_s;
        const PatientColumns patient = patientById(run, sheet, PaciensId);
        printSheet(run, sheet, patient, procedures);
        tableRow(run, sheet, patient, procedures);
    });
    run.bold(u" "_s);
    // Despite its wording the sheets of the whole list, all units together, once at the end; that is wanted.
    run.closing(u"Munkahely összesen:  "_s + QString::number(count));
}

// --- list 5 ------------------------------------------------------------------------------------------------

namespace {

namespace itemised {

enum Column { AZONOSITO, IGENYLO, TERITES, NAPLO, F_DATUM, F_IDO, SZEM_SZAM, SZAKREND, DIAG1 };
constexpr int diagnoses = 5;
constexpr const char* columns = "AZONOSITO, IGENYLO, TERITES, NAPLO, F_DATUM, F_IDO, SZEM_SZAM, SZAKREND, "
                                "DIAG1, DIAG2, DIAG3, DIAG4, DIAG5";

const QStringList tableHeads = {u"Beküldő"_s, u"Kategória"_s,     u"Naplósorszám"_s, u"Név"_s,
                                u"Dátum"_s,   u"Idő"_s,           u"TAJ"_s,          u"TAJ típusa"_s,
                                u"Nem"_s,     u"Születési idő"_s, u"Munkahely"_s,    u"BNO-k"_s,
                                u"WHO"_s,     u"Megnevezés"_s,    u"Mennyiség"_s,    u"Pontszám"_s};

void blockHead(ListRun& run, const QString& referrer, const QString& category) {
    run.text(u"<b>Beküldő: <LINDENT=30>"_s + referrer + u"</LINDENT></b>"_s);
    categoryLine(run, category);
    run.text(u"Ssz."_s + at(10, u"Neve"_s) + at(50, u"Ellát. idő"_s) + at(83, u"TAJ/Tip"_s) +
             at(110, u"NEM/Születési idő"_s) + at(150, u"Munkahely"_s));
    run.rule(ruleSize);
}

QString joinedDiagnoses(const Query& sheet) {
    QStringList codes;
    for (int column = DIAG1; column < DIAG1 + diagnoses; ++column)
        if (const QString code = sheet.text(column); !code.trimmed().isEmpty()) codes << code;
    return codes.join(u',');
}

void printSheet(ListRun& run, const Query& sheet, const PatientColumns& patient,
                const QString& diagnosisList) {
    const auto t = [&](Column column) { return sheet.text(column); };
    const QString time = at(50, t(F_DATUM) + u", "_s + t(F_IDO));
    // A sheet whose TAJ the register does not know keeps its line, without anything of a patient.
    if (patient.found)
        run.text(t(NAPLO) + at(10, run.fitted(patient.name, 39)) + time +
                 at(83, patient.taj + u'/' + patient.type) + at(110, patient.sex + u'/' + patient.birth) +
                 at(150, t(SZAKREND)));
    else
        run.text(t(NAPLO) + time + at(150, t(SZAKREND)));
    run.text(u"BNO-k: <LINDENT=10> "_s + diagnosisList);
    run.blank();
}

} // namespace itemised

} // namespace

void Bekuldok_vandrel_nyom(ListRun& run) {
    using namespace itemised;
    logHead(run, u"Tételes lista a beküldőkről"_s);
    run.row(tableHeads);
    QString referrer, category;
    qint64 count = 0;
    run.eachSheet(columns, [&](const Query& sheet) {
        const QString thisReferrer = sheet.text(IGENYLO);
        const QString thisCategory = sheet.text(TERITES);
        if (count == 0 || !sameCode(referrer, thisReferrer)) {
            if (count > 0) run.blank();
            blockHead(run, thisReferrer, thisCategory);
        } else if (!sameCode(category, thisCategory)) {
            categoryLine(run, thisCategory); // without the blank line that list 1 has before it
        }
        referrer = thisReferrer;
        category = thisCategory;
        ++count;

        // By the TAJ, not by the patient's number as list 1 goes; that is wanted.
        const PatientColumns patient = patientByTaj(run, sheet.text(SZEM_SZAM));
        const QString diagnosisList = joinedDiagnoses(sheet);
        printSheet(run, sheet, patient, diagnosisList);

        const QStringList sheetCells = {thisReferrer.trimmed(),
                                        thisCategory.trimmed(),
                                        sheet.text(NAPLO).trimmed(),
                                        patient.name,
                                        sheet.text(F_DATUM).trimmed(),
                                        sheet.text(F_IDO).trimmed(),
                                        sheet.text(SZEM_SZAM).trimmed(),
                                        patient.type,
                                        patient.sex,
                                        patient.birth,
                                        sheet.text(SZAKREND).trimmed(),
                                        diagnosisList};
        const std::vector<LineColumns> lines = linesOf(run, sheet.text(AZONOSITO));
        for (const LineColumns& line : lines) {
            ProcedureEntry procedure{u" "_s, 0};
            run.attempt([&] { procedure = run.lookUps.procedure(line.code); });
            const QString quantity = format::number(line.quantity);
            const QString points = format::number(procedure.points);
            run.text(u"<LINDENT=5>"_s + line.code + u"<LINDENT=15>"_s +
                     run.fitted(procedure.name.left(90), 124) + u"</LINDENT><LINDENT=140>"_s + quantity +
                     u'*' + points);
            run.row(sheetCells + QStringList{line.code, procedure.name.trimmed(), quantity, points});
        }
        // In the table no sheet is lost.
        if (lines.empty()) run.row(sheetCells + QStringList{QString(), QString(), QString(), QString()});
    });
    run.bold(u" "_s);
    run.closing(u"Beküldők összesen:  "_s + QString::number(count));
}

} // namespace vandrel
