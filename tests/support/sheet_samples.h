// A sheet that passes every check, and a workstation with a label, for the tests of the sheet's rules.
#pragma once

#include "sheet/sheet_fields.h"
#include "support/test_workstation.h"

namespace vandrel::test {

inline SheetFields goodSheet(Workstation& station) {
    SheetFields fields = makeNewSheet(station).fields;
    fields.Szakrend = QStringLiteral("010000001");
    fields.Orvkod = QStringLiteral("12345");
    fields.Szem_szam = QStringLiteral("123456788");
    fields.Azon_tipus = QStringLiteral("1");
    fields.Neve = QStringLiteral("Kovács Éva");
    fields.Irszam = QStringLiteral("1011");
    fields.City = QStringLiteral("Budapest");
    fields.Cim = QStringLiteral("Fő u. 1.");
    fields.Anyja_neve = QStringLiteral("Őri Anna");
    fields.Nem = QStringLiteral("2");
    fields.Szul_dat = QStringLiteral("1970.05.06.");
    return fields;
}

class LabelledStation : public TestWorkstation {
  public:
    explicit LabelledStation(const QString& archiver = {}) : TestWorkstation(archiver) {
        data().execute("update Gepazonosito set Gepazon='ABC'");
    }

    void expectRegisterQuestion(Answer answer) {
        dialogue.expectQuestion(QStringLiteral("Ilyen TAJ számú beteg nincs a Páciens törzsben!\n"
                                               "Kivánja most rögzíteni?"),
                                answer, QStringLiteral("Kérdés"));
    }
    void expectStored(Answer another = Answer::no) {
        dialogue.expectQuestion(QStringLiteral("Adatok eltárolása megtörtént!\nKíván új beteget rögzíteni?"),
                                another);
    }
    qint64 count(const std::string& table) {
        Query rows = data().query("select count(*) from " + table);
        rows.next();
        return rows.integer(0);
    }
};

} // namespace vandrel::test
