// The eight lists as they come into the document, compared line by line with files that were written from
// their description; and what happens around them: no data, a stop, faults.
#include "print/qc_printer.h"
#include "statistics/list_runner.h"
#include "support/print_stand.h"
#include "support/statistics_data.h"

#include <QFile>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace vandrel::test {

namespace {

// All characters are narrow: no text of the clinic is too wide for its column.
class NarrowMeter : public TextMeter {
  protected:
    class NarrowFace : public Face {
      public:
        explicit NarrowFace(const FontChoice& choice) : Face(choice, 240, 180) {}

      protected:
        double measure(char32_t) const override { return 20; }
    };
    std::unique_ptr<Face> makeFace(const FontChoice& choice) override {
        return std::make_unique<NarrowFace>(choice);
    }
};

const QString tableMark = u"--- table\n"_s;

ListRequest clinicRequest(StatisticsList list) {
    switch (list) {
    case StatisticsList::trafficLog:
    case StatisticsList::referrersItemised:
        return {.allCategories = true,
                .from = u"2008.03.01."_s,
                .to = u"2008.03.31."_s,
                .fromCode = u"010000001"_s,
                .toCode = u"020000002"_s};
    case StatisticsList::referrersMonthly:
        return {.category = u"01"_s,
                .from = u"2008.03"_s,
                .to = u"2008.03"_s,
                .fromCode = u"B1"_s,
                .toCode = u"X9"_s};
    case StatisticsList::proceduresDone:
        return {.category = u"01"_s,
                .from = u"2008.03"_s,
                .to = u"2008.03"_s,
                .fromCode = u"010000001"_s,
                .toCode = u"020000002"_s};
    case StatisticsList::individualCosts:
        return {.from = u"2008.03"_s, .to = u"2008.03"_s, .code = u"123456788 "_s};
    default:
        return {.from = u"2008.03"_s, .to = u"2008.03"_s, .code = u"010000001"_s};
    }
}

class ListsTest : public ::testing::Test {
  protected:
    ListsTest() { addStatisticsData(clinic); }

    Progress quiet;

    ListOutcome run(StatisticsList list, const ListRequest& request, Progress& progress) {
        return runList(clinic.workstation, list, request, document, progress);
    }
    ListOutcome run(StatisticsList list, const ListRequest& request) { return run(list, request, quiet); }
    ListOutcome run(StatisticsList list) { return run(list, clinicRequest(list)); }

    // Each item as its size, b(old), u(nderlined), c(entred) and text; no-break spaces show as a dot. After
    // them the rows of the table.
    QString written() {
        QString all;
        for (const qcTextItem& item : document.TextItem()) {
            EXPECT_EQ(item.FontName(), u"Times New Roman"_s);
            all += QString::number(item.FontSize());
            if (item.FontBold()) all += u'b';
            if (item.FontUnderline()) all += u'u';
            if (item.Alignment() == item_alignment::centre) all += u'c';
            all += u'|' + item.Text() + u'\n';
        }
        all.replace(QChar::Nbsp, u'·');
        const QString file = clinic.path(u"table.csv"_s);
        document.table().save(file, DocumentTable::Encoding::utf8);
        QString rows = QString::fromUtf8(fileBytes(file)).remove(QChar::ByteOrderMark);
        return all + tableMark + rows.replace(u"\r\n"_s, u"\n"_s);
    }
    QString tableRows() {
        const QString all = written();
        return all.mid(all.indexOf(tableMark) + tableMark.size());
    }
    bool empty() { return document.ItemCount() == 0 && document.table().isEmpty(); }

    void removeFile(DataFile file) {
        clinic.workstation.files.close(file);
        ASSERT_TRUE(QFile::remove(clinic.workstation.files.path(file)));
    }
    QString scratchSum() {
        return firstText(clinic.workstation.files[DataFile::tetseged], "select sum(MENNY) from EUSZOLG");
    }

