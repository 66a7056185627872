#include "reports/sheet_rows.h"

#include "platform/format.h"

#include <cmath>

using namespace Qt::StringLiterals;

namespace vandrel {

namespace {

// --- statements --------------------------------------------------------------------------------------------

// The sheet's key and its patient come before the columns of the rows.
constexpr int keyPlace = 0;
constexpr int patientPlace = 1;
constexpr int everyRowPlace = 2;
constexpr int headPlace = everyRowPlace + static_cast<int>(std::size(everyRowColumns));

void appendSources(std::string& sql, std::span<const RowColumn> columns, RowSource source) {
    for (const RowColumn& column : columns) {
        if (column.source != source) continue;
        for (const std::string_view name : {column.from, column.second}) {
            if (name.empty()) continue;
            if (!sql.empty()) sql += ", ";
            sql += name;
        }
    }
}

std::string sheetSelect(std::span<const RowColumn> headColumns, std::string_view condition) {
    std::string columns = "AZONOSITO, PaciensId";
    appendSources(columns, everyRowColumns, RowSource::sheet);
    appendSources(columns, headColumns, RowSource::sheet);
    return "select " + columns + " from BETEG where rowid=? and " + std::string(condition);
}

std::string patientSelect(std::span<const RowColumn> headColumns) {
    std::string columns;
    appendSources(columns, headColumns, RowSource::patient);
    return "select " + columns + " from Paciensek where ID=? order by rowid limit 1";
}

// In stored order.
constexpr const char* lineSelect =
    "select BEAV, MENNY, BeavJelleg from EUSZOLG where Azonosito=? order by rowid";

std::string insertInto(std::string_view table, std::span<const RowColumn> headColumns) {
    std::string columns, values;
    const auto add = [&](std::string_view name) {
        columns += (columns.empty() ? "" : ", ") + std::string(name);
        values += values.empty() ? "?" : ", ?";
    };
    for (const RowColumn& column : everyRowColumns)
        add(column.column);
    for (std::size_t position = 1; position <= positionsPerRow; ++position)
        for (const char* name : {"Who_", "Menny_", "Jell_"})
            add(name + std::to_string(position));
    for (const RowColumn& column : headColumns)
        add(column.column);
    return "insert into " + std::string(table) + " (" + columns + ") values (" + values + ")";
}

// --- texts -------------------------------------------------------------------------------------------------

// count characters from start (0-based) of a UTF-8 text.
std::string_view middle(std::string_view text, std::size_t start, std::size_t count) {
    const auto skip = [text](std::size_t at, std::size_t characters) {
        while (characters > 0 && at < text.size()) {
            ++at;
            while (at < text.size() && (static_cast<unsigned char>(text[at]) & 0xC0) == 0x80)
                ++at;
            --characters;
        }
        return at;
    };
    const std::size_t first = skip(0, start);
    return text.substr(first, skip(first, count) - first);
}

std::string_view trimmed(std::string_view text) {
    const auto first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

} // namespace

std::string_view sourceOf(std::string_view column) {
    if (column.starts_with("Who_")) return "BEAV";
    if (column.starts_with("Menny_")) return "MENNY";
    if (column.starts_with("Jell_")) return "BeavJelleg";
    for (const std::span<const RowColumn> columns :
         {std::span<const RowColumn>(everyRowColumns), std::span<const RowColumn>(correctedHeadColumns)})
        for (const RowColumn& entry : columns)
            if (entry.column == column) return entry.from;
    return {};
}

QString keyOfRow(Workstation& station, std::span<const qint64> sheets, qint64 position) {
    Query sheet = station.files[DataFile::tetdata].query(
        "select AZONOSITO, (select count(*) from EUSZOLG where Azonosito=trim(BETEG.AZONOSITO)) "
        "from BETEG where rowid=?");
    qint64 last = 0;
    for (const qint64 rowid : sheets) {
        sheet.bind(1, rowid);
        if (sheet.next()) {
            constexpr auto perRow = static_cast<qint64>(positionsPerRow);
            last += (sheet.integer(1) + perRow - 1) / perRow;
            if (last >= position) return sheet.text(0).trimmed();
        }
        sheet.reset();
    }
    return {};
}

void SheetRows::Binder::parts(std::initializer_list<std::string_view> parts) {
    std::string& buffer = m_made[m_used++];
    buffer.clear();
    for (const std::string_view part : parts)
        buffer.append(part);
    text(buffer);
}

void SheetRows::Binder::value(const Query& source, int column, Conversion conversion) {
    if (conversion == Conversion::joined) {
        if (source.isNull(column) && source.isNull(column + 1)) return null();
        // Each text is copied before the next one is read, which may move it.
        std::string& buffer = m_made[m_used++];
        buffer.assign(source.bytes(column));
        buffer.append(source.bytes(column + 1));
        return text(buffer);
    }
    if (conversion == Conversion::number && !source.isNull(column) && !source.isText(column)) {
        const double value = source.number(column);
        if (value == std::floor(value) && std::fabs(value) < 1e15)
            return parts({std::to_string(static_cast<long long>(value))});
        return parts({format::number(value).toStdString()});
    }
    const std::optional<std::string_view> stored = source.optionalBytes(column);
    if (!stored) return null();
    switch (conversion) {
    case Conversion::firstCharacter:
        return text(middle(*stored, 0, 1));
    case Conversion::digits:
        return parts({middle(*stored, 0, 4), middle(*stored, 5, 2), middle(*stored, 8, 2)});
    case Conversion::hourAndMinute:
        return parts({middle(*stored, 0, 2), middle(*stored, 3, 2)});
    default:
        return text(*stored);
    }
}

void SheetRows::Binder::run() {
    m_row.run();
    m_at = 0;
    m_used = 0;
}

SheetRows::SheetRows(Workstation& station, std::string_view table, std::span<const RowColumn> headColumns,
                     std::string_view condition)
    : m_headColumns(headColumns),
      m_sheet(station.files[DataFile::tetdata].query(sheetSelect(headColumns, condition))),
      m_patient(station.files[DataFile::tetdata].query(patientSelect(headColumns))),
      m_line(station.files[DataFile::tetdata].query(lineSelect)),
      m_headRow(station.files[DataFile::tetseged].query(insertInto(table, headColumns))),
      m_furtherRow(station.files[DataFile::tetseged].query(insertInto(table, {}))), m_head(m_headRow),
      m_further(m_furtherRow), m_lines(linesPerSheet) {}

std::optional<std::size_t> SheetRows::write(qint64 sheet) {
    m_sheet.bind(1, sheet);
    if (!m_sheet.next()) {
        m_sheet.reset();
        return std::nullopt;
    }
    readLines();
    const std::size_t rows = (m_lineCount + positionsPerRow - 1) / positionsPerRow;
    for (std::size_t row = 0; row < rows; ++row) {
        if (row == 0) {
            writeHeadRow();
        } else {
            bindEveryRow(m_further, row);
            m_further.run();
        }
    }
    m_sheet.reset();
    return rows;
}

void SheetRows::readLines() {
    m_lineCount = 0;
    m_line.bindBorrowed(1, trimmed(m_sheet.bytes(keyPlace)));
    while (m_line.next()) {
        if (m_lineCount == linesPerSheet)
            throw Fault(fault::subscript, u"Egy adatlapon legfeljebb %1 beavatkozás lehet: %2"_s.arg(
                                              QString::number(linesPerSheet), m_sheet.text(keyPlace)));
        Line& line = m_lines[m_lineCount++];
        line.codeNull = m_line.isNull(0);
        line.code.assign(m_line.bytes(0));
        line.quantityNull = m_line.isNull(1);
        line.quantity.assign(m_line.bytes(1));
        line.character.assign(m_line.bytes(2));
    }
    m_line.reset();
}

void SheetRows::bindEveryRow(Binder& row, std::size_t number) {
    int place = everyRowPlace;
    for (const RowColumn& column : everyRowColumns)
        row.value(m_sheet, place++, column.conversion);
    for (std::size_t i = number * positionsPerRow; i < (number + 1) * positionsPerRow; ++i) {
        if (i >= m_lineCount) { // after the last line come empty texts, not Nulls
            row.text({});
            row.text({});
            row.text({});
            continue;
        }
        const Line& line = m_lines[i];
        line.codeNull ? row.null() : row.text(line.code);
        line.quantityNull ? row.null() : row.text(line.quantity);
        row.text(line.character);
    }
}

void SheetRows::writeHeadRow() {
    // Without a patient these columns stay Null, and the sheet is reported all the same.
    bool patient = false;
    if (!m_sheet.isNull(patientPlace)) {
        m_patient.bind(1, m_sheet.integer(patientPlace));
        patient = m_patient.next();
    }
    bindEveryRow(m_head, 0);
    int sheetPlace = headPlace, patientColumn = 0;
    for (const RowColumn& column : m_headColumns) {
        if (column.source == RowSource::sheet) {
            m_head.value(m_sheet, sheetPlace++, column.conversion);
            if (!column.second.empty()) ++sheetPlace;
        } else if (patient) {
            m_head.value(m_patient, patientColumn++, column.conversion);
        } else {
            m_head.null();
        }
    }
    m_head.run();
    m_patient.reset(); // its texts were borrowed until now
}

} // namespace vandrel
