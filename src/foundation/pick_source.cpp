// The lines of the pick-lists. A table's lines are fetched one by one over a snapshot of its row ids, so that
// a register of any size opens at once and no read lock stands while the list is open.
#include "foundation/pick_source.h"

#include "foundation/prefix_search.h"
#include "platform/text_compare.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace vandrel {

namespace {

class ListSource : public PickSource {
  public:
    explicit ListSource(const QStringList& entries) : m_entries(entries) {}
    int count() const override { return static_cast<int>(m_entries.size()); }
    QString line(int row) override { return m_entries.value(row); }
    int rowBeginningWith(const QString& text) override {
        for (int row = 0; row < count(); ++row)
            if (startsWithText(m_entries[row], text)) return row;
        return -1;
    }

  private:
    QStringList m_entries;
};

struct TableLines {
    PickMarker marker;
    DataFile file;
    const char* table;
    const char* code;
    const char* rows;
    const char* line; // one column: the text; Null parts are empty
};

constexpr TableLines tables[] = {
    {PickMarker::Szakrend, DataFile::tetmod, "SZAKREND", "REND_KOD",
     "select rowid from SZAKREND order by rowid",
     "select ifnull(REND_KOD,'')||' - '||ifnull(REND_NEV,'') from SZAKREND where rowid=?1"},
    {PickMarker::Orvkod, DataFile::tetmod, "ORVOSOK", "ORVKOD", "select rowid from ORVOSOK order by rowid",
     "select ifnull(ORVKOD,'')||' - '||ifnull(NEV,'') from ORVOSOK where rowid=?1"},
    {PickMarker::Paciens, DataFile::tetdata, "Paciensek", "TAJ", "select rowid from Paciensek order by rowid",
     "select ifnull(TAJ,'')||' - '||ifnull(Neve,'')||': '||ifnull(Irszam,'')||' - '||ifnull(City,'')||', '||"
     "ifnull(Cim,'') from Paciensek where rowid=?1"},
};

class TableSource : public PickSource {
  public:
    TableSource(Workstation& station, const TableLines& table) : m_station(station), m_table(table) {
        Query rows = m_station.files[m_table.file].query(m_table.rows);
        while (rows.next())
            m_rows.push_back(rows.integer(0));
    }
    int count() const override { return static_cast<int>(m_rows.size()); }
    QString line(int row) override {
        if (row < 0 || row >= count()) return {};
        Query line = m_station.files[m_table.file].query(m_table.line, m_rows[static_cast<std::size_t>(row)]);
        return line.next() ? line.text(0) : QString();
    }
    int rowBeginningWith(const QString& text) override {
        const std::optional<qint64> rowid =
            firstRowStartingWith(m_station.files[m_table.file], m_table.table, m_table.code, text);
        if (!rowid) return -1;
        const auto place = std::ranges::lower_bound(m_rows, *rowid); // rowids grow
        return place != m_rows.end() && *place == *rowid ? static_cast<int>(place - m_rows.begin()) : -1;
    }

  private:
    Workstation& m_station;
    const TableLines& m_table;
    std::vector<qint64> m_rows;
};

} // namespace

std::unique_ptr<PickSource> openPickSource(Workstation& station, PickMarker marker) {
    for (const TableLines& table : tables)
        if (table.marker == marker) return std::make_unique<TableSource>(station, table);
    return std::make_unique<ListSource>(codeList(marker).entries);
}

} // namespace vandrel
