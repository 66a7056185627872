#include "statistics/list_runner.h"

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

// Nothing else of the fault policies concerns the lists that skip failing statements.
void requirePrinter(const qcPrinter& document, OnFault onFault) {
    if (onFault == OnFault::endList && document.engine().service.printers().empty())
        throw Fault(fault::noPrinter, u"Nincs telepítve nyomtató!"_s);
}

void tellFault(Workstation& station, const Fault& fault) {
    station.dialogue.tell(printFaultText(fault), programTitle,
                          fault.number() == fault::noPrinter ? Icon::critical : Icon::warning);
}

ListOutcome made(Workstation& station, StatisticsList list, const ListRequest& request, qcPrinter& document,
                 const ListProgress& progress) {
    const ListEntry& chosen = entry(list);
    requirePrinter(document, chosen.onFault);
    startDocument(document);
    std::vector<qint64> sheets = selectSheets(station, list, request);
    if (sheets.empty() && chosen.noData != nullptr) {
        station.dialogue.tell(QString::fromUtf16(chosen.noData),
                              chosen.noDataTitle ? QString::fromUtf16(chosen.noDataTitle) : programTitle);
        return ListOutcome::noData;
    }
    ListWriter writer(document);
    ListRun run(station, request, writer, progress, std::move(sheets), chosen.onFault);
    chosen.produce(run);
    return ListOutcome::ready;
}

} // namespace

ListOutcome runList(Workstation& station, StatisticsList list, const ListRequest& request,
                    qcPrinter& document, const ListProgress& progress) {
    if (progress.status) progress.status(list_status::processing);
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
