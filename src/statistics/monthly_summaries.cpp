#include "statistics/monthly_summaries.h"

#include "platform/format.h"
#include "print/literal_text.h"
#include "statistics/scratch_lines.h"

#include <map>

using namespace Qt::StringLiterals;

namespace vandrel {

namespace {

constexpr qsizetype nameLength = 55;
constexpr double nameWidth = 79; // millimetres up to the next column

// "Eset: " and the two lines of heads of lists 3 and 4.
void costHeads(ListRun& run) {
    run.bold(u"Eset: "_s);
    run.text(u"WHO"_s + at(10, u"Megnevezés"_s) + at(90, u"Mennyiség"_s) + at(120, u"Pontszám"_s) +
             at(150, u"Összesen(Ft)"_s));
    run.text(at(110, u"Egységre"_s) + at(130, u"Összesen"_s));
}

// The points come before the quantity in the text; the tab stops put them in their places.
void costLine(ListRun& run, const QString& code, const QString& name, const CostFigures& figures) {
    run.text(literalText(code) + at(10, run.fitted(name.left(nameLength), nameWidth)) +
             at(110, format::thousands(figures.unitPoints)) + at(90, format::thousands(figures.quantity)) +
             at(130, format::thousands(figures.points)) + at(150, format::thousands(figures.value)));
}

void sumLine(ListRun& run, const QString& caption, const CostFigures& sums) {
    run.text(caption + at(90, format::thousands(sums.quantity)) +
             at(110, format::thousands(sums.unitPoints)) + at(130, format::thousands(sums.points)) +
             at(150, format::thousands(sums.value)));
}

// Deliberate: the wording says unit also where the sum is a referrer's.
const QString groupSum = u"Szakrendelő összesen:"_s;

} // namespace

// Deliberate: the head is all there is of this list.
void Rend_teljesites_nyom(ListRun& run) {
    run.blank();
    run.made();
    run.blank();
    run.title(u"Havi összesítő az orvosi rendelés teljesítményéről"_s);
}

void Bekuldok_havi_nyom(ListRun& run) {
    const ListRequest& request = run.request;
    run.made();
    run.title(u"Havi összesítő a beküldőkről"_s);
    run.period();
    run.text(u"Térítési kategória: "_s + literalText(request.category));
    run.text(u"Beküldő: "_s + literalText(request.fromCode + u" - "_s + request.toCode));

    const std::vector<qint64> lines = copyLines(run, ScratchKey::referrerAndUnit);
    costHeads(run);
    run.heads({u"Beküldő"_s, u"Munkahely"_s, u"WHO"_s, u"Megnevezés"_s, u"Mennyiség"_s,
               u"Pontszám egységre"_s, u"Pontszám összesen"_s, u"Összesen (Ft)"_s},
              4);

    enum Column { BEAV, MENNY, IGENYLO, SZAKREND };
    QString referrer;
    CostFigures referrerSums, listSums;
    bool first = true;
    // The sheets were copied in their referrers' order, so the lines are in it too.
    run.eachRow(
        DataFile::tetseged, "EUSZOLG", "BEAV, MENNY, IGENYLO, SZAKREND", lines, [&](const Query& line) {
            const QString thisReferrer = line.text(IGENYLO);
            if (first || !sameCode(referrer, thisReferrer)) {
                if (!first) {
                    sumLine(run, groupSum, referrerSums);
                    run.blank();
                }
                run.bold(thisReferrer.isEmpty() ? u" "_s : literalText(thisReferrer)); // a line in any case
                referrerSums = {};
                referrer = thisReferrer;
                first = false;
            }
            const QString code = line.text(BEAV);
            const QString unit = line.text(SZAKREND);
            const ProcedureEntry& procedure = run.lookUps.procedure(code);
            const CostFigures figures =
                CostFigures::of(line.number(MENNY), procedure.points, run.lookUps.unit(unit).multiplier);
            costLine(run, code, procedure.name, figures);
            run.row(QStringList{thisReferrer.trimmed(), unit.trimmed(), code, procedure.name.trimmed()} +
                    cells(figures));
            referrerSums += figures;
            listSums += figures;
        });
    if (!first) {
        sumLine(run, groupSum, referrerSums);
        run.blank();
    }
    sumLine(run, u"Összesen: "_s, listSums);
}

namespace {

// Summed quantities of one unit's procedures.
using Quantities = std::map<QString, double, CodeOrder>;

// Prints a unit's lines and gives their sums.
CostFigures printUnit(ListRun& run, const QString& unit, const Quantities& quantities) {
    const ListLookUps::Unit& found = run.lookUps.unit(unit);
    CostFigures sums;
    for (const auto& [code, quantity] : quantities) {
        const ProcedureEntry& procedure = run.lookUps.procedure(code);
        const CostFigures figures = CostFigures::of(quantity, procedure.points, found.multiplier);
        costLine(run, code, procedure.name, figures);
        run.row(QStringList{unit.trimmed(), found.name, code, procedure.name.trimmed()} + cells(figures));
        sums += figures;
    }
    return sums;
}

} // namespace

void Elvegz_beav_nyom(ListRun& run) {
    const ListRequest& request = run.request;
    run.blank();
    run.made();
    run.blank();
    run.title(u"Összesített lista az elvégzett beavatkozásokról"_s);
    run.blank();
    run.period();
    run.text(u"Térítési kategória: "_s + literalText(request.category));
    run.text(u"Szakrendelő: "_s + literalText(request.fromCode + u" - "_s + request.toCode));
    run.blank();

    const std::vector<qint64> lines = copyLines(run, ScratchKey::unit);
    costHeads(run);
    run.heads({u"Szakrendelő"_s, u"Szakrendelő neve"_s, u"WHO"_s, u"Megnevezés"_s, u"Mennyiség"_s,
               u"Pontszám egységre"_s, u"Pontszám összesen"_s, u"Összesen (Ft)"_s},
              4);

    enum Column { BEAV, MENNY, SZAKREND };
    QString unit;
    Quantities quantities;
    CostFigures listSums;
    bool first = true;
    const auto endUnit = [&] {
        const CostFigures sums = printUnit(run, unit, quantities);
        sumLine(run, groupSum, sums);
        run.blank();
        listSums += sums;
        quantities.clear();
    };
    // The sheets were copied in their units' order, so the lines of a unit are together.
    run.eachRow(DataFile::tetseged, "EUSZOLG", "BEAV, MENNY, SZAKREND", lines, [&](const Query& line) {
        const QString thisUnit = line.text(SZAKREND);
        if (first || !sameCode(unit, thisUnit)) {
            if (!first) endUnit();
            run.text(u"Szakrendelő: "_s + literalText(thisUnit + u" - "_s + run.lookUps.unit(thisUnit).name));
            run.blank();
            unit = thisUnit;
            first = false;
        }
        quantities[line.text(BEAV)] += line.number(MENNY);
    });
    if (!first) endUnit();
    sumLine(run, u"Összesen:"_s, listSums);
}

} // namespace vandrel
