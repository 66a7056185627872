// The register of patients behind the sheet: the search while a TAJ is typed, and what the store writes.
#include "sheet/patient_register.h"

#include "foundation/prefix_search.h"
#include "platform/format.h"

using namespace Qt::StringLiterals;

namespace vandrel {

namespace {

struct RegisterField {
    const char* column;
    const QString SheetFields::*member;
    const char* select;
    const char* update;
};

#define VANDREL_REGISTER(column, member)                                                                     \
    {                                                                                                        \
        column, &SheetFields::member, "select " column " from Paciensek where rowid=?1",                     \
            "update Paciensek set " column "=?1 where rowid=?2"                                              \
    }

// In the order in which a store compares and writes them. The TAJ is what the row was found by.
constexpr RegisterField registerFields[] = {
    VANDREL_REGISTER("Neve", Neve),
    VANDREL_REGISTER("Irszam", Irszam),
    VANDREL_REGISTER("City", City),
    VANDREL_REGISTER("Cim", Cim),
    VANDREL_REGISTER("Allampol_rov", Allampol_rov),
    VANDREL_REGISTER("Anyja_neve", Anyja_neve),
    VANDREL_REGISTER("Leanykori_neve", Leanykori_neve),
    VANDREL_REGISTER("KgySzam", KgySzam),
    VANDREL_REGISTER("KgyLe", KgyLe),
    VANDREL_REGISTER("Azon_Tipus", Azon_tipus),
    VANDREL_REGISTER("Nem", Nem),
    VANDREL_REGISTER("Szul_Dat", Szul_dat),
};

#undef VANDREL_REGISTER

} // namespace

std::optional<Patient> findPatientByPrefix(Workstation& station, const QString& typed) {
    if (typed.trimmed().isEmpty()) return std::nullopt;
    Database& data = station.files[DataFile::tetdata];
    const std::optional<qint64> found = firstRowStartingWith(data, "Paciensek", "TAJ", typed);
    if (!found) return std::nullopt;
    Query row = data.query("select ID, TAJ, Neve, Irszam, Cim, Allampol_rov, Anyja_neve, Leanykori_neve, "
                           "KgySzam, KgyLe, Azon_Tipus, Nem, Szul_Dat from Paciensek where rowid=?1",
                           *found);
    if (!row.next()) return std::nullopt;
    Patient patient;
    patient.id = row.integer(0);
    patient.Taj = row.text(1);
    patient.Neve = row.text(2);
    patient.Irszam = row.text(3);
    patient.Cim = row.text(4);
    patient.Allampol_rov = row.text(5);
    patient.Anyja_neve = row.text(6);
    patient.Leanykori_neve = row.text(7);
    patient.KgySzam = row.text(8);
    // The first versions wrote an empty expiry with underscores.
    const QString expiry = row.text(9);
    patient.KgyLe = expiry.trimmed().isEmpty() || expiry == "____.__.__."_L1 ? format::emptyDate : expiry;
    patient.Azon_tipus = row.text(10).left(1);
    patient.Nem = row.text(11).left(1);
    const QString birth = row.text(12);
    patient.Szul_dat = birth.trimmed().isEmpty() ? format::emptyDate : birth;
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
        Query last = data.query("select UTPaciens from Utolsok order by rowid limit 1");
        if (!last.next())
            throw Fault(fault::noCurrentRecord,
                        u"Üres az Utolsok tábla: nem adható új sorszám a páciensnek!"_s);
        id = last.integer(0) + 1;
    }
    data.execute("insert into Paciensek (ID, TAJ) values (?1, ?2)", id, fields.Szem_szam.trimmed());
    const qint64 row = data.lastRowId();
    for (const RegisterField& field : registerFields)
        data.execute(field.update, fields.*field.member, row);
    data.execute("update Utolsok set UTPaciens=?1 where rowid=(select min(rowid) from Utolsok)", id);
    return id;
}

void updatePatient(Workstation& station, const SheetFields& fields) {
    Database& data = station.files[DataFile::tetdata];
    qint64 row = 0;
    {
        Query found = data.query("select rowid from Paciensek where TAJ=?1 order by rowid limit 1",
                                 fields.Szem_szam.trimmed());
        if (!found.next()) return;
        row = found.integer(0);
    }
    for (const RegisterField& field : registerFields) {
        std::optional<QString> stored;
        {
            Query value = data.query(field.select, row);
            if (value.next()) stored = value.optionalText(0);
        }
        // Compared letter by letter: "kovács" mended to "Kovács" is a change.
        const QString& typed = fields.*field.member;
        if (!stored || stored->trimmed() != typed.trimmed()) data.execute(field.update, typed, row);
    }
}

} // namespace vandrel
