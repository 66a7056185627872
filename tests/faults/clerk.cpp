#include "clerk.h"

#include "sheet/procedure_lines.h"
#include "sheet/sheet_store.h"

#include <map>

namespace vandrel::test {

namespace {

constexpr int procedures = 20;
constexpr int patients = 30;
constexpr int marks = 10'000; // as diagnoses they fit the report's columns

QString procedureCode(int number) {
    return QString::number(10'000 + number);
}

QString taj(int patient) {
    return QString::number(100'000'000 + patient);
}

// All texts of one store carry its mark, so that a half written row shows.
QString marked(const char* name, int mark) {
    return QLatin1String(name) + QString::number(mark);
}

void fill(SheetFields& fields, int patient, int mark, int lines) {
    fields.Szakrend = QStringLiteral("010000001");
    fields.Orvkod = QStringLiteral("12345");
    fields.Szem_szam = taj(patient);
    fields.Azon_tipus = QStringLiteral("1");
    fields.Neve = marked("N", mark);
    fields.Irszam = QStringLiteral("1011");
    fields.City = marked("V", mark);
    fields.Cim = marked("C", mark);
    fields.Anyja_neve = marked("A", mark);
    fields.Nem = QStringLiteral("2");
    fields.Szul_dat = QStringLiteral("1970.05.06.");
    for (QString& diagnosis : fields.Diag)
        diagnosis = marked("D", mark);
    fields.BeutOrvos = QString::number(lines);
    fields.NOTE = marked("M", mark);
}

int numberOf(Database& data, const std::string& sql) {
    Query row = data.query(sql);
    return row.next() ? static_cast<int>(row.integer(0)) : 0;
}

} // namespace

Answer WillingDialogue::show(const Message& message) {
    if (told) told(message.text);
    return message.buttons == Buttons::yesNo ? Answer::yes : Answer::ok;
}

void prepareClinic(const QString& folder) {
    createProgramFolder(folder);
    DataFiles files(folder);
    Database& data = files[DataFile::tetdata];
    Transaction transaction(data);
    data.execute("update Gepazonosito set Gepazon='ABC'");
    data.execute(
        "insert into intezet values ('Mintavárosi Rendelő', '0123', '45678', '010000001', 'Mintaváros', "
        "'11111111-22222222-33333333', '12345678-1-42', '9012', '1000', 'Fő tér 1.')");
    transaction.commit();
    Transaction dictionary(files[DataFile::beav]);
    for (int i = 0; i < procedures; ++i)
        files[DataFile::beav].execute(
            "insert into BEAV (BEAV_KOD, BEAV_NEV, NEMET_PONT) values (?1, 'vizsgálat', 100)",
            procedureCode(i));
    dictionary.commit();
    files[DataFile::tetmod].execute(
        "insert into SZAKREND (REND_KOD, REND_NEV, SZORZO) values ('010000001', 'Bőr', 1)");
}

Confirmed Clerk::storeNext() {
    if (below(5) == 0 && numberOf(m_station.files[DataFile::tetdata], "select count(*) from BETEG") > 0)
        return correctEarlier();
    SheetFields fields = makeNewSheet(m_station).fields;
    // Lines of a sheet that was left without storing stand on the next one: the clerk deletes them.
    for (const ProcedureLine& line : procedureLines(m_station, fields.Azonosito))
        deleteProcedureLine(m_station, line.rowid);
    const int lines = below(14);
    const int mark = below(marks);
    for (int i = 0; i < lines; ++i)
        if (addProcedureLine(m_station, fields.Azonosito, procedureCode((mark + i) % procedures),
                             QString::number(i + 1), QStringLiteral("A")) != AddLineOutcome::added)
            throw Fault(fault::storage, QStringLiteral("line refused"));
    fill(fields, below(patients), mark, lines);
    if (storeSheet(m_station, fields).outcome != StoreOutcome::storedAnother)
        throw Fault(fault::storage, QStringLiteral("store refused"));
    return {fields.Azonosito.toStdString(), lines, mark, false};
}

Confirmed Clerk::correctEarlier() {
    SheetFields fields = makeNewSheet(m_station).fields;
    fields.correction = true;
    fields.Jav = QStringLiteral("1");
    int lines = 0;
    QString patient;
    {
        Query row = m_station.files[DataFile::tetdata].query(
            "select AZONOSITO, BeutOrvos, SZEM_SZAM from BETEG order by rowid desc limit 1 offset ?1",
            below(3));
        if (!row.next()) return storeNext();
        fields.Azonosito = row.text(0);
        lines = row.text(1).toInt();
        patient = row.text(2);
    }
    const int mark = below(marks);
    fill(fields, static_cast<int>(patient.toLongLong() - 100'000'000), mark, lines);
    if (storeSheet(m_station, fields).outcome != StoreOutcome::stored)
        throw Fault(fault::storage, QStringLiteral("correction refused"));
    return {fields.Azonosito.toStdString(), lines, mark, true};
}

std::vector<std::string> examineSheets(Workstation& station, const std::vector<Confirmed>& confirmed) {
    std::vector<std::string> wrong;
    Database& data = station.files[DataFile::tetdata];
    if (const QString found = data.quickCheck(); found != QLatin1String("ok"))
        wrong.push_back("the file is damaged: " + found.toStdString());

    // The rows themselves: each whole in itself and with its patient and lines.
    const std::pair<const char*, const char*> rules[] = {
        {"a sheet half written",
         "select count(*) from BETEG where substr(DIAG1,2)<>substr(NOTE,2) or DIAG2<>DIAG1 or "
         "DIAG3<>DIAG1 or DIAG4<>DIAG1 or DIAG5<>DIAG1 or F_DATUM is null or VizDijOsszeg is null"},
        {"a key given twice", "select count(*)-count(distinct AZONOSITO) from BETEG"},
        {"a sheet without its patient",
         "select count(*) from BETEG b where not exists "
         "(select 1 from Paciensek p where p.ID=b.PaciensId and p.TAJ=b.SZEM_SZAM)"},
        {"a sheet without all its lines", "select count(*) from BETEG b where cast(BeutOrvos as integer)<>"
                                          "(select count(*) from EUSZOLG e where e.Azonosito=b.AZONOSITO)"},
        // Lines of a sheet that was not stored yet may be anything: the clerk was adding or deleting them.
        {"a line twice or out of order",
         "select count(*) from EUSZOLG e where exists (select 1 from BETEG b where b.AZONOSITO=e.Azonosito) "
         "and "
         "MENNY<>(select count(*) from EUSZOLG f where f.Azonosito=e.Azonosito and f.rowid<=e.rowid)"},
        {"a patient half written", "select count(*) from Paciensek where substr(Neve,2)<>substr(City,2) or "
                                   "substr(Neve,2)<>substr(Cim,2) or substr(Neve,2)<>substr(Anyja_neve,2)"},
        {"a patient entered twice",
         "select count(*)-count(distinct ID)+count(*)-count(distinct TAJ) from Paciensek"},
        {"a patient number behind the counter", "select max(0, ifnull((select max(ID) from Paciensek),0)-"
                                                "(select UTPaciens from Utolsok))"},
        {"a key behind the counter",
         "select count(*) from BETEG where AZONOSITO>(select END_AZON from AZONOSIT)"},
        {"a patient without the last stored texts", "select count(*) from Paciensek p where not exists "
                                                    "(select 1 from BETEG b where b.PaciensId=p.ID and "
                                                    "substr(b.NOTE,2)=substr(p.Neve,2))"},
    };
    for (const auto& [name, sql] : rules)
        if (const int count = numberOf(data, sql); count != 0)
            wrong.push_back(std::to_string(count) + " times " + name);

    // What was confirmed, as it was confirmed last; a correction broken off by the kill may have come after.
    std::map<std::string, const Confirmed*> last;
    for (const Confirmed& sheet : confirmed) {
        const auto [place, added] = last.try_emplace(sheet.key, &sheet);
        if (!added && !sheet.correction) wrong.push_back("key confirmed twice: " + sheet.key);
        place->second = &sheet;
    }
    int different = 0;
    for (const auto& [key, sheet] : last) {
        Query row = data.query("select NOTE, BeutOrvos, JAV from BETEG where AZONOSITO=?1", key.c_str());
        if (!row.next()) {
            wrong.push_back("a confirmed sheet is gone: " + key);
            continue;
        }
        if (row.text(1).toInt() != sheet->lines) wrong.push_back("lines changed: " + key);
        if (row.text(0) != marked("M", sheet->mark)) {
            ++different;
            if (row.text(2) != QLatin1String("1")) wrong.push_back("another sheet stands under " + key);
        }
    }
    // Each kill can leave one correction written and not confirmed; the caller takes them over one by one.
    if (different > 1) wrong.push_back(std::to_string(different) + " sheets differ from what was confirmed");
    return wrong;
}

} // namespace vandrel::test
