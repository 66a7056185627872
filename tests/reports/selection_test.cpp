// Periods, the selection of both reports, the handlers' table and the write-back of the marks.
#include "reports/fault_reactions.h"
#include "reports/report_period.h"
#include "reports/report_target.h"
#include "reports/selection.h"
#include "reports/write_back.h"
#include "support/report_data.h"

using namespace Qt::StringLiterals;

using namespace vandrel;
using namespace vandrel::test;

TEST(ReportPeriod, Defaults) {
    const struct {
        const char* mode;
        QDate today;
        const char* period;
        const char* settlement;
    } cases[] = {
        {"0", {2008, 4, 3}, "2008.03", "2008.04"},  {"0", {2008, 1, 31}, "2007.12", "2008.01"},
        {"E", {2008, 1, 1}, "2007.12", "2008.01"},  {"E", {2008, 12, 1}, "2008.11", "2008.12"},
        {"1", {2008, 4, 3}, "2008.02", "2008.03"},  {"1", {2008, 1, 15}, "2007.11", "2007.12"},
        {"1", {2008, 2, 15}, "2007.12", "2008.01"}, {"1", {2008, 3, 15}, "2008.01", "2008.02"},
    };
    for (const auto& expected : cases) {
        const ReportPeriods periods = defaultPeriods(QString::fromLatin1(expected.mode), expected.today);
        EXPECT_EQ(periods.period, QLatin1StringView(expected.period)) << expected.mode;
        EXPECT_EQ(periods.settlement, QLatin1StringView(expected.settlement)) << expected.mode;
    }
}

TEST(ReportPeriod, OnlyUnfilledMasksAreRefused) {
    const QString empty = u"    .  "_s, full = u"2008.03"_s, odd = u"9   .99"_s;
    const struct {
        ReportRequest request;
        QString message;
    } cases[] = {
        {{u"0"_s, empty, empty, empty}, u"Hibás induló dátum!"_s},
        {{u"0"_s, full, empty, empty}, u"Hibás vég dátum!"_s},
        {{u"0"_s, full, full, empty}, {}},
        {{u"0"_s, odd, odd, empty}, {}},
        {{u"1"_s, full, full, empty}, u"Hibás elszámolási időszak dátum!"_s},
        {{u"E"_s, full, empty, empty}, {}},
    };
    for (const auto& expected : cases)
        EXPECT_EQ(checkPeriods(expected.request).value_or(CheckFailure()).message, expected.message);
}

namespace {

QString due(TestWorkstation& test, const SheetSelection& selection, const char* from, const char* to) {
    EventTurn turn({});
    QStringList keys;
    for (const qint64 sheet :
         dueSheets(test.workstation, selection, QString::fromUtf8(from), QString::fromUtf8(to), turn))
        keys << QString::number(sheet);
    return keys.join(' '_L1);
}

} // namespace

TEST(Selection, ThePeriodComparesSevenCharacters) {
    TestWorkstation test;
    const char* dates[] = {"'2008.03.01.'", "'2008.02.29.'", "'2008.03.31.'", "'2008.04.01.'", "'2008.03'",
                           "'2008.03.雪'",  "' '",           "null",          "'2008.0'"};
    int key = 0;
    for (const char* date : dates)
        putSheet(test, ++key, std::string("F_DATUM=") + date);
    EXPECT_EQ(due(test, originalSelection, "2008.03", "2008.03"), u"1 3 5 6"_s);
    EXPECT_EQ(due(test, originalSelection, "2008.02", "2008.03"), u"1 2 3 5 6"_s);
    EXPECT_EQ(due(test, originalSelection, "2008.04", "2008.03"), QString());
    EXPECT_EQ(due(test, originalSelection, "2008.0 ", "2008.04"), u"1 2 3 4 5 6"_s);
    // Texts of another length take the plain comparison.
    EXPECT_EQ(due(test, originalSelection, "2008.0", "2008.03"), u"1 2 3 5 6 9"_s);
    EXPECT_EQ(due(test, originalSelection, "", "2008.1"), u"1 2 3 4 5 6 7 9"_s);
}

