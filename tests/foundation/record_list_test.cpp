// The system's SQL, texts compared by functions, and the list behind a grid: order, sort, narrowing, search.
#include "foundation/dialect.h"
#include "foundation/record_list.h"
#include "platform/text_functions.h"
#include "support/test_workstation.h"

using namespace Qt::StringLiterals;

namespace vandrel::test {

TEST(Dialect, TurnsTheSystemsConstructsAndLeavesAllElse) {
    const std::pair<const char*, const char*> cases[] = {
        {"left(Szem_szam, 3 )= '?1'", "same_text(substr(Szem_szam,1, 3 ),?1)"},
        {"LEFT(F_DATUM,4)= ?2 and mid(BESOROLAS,2,2)='01'",
         "substr(F_DATUM,1,4)= ?2 and substr(BESOROLAS,2,2)='01'"},
        {"select * from default where NAPLO=1", "select * from [DEFAULT] where NAPLO=1"},
        {"D_NEV like '*?1*'", "has_text(D_NEV,?1)"},
        {"F_DATUM LIKE '?1*' or NEV like ?2", "begins_with(F_DATUM,?1) or text_matches(NEV,?2)"},
        {"NBK_NEV like '%?1%'", "has_text(NBK_NEV,?1)"},
        {"NEV like '%left(a%'", "text_matches(NEV,'*left(a*')"},
        {"leftover = 'left(' and [default] = '?'", "leftover = 'left(' and [default] = '?'"},
        {"a = 'it''s", "a = 'it''s"},
        {"left(a", "substr(a)"},
    };
    for (const auto& [system, engine] : cases)
        EXPECT_EQ(dialect(system), engine) << system;
}

TEST(HungarianOrder, FollowsTheAlphabetAndNotTheCase) {
    // Each comes strictly before the next.
    const char* const ordered[] = {"",    " a",  "12", "2",   "Ab", "áb",  "ac",  "Cukor",   "czár", "csap",
                                   "dZ",  "dzs", "e",  "gyz", "h",  "kor", "kór", "korx",    "lz",   "lya",
                                   "nz",  "nya", "oz", "ő",   "öa", "őb",  "p",   "rz",      "sz",   "Tz",
                                   "tya", "uz",  "üa", "Űa",  "v",  "zz",  "zs",  "\xD0\xB6"};
    const char* previous = nullptr;
    for (const char* text : ordered) {
        if (previous != nullptr) {
            EXPECT_LT(hungarianKey(previous), hungarianKey(text)) << previous << " before " << text;
        }
        previous = text;
    }
    EXPECT_EQ(hungarianKey("ŐSZI ÁRNYÉK"), hungarianKey("őszi árnyék"));
    EXPECT_EQ(hungarianKey("hosszú"), hungarianKey("hoszszú")); // "ssz" is "sz" twice
    EXPECT_LT(hungarianKey("kasza"), hungarianKey("kassza"));
    EXPECT_FALSE(hungarianKey("\xff\xc3").empty()); // no UTF-8
}

constexpr GridColumn patientColumns[] = {{"Neve", u"Név"}, {"TAJ", u"TAJ"}, {"ID", u"Szám"}};

struct PatientList : testing::Test {
    PatientList() {
        setUp.data().executeScript(
            "insert into Paciensek (rowid, ID, TAJ, Neve) values (10, 3, '111', 'Őri Éva'),"
            " (4000000000000, 1, '222', 'o''Hara 5* %_'), (20, 2, 'a33', 'ŐRI Éva'), (30, null, null, null),"
            " (40, 5, '11', 'Csa'), (50, 4, '9', 'Cz')");
        list.showAll();
    }
    QString order() const {
        QStringList ids;
        for (qint64 i = 0; i < list.rows().count(); ++i)
            ids << QString::number(list.rows().rowid(i) % 1000);
        return ids.join(u' ');
    }

