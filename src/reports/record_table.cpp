#include "reports/record_table.h"

#include "platform/code_page.h"

using namespace Qt::StringLiterals;

namespace vandrel {

namespace {

// The first count characters of a UTF-8 text.
std::string_view firstCharacters(std::string_view text, std::size_t count) {
    std::size_t at = 0;
    while (at < text.size() && (count > 0 || (static_cast<unsigned char>(text[at]) & 0xC0) == 0x80)) {
        if ((static_cast<unsigned char>(text[at]) & 0xC0) != 0x80) --count;
        ++at;
    }
    return text.substr(0, at);
}

// False for a value that cannot stand in the column; target may then hold a part of it.
bool appendValue(std::string& target, const RecordColumn& column, std::string_view value) {
    // Nearly all values are plain ASCII: one look decides, and one byte is one character.
    bool plain = true;
    for (const char c : value)
        plain = plain && static_cast<unsigned char>(c) >= 0x20 && static_cast<unsigned char>(c) < 0x7f;
    std::size_t length = plain ? value.size() : code_page::characters(value);
    if (length > column.width) {
        if (column.align != Align::leftCut) return false;
        value = firstCharacters(value, column.width);
        length = column.width;
    }
    const std::size_t room = column.width - length;
    if (column.align == Align::right) target.append(room, ' ');
    if (column.align == Align::zeros) target.append(room, '0');
    if (plain)
        target.append(value);
    else if (!code_page::appendLinePart(target, value))
        return false;
    if (column.align == Align::left || column.align == Align::leftCut) target.append(room, ' ');
    return true;
}

} // namespace

RecordFault::RecordFault(std::string_view column)
    : Fault(fault::invalidCall, u"A(z) %1 mező értéke nem írható a jelentésbe!"_s.arg(QString::fromLatin1(
                                    column.data(), static_cast<qsizetype>(column.size())))),
      m_column(column) {}

std::string recordSelect(std::span<const RecordColumn> record, std::string_view table) {
    std::string sql = "select ";
    for (const RecordColumn& column : record) {
        if (&column != record.data()) sql += ", ";
        sql += column.column;
    }
    return sql + " from " + std::string(table) + " order by rowid";
}

RecordFormatter::RecordFormatter(std::span<const RecordColumn> record) : m_record(record) {
    for (std::size_t i = 0; i < record.size(); ++i)
        m_tested[i] = record[i].tested.empty() ? i : recordPlace(record, record[i].tested);
}

void RecordFormatter::append(std::string& target, std::span<const Value> values) const {
    for (std::size_t i = 0; i < m_record.size(); ++i) {
        const RecordColumn& column = m_record[i];
        const Value& tested = values[m_tested[i]];
        if ((column.test != BlankTest::never && !tested) ||
            (column.test == BlankTest::blanks && onlyBlanks(*tested))) {
            target.append(column.width, ' ');
            continue;
        }
        const std::string_view value = values[i].value_or(std::string_view());
        const std::size_t before = target.size();
        if (!appendValue(target, column, value)) {
            target.resize(before);
            throw RecordFault(column.column);
        }
    }
}

} // namespace vandrel
