// The statistics screen by keyboard: its three panels, their steps and checks, a run, and breaking it off.
#include "foundation/file_checks.h"
#include "print/qc_printer.h"
#include "statistics/forms/statisztForm.h"
#include "support/keyboard.h"
#include "support/print_stand.h"
#include "support/report_data.h"

#include <QCheckBox>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QThread>
#include <QtTest>

using namespace Qt::StringLiterals;

namespace vandrel::test {

namespace {

class StatisticsScreen : public testing::Test {
  protected:
    StatisticsScreen() {
        addReportMasterData(test);
        test.dictionaries().executeScript(
            "insert into BEKULDO (KOD, NEV) values ('800000001', 'Dr. <b>Küldő</b>')");
        test.workstation.Attunes = false;
        test.workstation.serveEvents = [] { QCoreApplication::processEvents(); };
        test.workstation.printing = &stand.engine;
        stand.engine.showPreview = [this](qcPrinter& document) {
            QStringList texts;
            for (int item = 1; item <= document.ItemCount(); ++item)
                texts << document.TextItem().Item(item).Text();
            previews << texts;
            statusAtPreview = label("Allapot");
        };
        opener.show();
    }

    void open(const char* menu) {
        form = std::make_unique<statisztForm>(test.workstation, &opener, *menuEntry(menu));
        form->open();
        ASSERT_TRUE(QTest::qWaitForWindowActive(form.get()));
        EXPECT_FALSE(opener.isEnabled());
        QCoreApplication::processEvents();
        const QString folder = qEnvironmentVariable("VANDREL_PICTURES");
        if (!folder.isEmpty())
            form->grab().save(
                QDir(folder).filePath(u"statisztForm-"_s + QLatin1StringView(menu) + u".png"_s));
    }
    void keepPicture(const QString& name) {
        const QString folder = qEnvironmentVariable("VANDREL_PICTURES");
        if (!folder.isEmpty()) form->grab().save(QDir(folder).filePath(name));
    }
    template<class Widget = QWidget>
    Widget* part(const char* name) {
        return form->findChild<Widget*>(QLatin1StringView(name));
    }
    QString label(const char* name) { return part<QLabel>(name)->text(); }
    bool enabled(const char* name) { return part(name)->isEnabled(); }
    bool shows(const QString& text) {
        for (const QLabel* label : form->findChildren<QLabel*>())
            if (label->text() == text && label->isVisible()) return true;
        return false;
    }
    static void enter(const QString& text = {}) {
        typeText(text);
        pressKey(Qt::Key_Return);
    }
    // "Feldolgozás" from wherever the focus is.
    void process() {
        part("Feldolgozas")->setFocus(Qt::TabFocusReason);
        pressKey(Qt::Key_Return);
    }
    // It shows the box and leads to the field.
    void refused(const QString& message, const QString& field) {
        test.dialogue.expect(message);
        process();
        EXPECT_TRUE(test.dialogue.allShown()) << message.toStdString();
        EXPECT_EQ(focusName(), field);
    }
    // The first step with all categories, and the period of March 2008.
    void secondStep() {
        part("TeritesOsszes")->setFocus(Qt::TabFocusReason);
        pressKey(Qt::Key_Space);
        pressKey(Qt::Key_Return);
        pressKey(Qt::Key_Return);
        enter(u"20080301"_s);
        enter(u"20080331"_s);
    }

