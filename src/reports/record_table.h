// Records of fixed columns: one array says each column's width, alignment and blank test, and one formatter
// walks it. The itemised report's record is such an array. Reads no table itself.
#pragma once

#include "platform/fault.h"

#include <array>
#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace vandrel {

// What makes a column the whole width in blanks before any padding.
enum class BlankTest {
    never, // padded straight: a procedure position without a procedure is an empty text
    null,  // Null; an empty text or a stored blank is a value and is padded, with zeros where told
    blanks // Null, and also a text of blanks only
};

enum class Align {
    right,   // blanks before the value
    zeros,   // zeros before the value
    left,    // blanks after the value
    leftCut, // the same, and a value that is longer than the column is cut
};

struct RecordColumn {
    std::string_view column; // of the scratch table
    std::size_t width;       // characters; a value that is longer is a fault, but for leftCut
    Align align;
    BlankTest test;
    std::string_view tested = {}; // the column that is tested when it is not this one
};

// In the order of the line. Deliberate: the oddities among the blank tests; the Fund has been reading these
// files for years.
inline constexpr RecordColumn originalRecord[] = {
    {"R_azon", 9, Align::right, BlankTest::never},       {"Orv_azon", 5, Align::right, BlankTest::null},
    {"Bek", 9, Align::right, BlankTest::null},           {"Borv_azon", 5, Align::right, BlankTest::null},
    {"Badat", 9, Align::zeros, BlankTest::null},         {"Bdatum", 8, Align::right, BlankTest::null},
    {"Naplo", 8, Align::zeros, BlankTest::never}, // joins the records of a sheet, so it is in every one
    {"Datum", 8, Align::right, BlankTest::null},         {"Ora", 4, Align::right, BlankTest::null},
    {"Allampol", 3, Align::right, BlankTest::null},      {"Taj", 9, Align::right, BlankTest::null},
    {"Az_tip", 1, Align::right, BlankTest::null},        {"Nem", 1, Align::right, BlankTest::null},
    {"Szul", 8, Align::right, BlankTest::null},          {"Irszam", 4, Align::right, BlankTest::null},
    {"Terkat", 2, Align::right, BlankTest::null, "Ora"}, // Deliberate: the time decides over the fee category
    {"Rterdij", 6, Align::right, BlankTest::null},       {"Ell_tip", 1, Align::right, BlankTest::null},
    {"Bno_1", 5, Align::right, BlankTest::blanks},       {"Bno_2", 5, Align::right, BlankTest::blanks},
    {"Bno_3", 5, Align::right, BlankTest::blanks},       {"Bno_4", 5, Align::right, BlankTest::blanks},
    {"Bno_5", 5, Align::right, BlankTest::blanks},       {"Who_1", 5, Align::right, BlankTest::never},
    {"Menny_1", 2, Align::right, BlankTest::never},      {"Jell_1", 1, Align::right, BlankTest::never},
    {"Who_2", 5, Align::right, BlankTest::never},        {"Menny_2", 2, Align::right, BlankTest::never},
    {"Jell_2", 1, Align::right, BlankTest::never},       {"Who_3", 5, Align::right, BlankTest::never},
    {"Menny_3", 2, Align::right, BlankTest::never},      {"Jell_3", 1, Align::right, BlankTest::never},
    {"Who_4", 5, Align::right, BlankTest::never},        {"Menny_4", 2, Align::right, BlankTest::never},
    {"Jell_4", 1, Align::right, BlankTest::never},       {"Who_5", 5, Align::right, BlankTest::never},
    {"Menny_5", 2, Align::right, BlankTest::never},      {"Jell_5", 1, Align::right, BlankTest::never},
    {"Who_6", 5, Align::right, BlankTest::never},        {"Menny_6", 2, Align::right, BlankTest::never},
    {"Jell_6", 1, Align::right, BlankTest::never},       {"Tova", 1, Align::right, BlankTest::null},
    {"Labor", 1, Align::right, BlankTest::null},         {"Rtg", 1, Align::right, BlankTest::null},
    {"Ctmr", 1, Align::right, BlankTest::null},          {"Fizioter", 1, Align::right, BlankTest::null},
    {"K_kep", 1, Align::right, BlankTest::null},         {"Utkltg", 1, Align::right, BlankTest::null},
    {"Baleset", 2, Align::right, BlankTest::null},       {"Recept", 2, Align::zeros, BlankTest::null},
    {"Gyogyseg", 2, Align::zeros, BlankTest::null},      {"Gyogyfurd", 2, Align::zeros, BlankTest::null},
    {"Elsznyil", 2, Align::right, BlankTest::null},      {"Termen", 2, Align::right, BlankTest::null},
    {"Termod", 2, Align::right, BlankTest::null},
};

// Place of a column in a record; the record's size when it has none of that name.
constexpr std::size_t recordPlace(std::span<const RecordColumn> record, std::string_view column) {
    for (std::size_t i = 0; i < record.size(); ++i)
        if (record[i].column == column) return i;
    return record.size();
}

constexpr std::size_t recordWidth(std::span<const RecordColumn> record) {
    std::size_t width = 0;
    for (const RecordColumn& column : record)
        width += column.width;
    return width;
}
static_assert(recordWidth(originalRecord) == 194);

// A value that cannot stand in its column; fault invalidCall.
class RecordFault : public Fault {
  public:
    explicit RecordFault(std::string_view column);
    std::string_view column() const noexcept { return m_column; } // its name in the record's table

  private:
    std::string_view m_column;
};

// "select", the record's columns in their order, and "from table order by rowid".
std::string recordSelect(std::span<const RecordColumn> record, std::string_view table);

// Turns the columns of a row into one line. Values are UTF-8 views in the record's order, nullopt is Null.
class RecordFormatter {
  public:
    using Value = std::optional<std::string_view>;

    explicit RecordFormatter(std::span<const RecordColumn> record);

    // Appends the columns, without a line end, to target, in the code page. A value longer than its width, or
    // one that cannot stand in the file (code_page::appendLinePart says which), is a RecordFault; target then
    // holds the columns before it.
    void append(std::string& target, std::span<const Value> values) const;

  private:
    std::span<const RecordColumn> m_record;
    std::array<std::size_t, 64> m_tested{}; // place of each column's tested column
};

// True when the text holds nothing but blanks.
constexpr bool onlyBlanks(std::string_view text) {
    return text.find_first_not_of(' ') == std::string_view::npos;
}

} // namespace vandrel