    TestWorkstation clinic;
    ExpectedDialogue& dialogue = clinic.dialogue;
    PrintStand stand;
    NarrowMeter meter;
    PrintEngine engine{meter, stand.printers, stand.clock};
    qcPrinter document{engine};
};

} // namespace

TEST_F(ListsTest, EachListIsWrittenAsDescribed) {
    // One after the other into the same document: nothing of a list stays in the next one.
    for (int number = 1; number <= 8; ++number) {
        SCOPED_TRACE(number);
        ASSERT_EQ(run(static_cast<StatisticsList>(number)), ListOutcome::ready);
        const QString golden =
            QString::fromUtf8(fileBytes(QStringLiteral(VANDREL_GOLDEN_DIR "/list%1.txt").arg(number)));
        const QStringList wanted = golden.split(u'\n');
        const QStringList found = written().split(u'\n');
        for (qsizetype line = 0; line < std::min(wanted.size(), found.size()); ++line)
            ASSERT_EQ(found[line], wanted[line]) << "line " << line + 1;
        ASSERT_EQ(found.size(), wanted.size());
    }
}

TEST_F(ListsTest, TheDocumentBeginsWithItsMarginsAndFooter) {
    document.setMarginLeft(3);
    ASSERT_EQ(run(StatisticsList::unitPerformance), ListOutcome::ready);
    EXPECT_EQ(document.ScaleMode(), scale_mode::millimetre);
    EXPECT_EQ(document.MarginLeft(), 20);
    for (const float margin : {document.MarginRight(), document.MarginTop(), document.MarginBottom()})
        EXPECT_EQ(margin, 10);
    for (const int slot : {0, 2, 3}) {
        const qcTextItem& footer = document.Footer(slot);
        EXPECT_EQ(footer.Text(), u"#pagenumber# / #pagetotal# .oldal"_s);
        EXPECT_EQ(footer.FontName(), u"Times New Roman"_s);
        EXPECT_EQ(footer.FontSize(), 10);
        EXPECT_TRUE(footer.FontBold());
        EXPECT_EQ(footer.Alignment(), item_alignment::centre);
        EXPECT_EQ(document.SetFooter(slot), slot != 0);
    }
}

TEST_F(ListsTest, WithoutDataTheUserIsToldOrTheListStaysEmpty) {
    struct Case {
        StatisticsList list;
        QString message, title;
    };
    const QString nothing = u"Nincs nyomtatható adat!"_s;
    for (const Case& c :
         {Case{StatisticsList::trafficLog, nothing, u"Hiba"_s},
          Case{StatisticsList::referrersMonthly, nothing, programTitle},
          Case{StatisticsList::proceduresDone, nothing, programTitle},
          Case{StatisticsList::referrersItemised, nothing, u"Hiba"_s},
          Case{StatisticsList::individualCosts, u"Nincs ilyen TAJ számú beteg!"_s, programTitle}}) {
        SCOPED_TRACE(c.message.toStdString());
        ListRequest request = clinicRequest(c.list);
        request.from = request.to = u"2009.01"_s;
        dialogue.expect(c.message, c.title);
        EXPECT_EQ(run(c.list, request), ListOutcome::noData);
        EXPECT_TRUE(dialogue.allShown());
        EXPECT_TRUE(empty());
    }
    for (const StatisticsList list : {StatisticsList::combined, StatisticsList::visitFees}) {
        ListRequest request = clinicRequest(list);
        request.from = request.to = u"2009.01"_s;
        EXPECT_EQ(run(list, request), ListOutcome::ready);
        EXPECT_TRUE(written().contains(u"munkahely összesen: </LINDENT>"_s));
    }
}

TEST_F(ListsTest, OnlySheetsWithoutLinesGiveSumsOfNothing) {
    clinic.data().executeScript("delete from EUSZOLG");
    for (const StatisticsList list : {StatisticsList::referrersMonthly, StatisticsList::proceduresDone}) {
        ASSERT_EQ(run(list), ListOutcome::ready);
        const QString all = written();
        EXPECT_FALSE(all.contains(u"Szakrendelő összesen:"_s));
        EXPECT_TRUE(all.contains(u"<LINDENT=150>0</LINDENT>\n--- table"_s)) << all.toStdString();
    }
}