    TestWorkstation test;
    PrintStand stand;
    QWidget opener;
    QList<QStringList> previews;
    QString statusAtPreview;
    std::unique_ptr<statisztForm> form;
};

} // namespace

TEST_F(StatisticsScreen, TheTrafficLogInTwoSteps) {
    addSheet(test, 1, {{"TERITES", "'01'"}}, {});
    addSheet(test, 2, {{"TERITES", "'04'"}, {"SZAKREND", "'020000002'"}}, {});
    open("betforg");
    EXPECT_EQ(form->windowTitle(), u"Statisztikák készítése"_s);
    EXPECT_EQ(label("PanelCim"), u" Betegforgalmi napló"_s);
    for (const QString& text : {u"[    Mely betegekről kéri a listát?    ]"_s, u"[    Időszak    ]"_s,
                                u"[    Mely munkahelyekre kér listát?    ]"_s, u"- tól"_s, u"- ig"_s})
        EXPECT_TRUE(shows(text)) << text.toStdString();
    EXPECT_EQ(part("KodTol")->toolTip(), u"Munkahely kódja - tól"_s);
    EXPECT_EQ(part<QLineEdit>("IdoszakTol")->displayText(), u"    .  .  ."_s);
    const auto secondStepIs = [this](bool on) {
        for (const char* name : {"IdoszakTol", "IdoszakIg", "KodTol", "KodIg", "Feldolgozas"})
            EXPECT_EQ(enabled(name), on) << name;
    };
    secondStepIs(false);

    // Nothing ticked: the first step stays.
    EXPECT_EQ(focusName(), u"Terites01"_s);
    for (int box = 0; box < 12; ++box)
        pressKey(box % 2 == 0 ? Qt::Key_Return : Qt::Key_Down);
    EXPECT_EQ(focusName(), u"Tovabb"_s);
    EXPECT_EQ(part<QPushButton>("Tovabb")->text(), u"Tovább     >>"_s);
    test.dialogue.expect(u"Nincs kiválasztva térítési kategória!"_s, u"Hiba"_s);
    pressKey(Qt::Key_Return);
    EXPECT_EQ(focusName(), u"Terites01"_s);
    secondStepIs(false);

    // All of them clears the others, one of them clears all.
    const auto ticked = [this](const char* name) { return part<QCheckBox>(name)->isChecked(); };
    pressKey(Qt::Key_Space);
    part("Terites0E")->setFocus();
    pressKey(Qt::Key_Space);
    EXPECT_TRUE(ticked("Terites01") && ticked("Terites0E"));
    part("TeritesOsszes")->setFocus();
    pressKey(Qt::Key_Space);
    EXPECT_TRUE(ticked("TeritesOsszes") && !ticked("Terites01") && !ticked("Terites0E"));
    part("Terites01")->setFocus();
    pressKey(Qt::Key_Space);
    EXPECT_TRUE(!ticked("TeritesOsszes") && ticked("Terites01"));
    part("Tovabb")->setFocus();
    pressKey(Qt::Key_Return);
    secondStepIs(true);
    EXPECT_EQ(focusName(), u"IdoszakTol"_s);

    // The checks in their order, each at its field.
    refused(u"Dátum: -tól kitöltése kötelező!"_s, u"IdoszakTol"_s);
    enter(u"20080310"_s);
    EXPECT_EQ(focusName(), u"IdoszakIg"_s);
    refused(u"Dátum: -ig kitöltése kötelező!"_s, u"IdoszakIg"_s);
    test.dialogue.expect(u"Hibás dátumintervallum (ig>tól)!"_s, u"Hiba"_s);
    enter(u"20080309"_s);
    EXPECT_EQ(focusName(), u"IdoszakIg"_s);
    pressKey(Qt::Key_Delete); // an empty one lets back to the other
    pressKey(Qt::Key_Up);
    EXPECT_EQ(focusName(), u"IdoszakTol"_s);
    pressKey(Qt::Key_Down);
    enter(u"20080310"_s);
    EXPECT_EQ(focusName(), u"KodTol"_s);
    refused(u"Szakrendelő: -tól kitöltése kötelező!"_s, u"KodTol"_s);
    enter(u"010000001"_s);
    EXPECT_TRUE(label("KodTolNev").startsWith(u"Általános és baleseti sebészeti szak"_s)); // it may be cut
    refused(u"Szakrendelő: -ig kitöltése kötelező!"_s, u"KodIg"_s);
    enter(u"020000002"_s);
    EXPECT_EQ(label("KodIgNev"), u"Belgyógyászat"_s);

    EXPECT_EQ(focusName(), u"Feldolgozas"_s);
    keepPicture(u"statisztForm-kitoltve.png"_s);
    pressKey(Qt::Key_Return);
    ASSERT_EQ(previews.size(), 1);
    EXPECT_TRUE(previews[0].contains(u"Ambuláns betegforgalmi napló"_s));
    EXPECT_EQ(statusAtPreview, u"Nyomtatási kép létrehozása..."_s);
    EXPECT_EQ(label("Allapot"), u"Lista kész!"_s);
    EXPECT_EQ(label("Adatlapok"), u"1 / 1"_s); // the other sheet is of a category that was not ticked
    EXPECT_EQ(focusName(), u"Feldolgozas"_s);
    keepPicture(u"statisztForm-kesz.png"_s);

    // Another category asks for the first step again.
    part("Terites04")->setFocus();
    pressKey(Qt::Key_Space);
    secondStepIs(false);
    part("Tovabb")->setFocus();
    pressKey(Qt::Key_Return);
    process();
    EXPECT_EQ(label("Adatlapok"), u"2 / 2"_s);
    EXPECT_EQ(previews.size(), 2);
    pressKey(Qt::Key_Escape);
    EXPECT_FALSE(form->isVisible());
    EXPECT_TRUE(opener.isEnabled());
}

TEST_F(StatisticsScreen, TheItemisedListKeepsItsWordsAboutReferrers) {
    addSheet(test, 1, {{"TERITES", "'61'"}, {"IGENYLO", "'800000001'"}}, {});
    open("tetlist");
    EXPECT_EQ(form->windowTitle(), u"Statisztikák készítése - Betegforgalmi napló"_s);
    EXPECT_EQ(label("PanelCim"), u" Tételes lista a beküldőkről"_s);
    EXPECT_TRUE(shows(u"Mely beküldőkre kér listát?"_s));
    EXPECT_EQ(part("KodIg")->accessibleName(), u"Munkahely kódja - ig"_s);
    secondStep();
    enter(u"0"_s);
    enter(u"00"_s);
    EXPECT_EQ(focusName(), u"Feldolgozas"_s);
    test.dialogue.expect(u"Nincs nyomtatható adat!"_s, u"Hiba"_s);
    pressKey(Qt::Key_Return);
    EXPECT_EQ(label("Allapot"), QString());
    EXPECT_EQ(focusName(), u"Feldolgozas"_s);
    EXPECT_TRUE(previews.isEmpty());
    pressKey(Qt::Key_Up);
    enter(u"9"_s);
    pressKey(Qt::Key_Return);
    ASSERT_EQ(previews.size(), 1);
    EXPECT_TRUE(previews[0].contains(u"Tételes lista a beküldőkről"_s));
}

TEST_F(StatisticsScreen, MonthlyPanel) {
    addSheet(test, 1, {{"TERITES", "'01'"}, {"IGENYLO", "'800000001'"}}, {{"'11041'", "3"}});
    struct Case {
        const char* menu;
        QString prompt, holds, name, title, code;
    };
    const Case cases[] = {{"haviossz", u" Mely beküldőkre kér listát?"_s, u"Beküldő kódja - tól"_s,
                           u"Dr. <b>Küldő</b>"_s, u"Havi összesítő a beküldőkről"_s, u"800000001"_s},
                          {"osszlist", u"[    Mely munkahelyekre kér listát?    ]"_s,
                           u"Munkahely kódja - tól"_s, u"Szemészet"_s,
                           u"Összesített lista az elvégzett beavatkozásokról"_s, u"u4"_s}};
    for (const Case& each : cases) {
        SCOPED_TRACE(each.menu);
        open(each.menu);
        previews.clear();
        for (const QString& text : {each.prompt, u"[    Időszak    ]"_s, u"[    Térítési kategória    ]"_s})
            EXPECT_TRUE(shows(text)) << text.toStdString();
        EXPECT_EQ(part("KodTol")->toolTip(), each.holds);
        EXPECT_EQ(focusName(), u"IdoszakTol"_s);
        EXPECT_EQ(part<QLineEdit>("IdoszakTol")->displayText(), u"    .  "_s);
        refused(u"Dátum: -tól kitöltése kötelező!"_s, u"IdoszakTol"_s);
        enter(u"200803"_s);
        refused(u"Dátum: -ig kitöltése kötelező!"_s, u"IdoszakIg"_s);
        enter(u"200803"_s);
        enter(each.code);
        EXPECT_EQ(label("KodTolNev"), each.name);
        typeText(u"x"_s);
        pressKey(Qt::Key_Up);
        typeText(u"0"_s); // another code has not that name
        EXPECT_EQ(label("KodTolNev"), QString());
        pressKey(Qt::Key_Down);
        enter(u"900000000"_s);
        EXPECT_EQ(focusName(), u"Terites"_s);
        enter(u"01"_s);
        EXPECT_EQ(label("TeritesNev"), u"biztosított járóbeteg (01)"_s);
        EXPECT_EQ(focusName(), u"CsakOsszesen"_s);
        pressKey(Qt::Key_Space); // no list reads it
        pressKey(Qt::Key_Return);
        pressKey(Qt::Key_Return);
        ASSERT_EQ(previews.size(), 1);
        EXPECT_TRUE(previews[0].contains(each.title));
        EXPECT_EQ(previews[0].filter(u"11041"_s).size(), 1);
        EXPECT_EQ(label("Allapot"), u"Lista kész!"_s);
    }
}

TEST_F(StatisticsScreen, TheUnitsPerformanceComesWithoutAsking) {
    open("haviosszmunk");
    ASSERT_EQ(previews.size(), 1);
    EXPECT_TRUE(previews[0].contains(u"Havi összesítő az orvosi rendelés teljesítményéről"_s));
    for (const char* name : {"IdoszakTol", "IdoszakIg", "KodTol", "KodIg", "Terites", "CsakOsszesen"})
        EXPECT_FALSE(enabled(name)) << name;
    EXPECT_EQ(focusName(), u"Feldolgozas"_s);
    pressKey(Qt::Key_Return);
    EXPECT_EQ(previews.size(), 2);
}

TEST_F(StatisticsScreen, IndividualPanel) {
    addSheet(test, 1, {{"SZEM_SZAM", "'111111110'"}, {"PaciensId", "1"}, {"VizDijOsszeg", "300"}},
             {{"'11041'", "1"}});
    struct Case {
        const char* menu;
        QString prompt, label, holds, code, title;
    };
    const Case cases[] = {{"egyktgki", u"[    Mely Eü.azonosítóra kér listát?    ]"_s, u"TAJ:"_s, u"TAJ:"_s,
                           u"111111110"_s, u"Egyéni szolgáltatás és ráfordított költség kimutatás"_s},
                          {"osszlisn", u"[    Mely munkahelyekre kér listát?    ]"_s, u"Kód:"_s,
                           u"Munkahely kódja"_s, u"010000001"_s,
                           u"Összesített lista az ellátott ambuláns és fekvőbeteg esetekről"_s},
                          {"vizdijstatmenu", u"[    Mely munkahelyekre kér listát?    ]"_s, u"Kód:"_s,
                           u"Munkahely kódja"_s, u"010000001"_s, u"Vizitdíj statisztika"_s}};
    for (const Case& each : cases) {
        SCOPED_TRACE(each.menu);
        open(each.menu);
        previews.clear();
        EXPECT_TRUE(shows(each.prompt) && shows(each.label));
        EXPECT_EQ(part("Kod")->accessibleName(), each.holds);
        refused(u"Dátum: -tól kitöltése kötelező!"_s, u"IdoszakTol"_s);
        enter(u"200803"_s);
        refused(u"Dátum: -ig kitöltése kötelező!"_s, u"IdoszakIg"_s);
        enter(u"200803"_s);
        refused(u"Munkahelykód kitöltése kötelező!"_s, u"Kod"_s);
        if (std::string_view(each.menu) == "egyktgki") {
            enter(u"9"_s);
            test.dialogue.expect(u"Nincs ilyen TAJ számú beteg!"_s);
            pressKey(Qt::Key_Return);
            EXPECT_TRUE(previews.isEmpty());
            pressKey(Qt::Key_Up);
        }
        enter(each.code);
        pressKey(Qt::Key_Return);
        ASSERT_EQ(previews.size(), 1);
        EXPECT_TRUE(previews[0].contains(each.title)) << previews[0].join(u'\n').toStdString();
        // The visit fees are of one unit or, with the tick, of all of them.
        auto* all = part<QCheckBox>("MindenMunkahely");
        ASSERT_EQ(all != nullptr, std::string_view(each.menu) == "vizdijstatmenu");
        if (all == nullptr) continue;
        part<QLineEdit>("Kod")->clear();
        all->setFocus();
        pressKey(Qt::Key_Space);
        EXPECT_FALSE(part("Kod")->isEnabled());
        pressKey(Qt::Key_Return);
        pressKey(Qt::Key_Return);
        ASSERT_EQ(previews.size(), 2);
        EXPECT_TRUE(previews[1].contains(u"Szakrendelő: Minden munkahely"_s));
    }
}

TEST_F(StatisticsScreen, ALongListCanBeBrokenOff) {
    test.data().executeScript("begin");
    for (int key = 1; key <= 8000; ++key)
        addSheet(test, key, {{"TERITES", "'01'"}}, {{"'11041'", "1"}});
    test.data().executeScript("commit");
    open("betforg");
    secondStep();
    enter(u"0"_s);
    enter(u"9"_s);
    EXPECT_EQ(focusName(), u"Feldolgozas"_s);
    // Read through before, as in an idle moment: every turn below is one of the list's.
    ASSERT_TRUE(confirmWhole(test.workstation, filesOfLists, {}, {}));

    // Esc, and no: it goes on. The window's cross, and yes: it ends.
    const QString question = u"Megszakítja a lista készítését?"_s;
    int turns = 0;
    test.workstation.serveEvents = [&] {
        QCoreApplication::processEvents();
        QThread::msleep(110); // the display is due at every turn
        switch (++turns) {
        case 1:
            EXPECT_EQ(label("Allapot"), u"Feldolgozás..."_s);
            EXPECT_FALSE(enabled("IdoszakTol") || enabled("Terites01") || enabled("Feldolgozas"));
            typeText(u"9"_s);
            test.dialogue.expectQuestion(question, Answer::no);
            pressKey(Qt::Key_Escape);
            break;
        case 2:
            EXPECT_TRUE(test.dialogue.allShown());
            break;
        case 3:
            EXPECT_TRUE(label("Adatlapok").endsWith(u" / 8000"_s));
            EXPECT_GT(part<QProgressBar>("Folyamat")->value(), 0);
            test.dialogue.expectQuestion(question, Answer::yes);
            EXPECT_FALSE(form->close());
            break;
        default:
            ADD_FAILURE() << "went on";
        }
    };
    pressKey(Qt::Key_Return);
    EXPECT_EQ(turns, 3);
    EXPECT_TRUE(form->isVisible());
    EXPECT_EQ(label("Allapot"), u"A lista készítése megszakítva."_s);
    EXPECT_TRUE(previews.isEmpty());
    for (const char* name : {"IdoszakTol", "Terites01", "KodIg", "Feldolgozas"})
        EXPECT_TRUE(enabled(name)) << name;
    EXPECT_EQ(focusName(), u"Feldolgozas"_s);

    test.workstation.serveEvents = [] { QCoreApplication::processEvents(); };
    pressKey(Qt::Key_Return);
    EXPECT_EQ(previews.size(), 1);
    EXPECT_EQ(label("Adatlapok"), u"8000 / 8000"_s);

    // The main window closed while it runs: no question, nothing opens.
    turns = 0;
    test.workstation.serveEvents = [&] {
        ++turns;
        opener.hide();
    };
    pressKey(Qt::Key_Return);
    EXPECT_EQ(turns, 1);
    EXPECT_EQ(previews.size(), 1);
}

} // namespace vandrel::test
