// The one catalogue of persistent data: which file holds which table, with which columns in which order.
// File, table and column names are written here once; nothing here opens a file.
#pragma once

#include <QString>

#include <span>
#include <string_view>

namespace vandrel {

enum class DataFile {
    tetdata,   // the clinic's own data; what merges and backups move
    tetmod,    // dictionaries kept by the users
    beav,      // procedure dictionary, replaced whole by updates
    diagnos,   // diagnosis dictionary, replaced whole by updates
    gyogysz2,  // official drug list, replaced whole by updates
    gyogysz,   // date of the last drug-list refresh
    tetseged,  // scratch tables that a report run empties and refills
    osszedata, // transport file of merge and daily backup
    TAJKapu,   // shared with the sibling tool
    ZEKA,      // the neighbouring practice system's file
    td2        // empty copy of tetdata in the present layout
};

namespace catalogue {

// Plain types that any SQLite tool can read. Key and code texts compare without regard to case.
enum class Type {
    text,
    code,
    integer,     // 16 bits
    whole,       // 32 bits
    wholeNumber, // a number that holds whole ones
    number       // with decimals
};

struct Column {
    std::string_view name;
    Type type = Type::text;
};

struct Table {
    std::string_view name;
    std::span<const Column> columns;
    // Columns that are searched for; each gets an index.
    std::span<const std::string_view> searched = {};
    // Statement that writes the first row of a one-row table; empty when a new table starts empty.
    std::string_view firstRow = {};
    // A column that is searched while it is being typed. An index over each of its first few characters finds
    // the first row in the table's order at once, however many rows share the beginning.
    std::string_view typedAhead = {};
};

// How many first characters have an index of their own; longer beginnings fit few enough rows.
inline constexpr int typedAheadLength = 4;

struct View {
    std::string_view name;
    std::string_view select;
};

struct File {
    DataFile file;
    std::string_view name;
    std::span<const Table> tables;
    std::span<const View> views = {};
    // Tables whose rows are copied in from another file: they start empty, a first row of their own would
    // come twice.
    std::span<const std::string_view> filledByCopy = {};
};

std::span<const File> files();
const File& file(DataFile file);
QString fileName(DataFile file);

} // namespace catalogue
} // namespace vandrel
