// The register of patients behind the sheet: the search while a TAJ is typed, and what the store writes.
#include "sheet/patient_register.h"

#include "foundation/prefix_search.h"
#include "foundation/row_values.h"
#include "platform/format.h"

#include <string>
#include <vector>

using namespace Qt::StringLiterals;

namespace vandrel {

namespace {

struct RegisterField {
    const char* column;
    QString SheetFields::*sheet;
    QString Patient::*patient;
};

// In the order in which a store compares and writes them. The TAJ is what the row was found by.
constexpr RegisterField registerFields[] = {
    {"Neve", &SheetFields::Neve, &Patient::Neve},
    {"Irszam", &SheetFields::Irszam, &Patient::Irszam},
    {"City", &SheetFields::City, &Patient::City},
    {"Cim", &SheetFields::Cim, &Patient::Cim},
    {"Allampol_rov", &SheetFields::Allampol_rov, &Patient::Allampol_rov},
    {"Anyja_neve", &SheetFields::Anyja_neve, &Patient::Anyja_neve},
    {"Leanykori_neve", &SheetFields::Leanykori_neve, &Patient::Leanykori_neve},
    {"KgySzam", &SheetFields::KgySzam, &Patient::KgySzam},
    {"KgyLe", &SheetFields::KgyLe, &Patient::KgyLe},
    {"Azon_Tipus", &SheetFields::Azon_tipus, &Patient::Azon_tipus},
    {"Nem", &SheetFields::Nem, &Patient::Nem},
    {"Szul_Dat", &SheetFields::Szul_dat, &Patient::Szul_dat},
};

// ID, TAJ and the fields above, of one row.
const std::string& selectPatient() {
    static const std::string sql = [] {
        std::string columns = "select ID, TAJ";
        for (const RegisterField& field : registerFields)
            columns += std::string(", ") + field.column;
        return columns + " from Paciensek where rowid=?1";
    }();
    return sql;
}

} // namespace

std::optional<Patient> findPatientByPrefix(Workstation& station, const QString& typed) {
    if (typed.trimmed().isEmpty()) return std::nullopt;
    Database& data = station.files[DataFile::tetdata];
    const std::optional<qint64> found = firstRowStartingWith(data, "Paciensek", "TAJ", typed);
    if (!found) return std::nullopt;
    Query row = data.query(selectPatient(), *found);
    if (!row.next()) return std::nullopt;
    Patient patient;
    patient.id = row.integer(0);
    patient.Taj = row.text(1);
    int column = 1;
    for (const RegisterField& field : registerFields)
        patient.*field.patient = row.text(++column);
    // The first versions wrote an empty expiry with underscores.
    if (patient.KgyLe.trimmed().isEmpty() || patient.KgyLe == "____.__.__."_L1)
        patient.KgyLe = format::emptyDate;
    patient.Azon_tipus.truncate(1);
    patient.Nem.truncate(1);
    if (patient.Szul_dat.trimmed().isEmpty()) patient.Szul_dat = format::emptyDate;
    return patient;
}

bool registerHasPatients(Workstation& station) {
    return station.files[DataFile::tetdata].query("select 1 from Paciensek limit 1").next();
}

std::optional<qint64> findPatientId(Workstation& station, const QString& taj) {
    Query row = station.files[DataFile::tetdata].query(
        "select ID from Paciensek where TAJ=?1 order by rowid limit 1", taj.trimmed());
    if (!row.next()) return std::nullopt;
    return row.integer(0);
}

qint64 addPatient(Workstation& station, const SheetFields& fields) {
    Database& data = station.files[DataFile::tetdata];
    qint64 id = 0;
    {
        const std::optional<Query> last = firstRow(data, "Utolsok", "UTPaciens");
        if (!last)
            throw Fault(fault::noCurrentRecord,
                        u"Üres az Utolsok tábla: nem adható új sorszám a páciensnek!"_s);
        id = last->integer(0) + 1;
    }
    std::vector<ColumnValue> values = {{"ID", id}, {"TAJ", fields.Szem_szam.trimmed()}};
    for (const RegisterField& field : registerFields)
        values.push_back({field.column, fields.*field.sheet});
    insertRow(data, "Paciensek", values);
    const ColumnValue last{"UTPaciens", id};
    updateFirstRow(data, "Utolsok", {&last, 1});
    return id;
}

void updatePatient(Workstation& station, const SheetFields& fields) {
    Database& data = station.files[DataFile::tetdata];
    qint64 rowid = 0;
    std::vector<ColumnValue> changed;
    {
        Query found = data.query("select rowid from Paciensek where TAJ=?1 order by rowid limit 1",
                                 fields.Szem_szam.trimmed());
        if (!found.next()) return;
        rowid = found.integer(0);
    }
    {
        Query stored = data.query(selectPatient(), rowid);
        if (!stored.next()) return;
        int column = 1;
        for (const RegisterField& field : registerFields) {
            // Compared letter by letter: "kovács" mended to "Kovács" is a change.
            const std::optional<QString> before = stored.optionalText(++column);
            const QString& typed = fields.*field.sheet;
            if (!before || before->trimmed() != typed.trimmed()) changed.push_back({field.column, typed});
        }
    }
    for (const ColumnValue& value : changed)
        updateRow(data, "Paciensek", rowid, {&value, 1});
}

} // namespace vandrel
