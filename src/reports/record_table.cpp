#include "reports/record_table.h"

#include "platform/code_page.h"

using namespace Qt::StringLiterals;

namespace vandrel {

namespace {

[[noreturn]] void raiseValue(const RecordColumn& column) {
    throw Fault(fault::invalidCall,
                u"A(z) %1 mező értéke nem fér el a jelentésben!"_s.arg(
                    QString::fromLatin1(column.column.data(), qsizetype(column.column.size()))));
}

} // namespace

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
        // Nearly all values are plain ASCII: one look decides, and one byte is one character.
        bool plain = true;
        for (const char c : value)
            plain = plain && static_cast<unsigned char>(c) >= 0x20 && static_cast<unsigned char>(c) < 0x7f;
        if (plain && value.size() <= column.width) {
            target.append(column.width - value.size(), column.padding);
            target.append(value);
            continue;
        }
        const std::size_t before = target.size();
        const std::size_t length = code_page::characters(value);
        const bool fits = length <= column.width;
        if (fits) target.append(column.width - length, column.padding);
        const bool lineEnd = value.find_first_of(std::string_view("\r\n\0", 3)) != std::string_view::npos;
        if (!fits || lineEnd || !code_page::appendUtf8(target, value)) {
            target.resize(before);
            raiseValue(column);
        }
    }
    target.append("\r\n");
}

} // namespace vandrel
