#include "reports/selection.h"

#include "foundation/period_condition.h"
#include "platform/kept_transaction.h"

#include <algorithm>
#include <string>

using namespace Qt::StringLiterals;

namespace vandrel {

namespace {

const QString preparing = u"Előkészítés: "_s;

} // namespace

qint64 countSheets(Workstation& station) {
    Query count = station.files[DataFile::tetdata].query("select count(*) from BETEG");
    return count.next() ? count.integer(0) : 0;
}

void emptyScratchTables(Workstation& station) {
    station.files.renewScratch();
    Database& scratch = station.files[DataFile::tetseged];
    scratch.execute("delete from Leval_er");
    scratch.execute("delete from Leval_jav");
}

std::vector<qint64> dueSheets(Workstation& station, const SheetSelection& selection, const QString& from,
                              const QString& to, EventTurn& turn) {
    const PeriodCondition period = periodCondition(from, to);
    Database& data = station.files[DataFile::tetdata];
    // The index alone gives the rows of the period, by date. Sorted here and not by the engine, which would
    // sort them all before it gives the first; looked at in stored order, where neighbours share a page.
    const ReadTransaction reading(data);
    std::vector<qint64> sheets;
    {
        Query inPeriod =
            data.query("select rowid from BETEG where " + period.sql, period.lower, period.upper);
        while (inPeriod.next()) {
            sheets.push_back(inPeriod.integer(0));
            if ((sheets.size() & 63) == 0 && turn.due()) turn.serve();
        }
    }
    std::sort(sheets.begin(), sheets.end());
    Query due = data.query("select 1 from BETEG where rowid=?1 and " + std::string(selection.due));
    std::size_t kept = 0;
    for (std::size_t i = 0; i < sheets.size(); ++i) {
        due.bind(1, sheets[i]);
        if (due.next()) sheets[kept++] = sheets[i];
        due.reset();
        if ((i & 63) == 0 && turn.due()) turn.serve();
    }
    sheets.resize(kept);
    return sheets;
}

qint64 flattenSheets(Workstation& station, const SheetSelection& selection, const std::vector<qint64>& sheets,
                     EventTurn& turn, ReportProgress& progress) {
    KeptTransaction scratch(station.files[DataFile::tetseged]);
    // The mark is looked at again: what another program has marked meanwhile is that program's.
    SheetRows sheetRows(station, selection.table, selection.headColumns, selection.due);
    Query mark = station.files[DataFile::tetdata].query("update BETEG set " + std::string(selection.mark) +
                                                        "=1 where rowid=?");
    const auto total = static_cast<qint64>(sheets.size());
    qint64 rows = 0;
    qint64 position = 0;
    for (const qint64 sheet : sheets) {
        if (const std::optional<std::size_t> written = sheetRows.write(sheet)) {
            rows += static_cast<qint64>(*written);
            mark.bind(1, sheet).run();
        }
        ++position;
        if (position == total || turn.due()) {
            if (turn.displayDue() || position == total) progress.moved(preparing, position, total);
            turn.serve();
        }
    }
    scratch.commit();
    return rows;
}

} // namespace vandrel