TEST(Selection, CorrectedSheetsGoToTheirOwnTableWithTheirOwnMark) {
    TestWorkstation test;
    addReportMasterData(test);
    const std::vector<LineData> lines(7, {"'11041'", "1", "'A'"});
    putSheet(test, 1,
             "JAV='1', FLOPPY=1, ER_AZON='020000002', ENAPLO='77', EDATUM='2008.01.05.', PaciensId=1", lines);
    putSheet(test, 2, "JAV='2'");
    putSheet(test, 3, "JAV='0'", lines);
    putSheet(test, 4, "JAV='1', FLOPPY2=1", lines);
    EventTurn turn({});
    ReportProgress progress;
    const auto sheets = dueSheets(test.workstation, correctedSelection, u"2008.03"_s, u"2008.03"_s, turn);
    EXPECT_EQ(flattenSheets(test.workstation, correctedSelection, sheets, turn, progress), 2);
    EXPECT_EQ(firstText(test.data(), "select group_concat(FLOPPY || FLOPPY2, ' ') from BETEG"),
              u"11 01 00 01"_s);
    Database& scratch = test.workstation.files[DataFile::tetseged];
    EXPECT_EQ(firstText(scratch, "select group_concat(coalesce(Jav || Er_azon || Enaplo || ' ' || Edatum || "
                                 "Taj, 'null') || Naplo || Who_1, '|') from Leval_jav"),
              u"102000000277 200801051111111101"
              "11041|null111041"_s);
    EXPECT_EQ(firstText(scratch, "select count(*) from Leval_er"), u"0"_s);
}

TEST(Selection, AMarkSetMeanwhileIsSeen) {
    TestWorkstation test;
    for (int key = 1; key <= 4; ++key)
        putSheet(test, key, {}, {{"'11041'", "1"}});
    EventTurn turn({});
    ReportProgress progress;
    const auto sheets = dueSheets(test.workstation, originalSelection, u"2008.03"_s, u"2008.03"_s, turn);
    test.data().executeScript(
        "update BETEG set FLOPPY=1 where rowid=2; update BETEG set JAV='1' where rowid=3");
    EXPECT_EQ(flattenSheets(test.workstation, originalSelection, sheets, turn, progress), 2);
    EXPECT_EQ(
        firstText(test.workstation.files[DataFile::tetseged], "select group_concat(Naplo) from Leval_er"),
        u"1,4"_s);
    EXPECT_EQ(firstText(test.data(), "select group_concat(FLOPPY, '') from BETEG"), u"1101"_s);
}

TEST(Selection, AFeeIsWrittenAsTheProgramWritesNumbers) {
    TestWorkstation test;
    int key = 0;
    for (const char* fee : {"null", "0", "1500", "12.5", "-0.25", "'  '", "'x'"})
        putSheet(test, ++key, std::string("TerReszlDij=") + fee, {{"'11041'", "1"}});
    EventTurn turn({});
    ReportProgress progress;
    flattenSheets(test.workstation, originalSelection, {1, 2, 3, 4, 5, 6, 7}, turn, progress);
    // A text in the number column is not told to be a fee of 0.
    EXPECT_EQ(firstText(test.workstation.files[DataFile::tetseged],
                        "select group_concat(coalesce(Rterdij, 'null'), '|') from Leval_er"),
              u"null|0|1500|12,5|-0,25|  |x"_s);
}

TEST(FaultReactions, RetryAndSkip) {
    int tries = 0, waits = 0;
    const auto locked = [&] {
        if (++tries < 3) throw Fault(fault::permissionDenied, {});
    };
    runStatement(
        writerFaults, [&] { return ++waits > 0; }, locked);
    EXPECT_EQ(tries, 3);
    EXPECT_EQ(waits, 2);
    tries = -1000; // locked for good: whoever waits may give up
    EXPECT_THROW(runStatement(
                     writerFaults, [&] { return ++waits < 10; }, locked),
                 Fault);
    EXPECT_EQ(waits, 10);
    for (const int number : {53, 75})
        EXPECT_NO_THROW(runStatement(
            writerFaults, [] { return true; }, [number] { throw Fault(number, {}); }));
    for (const int number : {5, 52, 61, 71, 76, 3026})
        EXPECT_THROW(runStatement(
                         writerFaults, [] { return true; }, [number] { throw Fault(number, {}); }),
                     Fault);
}

