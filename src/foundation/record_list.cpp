#include "foundation/record_list.h"

#include <algorithm>

namespace vandrel {

namespace {

constexpr std::size_t mostRowsRead = 400; // some pages; a table of any size stays small in memory

const catalogue::Column* catalogueColumn(DataFile file, std::string_view table, std::string_view column) {
    const auto same = [](std::string_view a, std::string_view b) {
        return QLatin1StringView(a.data(), static_cast<qsizetype>(a.size()))
                   .compare(QLatin1StringView(b.data(), static_cast<qsizetype>(b.size())),
                            Qt::CaseInsensitive) == 0;
    };
    for (const catalogue::Table& entry : catalogue::file(file).tables) {
        if (!same(entry.name, table)) continue;
        for (const catalogue::Column& candidate : entry.columns)
            if (same(candidate.name, column)) return &candidate;
    }
    return nullptr;
}

} // namespace

RecordList::RecordList(DataFiles& files, DataFile file, const char* table,
                       std::span<const GridColumn> columns)
    : m_files(files), m_file(file), m_table(table), m_columns(columns), m_source{m_table} {
    m_readStatement = "select ";
    for (const GridColumn& column : columns) {
        if (&column != columns.data()) m_readStatement += ", ";
        m_readStatement += column.column;
    }
    m_readStatement += " from [" + m_table + "] where rowid=?1";
}

GridField RecordList::field(int column) const {
    const char* name = m_columns[static_cast<std::size_t>(column)].column;
    const catalogue::Column* known = catalogueColumn(m_file, m_table, name);
    if (known == nullptr) return {name, FieldType::other, false};
    return {name, fieldType(known->type), known->type == catalogue::Type::code};
}

void RecordList::show(const RecordSource& source) {
    RowSnapshot rows(database(), source);
    m_rows = std::move(rows);
    m_sortedColumn = -1;
    forgetRows();
}

void RecordList::setSource(const RecordSource& source) {
    show(source);
    m_source = source;
}

void RecordList::GridSort(int column, SortDirection direction) {
    show(sortedSource(m_source, field(column), direction));
    m_sortedColumn = column;
    m_direction = direction;
}

void RecordList::GridFilter(int column, NarrowMode mode, const QString& answer) {
    if (answer.trimmed().isEmpty()) {
        showAll();
        return;
    }
    if (const auto narrowed = narrowedSource(m_table, field(column), mode, answer))
        setSource(*narrowed);
    else
        refresh();
}

void RecordList::sortWholeTable(int column) {
    show(sortedSource({m_table}, field(column), SortDirection::ascending));
    m_source = {m_table};
    m_sortedColumn = column;
    m_direction = SortDirection::ascending;
}

const std::optional<QStringList>& RecordList::row(qint64 position) const {
    static const std::optional<QStringList> nowhere;
    if (position < 0 || position >= m_rows.count()) return nowhere;
    const qint64 rowid = m_rows.rowid(position);
    if (const auto known = m_read.find(rowid); known != m_read.end()) return known->second;
    if (m_read.size() >= mostRowsRead) m_read.clear();
    Query values = database().query(m_readStatement, rowid);
    std::optional<QStringList> texts;
    if (values.next()) {
        texts.emplace();
        for (int i = 0; i < static_cast<int>(m_columns.size()); ++i)
            texts->append(values.text(i));
    }
    return m_read.emplace(rowid, std::move(texts)).first->second;
}

qint64 RecordList::rowBeginningWith(int column, const QString& text) const {
    if (text.isEmpty()) return -1;
    const std::string name = m_columns[static_cast<std::size_t>(column)].column;
    return m_rows.findForward(matchingRows(database(), '[' + m_table + ']', name + " like '?1*'", {text}), 0);
}

} // namespace vandrel
