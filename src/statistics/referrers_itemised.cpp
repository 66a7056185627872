#include "statistics/referrers_itemised.h"

#include "platform/format.h"
#include "print/literal_text.h"
#include "statistics/log_parts.h"

using namespace Qt::StringLiterals;

namespace vandrel {

namespace {

enum Column { AZONOSITO, IGENYLO, TERITES, NAPLO, F_DATUM, F_IDO, SZEM_SZAM, SZAKREND, DIAG1 };
constexpr int diagnoses = 5;
constexpr const char* columns = "AZONOSITO, IGENYLO, TERITES, NAPLO, F_DATUM, F_IDO, SZEM_SZAM, SZAKREND, "
                                "DIAG1, DIAG2, DIAG3, DIAG4, DIAG5";

const QStringList tableHeads =
    u"Beküldő;Kategória;Naplósorszám;Név;Dátum;Idő;TAJ;TAJ típusa;Nem;Születési idő;"
    "Munkahely;BNO-k;WHO;Megnevezés;Mennyiség;Pontszám"_s.split(u';');

void blockHead(ListRun& run, const QString& referrer, const QString& category) {
    run.text(u"<b>Beküldő: <LINDENT=30>"_s + literalText(referrer) + u"</LINDENT></b>"_s);
    categoryLine(run, category);
    run.text(u"Ssz."_s + at(10, u"Neve"_s) + at(50, u"Ellát. idő"_s) + at(83, u"TAJ/Tip"_s) +
             at(110, u"NEM/Születési idő"_s) + at(150, u"Munkahely"_s));
    run.rule(logRuleSize);
}

QString joinedDiagnoses(const Query& sheet) {
    QStringList codes;
    for (int column = DIAG1; column < DIAG1 + diagnoses; ++column)
        if (const QString code = sheet.text(column); !code.trimmed().isEmpty()) codes << code;
    return codes.join(u',');
}

void printSheet(ListRun& run, const Query& sheet, const PatientColumns& patient,
                const QString& diagnosisList) {
    const auto t = [&](Column column) { return literalText(sheet.text(column)); };
    const QString time = at(50, t(F_DATUM) + u", "_s + t(F_IDO));
    // A sheet whose TAJ the register does not know keeps its line, without anything of a patient.
    if (patient.found)
        run.text(t(NAPLO) + at(10, run.fitted(patient.name, 39)) + time +
                 at(83, run.fitted(patient.taj + u'/' + patient.type, 26)) +
                 at(110, literalText(patient.sex + u'/' + patient.birth)) + at(150, t(SZAKREND)));
    else
        run.text(t(NAPLO) + time + at(150, t(SZAKREND)));
    run.text(u"BNO-k: <LINDENT=10> "_s + literalText(diagnosisList));
    run.blank();
}

} // namespace

void Bekuldok_vandrel_nyom(ListRun& run) {
    logHead(run, u"Tételes lista a beküldőkről"_s);
    run.heads(tableHeads, 2);
    QString referrer, category;
    bool first = true;
    run.eachSheet(columns, [&](const Query& sheet) {
        const QString thisReferrer = sheet.text(IGENYLO);
        const QString thisCategory = sheet.text(TERITES);
        if (first || !sameCode(referrer, thisReferrer)) {
            if (!first) run.blank();
            blockHead(run, thisReferrer, thisCategory);
        } else if (!sameCode(category, thisCategory)) {
            categoryLine(run, thisCategory); // without the blank line that list 1 has before it
        }
        referrer = thisReferrer;
        category = thisCategory;
        first = false;

        // Deliberate: by the TAJ, not by the patient's number as in list 1.
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
            run.text(u"<LINDENT=5>"_s + literalText(line.code) + u"<LINDENT=15>"_s +
                     run.fitted(procedure.name.left(90), 124) + u"</LINDENT><LINDENT=140>"_s + quantity +
                     u'*' + points);
            run.row(sheetCells + QStringList{line.code, procedure.name.trimmed(), quantity, points});
        }
        // In the table no sheet is lost.
        if (lines.empty()) run.row(sheetCells + QStringList{QString(), QString(), QString(), QString()});
    });
    run.bold(u" "_s);
    run.closing(u"Beküldők összesen:  "_s); // Deliberate: no figure follows
}

} // namespace vandrel
