// The figures of the covering note, taken in the one walk over the scratch rows: per unit the records and the
// points, the grand total, the procedure positions. Reads points through a function it is given.
#pragma once

#include "platform/fault.h"

#include <functional>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace vandrel {

struct UnitFigures {
    std::string code; // as the unit's first row has it; empty for Null
    bool codeNull = false;
    qint64 records = 0;
    double points = 0;
    // Sum over the rows of the unit's running sum after each of them.
    double runningTotal = 0;
};

class ReportFigures {
  public:
    // Points of a procedure code, 0 for an unknown one. May raise a Fault: it is kept until the figures are
    // asked for, since the report file itself needs no points.
    using Points = std::function<double(std::string_view code)>;

    explicit ReportFigures(Points points) : m_points(std::move(points)) {}

    struct Position {
        std::string_view code, quantity;
    };
    // One row of the scratch table: its unit (nullopt is Null) and its six positions, Nulls as empty texts.
    void addRow(std::optional<std::string_view> unit, std::span<const Position> positions);

    // Non-blank procedure positions, not quantities.
    qint64 procedures() const { return m_procedures; }

    // In the order of grouping: Null first, then by code without regard to case. Raises the kept fault.
    std::vector<UnitFigures> units() const;
    // Not the sum of the units' lines: the units' running sums are added up row by row. The Fund's form has
    // always carried this figure, so it is wanted. Raises the kept fault.
    double grandTotal() const;

  private:
    double pointsOf(std::string_view code);

    Points m_points;
    std::map<std::string, UnitFigures> m_units; // by folded code behind a mark that puts Null first
    UnitFigures* m_lastUnit = nullptr;          // rows of a unit mostly follow each other
    std::unordered_map<std::string, double> m_known;
    std::optional<Fault> m_fault;
    qint64 m_procedures = 0;
    std::string m_key;
};

} // namespace vandrel
