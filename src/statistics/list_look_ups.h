// The look-ups of one list, each code asked once: a long list repeats a few hundred codes on hundreds of
// thousands of lines. Lives as long as the list.
#pragma once

#include "foundation/look_ups.h"

#include <QHash>

#include <functional>
#include <optional>

namespace vandrel {

class ListLookUps {
  public:
    // Runs a look-up, again and again while another program holds its data file.
    using Waiting = std::function<void(const std::function<void()>& lookUp)>;

    ListLookUps(Workstation& station, Waiting waiting) : m_station(station), m_waiting(std::move(waiting)) {}

    struct Unit {
        QString name;      // empty when the unit is unknown
        double multiplier; // 1 then
    };
    const Unit& unit(const QString& code) {
        return kept(m_units, code, [&] {
            return Unit{Visszaad_szakrend(m_station, code), Visszaad_szakrend_szorzo(m_station, code)};
        });
    }
    const ProcedureEntry& procedure(const QString& code) {
        return kept(m_procedures, code, [&] { return Visszaad_beav(m_station, code); });
    }
    // Empty when the code is unknown.
    const QString& diagnosis(const QString& code) {
        return kept(m_diagnoses, code, [&] { return Visszaad_Diagnos(m_station, code).value_or(QString()); });
    }
    const QString& doctor(const QString& code) {
        return kept(m_doctors, code, [&] { return Visszaad_orvos(m_station, code); });
    }

  private:
    // A look-up that faults is not kept.
    template<class Value, class LookUp>
    const Value& kept(QHash<QString, Value>& values, const QString& code, LookUp lookUp) {
        const auto found = values.constFind(code);
        if (found != values.constEnd()) return *found;
        std::optional<Value> value;
        m_waiting([&] { value.emplace(lookUp()); });
        return *values.insert(code, *std::move(value));
    }

    Workstation& m_station;
    Waiting m_waiting;
    QHash<QString, Unit> m_units;
    QHash<QString, ProcedureEntry> m_procedures;
    QHash<QString, QString> m_diagnoses;
    QHash<QString, QString> m_doctors;
};

} // namespace vandrel
