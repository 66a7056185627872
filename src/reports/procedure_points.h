// The points of all procedures, read at once: a month asks for thousands of different codes, and a question
// to the data file for each of them takes as long as the month's records.
#pragma once

#include "foundation/workstation.h"

#include <string>
#include <string_view>
#include <unordered_map>

namespace vandrel {

class ProcedurePoints {
  public:
    explicit ProcedurePoints(Workstation& station) : m_station(&station) {}

    // As Visszaad_beav finds them: blanks around the code apart, without regard to case, the first of several
    // rows; 0 for an unknown code. Faults of the data file pass through.
    double of(std::string_view code);

  private:
    void read();

    Workstation* m_station;
    bool m_read = false;
    std::unordered_map<std::string, double> m_points; // by folded code
};

} // namespace vandrel
