#include "sheet/procedure_lines.h"

#include "support/sheet_samples.h"

using namespace Qt::StringLiterals;

namespace vandrel::test {

class ProcedureLines : public testing::Test {
  protected:
    ProcedureLines() {
        station.workstation.files[DataFile::beav].executeScript(
            "insert into BEAV (BEAV_KOD,BEAV_NEV) values ('1104A','Vizsgálat'), ('11050','Kontroll')");
    }
    AddLineOutcome add(const QString& code, const QString& quantity, const QString& character = u"A"_s) {
        return addProcedureLine(station.workstation, key, code, quantity, character);
    }
    LabelledStation station;
    const QString key = u"ABC0000001"_s;
};

TEST_F(ProcedureLines, ChecksInOrder) {
    station.dialogue.expect(u"Mennyiség kitöltése kötelező!"_s);
    EXPECT_EQ(add(u"nincs"_s, u" "_s, u""_s), AddLineOutcome::quantityRefused);
    station.dialogue.expect(u"Jelleg kitöltése kötelező!"_s);
    EXPECT_EQ(add(u"nincs"_s, u"x"_s, u""_s), AddLineOutcome::characterMissing);
    station.dialogue.expect(u"Nincs ilyen kód a beavatkozás törzsben!"_s, u"Hiba"_s);
    EXPECT_EQ(add(u"1104"_s, u"x"_s), AddLineOutcome::codeUnknown);
    station.dialogue.expect(u"Nincs ilyen kód a beavatkozás törzsben!"_s, u"Hiba"_s);
    EXPECT_EQ(add(u""_s, u"1"_s), AddLineOutcome::codeUnknown);
    for (const QString& quantity : {u"1,5"_s, u"x"_s, u"-1"_s, u"1 2"_s, u"1e3"_s, u"100"_s, u"٣"_s}) {
        station.dialogue.expect(u"A mennyiség csak egész szám lehet, legfeljebb két számjeggyel!"_s,
                                u"Hiba"_s);
        EXPECT_EQ(add(u"11050"_s, quantity), AddLineOutcome::quantityRefused) << quantity.toStdString();
    }
    EXPECT_EQ(station.count("EUSZOLG"), 0);
}

TEST_F(ProcedureLines, AddAndDelete) {
    EXPECT_EQ(add(u"1104a"_s, u"0"_s, u"V"_s), AddLineOutcome::added);
    EXPECT_EQ(add(u"11050"_s, u"99"_s), AddLineOutcome::added);
    EXPECT_EQ(add(u"11050"_s, u"2"_s), AddLineOutcome::added);
    auto lines = procedureLines(station.workstation, key);
    ASSERT_EQ(lines.size(), 3u);
    EXPECT_EQ(lines[0].BEAV + u'/' + lines[0].MENNY + u'/' + lines[0].BeavJelleg, u"1104A/0/V"_s);
    EXPECT_EQ(lines[1].MENNY, u"99"_s);

    station.dialogue.expect(u"Nincs kijelölve törlendő beavatkozás!"_s, u"Hiba"_s);
    EXPECT_FALSE(deleteProcedureLine(station.workstation, 0));
    station.dialogue.expectQuestion(u"Tényleg törölni akarja?"_s, Answer::no, u"Kérdés"_s);
    EXPECT_FALSE(deleteProcedureLine(station.workstation, lines[1].rowid));
    station.dialogue.expectQuestion(u"Tényleg törölni akarja?"_s, Answer::yes, u"Kérdés"_s);
    EXPECT_TRUE(deleteProcedureLine(station.workstation, lines[1].rowid));
    lines = procedureLines(station.workstation, key);
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_EQ(lines[1].MENNY, u"2"_s);
}

TEST_F(ProcedureLines, FunctionKeysAndNames) {
    station.dictionaries().executeScript(
        "insert into FUNKCIO values ('F2 - 113','11050'), ('F3 - 114',null);");
    EXPECT_EQ(getFunkcBeavKod(station.workstation, 113), u"11050"_s);
    EXPECT_EQ(getFunkcBeavKod(station.workstation, 114), QString());
    EXPECT_EQ(getFunkcBeavKod(station.workstation, 117), QString());
    EXPECT_EQ(procedureNameByPrefix(station.workstation, u"1105"_s), u"Kontroll"_s);
    EXPECT_EQ(procedureNameByPrefix(station.workstation, u"11"_s), u"Vizsgálat"_s);
    EXPECT_EQ(procedureNameByPrefix(station.workstation, u"*"_s), QString());
    EXPECT_EQ(procedureNameByPrefix(station.workstation, QString()), QString());
}

} // namespace vandrel::test