TEST_F(ListsTest, TheUserMayBreakAListOff) {
    const QString before = scratchSum();
    struct : Progress {
        void moved(qint64 position, qint64 total) override {
            done = position;
            all = total;
        }
        bool stopWished() override { return ++asked == 1; }
        int asked = 0;
        qint64 done = 0, all = 0;
    } progress;
    for (const StatisticsList list : {StatisticsList::trafficLog, StatisticsList::referrersMonthly}) {
        const qint64 sheets = list == StatisticsList::trafficLog ? 5 : 3;
        progress.asked = 0;
        dialogue.expectQuestion(u"Megszakítja a lista készítését?"_s, Answer::yes);
        EXPECT_EQ(run(list, clinicRequest(list), progress), ListOutcome::stopped);
        EXPECT_TRUE(empty());
        EXPECT_EQ(scratchSum(), before); // what was copied so far is not kept
        EXPECT_LE(progress.done, sheets); // a slow machine gives the loop its first turn earlier
        EXPECT_EQ(progress.all, sheets);
    }
    progress.asked = 0;
    dialogue.expectQuestion(u"Megszakítja a lista készítését?"_s, Answer::no);
    EXPECT_EQ(run(StatisticsList::trafficLog, clinicRequest(StatisticsList::trafficLog), progress),
              ListOutcome::ready);
    EXPECT_GE(progress.asked, 1);
    EXPECT_FALSE(empty());
}

TEST_F(ListsTest, NothingIsLockedWhileTheEventLoopRuns) {
    int turns = 0;
    Database other(clinic.workstation.files.path(DataFile::tetdata));
    clinic.workstation.serveEvents = [&] {
        ++turns;
        other.execute("delete from BETEG where AZONOSITO='A010000001'");
    };
    ASSERT_EQ(run(StatisticsList::referrersMonthly), ListOutcome::ready);
    EXPECT_GE(turns, 2);
    ASSERT_EQ(run(StatisticsList::trafficLog), ListOutcome::ready);
    EXPECT_TRUE(written().contains(u"Munkahely összesen:  4\n"_s));
}

TEST_F(ListsTest, TheItemisedListsGoOnOverFailingStatements) {
    removeFile(DataFile::beav);
    removeFile(DataFile::tetmod);
    ASSERT_EQ(run(StatisticsList::referrersItemised), ListOutcome::ready);
    EXPECT_EQ(document.PreviewNote(), u"4 adatlap adatai hiányosak"_s); // one has no procedures
    EXPECT_TRUE(written().contains(u"9|<LINDENT=5>11041<LINDENT=15> </LINDENT><LINDENT=140>10*0\n"_s));
    clinic.data().executeScript("drop table EUSZOLG");
    ASSERT_EQ(run(StatisticsList::trafficLog), ListOutcome::ready);
    EXPECT_TRUE(written().contains(u"<b>Munkahely: <LINDENT=30>010000001 </LINDENT></b>"_s));
    EXPECT_TRUE(written().contains(u"11b|Munkahely összesen:  5\n"_s));
    // Without the sheets themselves there is no list to go on with.
    clinic.data().executeScript("drop table BETEG");
    dialogue.expect(u"Hiba lépett fel a nyomtatás során! %1\n"_s.arg(fault::tableMissing) +
                        u"tetdata.mdb: hiányzó tábla: BETEG"_s,
                    programTitle, Icon::warning);
    EXPECT_EQ(run(StatisticsList::trafficLog), ListOutcome::failed);
    EXPECT_TRUE(empty());
}

TEST_F(ListsTest, AFaultEndsTheOtherLists) {
    removeFile(DataFile::beav);
    const QString before = scratchSum();
    for (const StatisticsList list : {StatisticsList::referrersMonthly, StatisticsList::proceduresDone,
                                      StatisticsList::individualCosts, StatisticsList::combined}) {
        dialogue.expect(u"Hiba lépett fel a nyomtatás során! %1\nNem található a beav.mdb állomány!"_s.arg(
                            fault::dataFileMissing),
                        programTitle, Icon::warning);
        EXPECT_EQ(run(list), ListOutcome::failed);
        EXPECT_TRUE(empty());
    }
}