    TestWorkstation setUp;
    RecordList list{setUp.workstation.files, DataFile::tetdata, "Paciensek", patientColumns};
};

TEST_F(PatientList, SortsOnceOverTheSourceAsItIs) {
    EXPECT_EQ(order(), u"10 20 30 40 50 0"_s);
    list.GridSort(0, SortDirection::ascending);
    EXPECT_EQ(order(), u"30 50 40 0 10 20"_s);
    EXPECT_EQ(list.sortedColumn(), 0);
    list.GridSort(1, SortDirection::descending); // the last sort alone
    EXPECT_EQ(order(), u"20 50 0 10 40 30"_s);
    list.refresh();
    EXPECT_EQ(order(), u"10 20 30 40 50 0"_s);
    EXPECT_EQ(list.sortedColumn(), -1);
    list.GridFilter(0, NarrowMode::part, u"őri"_s);
    list.GridSort(2, SortDirection::ascending); // within the narrowing
    EXPECT_EQ(order(), u"20 10"_s);
    list.sortWholeTable(2);
    EXPECT_EQ(order(), u"30 0 20 10 50 40"_s);
    EXPECT_EQ(list.source().text, "Paciensek");
    // A source with an order of its own is refused by the engine, and nothing changes.
    list.setSource({"select * from Paciensek order by ID"});
    const int refused = faultNumberOf([this] { list.GridSort(0, SortDirection::ascending); });
    EXPECT_EQ(refused, fault::storage);
    EXPECT_EQ(order(), u"30 0 20 10 50 40"_s);
}

TEST_F(PatientList, NarrowsByCharactersAsTheyAre) {
    const struct {
        int column;
        NarrowMode mode;
        const char16_t* answer;
        const char16_t* rows;
    } cases[] = {
        {0, NarrowMode::whole, u" őri éva ", u"10 20"},
        {0, NarrowMode::whole, u"őri", u""},
        {0, NarrowMode::part, u"o'h", u"0"},
        {0, NarrowMode::part, u"*", u"0"},
        {0, NarrowMode::part, u"%", u"0"},
        {0, NarrowMode::part, u"_", u"0"},
        {0, NarrowMode::part, u"?", u""},
        {1, NarrowMode::whole, u"A33", u"20"},
        {2, NarrowMode::whole, u"2,5", u"20"}, // halves to the even number
        {2, NarrowMode::whole, u"3,5", u"50"},
        {2, NarrowMode::part, u"2", u"50"},
        {0, NarrowMode::whole, u"  ", u"10 20 30 40 50 0"},
    };
    for (const auto& narrowing : cases) {
        list.GridFilter(narrowing.column, narrowing.mode, QString::fromUtf16(narrowing.answer));
        EXPECT_EQ(order(), QString::fromUtf16(narrowing.rows))
            << QString::fromUtf16(narrowing.answer).toStdString();
    }
    list.GridFilter(2, NarrowMode::whole, u"2"_s);
    list.GridFilter(2, NarrowMode::part, u"1"_s); // a part of a number changes nothing
    EXPECT_EQ(order(), u"20"_s);
    EXPECT_EQ(faultNumberOf([this] { list.GridFilter(2, NarrowMode::whole, u"két"_s); }),
              fault::typeMismatch);
    EXPECT_EQ(faultNumberOf([this] { list.GridFilter(2, NarrowMode::whole, u"2147483648"_s); }),
              fault::overflow);
    EXPECT_EQ(order(), u"20"_s);
}

TEST(NarrowedSource, EachTypeHasItsStatement) {
    const auto text = [](FieldType type, NarrowMode mode, const char* name = "OSZLOPNEVE_HOSSZU") {
        const auto source = narrowedSource("T", {name, type, false}, mode, u"7"_s);
        return source ? source->text : std::string("unchanged");
    };
    // The cut of a date column's name is wanted, in this mode alone.
    EXPECT_EQ(text(FieldType::date, NarrowMode::whole), "select * from T where OSZLOPNEVE_= '?1'");
    EXPECT_EQ(text(FieldType::date, NarrowMode::part), "select * from T where OSZLOPNEVE_HOSSZU like '*?1*'");
    EXPECT_EQ(text(FieldType::memo, NarrowMode::whole), "select * from T where OSZLOPNEVE_HOSSZU= '?1'");
    EXPECT_EQ(text(FieldType::number, NarrowMode::whole), "select * from T where OSZLOPNEVE_HOSSZU= ?1");
    EXPECT_EQ(text(FieldType::integer, NarrowMode::part), "unchanged");
    EXPECT_EQ(text(FieldType::other, NarrowMode::whole), "unchanged");
    const auto answer = [](FieldType type, const QString& typed) {
        return narrowedSource("T", {"F", type, false}, NarrowMode::whole, typed)->values.at(0);
    };
    EXPECT_EQ(answer(FieldType::integer, u"-32768,5"_s), RecordSource::Value(qint64{-32768}));
    EXPECT_EQ(answer(FieldType::number, u"12 345,25"_s), RecordSource::Value(12345.25));
    EXPECT_EQ(faultNumberOf([&] { answer(FieldType::integer, u"32767,5"_s); }), fault::overflow);
    EXPECT_EQ(faultNumberOf([&] { answer(FieldType::number, u"1.5"_s); }), fault::typeMismatch);
}

TEST_F(PatientList, MovesReadsAndFindsInTheOrderShown) {
    RowSnapshot& rows = list.rows();
    EXPECT_EQ(rows.position(), 0);
    EXPECT_FALSE(rows.previous());
    rows.last();
    EXPECT_FALSE(rows.next());
    EXPECT_TRUE(rows.previous());
    EXPECT_EQ(rows.position(), 4);
    const RowSet matches = matchingRows(setUp.data(), "Paciensek", "Neve like '?1*'", {u"őri"_s});
    EXPECT_EQ(rows.findForward(matches, 1), 1);
    EXPECT_EQ(rows.findForward(matches, 2), -1);
    EXPECT_EQ(rows.findBackward(matches, 5), 1);
    list.GridSort(2, SortDirection::ascending);
    EXPECT_EQ(rows.findForward(matches, 0), 2);
    EXPECT_EQ(list.rowBeginningWith(1, u"11"_s), 3);
    EXPECT_EQ(list.rowBeginningWith(0, u"x"_s), -1);
    // Another program deletes a row that is shown and one that was read already.
    EXPECT_EQ(list.row(3)->at(0), u"Őri Éva"_s);
    EXPECT_EQ(list.row(0)->at(2), QString());
    setUp.data().executeScript("delete from Paciensek where rowid in (10, 20)");
    EXPECT_FALSE(list.row(2).has_value());
    list.forgetRows();
    EXPECT_FALSE(list.row(3).has_value());
    list.refresh();
    EXPECT_EQ(rows.count(), 4);
}

} // namespace vandrel::test
