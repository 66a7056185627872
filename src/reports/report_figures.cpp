#include "reports/report_figures.h"

#include "reports/record_table.h"

#include <charconv>

namespace vandrel {

namespace {

// Codes compare as the data files compare them: ASCII letters without regard to case.
void appendFolded(std::string& target, std::string_view text) {
    for (const char c : text)
        target.push_back(c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c);
}

// A quantity as a number; what is none counts nothing.
double quantityOf(std::string_view text) {
    double value = 0;
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return 0;
    std::from_chars(text.data() + first, text.data() + text.size(), value);
    return value;
}

} // namespace

double ReportFigures::pointsOf(std::string_view code) {
    m_key.clear();
    appendFolded(m_key, code);
    const auto found = m_known.find(m_key);
    if (found != m_known.end()) return found->second;
    const double points = m_points(code);
    m_known.emplace(m_key, points);
    return points;
}

void ReportFigures::addRow(std::optional<std::string_view> unit, std::span<const Position> positions) {
    if (m_lastUnit == nullptr || m_lastUnit->codeNull != !unit || m_lastUnit->code != unit.value_or("")) {
        std::string key(1, unit ? '1' : '0');
        appendFolded(key, unit.value_or(""));
        const auto [place, added] = m_units.try_emplace(std::move(key));
        m_lastUnit = &place->second;
        if (added) {
            m_lastUnit->code = unit.value_or("");
            m_lastUnit->codeNull = !unit;
        }
    }
    UnitFigures& figures = *m_lastUnit;
    ++figures.records;
    for (const Position& position : positions) {
        if (onlyBlanks(position.code)) continue;
        ++m_procedures;
        if (m_fault || figures.codeNull) continue; // no row is found under a Null code
        try {
            figures.points += pointsOf(position.code) * quantityOf(position.quantity);
        } catch (const Fault& fault) {
            m_fault = fault;
        }
    }
    figures.runningTotal += figures.points;
}

std::vector<UnitFigures> ReportFigures::units() const {
    if (m_fault) throw *m_fault;
    std::vector<UnitFigures> result;
    for (const auto& [key, figures] : m_units)
        result.push_back(figures);
    return result;
}

double ReportFigures::grandTotal() const {
    if (m_fault) throw *m_fault;
    double total = 0;
    for (const auto& [key, figures] : m_units)
        total += figures.runningTotal;
    return total;
}

} // namespace vandrel