// The preview saves into files too, so a list needs no printer.
TEST_F(ListsTest, WithoutAnyPrinter) {
    stand.printers.entries.clear();
    for (int number = 1; number <= 8; ++number)
        EXPECT_EQ(run(static_cast<StatisticsList>(number)), ListOutcome::ready) << number;
}

TEST_F(ListsTest, AListWaitsForAnotherProgramsLock) {
    Database other(clinic.workstation.files.path(DataFile::tetdata));
    other.execute("begin exclusive");
    int turns = 0;
    struct : Progress {
        void stage(const QString& text) override { stages << text; }
        bool stopWished() override { return impatient; }
        QStringList stages;
        bool impatient = false;
    } progress;
    clinic.workstation.serveEvents = [&] {
        if (++turns == 2) other.execute("commit");
    };
    const ListRequest request = clinicRequest(StatisticsList::trafficLog);
    ASSERT_EQ(run(StatisticsList::trafficLog, request, progress), ListOutcome::ready);
    EXPECT_GE(turns, 2);
    EXPECT_EQ(progress.stages,
              (QStringList{list_status::processing, list_status::waiting, list_status::processing}));
    EXPECT_TRUE(written().contains(u"Munkahely összesen:  5\n"_s));
    // The user need not wait.
    other.execute("begin exclusive");
    turns = 2;
    progress.impatient = true;
    dialogue.expectQuestion(u"Megszakítja a lista készítését?"_s, Answer::yes);
    EXPECT_EQ(run(StatisticsList::trafficLog, request, progress), ListOutcome::stopped);
    other.execute("commit");
}

TEST_F(ListsTest, FileNamesSayPeriodAndUnit) {
    const auto name = [](StatisticsList list, ListRequest request) {
        return listFileName(u" Napló"_s, list, request);
    };
    const QString first = u"2008.03.01."_s, last = u"2008.03.31."_s, month = u"2008.03"_s;
    EXPECT_EQ(
        name(StatisticsList::trafficLog, {.from = first, .to = last, .fromCode = u"1"_s, .toCode = u"2"_s}),
        u"Napló 2008.03.01-2008.03.31"_s);
    EXPECT_EQ(name(StatisticsList::proceduresDone,
                   {.from = month, .to = month, .fromCode = u"a1"_s, .toCode = u"A1 "_s}),
              u"Napló 2008.03 a1"_s);
    EXPECT_EQ(name(StatisticsList::combined, {.from = month, .to = u"2008.04"_s, .code = u"7 "_s}),
              u"Napló 2008.03-2008.04 7"_s);
    EXPECT_EQ(name(StatisticsList::visitFees, {.from = month, .to = month, .code = u"7"_s, .allUnits = true}),
              u"Napló 2008.03"_s);
    EXPECT_EQ(name(StatisticsList::individualCosts, {.from = month, .to = month, .code = u"123456788"_s}),
              u"Napló 2008.03"_s);
    EXPECT_EQ(name(StatisticsList::unitPerformance, {}), u"Napló"_s);
}

