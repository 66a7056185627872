#include "reports/procedure_points.h"

namespace vandrel {

namespace {

std::string folded(std::string_view code) {
    std::string result(code);
    for (char& c : result)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    return result;
}

std::string key(std::string_view code) {
    constexpr std::string_view blanks = " \t\n\v\f\r";
    const std::size_t first = code.find_first_not_of(blanks);
    if (first == std::string_view::npos) return {};
    return folded(code.substr(first, code.find_last_not_of(blanks) - first + 1));
}

} // namespace

double ProcedurePoints::of(std::string_view code) {
    if (!m_read) read();
    const auto found = m_points.find(key(code));
    return found != m_points.end() ? found->second : 0.0;
}

void ProcedurePoints::read() {
    Query row =
        m_station->files[DataFile::beav].query("select BEAV_KOD, NEMET_PONT from BEAV order by rowid");
    while (row.next())
        // Not trimmed: a row whose code was stored with blanks is found by no code.
        if (!row.isNull(0)) m_points.try_emplace(folded(row.bytes(0)), row.number(1));
    m_read = true;
}

} // namespace vandrel
