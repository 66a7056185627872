// A table behind a grid, without the grid: its columns, its record source, the snapshot that is shown, and
// rows that are read when they are looked at. Sorting and narrowing are the routines of the grid's menu.
#pragma once

#include "foundation/data_files.h"
#include "foundation/row_snapshot.h"

#include <QStringList>

#include <functional>
#include <span>
#include <unordered_map>

namespace vandrel {

struct GridColumn {
    const char* column;
    const char16_t* heading;
    int width = 100; // pixels
};

class RecordList {
  public:
    // A table of the catalogue. Nothing is read before a source is set.
    RecordList(DataFiles& files, DataFile file, const char* table, std::span<const GridColumn> columns);

    std::span<const GridColumn> columns() const { return m_columns; }
    GridField field(int column) const;
    Database& database() const { return m_files[m_file]; }
    const std::string& table() const { return m_table; }

    // Shows the rows of a source. A fault passes through and leaves everything as it was.
    void setSource(const RecordSource& source);
    void showAll() { setSource({m_table}); } // the plain table, in stored order
    // Reads the present source once more: a sort is gone, a narrowing stays.
    void refresh() { setSource(RecordSource(m_source)); }
    const RecordSource& source() const { return m_source; }

    // The menu's routines. The column is one of columns(). A sort is shown once and leaves the source as it
    // was, so that sorts do not pile up. Deliberate: a source that has an order already gives a statement
    // that the engine refuses, and its fault passes through.
    void GridSort(int column, SortDirection direction);
    // A blank answer shows the whole table. Faults of the answer and of the engine pass through.
    void GridFilter(int column, NarrowMode mode, const QString& answer);
    // A double click: ascending over the whole table, a narrowing is gone.
    void sortWholeTable(int column);

    // What the rows shown are sorted by; -1: as the source says.
    int sortedColumn() const { return m_sortedColumn; }
    SortDirection sortDirection() const { return m_direction; }

    RowSnapshot& rows() { return m_rows; }
    const RowSnapshot& rows() const { return m_rows; }
    // The columns' texts of a row, Null as an empty text; nullopt for a row that is no longer there. Faults
    // pass through. Rows that were read stay in memory until forgetRows, a few hundred at the most.
    const std::optional<QStringList>& row(qint64 position) const;
    void forgetRows() { m_read.clear(); }

    // The first row, in the order shown, whose column begins with the text; -1 when there is none.
    qint64 rowBeginningWith(int column, const QString& text) const;

  private:
    void show(const RecordSource& source);

    DataFiles& m_files;
    DataFile m_file;
    std::string m_table;
    std::span<const GridColumn> m_columns;
    std::string m_readStatement;
    RecordSource m_source;
    RowSnapshot m_rows;
    int m_sortedColumn = -1;
    SortDirection m_direction = SortDirection::ascending;
    mutable std::unordered_map<qint64, std::optional<QStringList>> m_read;
};

} // namespace vandrel