TEST_F(ListsTest, ATextTooWideForItsColumnIsSetSmallerAndThenCut) {
    const QString name = u"Őrgróf Pallavicininé Nagy-Kovács Erzsébet Mária"_s;
    clinic.data().execute("update Paciensek set Neve=?1 where ID=1", name);
    FixedMeter wide; // 90 twips a character at 9 points
    PrintEngine wideEngine{wide, stand.printers, stand.clock};
    qcPrinter page(wideEngine);
    const StatisticsList list = StatisticsList::visitFees;
    ASSERT_EQ(runList(clinic.workstation, list, clinicRequest(list), page, quiet), ListOutcome::ready);
    const QString line = page.TextItem().Item(12).Text();
    const QString caption = name + u" (123456788)"_s;
    const double room = 79 * 56.7;
    QString size = line.mid(6, line.indexOf(u'>') - 6);
    ASSERT_TRUE(line.startsWith(u"<SIZE="_s + size + u'>' + caption + u"</SIZE><LINDENT=80>"_s))
        << line.toStdString();
    EXPECT_LE(wide.face({u"Times New Roman"_s, size.toFloat(), false, false}).width(caption), room);
    EXPECT_GT(wide.face({u"Times New Roman"_s, size.toFloat() + 0.5F, false, false}).width(caption), room);

    // At 7 points it ends in three dots, within the column; the table has it whole.
    const QString longName = u"Őrgróf Pallavicininé "_s.repeated(6).trimmed();
    clinic.data().execute("update Paciensek set Neve=?1 where ID=1", longName);
    ASSERT_EQ(runList(clinic.workstation, list, clinicRequest(list), page, quiet), ListOutcome::ready);
    const QString cut = page.TextItem().Item(12).Text();
    ASSERT_TRUE(cut.startsWith(u"<SIZE=7>Őrgróf Pallavicininé "_s)) << cut.toStdString();
    const QString shown = cut.mid(8, cut.indexOf(u"</SIZE>"_s) - 8);
    const Face& seven = wide.face({u"Times New Roman"_s, 7, false, false});
    EXPECT_TRUE(shown.endsWith(u'…'));
    EXPECT_FALSE(shown.endsWith(u" …"_s));
    EXPECT_LE(seven.width(shown), room);
    EXPECT_GT(seven.width(shown) + 2 * seven.width(U'n') + seven.width(U' '), room);
    bool whole = false;
    page.table().eachRow([&](const DocumentTable::Row& row) {
        whole = whole || QString::fromUtf8(row[0]) == longName + u" (123456788)"_s;
    });
    EXPECT_TRUE(whole);
    clinic.data().execute("update Paciensek set Neve=?1 where ID=1", name);

    // A type that was kept with its meaning would reach into the next column.
    clinic.data().execute("update Paciensek set Azon_Tipus='1: TAJ szám' where ID=1");
    for (const StatisticsList log : {StatisticsList::trafficLog, StatisticsList::referrersItemised}) {
        ASSERT_EQ(runList(clinic.workstation, log, clinicRequest(log), page, quiet), ListOutcome::ready);
        int fitted = 0;
        for (const qcTextItem& item : page.TextItem())
            fitted += item.Text().contains(u"<SIZE=7>123456788/1: TAJ"_s) ||
                      item.Text().contains(u">123456788/1: TAJ szám</SIZE>"_s);
        EXPECT_GT(fitted, 0) << static_cast<int>(log);
    }
}

// With nothing in any column that may be empty, from one page's fill to the next.
TEST_F(ListsTest, EveryLetterOfAListWithEmptyValuesIsOnPaper) {
    clinic.data().executeScript(
        "update intezet set Int_nev='', City='', Bankszamla='', Adoig_szam='';"
        "update Paciensek set Neve='', Irszam=null, City='', Cim='', Nem='', Szul_Dat=null;"
        "update BETEG set PaciensId=99 where AZONOSITO='A010000002';"
        "update BETEG set DIAG1='', DIAG2='', F_IDO=null, NAPLO=null, ORVKOD='', ELL_TIP='', LABOR='';");
    FixedMeter wide;
    PrintEngine paper{wide, stand.printers, stand.clock};
    qcPrinter page(paper);
    static const QRegularExpression blanks(u"\\s"_s), tags(u"<[^>]*>"_s);
    for (int number = 1; number <= 8; ++number) {
        const auto list = static_cast<StatisticsList>(number);
        ASSERT_EQ(runList(clinic.workstation, list, clinicRequest(list), page, quiet), ListOutcome::ready);
        page.setSetFooter(2, false);
        page.setSetFooter(3, false);
        for (const float margin : {10.0F, 60.0F, 110.0F, 160.0F, 210.0F, 240.0F}) {
            page.setMarginBottom(margin);
            QString letters, drawn;
            for (const qcTextItem& item : page.TextItem())
                letters += item.Text().remove(tags).remove(blanks);
            RecordingPage recording;
            page.WalkDocument(recording, 1, page.Pages());
            drawn = recording.allText().remove(blanks);
            EXPECT_EQ(drawn, letters) << number << " " << margin;
        }
    }
}