TEST(ReportTarget, Texts) {
    EXPECT_TRUE(isDriveText(u"a:\\"_s));
    EXPECT_FALSE(isDriveText(u"/media/a:"_s));
    const QString separator = QDir::separator();
    EXPECT_EQ(withClosingSeparator(u"/media/kulcs"_s), u"/media/kulcs"_s + separator);
    EXPECT_EQ(withClosingSeparator(u"/media/kulcs//"_s), u"/media/kulcs"_s + separator);
    EXPECT_EQ(withClosingSeparator(u"/"_s), u"/"_s);
    EXPECT_EQ(withoutClosingSeparator(u"/"_s), u"/"_s);
}

TEST(WriteBack, EachOptionClearsItsOwnMarks) {
    const QString march = u"2008.03"_s;
    const struct {
        WriteBack option;
        const char* left; // FLOPPY and FLOPPY2 of the sheets marked 10, 01, 11, 00, and of one in April
        qint64 sheets;
    } cases[] = {{WriteBack::original, "00 01 01 00 11", 2},
                 {WriteBack::corrected, "10 00 10 00 11", 2},
                 {WriteBack::both, "00 00 00 00 11", 3}};
    for (const auto& expected : cases) {
        TestWorkstation test;
        putSheet(test, 1, "FLOPPY=1");
        putSheet(test, 2, "FLOPPY2=1, JAV='1'");
        putSheet(test, 3, "FLOPPY=1, FLOPPY2=1");
        putSheet(test, 4);
        putSheet(test, 5, "FLOPPY=1, FLOPPY2=1, F_DATUM='2008.04.01.'");
        test.dialogue.expect(u"Kész az adatvisszaállítás!"_s, programTitle, Icon::information);
        EXPECT_EQ(writeBackMarks(test.workstation, march, march, expected.option, {}).sheets,
                  expected.sheets);
        EXPECT_EQ(firstText(test.data(), "select group_concat(FLOPPY || FLOPPY2, ' ') from BETEG"),
                  QLatin1StringView(expected.left));
        EXPECT_EQ(firstText(test.data(), "select group_concat(JAV, '') from BETEG"), u"01000"_s);
    }
}

TEST(WriteBack, NothingFoundAndFaults) {
    TestWorkstation test;
    const QString march = u"2008.03"_s;
    putSheet(test, 1, "FLOPPY=1");
    putSheet(test, 2, "FLOPPY=1");
    test.dialogue.expect(u"Nincs visszaállítható adat!"_s, programTitle, Icon::warning);
    writeBackMarks(test.workstation, march, march, WriteBack::corrected, {});
    const QString empty = u"    .  "_s;
    test.dialogue.expect(u"Nem adott meg -Tól értéket!"_s);
    EXPECT_EQ(writeBackMarks(test.workstation, empty, empty, WriteBack::both, {}).field, u"from"_s);
    test.dialogue.expect(u"Nem adott meg -Ig értéket!"_s);
    EXPECT_EQ(writeBackMarks(test.workstation, march, empty, WriteBack::both, {}).field, u"to"_s);
    // A fault leaves every mark as it was.
    test.data().executeScript("create trigger refuse before update on BETEG when old.AZONOSITO='TST0000002' "
                              "begin select raise(abort, 'no'); end");
    test.dialogue.expect(u"Az adatvisszaállítás nem sikerült, az adatok nem változtak!\n"
                         "tetdata.mdb: az adat nem tárolható"_s,
                         u"Hiba"_s);
    writeBackMarks(test.workstation, march, march, WriteBack::original, {});
    EXPECT_EQ(firstText(test.data(), "select sum(FLOPPY) from BETEG"), u"2"_s);
}
