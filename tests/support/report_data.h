// Sheets for the report tests: an institution, two patients, dictionaries and sheets written straight into
// the tables.
#pragma once

#include "support/test_workstation.h"

#include <string>
#include <utility>
#include <vector>

namespace vandrel::test {

struct LineData {
    std::string code, quantity; // SQL literals
    std::string character = "null";
};

// Of March 2008, unit 010000001, not reported, but for what the assignments (of an update) say; key is the
// sheet's running number.
inline void putSheet(TestWorkstation& test, int key, const std::string& assignments = {},
                     const std::vector<LineData>& lines = {}) {
    const std::string name = QString::asprintf("'TST%07d'", key).toStdString();
    test.data().executeScript("insert into BETEG (AZONOSITO, FLOPPY, FLOPPY2, JAV, F_DATUM, SZAKREND, NAPLO) "
                              "values (" +
                              name + ", 0, 0, '0', '2008.03.10.', '010000001', '" + std::to_string(key) +
                              "')");
    if (!assignments.empty())
        test.data().executeScript("update BETEG set " + assignments + " where AZONOSITO=" + name);
    for (const LineData& line : lines)
        test.data().executeScript("insert into EUSZOLG values (" + name + ", " + line.code + ", " +
                                  line.quantity + ", " + line.character + ")");
}

// The same with columns and their literals in pairs.
inline void addSheet(TestWorkstation& test, int key,
                     const std::vector<std::pair<std::string, std::string>>& values,
                     const std::vector<LineData>& lines) {
    std::string assignments;
    for (const auto& [column, literal] : values)
        assignments += (assignments.empty() ? "" : ", ") + column + '=' + literal;
    putSheet(test, key, assignments, lines);
}

inline void addProcedures(TestWorkstation& test) {
    test.workstation.files[DataFile::beav].executeScript(
        "create table if not exists BEAV (BEAV_KOD text collate nocase, NEMET_PONT real);"
        "insert into BEAV (BEAV_KOD, NEMET_PONT) values ('11041', 10), ('12345', 5.5), ('29000', 1000), "
        "('00005', 5);");
}

inline void addReportMasterData(TestWorkstation& test) {
    test.data().executeScript(
        "pragma synchronous=off;" // the rows of a test need not outlive a power cut
        "insert into intezet values ('Őrségi Rendelőintézet 雪', '0102', '1', '010212345', 'Körmend', "
        "'11111111-22222222-33333333', '12345678-2-41', 'N123', '9900', 'Fő u. 1.');"
        "insert into Paciensek (ID, TAJ, Azon_Tipus, Nem, Szul_Dat, Irszam, Allampol_rov) values "
        "(1, '111111110', '1: TAJ szám', '1: férfi', '1950.01.02.', '1234', 'HUN'),"
        "(2, '222222220', null, '2', '1960.12.31.', null, 'AUT');");
    test.dictionaries().executeScript(
        "insert into SZAKREND (REND_KOD, REND_NEV) values ('010000001', "
        "'Általános és baleseti sebészeti szakrendelés'), ('020000002', 'Belgyógyászat'), "
        "('u4', 'Szemészet');");
    addProcedures(test);
}

} // namespace vandrel::test