TEST_F(ListsTest, NamesWithAngleBracketsPrintWhole) {
    const QString name = u"A<b>B <LINDENT=1>C"_s;
    for (const auto& [file, sql] : std::initializer_list<std::pair<DataFile, const char*>>{
             {DataFile::tetdata, "update Paciensek set Neve=?1, Cim=?1"},
             {DataFile::tetdata, "update intezet set Int_nev=?1, City=?1"},
             {DataFile::tetmod, "update SZAKREND set REND_NEV=?1"},
             {DataFile::tetmod, "update ORVOSOK set NEV=?1"},
             {DataFile::beav, "update BEAV set BEAV_NEV=?1"},
             {DataFile::diagnos, "update DIAGNOS set D_NEV=?1"}})
        clinic.workstation.files[file].execute(sql, name);
    for (int number = 1; number <= 8; ++number) {
        const auto list = static_cast<StatisticsList>(number);
        ASSERT_EQ(run(list), ListOutcome::ready);
        const QString all = written();
        const QString lines = all.left(all.indexOf(tableMark));
        EXPECT_FALSE(lines.contains(name)) << number;
        EXPECT_EQ(lines.contains(u"A<<u></u>b>B <<u></u>LINDENT=1>C"_s),
                  list != StatisticsList::unitPerformance)
            << number;
    }
    EXPECT_TRUE(tableRows().contains(name)); // in the table as it is
}

// Codes and numbers reach the tables from other workstations too, so they need not be what the sheet lets in.
TEST_F(ListsTest, CodesWithAngleBracketsSwallowNoColumn) {
    const QString code = u"<7"_s;
    for (const char* sql :
         {"update BETEG set NAPLO=?1, ELL_TIP=?1, F_IDO=?1, DIAG1=?1, DIAG2=?1, DIAG3=?1, TOVA=?1, "
          "BALESET1=?1, BALESET2=?1, ORVKOD=?1, LABOR=?1, RTG=?1, CTMR=?1, FIZIO=?1, K_KEP=?1, UTKLTG=?1, "
          "RECEPT=?1, GYOGYSEG=?1, GYOGYFURD=?1",
          "update EUSZOLG set BEAV=?1", "update Paciensek set Nem=?1, Szul_Dat=?1"})
        clinic.data().execute(sql, code);
    for (int number = 1; number <= 8; ++number) {
        const auto list = static_cast<StatisticsList>(number);
        ASSERT_EQ(run(list), ListOutcome::ready);
        const QString all = written();
        EXPECT_FALSE(all.left(all.indexOf(tableMark)).contains(code)) << number;
    }
    ASSERT_EQ(run(StatisticsList::trafficLog), ListOutcome::ready);
    QString expected = u"9|Labor: <7<LINDENT=15>Rtg.: <7</LINDENT><LINDENT=30>CT-MR: <7</LINDENT>"
                       u"<LINDENT=50>Fizio.: <7</LINDENT><LINDENT=70>K.képt.: <7</LINDENT>"
                       u"<LINDENT=90>Utiktg: <7</LINDENT><LINDENT=110>Vény: <7</LINDENT>"
                       u"<LINDENT=130>Segéde.: <7</LINDENT><LINDENT=150>Gyógyf.: <7</LINDENT>\n"_s;
    expected.replace(code, u"<<u></u>7"_s);
    EXPECT_TRUE(written().contains(expected)) << written().toStdString();
    EXPECT_TRUE(tableRows().contains(u";<7;"_s)); // in the table as they are
}

} // namespace vandrel::test
