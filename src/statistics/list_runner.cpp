#include "statistics/list_runner.h"

#include "foundation/file_checks.h"
#include "print/print_fault.h"
#include "print/qc_printer.h"
#include "statistics/individual_costs.h"
#include "statistics/individual_lists.h"
#include "statistics/list_selection.h"
#include "statistics/monthly_summaries.h"
#include "statistics/referrers_itemised.h"
#include "statistics/traffic_log.h"

using namespace Qt::StringLiterals;

namespace vandrel {

namespace {

// What tells the lists apart for the skeleton, in the order of their numbers.
struct ListEntry {
    void (*produce)(ListRun&);
    OnFault onFault;
    const char16_t* noData; // null: the list is made all the same
    const char16_t* noDataTitle;
};

constexpr const char16_t* nothingToPrint = u"Nincs nyomtatható adat!";

constexpr ListEntry lists[] = {
    {BetForg_naplo_Nyom, OnFault::skipStatement, nothingToPrint, u"Hiba"},
    {Rend_teljesites_nyom, OnFault::endList, nullptr, nullptr},
    {Bekuldok_havi_nyom, OnFault::endList, nothingToPrint, nullptr},
    {Elvegz_beav_nyom, OnFault::endList, nothingToPrint, nullptr},
    {Bekuldok_vandrel_nyom, OnFault::skipStatement, nothingToPrint, u"Hiba"},
    {Egyeni_koltseg_nyom, OnFault::endList, u"Nincs ilyen TAJ számú beteg!", nullptr},
    {Ossz_lista_nyom, OnFault::endList, nullptr, nullptr},
    {VizDijStat_Nyom, OnFault::endList, nullptr, nullptr},
};

const ListEntry& entry(StatisticsList list) {
    return lists[static_cast<int>(list) - 1];
}

void startDocument(qcPrinter& document) {
    document.ResetItems();
    document.setScaleMode(scale_mode::millimetre);
    document.setMarginLeft(20); // room for the file's holes
    document.setMarginRight(10);
    document.setMarginTop(10);
    document.setMarginBottom(10);

    constexpr int even = 3, odd = 2, first = 0;
    qcTextItem& footer = document.Footer(even);
    footer.setText(u"#pagenumber# / #pagetotal# .oldal"_s);
    footer.setFontName(u"Times New Roman"_s);
    footer.setFontSize(10);
    footer.setFontBold(true);
    footer.setAlignment(item_alignment::centre);
    document.FooterCopy(even, odd);
    document.FooterCopy(even, first);
    document.setSetFooter(even, true);
    document.setSetFooter(odd, true);
}

void tellFault(Workstation& station, const Fault& fault) {
    station.dialogue.tell(printFaultText(fault), programTitle,
                          fault.number() == fault::noPrinter ? Icon::critical : Icon::warning);
}

QString leftOut(const ListRun& run) {
    QStringList told;
    if (run.unreadSheets() > 0) told << u"%1 adatlap nem volt olvasható"_s.arg(run.unreadSheets());
    if (run.incompleteSheets() > 0) told << u"%1 adatlap adatai hiányosak"_s.arg(run.incompleteSheets());
    return told.join(u"; "_s);
}

ListOutcome made(Workstation& station, StatisticsList list, const ListRequest& request, qcPrinter& document,
                 Progress& progress) {
    const ListEntry& chosen = entry(list);
    startDocument(document);
    ListWriter writer(document);
    ListRun run(station, request, writer, progress, chosen.onFault);
    bool whole = false;
    run.waiting([&] {
        whole = confirmWhole(station, filesOfLists, u"a lista"_s, [&progress](const QString& name) {
            progress.stage(u"Az adatállományok ellenőrzése: %1"_s.arg(name));
        });
    });
    if (!whole) return ListOutcome::stopped;
    run.waiting([&] { run.sheets = selectSheets(station, list, request); });
    if (run.sheets.empty() && chosen.noData != nullptr) {
        station.dialogue.tell(QString::fromUtf16(chosen.noData),
                              chosen.noDataTitle ? QString::fromUtf16(chosen.noDataTitle) : programTitle);
        return ListOutcome::noData;
    }
    chosen.produce(run);
    document.setPreviewNote(leftOut(run));
    return ListOutcome::ready;
}

} // namespace

QString listFileName(const QString& title, StatisticsList list, const ListRequest& request) {
    const auto day = [](QString text) {
        while (text.endsWith(u'.') || text.endsWith(u' '))
            text.chop(1);
        return text;
    };
    QString name = title.trimmed();
    if (const QString from = day(request.from), to = day(request.to); !from.isEmpty() && !to.isEmpty())
        name += u' ' + from + (from == to ? QString() : u'-' + to);
    const bool one = !request.fromCode.isEmpty() && sameCode(request.fromCode, request.toCode);
    // A patient's number has no place in the name of a file.
    QString unit = list == StatisticsList::individualCosts ? QString() : request.code;
    if (request.allUnits) unit.clear();
    if (one) unit = request.fromCode;
    return unit.trimmed().isEmpty() ? name : name + u' ' + unit.trimmed();
}

ListOutcome runList(Workstation& station, StatisticsList list, const ListRequest& request,
                    qcPrinter& document, Progress& progress) {
    progress.stage(list_status::processing);
    ListOutcome outcome = ListOutcome::failed;
    try {
        outcome = made(station, list, request, document, progress);
    } catch (const ListStopped&) {
        outcome = ListOutcome::stopped;
    } catch (const Fault& fault) {
        document.ResetItems();
        tellFault(station, fault);
    }
    if (outcome != ListOutcome::ready) document.ResetItems();
    return outcome;
}

} // namespace vandrel
