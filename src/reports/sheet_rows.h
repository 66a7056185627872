// A sheet laid out as rows of a scratch table: one array says where each column comes from, and one class
// walks it. Selects no sheets and sets no mark.
#pragma once

#include "foundation/workstation.h"
#include "platform/database.h"

#include <array>
#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace vandrel {

// A sheet has room for this many lines; one more is fault subscript.
inline constexpr std::size_t linesPerSheet = 100;
inline constexpr std::size_t positionsPerRow = 6; // procedure positions

enum class RowSource { sheet, patient };

// Null stays Null in all of them.
enum class Conversion {
    none,
    firstCharacter,
    digits,        // éééé.hh.nn. as eight digits
    hourAndMinute, // hh:mm:00 as four digits
    number,        // without needless zeros, decimal comma; what is no number stays as it is stored
    joined,        // both columns, one after the other; Null only when both are
};

struct RowColumn {
    std::string_view column; // of the scratch table
    RowSource source;
    std::string_view from; // column of BETEG or Paciensek
    Conversion conversion = Conversion::none;
    std::string_view second = {}; // for joined
};

// In every row of a sheet, before the procedure positions.
inline constexpr RowColumn everyRowColumns[] = {
    {"R_azon", RowSource::sheet, "SZAKREND"},
    {"Naplo", RowSource::sheet, "NAPLO"}, // joins the rows of a sheet
};

// In a sheet's first row only. The last four are the corrected report's: what the Fund holds of the sheet.
inline constexpr RowColumn correctedHeadColumns[] = {
    {"Orv_azon", RowSource::sheet, "ORVKOD"},
    {"Bek", RowSource::sheet, "IGENYLO"},
    {"Borv_azon", RowSource::sheet, "BeutOrvos"},
    {"Badat", RowSource::sheet, "BeutIndok"},
    {"Bdatum", RowSource::sheet, "BeutaloKelte", Conversion::digits},
    {"Datum", RowSource::sheet, "F_DATUM", Conversion::digits},
    {"Ora", RowSource::sheet, "F_IDO", Conversion::hourAndMinute},
    {"Allampol", RowSource::patient, "Allampol_rov"},
    {"Taj", RowSource::patient, "TAJ"},
    {"Az_tip", RowSource::patient, "Azon_Tipus", Conversion::firstCharacter},
    {"Nem", RowSource::patient, "Nem", Conversion::firstCharacter},
    {"Szul", RowSource::patient, "Szul_Dat", Conversion::digits},
    {"Irszam", RowSource::patient, "Irszam"},
    {"Terkat", RowSource::sheet, "TERITES"},
    {"Rterdij", RowSource::sheet, "TerReszlDij", Conversion::number},
    {"Ell_tip", RowSource::sheet, "ELL_TIP"},
    {"Bno_1", RowSource::sheet, "DIAG1"},
    {"Bno_2", RowSource::sheet, "DIAG2"},
    {"Bno_3", RowSource::sheet, "DIAG3"},
    {"Bno_4", RowSource::sheet, "DIAG4"},
    {"Bno_5", RowSource::sheet, "DIAG5"},
    {"Tova", RowSource::sheet, "TOVA"},
    {"Labor", RowSource::sheet, "LABOR"},
    {"Rtg", RowSource::sheet, "RTG"},
    {"Ctmr", RowSource::sheet, "CTMR"},
    {"Fizioter", RowSource::sheet, "FIZIO"},
    {"K_kep", RowSource::sheet, "K_KEP"},
    {"Utkltg", RowSource::sheet, "UTKLTG"},
    {"Baleset", RowSource::sheet, "BALESET1", Conversion::joined, "BALESET2"},
    {"Recept", RowSource::sheet, "RECEPT"},
    {"Gyogyseg", RowSource::sheet, "GYOGYSEG"},
    {"Gyogyfurd", RowSource::sheet, "GYOGYFURD"},
    {"Elsznyil", RowSource::sheet, "ElszNyil"},
    {"Termen", RowSource::sheet, "VizitDij"},
    {"Termod", RowSource::sheet, "VizitdijFizMod"},
    {"Jav", RowSource::sheet, "JAV"},
    {"Er_azon", RowSource::sheet, "ER_AZON"},
    {"Enaplo", RowSource::sheet, "ENAPLO"},
    {"Edatum", RowSource::sheet, "EDATUM", Conversion::digits},
};
inline constexpr std::span<const RowColumn> originalHeadColumns(correctedHeadColumns,
                                                                std::size(correctedHeadColumns) - 4);
static_assert(originalHeadColumns.back().column == "Termod");

// Column of the sheet, its patient or its lines that a column of the scratch table comes from; empty for one
// that is in no list.
std::string_view sourceOf(std::string_view column);

// Key of the sheet that row number position (from 1) of the scratch table comes from, when these sheets were
// laid out one after another; empty where there is none. Faults of the data file pass through.
QString keyOfRow(Workstation& station, std::span<const qint64> sheets, qint64 position);

// Writes the rows of one sheet after another. Holds statements of both files; the caller holds the
// transactions.
class SheetRows {
  public:
    // table: of tetseged.mdb; condition: on BETEG, looked at for each sheet.
    SheetRows(Workstation& station, std::string_view table, std::span<const RowColumn> headColumns,
              std::string_view condition);

    // Rows written: one for every six lines, rounded up. nullopt when the sheet is gone or the condition is
    // not true (any longer). Faults: subscript for too many lines, with no row of the sheet written; those of
    // both data files.
    std::optional<std::size_t> write(qint64 sheet);

  private:
    struct Line {
        std::string code, quantity, character;
        bool codeNull = false, quantityNull = false;
    };

    // Binds one parameter after another; texts made here stay until the statement has run.
    class Binder {
      public:
        explicit Binder(Query& row) : m_row(row) {}
        void null() { m_row.bind(++m_at, nullptr); }
        void text(std::string_view value) { m_row.bindBorrowed(++m_at, value); }
        // column and, for joined, the one after it.
        void value(const Query& source, int column, Conversion conversion);
        void run();

      private:
        void parts(std::initializer_list<std::string_view> parts);

        Query& m_row;
        int m_at = 0;
        std::size_t m_used = 0;
        std::array<std::string, 8> m_made;
    };

    void readLines();
    void bindEveryRow(Binder& row, std::size_t number);
    void writeHeadRow();

    std::span<const RowColumn> m_headColumns;
    Query m_sheet, m_patient, m_line, m_headRow, m_furtherRow;
    Binder m_head, m_further;
    std::vector<Line> m_lines;
    std::size_t m_lineCount = 0;
};

} // namespace vandrel
