// The search in the register while a TAJ is typed.
#include "sheet/patient_register.h"

#include "foundation/prefix_search.h"
#include "platform/format.h"
#include "platform/text_compare.h"
#include "support/sheet_samples.h"

using namespace Qt::StringLiterals;

namespace vandrel::test {

TEST(PatientSearch, FirstInTheTablesOrder) {
    TestWorkstation station;
    station.data().executeScript(
        "insert into Paciensek (ID,TAJ,Neve) values (1,'987654321','első'), "
        "(2,'123456788','második'), (3,'123456111','harmadik'), (4,'AB/12','negyedik'), "
        "(5,'Őz%_''1','ötödik'), (6,null,'hatodik');");
    const struct {
        const char16_t* typed;
        qint64 id; // 0: nobody
    } cases[] = {
        {u"1", 2},         {u"12", 2},    {u"1234", 2}, {u"123456", 2}, {u"1234561", 3},
        {u"123456788", 2}, {u"9", 1},     {u"5", 0},    {u"12347", 0},  {u"1234567881", 0},
        {u"ab", 4},        {u"ab/12", 4}, {u"ő", 5},    {u"őZ%_'1", 5}, {u"%", 0},
        {u"_____", 0},     {u"'", 0},     {u"", 0},     {u"   ", 0},    {u" 1", 0},
    };
    for (const auto& c : cases) {
        const std::optional<Patient> found =
            findPatientByPrefix(station.workstation, QString::fromUtf16(c.typed));
        EXPECT_EQ(found ? found->id : 0, c.id) << QString::fromUtf16(c.typed).toStdString();
    }
}

// All three roads of the search against a plain walk over the table, with and without the indexes.
TEST(PatientSearch, SameAsAPlainWalk) {
    TestWorkstation station;
    std::vector<QString> tajs;
    {
        Transaction transaction(station.data());
        unsigned state = 7;
        for (int i = 0; i < 3000; ++i) {
            state = state * 1664525u + 1013904223u;
            const QString number = QString::number(100000 + state / 4096 % 3000);
            tajs.push_back(i % 5 == 0   ? u"ő"_s + number
                           : i % 5 == 1 ? number + u"Ő"_s + number
                           : i % 5 == 2 ? u"Ő"_s + number
                                        : number + u"a"_s);
            station.data().execute("insert into Paciensek (ID,TAJ) values (?1,?2)", i + 1, tajs.back());
        }
        transaction.commit();
    }
    for (const bool indexed : {true, false}) {
        if (!indexed) {
            station.data().executeScript(
                "drop index Paciensek_TAJ; drop index Paciensek_TAJ1; drop index "
                "Paciensek_TAJ2; drop index Paciensek_TAJ3; drop index Paciensek_TAJ4");
        }
        for (std::size_t i = 0; i < tajs.size(); i += 37)
            for (int length = 1; length <= 8; ++length) {
                const QString prefix =
                    i % 2 == 0 ? tajs[i].left(length).toUpper() : tajs[i].left(length).toLower();
                qint64 expected = 0;
                while (!startsWithText(tajs[static_cast<std::size_t>(expected)], prefix))
                    ++expected;
                ASSERT_EQ(firstRowStartingWith(station.data(), "Paciensek", "TAJ", prefix), expected + 1)
                    << prefix.toStdString();
            }
    }
}

TEST(PatientSearch, WhatAPatientShows) {
    TestWorkstation station;
    station.data().executeScript(
        "insert into Paciensek (ID,TAJ,KgyLe,Azon_Tipus,Nem,Szul_Dat) values "
        "(1,'1','____.__.__.','12','2x','1970.05.06.'), (2,'2',null,null,null,null), "
        "(3,'3','2009.01.01.','1','1','1970.05.06.');");
    const Patient first = *findPatientByPrefix(station.workstation, u"1"_s);
    EXPECT_EQ(first.KgyLe, format::emptyDate);
    EXPECT_EQ(first.Azon_tipus + first.Nem, u"12"_s);
    const Patient second = *findPatientByPrefix(station.workstation, u"2"_s);
    EXPECT_EQ(second.KgyLe + second.Szul_dat, format::emptyDate + format::emptyDate);
    EXPECT_EQ(second.Neve + second.Azon_tipus + second.Nem, QString());
    EXPECT_EQ(findPatientByPrefix(station.workstation, u"3"_s)->KgyLe, u"2009.01.01."_s);
}

} // namespace vandrel::test
