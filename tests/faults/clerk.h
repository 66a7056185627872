// A clerk who stores one sheet after the other through the program's own rules, and the examination that can
// tell from the data files alone whether every sheet is whole.
#pragma once

#include "sheet/sheet_fields.h"
#include "support/clinic.h"

#include <random>

namespace vandrel::test {

using namespace Qt::StringLiterals;

// A sheet as its store was confirmed; all its texts carry the mark, so that a half written row shows.
struct Confirmed {
    std::string key;
    int lines = 0;
    int mark = 0;
};

// One new sheet with 0 to 13 lines for a new or a known patient. Faults pass through.
inline Confirmed storeNext(Workstation& station, std::mt19937& random) {
    const auto below = [&random](int limit) { return int(random() % unsigned(limit)); };
    SheetFields fields = goodSheet(station);
    // Lines of a sheet that was left without storing belong to the next one: the clerk deletes them.
    for (const ProcedureLine& line : procedureLines(station, fields.Azonosito))
        deleteProcedureLine(station, line.rowid);
    const int lines = below(14), mark = below(10'000);
    for (int i = 1; i <= lines; ++i)
        addProcedureLine(station, fields.Azonosito, u"11041"_s, QString::number(i), u"A"_s);
    const QString text = u"M%1"_s.arg(mark);
    fields.Szem_szam = QString::number(100'000'000 + below(30));
    fields.BeutOrvos = QString::number(lines);
    fields.Neve = fields.City = fields.Cim = fields.Anyja_neve = fields.NOTE = text;
    fields.Diag.fill(text);
    if (storeSheet(station, fields).outcome != StoreOutcome::storedAnother)
        throw Fault(fault::storage, u"store refused"_s);
    return {fields.Azonosito.toStdString(), lines, mark};
}

// What is wrong with the sheets and patients on the disk, each in a sentence; empty when all is whole:
// everything confirmed is there, nothing is half written, no key and no patient number was given twice.
inline std::vector<std::string> examineSheets(TestWorkstation& test,
                                              const std::vector<Confirmed>& confirmed) {
    std::vector<std::string> wrong;
    const std::pair<const char*, const char*> rules[] = {
        {"the file damaged", "select count(*) from pragma_quick_check(1) where quick_check<>'ok'"},
        {"a sheet half written", "select count(*) from BETEG where DIAG1<>NOTE or DIAG2<>NOTE or DIAG3<>NOTE "
                                 "or DIAG4<>NOTE or DIAG5<>NOTE or VizDijOsszeg is null"},
        {"a key given twice", "select count(*)-count(distinct AZONOSITO) from BETEG"},
        {"a sheet without its patient", "select count(*) from BETEG b where not exists (select 1 from "
                                        "Paciensek p where p.ID=b.PaciensId and p.TAJ=b.SZEM_SZAM)"},
        {"a sheet without all its lines", "select count(*) from BETEG b where cast(BeutOrvos as integer)<>"
                                          "(select count(*) from EUSZOLG e where e.Azonosito=b.AZONOSITO)"},
        // Lines of a sheet that was not stored yet may be anything: the clerk was adding or deleting them.
        {"a line twice or out of order",
         "select count(*) from EUSZOLG e where exists (select 1 from BETEG b where b.AZONOSITO=e.Azonosito) "
         "and MENNY<>(select count(*) from EUSZOLG f where f.Azonosito=e.Azonosito and f.rowid<=e.rowid)"},
        {"a patient half written",
         "select count(*) from Paciensek where Neve<>City or Neve<>Cim or Neve<>Anyja_neve"},
        {"a patient entered twice",
         "select count(*)-count(distinct ID)+count(*)-count(distinct TAJ) from Paciensek"},
        {"a patient number behind the counter", "select max(0, ifnull((select max(ID) from Paciensek),0)-"
                                                "(select UTPaciens from Utolsok))"},
        {"a key behind the counter",
         "select count(*) from BETEG where AZONOSITO>(select END_AZON from AZONOSIT)"},
        {"a patient without the last stored texts",
         "select count(*) from Paciensek p where not exists (select 1 from BETEG b where b.PaciensId=p.ID "
         "and b.NOTE=p.Neve)"},
    };
    for (const auto& [name, sql] : rules)
        if (const QString count = firstText(test.data(), sql); count != "0"_L1)
            wrong.push_back(count.toStdString() + " times " + name);
    for (const Confirmed& sheet : confirmed) {
        const QString found =
            firstText(test.data(), "select BeutOrvos||NOTE from BETEG where AZONOSITO='" + sheet.key + "'");
        if (found != u"%1M%2"_s.arg(sheet.lines).arg(sheet.mark))
            wrong.push_back("not as confirmed: " + sheet.key + " " + found.toStdString());
    }
    return wrong;
}

} // namespace vandrel::test
