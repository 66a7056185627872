// A sheet that passes every check, and a workstation with a label, for the tests of the sheet's rules.
#pragma once

#include "sheet/new_sheet.h"
#include "sheet/sheet_fields.h"
#include "support/test_workstation.h"

namespace vandrel::test {

using namespace Qt::StringLiterals;

inline SheetFields goodSheet(Workstation& station) {
    SheetFields fields = makeNewSheet(station);
    fields.Szakrend = u"010000001"_s;
    fields.Orvkod = u"12345"_s;
    fields.Szem_szam = u"123456788"_s;
    fields.Azon_tipus = u"1"_s;
    fields.Neve = u"Kovács Éva"_s;
    fields.Irszam = u"1011"_s;
    fields.City = u"Budapest"_s;
    fields.Cim = u"Fő u. 1."_s;
    fields.Anyja_neve = u"Őri Anna"_s;
    fields.Nem = u"2"_s;
    fields.Szul_dat = u"1970.05.06."_s;
    return fields;
}

class LabelledStation : public TestWorkstation {
  public:
    explicit LabelledStation(const QString& archiver = {}) : TestWorkstation(archiver) {
        data().execute("update Gepazonosito set Gepazon='ABC'");
    }

    void expectRegisterQuestion(Answer answer) {
        dialogue.expectQuestion(u"Ilyen TAJ számú beteg nincs a Páciens törzsben!\n"
                                "Kivánja most rögzíteni?"_s,
                                answer, u"Kérdés"_s);
    }
    void expectStored(Answer another = Answer::no) {
        dialogue.expectQuestion(u"Adatok eltárolása megtörtént!\nKíván új beteget rögzíteni?"_s, another);
    }
    qint64 count(const std::string& table) {
        Query rows = data().query("select count(*) from " + table);
        rows.next();
        return rows.integer(0);
    }
};

} // namespace vandrel::test
