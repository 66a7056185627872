// The searchable snapshot of a dictionary, and the jump of a pick-list's source.
#include "sheet/dictionary_list.h"

#include "foundation/code_lists.h"
#include "foundation/pick_source.h"
#include "support/test_workstation.h"

using namespace Qt::StringLiterals;

namespace vandrel::test {

TEST(DictionaryList, FindsByBeginningOfCodeAndInsideOfName) {
    TestWorkstation setUp;
    setUp.workstation.files[DataFile::diagnos].executeScript(
        "insert into DIAGNOS (D_KOD, D_NEV) values ('B10', 'Őszi láz'), ('A20', 'Láz 100%_os'),"
        " ('b11', null), (null, 'Kód nélküli'), ('A2''1', '5* (öt) láz')");
    const DictionaryList list(setUp.workstation, Dictionary::diagnoses);
    ASSERT_EQ(list.count(), 5);
    EXPECT_EQ(list.at(2).name, QString());
    const struct {
        SearchBy by;
        const char16_t* text;
        int from;
        int row;
    } cases[] = {
        {SearchBy::code, u"b1", 0, 0},   {SearchBy::code, u"B1", 1, 2},    {SearchBy::code, u"B1", 3, -1},
        {SearchBy::code, u"A2'", 0, 4},  {SearchBy::code, u"", 0, 0},      {SearchBy::code, u"", 4, 4},
        {SearchBy::code, u"a*", 0, -1},  {SearchBy::name, u"LÁZ", 0, 0},   {SearchBy::name, u"láz", 1, 1},
        {SearchBy::name, u"ŐSZI", 0, 0}, {SearchBy::name, u"oszi", 0, -1}, {SearchBy::name, u"0%_o", 0, 1},
        {SearchBy::name, u"%", 2, -1},   {SearchBy::name, u"ő*z", 0, 0},   {SearchBy::name, u"l?z 1##", 0, 1},
        {SearchBy::name, u"xyz", 0, -1}, {SearchBy::name, u"láz", 5, -1},
    };
    for (const auto& search : cases)
        EXPECT_EQ(list.find(search.by, QString::fromUtf16(search.text), search.from), search.row)
            << QString::fromUtf16(search.text).toStdString() << " from " << search.from;
}

TEST(PickSource, JumpsToTheFirstLineOfACode) {
    TestWorkstation setUp;
    setUp.data().executeScript("insert into Paciensek (rowid, ID, TAJ, Neve) values (3, 1, '222', 'B'),"
                               " (9, 2, '111', 'A'), (12, 3, '223', 'C')");
    const auto source = openPickSource(setUp.workstation, PickMarker::Paciens);
    EXPECT_EQ(source->rowBeginningWith(u"22"_s), 0);
    EXPECT_EQ(source->rowBeginningWith(u"223"_s), 2);
    EXPECT_EQ(source->rowBeginningWith(u"1"_s), 1);
    EXPECT_EQ(source->rowBeginningWith(u"9"_s), -1);
    const auto list = openPickSource(setUp.workstation, PickMarker::Terites);
    EXPECT_EQ(list->line(list->rowBeginningWith(u"0r"_s)).left(3), u"0R:"_s);
}

} // namespace vandrel::test
