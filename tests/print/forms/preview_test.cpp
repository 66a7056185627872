// The preview and the print dialog under real keys: a document of the fixed meter, printers that only record.
#include "print/forms/frmPreview.h"
#include "print/forms/frmPrint.h"
#include "print/forms/print_at_once.h"
#include "print/forms/printing_watch.h"
#include "print/print_fault.h"
#include "support/keyboard.h"
#include "support/print_stand.h"
#include "support/test_workstation.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QScrollBar>
#include <QTimer>

#include <cerrno>

using namespace Qt::StringLiterals;

namespace vandrel::test {

namespace {

const QString printTitle = u"Nyomtatás"_s;

// Three pages on A4: 58 lines of 240 twips fit between the margins.
struct PreviewScreen {
    explicit PreviewScreen(int lines = 58 * 3) {
        document.setAppName(u"Havi lista"_s);
        for (int line = 1; line <= lines; ++line)
            document.AddText(u"sor %1"_s.arg(line), {.fontName = u"Arial"_s});
        ports.dialogue = &dialogue;
        ports.askSavePath = [this](QWidget*, const SaveQuestion& question) {
            asked = question;
            return answer;
        };
        stand.engine.busy = [this](bool busy) {
            if (!busy) return;
            ++drawn;
            if (const auto act = std::exchange(whileBusy, {})) act();
        };
    }

    void open() {
        window = std::make_unique<frmPreview>(document, ports);
        window->resize(1000, 700);
        window->show();
        QApplication::setActiveWindow(window.get());
        ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
        QCoreApplication::processEvents();
    }
    QPushButton* button(const char* name) { return window->findChild<QPushButton*>(QLatin1StringView(name)); }
    QComboBox* zooms() { return window->findChild<QComboBox*>(u"Nezet"_s); }
    QString status() { return window->findChild<QLabel*>(u"Oldal"_s)->text(); }
    QString note() { return window->findChild<QLabel*>(u"Uzenet"_s)->text(); }
    double factor() { return window->area().scaling().factor; }
    void typeZoom(const QString& text) {
        zooms()->setFocus();
        zooms()->lineEdit()->selectAll();
        typeText(text);
        pressKey(Qt::Key_Return);
    }
    // Ctrl+P, and what is done in the dialog.
    void print(const std::function<void(frmPrint&)>& act) {
        QApplication::setActiveWindow(window.get());
        bool shown = false;
        QTimer timer; // does not outlive what it looks at
        timer.setSingleShot(true);
        QObject::connect(&timer, &QTimer::timeout, [&] {
            auto* dialog = qobject_cast<frmPrint*>(QApplication::activeModalWidget());
            ASSERT_NE(dialog, nullptr);
            shown = true;
            QApplication::setActiveWindow(dialog);
            QCoreApplication::processEvents();
            act(*dialog);
            if (dialog->isVisible()) dialog->reject();
        });
        timer.start(0);
        pressKey(Qt::Key_P, Qt::ControlModifier);
        EXPECT_TRUE(shown);
        QApplication::setActiveWindow(window.get());
    }
    std::size_t pagesOfLastJob() const { return stand.printers.jobs.back()->pages.size(); }

    ExpectedDialogue dialogue;
    QTemporaryDir folder;
    PrintStand stand{{standPrinter(u"Irodai nyomtató"_s), standPrinter(u"Kis lapok"_s, 11906, 9000)}};
    qcPrinter document{stand.engine};
    PreviewPorts ports;
    SaveQuestion asked;
    std::optional<SaveAnswer> answer;
    int drawn = 0;                   // hourglasses: pages drawn and documents printed
    std::function<void()> whileBusy; // at the next hourglass
    std::unique_ptr<frmPreview> window;
};

} // namespace

TEST(PreviewWindow, PagesByKeysAndOnlyThoseLookedAtAreDrawn) {
    PreviewScreen screen;
    screen.open();
    EXPECT_EQ(screen.window->windowTitle(), u"Nyomtatás előnézet"_s);
    EXPECT_EQ(screen.drawn, 1);
    const auto expect = [&](const char* status, bool previous, bool next) {
        EXPECT_EQ(screen.status(), QLatin1StringView(status));
        EXPECT_EQ(screen.button("Elozo")->isEnabled(), previous) << status;
        EXPECT_EQ(screen.button("Kovetkezo")->isEnabled(), next) << status;
    };
    expect("1 / 3", false, true);
    pressKey(Qt::Key_PageUp);
    expect("1 / 3", false, true);
    pressKey(Qt::Key_PageDown);
    expect("2 / 3", true, true);
    pressKey(Qt::Key_PageDown);
    pressKey(Qt::Key_PageDown);
    expect("3 / 3", true, false);
    EXPECT_EQ(screen.drawn, 3);
    pressKey(Qt::Key_Home, Qt::ControlModifier);
    expect("1 / 3", false, true);
    pressKey(Qt::Key_End, Qt::ControlModifier);
    expect("3 / 3", true, false);
    screen.zooms()->setFocus(); // the keys go to pages from there too
    pressKey(Qt::Key_PageUp);
    expect("2 / 3", true, true);
    pressKey(Qt::Key_Home, Qt::ControlModifier);
    expect("1 / 3", false, true);
    screen.button("Kovetkezo")->setFocus();
    pressKey(Qt::Key_Return);
    expect("2 / 3", true, true);
    EXPECT_EQ(screen.zooms()->currentText(), u"100 %"_s);
    pressKey(Qt::Key_Escape);
    EXPECT_FALSE(screen.window->isVisible());

    PreviewScreen single(1);
    single.open();
    EXPECT_EQ(single.status(), u"1 / 1"_s);
    EXPECT_FALSE(single.button("Elozo")->isEnabled() || single.button("Kovetkezo")->isEnabled());
    EXPECT_FALSE(single.button("MentesTablazat")->isEnabled());
}

TEST(PreviewWindow, ZoomsAreChosenAndTyped) {
    PreviewScreen screen;
    screen.open();
    QStringList entries;
    for (int entry = 0; entry < screen.zooms()->count(); ++entry)
        entries << screen.zooms()->itemText(entry);
    EXPECT_EQ(entries.join(u'|'), u"100 %|75 %|50 %|Teljes oldal|Teljes szélesség"_s);

    struct Step {
        const char* typed;
        const char* shown;
        float zoom;
    };
    const Step steps[] = {{"200", "200 %", 200},      {"201", "200 %", 200}, {"0", "200 %", 200},
                          {"62,5 %", "62,5 %", 62.5}, {"", "62,5 %", 62.5},  {"75", "75 %", 75},
                          {"abc", "75 %", 75}};
    for (const Step& step : steps) {
        screen.typeZoom(QString::fromUtf8(step.typed));
        EXPECT_EQ(screen.zooms()->currentText(), QString::fromUtf8(step.shown)) << step.typed;
        EXPECT_EQ(screen.window->zoom(), step.zoom) << step.typed;
        EXPECT_DOUBLE_EQ(screen.factor(), double{step.zoom} / 100) << step.typed;
    }
    EXPECT_EQ(screen.drawn, 4); // a refused or repeated zoom draws nothing

    // By the list's own keys: the third and the fourth entry.
    pressKey(Qt::Key_Down);
    EXPECT_DOUBLE_EQ(screen.factor(), 0.5);
    pressKey(Qt::Key_Down);
    EXPECT_EQ(screen.window->zoom(), preview::wholePage);
    EXPECT_DOUBLE_EQ(screen.factor(), (screen.window->area().height() * 15 - 480) / 16838.0);
    screen.typeZoom(u"x"_s);
    EXPECT_EQ(screen.zooms()->currentText(), u"Teljes oldal"_s);
    // What was typed without Enter goes when the field is left.
    screen.zooms()->lineEdit()->selectAll();
    typeText(u"120"_s);
    screen.window->area().setFocus();
    QCoreApplication::processEvents();
    EXPECT_EQ(screen.zooms()->currentText(), u"Teljes oldal"_s);
    // The window is resized: the whole page follows.
    screen.window->resize(1000, 500);
    QCoreApplication::processEvents();
    EXPECT_DOUBLE_EQ(screen.factor(), (screen.window->area().height() * 15 - 480) / 16838.0);
    EXPECT_FALSE(screen.window->area().verticalBar()->isVisible());
}

TEST(PreviewWindow, ScrollsAndDrawsAtTheZoomsOwnResolution) {
    PreviewScreen screen(1);
    (*screen.document.TextItem().begin()).setUnderlineAll(1); // 2.4 twips: under a pixel at every zoom
    screen.open();
    screen.typeZoom(u"200"_s);
    PreviewArea& area = screen.window->area();
    area.setFocus();
    const preview::Scaling& scaling = area.scaling();
    EXPECT_EQ(area.verticalBar()->maximum(),
              preview::scrollRange(16838 * 2 + 480, scaling.view.height).maximum);
    EXPECT_EQ(area.pageCorner(), QPointF(16, 16));
    const QImage picture = screen.window->grab(QRect(area.pos(), area.size())).toImage();
    // Through the line, left of its end: one row of pixels, not two of a picture blown up.
    const int column = 16 + (11906 / 2) * 2 / 15;
    int dark = 0;
    for (int row = 16; row < picture.height() - 20; ++row)
        if (qGray(picture.pixel(column, row)) < 250) ++dark;
    EXPECT_EQ(dark, 1);

    pressKey(Qt::Key_Down);
    pressKey(Qt::Key_Right);
    EXPECT_EQ(area.verticalBar()->value(), 14);
    EXPECT_EQ(area.horizontalBar()->value(), 14);
    EXPECT_EQ(area.pageCorner(), QPointF(std::round(16 - 14 * 0.96), std::round(16 - 14 * 0.96)));
    pressKey(Qt::Key_End);
    EXPECT_EQ(area.verticalBar()->value(), area.verticalBar()->maximum());
    QTest::mouseClick(area.verticalBar(), Qt::LeftButton);
    EXPECT_TRUE(area.hasFocus());
    screen.typeZoom(u"150"_s);
    EXPECT_EQ(area.verticalBar()->value(), 0);
}

TEST(PrintDialog, OptionsRangeAndPrinters) {
    PreviewScreen screen;
    screen.open();
    pressKey(Qt::Key_PageDown);
    screen.print([](frmPrint& dialog) {
        EXPECT_EQ(dialog.windowTitle(), u"Nyomtató beállítás"_s);
        EXPECT_EQ(dialog.findChild<QLabel*>(u"Oldal"_s)->text(), u"2 / 3"_s);
        EXPECT_EQ(dialog.findChild<QComboBox*>(u"PrinterNumber"_s)->itemText(1), u"Kis lapok on LPT1"_s);
        EXPECT_EQ(focusName(), u"PrintDoc"_s);
        pressKey(Qt::Key_Escape);
    });
    EXPECT_TRUE(screen.stand.printers.jobs.empty());
    screen.print([](frmPrint&) { pressKey(Qt::Key_Return); });
    ASSERT_EQ(screen.stand.printers.jobs.size(), 1U);
    EXPECT_TRUE(screen.stand.printers.jobs.back()->ended);
    EXPECT_EQ(screen.pagesOfLastJob(), 3U);
    EXPECT_EQ(screen.stand.printers.jobs.back()->setup.title, u"Havi lista"_s);
    EXPECT_EQ(screen.note(), u"Kinyomtatva: 3 oldal"_s);

    screen.print([&](frmPrint& dialog) {
        const auto text = [&](const char* name) {
            return dialog.findChild<QLineEdit*>(QLatin1StringView(name))->text();
        };
        auto* from = dialog.findChild<QLineEdit*>(u"PageStart"_s);
        dialog.findChild<QRadioButton*>(u"MindenOldal"_s)->setFocus();
        pressKey(Qt::Key_Down);
        EXPECT_EQ(text("PageStart") + text("PageEnd"), u"22"_s);
        EXPECT_FALSE(from->isEnabled());
        pressKey(Qt::Key_Down);
        EXPECT_EQ(text("PageStart") + text("PageEnd"), u"13"_s);
        pressKey(Qt::Key_Return);
        EXPECT_EQ(focusName(), u"PageStart"_s);
        typeText(u"3x"_s);
        pressKey(Qt::Key_Return);
        typeText(u"2"_s);
        pressKey(Qt::Key_Down);
        EXPECT_EQ(focusName(), u"Copies"_s);
        pressKey(Qt::Key_Delete);
        pressKey(Qt::Key_Return);
        EXPECT_EQ(focusName(), u"Collate"_s);
        pressKey(Qt::Key_Return);
        screen.dialogue.expect(u"Please enter a valid page range."_s, u"Range Error"_s, Icon::warning);
        pressKey(Qt::Key_Return);
        EXPECT_TRUE(dialog.isVisible());
        EXPECT_EQ(focusName(), u"PageStart"_s);
        typeText(u"2"_s);
        dialog.findChild<QPushButton*>(u"PrintDoc"_s)->setFocus();
        pressKey(Qt::Key_Return);
        EXPECT_EQ(dialog.Copies(), 0);
    });
    ASSERT_EQ(screen.stand.printers.jobs.size(), 2U);
    EXPECT_EQ(screen.pagesOfLastJob(), 1U);
    EXPECT_EQ(screen.stand.printers.jobs.back()->pages[0].texts[0].text, u"sor 59"_s);

    // A click into a closed range field chooses the range.
    screen.print([](frmPrint& dialog) {
        auto* to = dialog.findChild<QLineEdit*>(u"PageEnd"_s);
        QTest::mouseClick(to, Qt::LeftButton);
        EXPECT_TRUE(dialog.findChild<QRadioButton*>(u"Oldaltartomany"_s)->isChecked());
        EXPECT_EQ(focusName(), u"PageEnd"_s);
    });

    // Another printer with smaller paper: all pages still means all, in copies page by page.
    screen.print([](frmPrint& dialog) {
        dialog.findChild<QComboBox*>(u"PrinterNumber"_s)->setFocus();
        pressKey(Qt::Key_Down);
        dialog.findChild<QLineEdit*>(u"Copies"_s)->setText(u"2"_s);
        dialog.findChild<QCheckBox*>(u"Collate"_s)->setFocus();
        pressKey(Qt::Key_Space);
        dialog.findChild<QPushButton*>(u"PrintDoc"_s)->setFocus();
        pressKey(Qt::Key_Return);
    });
    ASSERT_EQ(screen.stand.printers.jobs.size(), 3U);
    const auto& job = *screen.stand.printers.jobs.back();
    EXPECT_EQ(job.setup.printer, 1);
    EXPECT_EQ(screen.status(), u"2 / 7"_s); // 25 lines a page
    ASSERT_EQ(job.pages.size(), 14U);
    EXPECT_EQ(job.pages[1].texts[0].text, u"sor 1"_s);
    EXPECT_EQ(job.pages[13].texts.back().text, u"sor 174"_s);

    // The file is the last choice of the list: the chosen pages go into it, and no printer gets anything.
    screen.answer = SaveAnswer{screen.folder.filePath(u"egy oldal"_s), 0};
    screen.print([](frmPrint& dialog) {
        auto* list = dialog.findChild<QComboBox*>(u"PrinterNumber"_s);
        EXPECT_EQ(list->itemText(list->count() - 1), u"PDF fájl"_s);
        list->setCurrentIndex(list->count() - 1);
        dialog.findChild<QRadioButton*>(u"AktualisOldal"_s)->setChecked(true);
        dialog.findChild<QPushButton*>(u"PrintDoc"_s)->setFocus();
        pressKey(Qt::Key_Return);
        EXPECT_EQ(dialog.PrinterNumber(), 1);
    });
    EXPECT_EQ(screen.stand.printers.jobs.size(), 3U);
    EXPECT_EQ(fileBytes(screen.folder.filePath(u"egy oldal.pdf"_s)).count("/Type /Page\n"), 1);

    // Without its bits the dialog keeps the printer in use and has one frame.
    screen.document.setPrintOptions(0);
    screen.print([](frmPrint& dialog) {
        EXPECT_FALSE(dialog.findChild<QComboBox*>(u"PrinterNumber"_s)->isVisible());
        EXPECT_FALSE(dialog.findChild<QLineEdit*>(u"Copies"_s)->isVisible());
        EXPECT_EQ(dialog.PrinterNumber(), 1);
    });
}

TEST(PreviewWindow, TellsWhatTheDocumentLeavesOut) {
    PreviewScreen screen;
    screen.document.setPreviewNote(u"3 adatlap nem volt olvasható"_s);
    screen.open();
    EXPECT_EQ(screen.note(), u"3 adatlap nem volt olvasható"_s);
    pressKey(Qt::Key_PageDown);
    EXPECT_EQ(screen.note(), u"3 adatlap nem volt olvasható"_s);
    screen.document.ResetItems();
    EXPECT_EQ(screen.document.PreviewNote(), QString());
}

TEST(PrintAtOnce, PrintsAllPagesOrTellsWhyNot) {
    PreviewScreen screen;
    EXPECT_TRUE(printAtOnce(screen.document, screen.dialogue, nullptr));
    ASSERT_EQ(screen.stand.printers.jobs.size(), 1U);
    EXPECT_EQ(screen.pagesOfLastJob(), 3U);
    EXPECT_TRUE(screen.stand.printers.jobs.back()->ended);

    screen.stand.printers.entries[0].faultyPage = 2;
    screen.dialogue.expect(u"Hiba lépett fel a nyomtatás során! 57\nA nyomtató hibát jelzett."_s, printTitle,
                           Icon::warning);
    EXPECT_FALSE(printAtOnce(screen.document, screen.dialogue, nullptr));
    screen.stand.printers.entries.clear();
    screen.dialogue.expect(u"Nincs telepítve nyomtató, Ambuláns adatlap nem nyomtatható ki!"_s, printTitle);
    EXPECT_FALSE(printAtOnce(screen.document, screen.dialogue, nullptr));
    EXPECT_TRUE(screen.dialogue.allShown());
}

TEST(PreviewWindow, StaysWithTheDocumentWhenPrintingFails) {
    PreviewScreen screen;
    screen.open();
    const auto print = [&] { screen.print([](frmPrint&) { pressKey(Qt::Key_Return); }); };
    screen.stand.printers.entries[0].vanished = true;
    screen.dialogue.expect(u"Nincs telepítve nyomtató, Ambuláns adatlap nem nyomtatható ki!"_s, printTitle,
                           Icon::warning);
    print();
    screen.stand.printers.entries[0].vanished = false;
    screen.stand.printers.entries[0].faultyPage = 2;
    screen.dialogue.expect(u"Hiba lépett fel a nyomtatás során! 57\nA nyomtató hibát jelzett."_s, printTitle,
                           Icon::warning);
    print();
    EXPECT_FALSE(screen.stand.printers.jobs.back()->ended);
    EXPECT_EQ(screen.status(), u"1 / 3"_s);
    EXPECT_TRUE(screen.button("Nyomtat")->isEnabled());
    EXPECT_FALSE(screen.stand.engine.pagePrinted);
    screen.stand.printers.entries[0].faultyPage = 0;

    // Closed for everything while it prints.
    QString status;
    bool open = true;
    screen.print([&](frmPrint&) {
        screen.whileBusy = [&] {
            status = screen.status();
            open = screen.button("Nyomtat")->isEnabled();
            screen.window->close();
            screen.window->reject();
        };
        pressKey(Qt::Key_Return);
    });
    EXPECT_EQ(status, u"Nyomtatás..."_s);
    EXPECT_FALSE(open);
    EXPECT_TRUE(screen.window->isVisible());
    EXPECT_TRUE(screen.stand.printers.jobs.back()->ended);
    EXPECT_EQ(screen.status(), u"1 / 3"_s);

    // The owner may want to hear of faults himself.
    int number = 0;
    screen.ports.fault = [&](const Fault& fault) { number = fault.number(); };
    screen.stand.printers.entries[0].vanished = true;
    print();
    EXPECT_EQ(number, 482);
}

TEST(PreviewWindow, LongPrintingTakesNoInputButAsksBeforeItStops) {
    PrintStand stand;
    ExpectedDialogue dialogue;
    QLineEdit field;
    field.show();
    QApplication::setActiveWindow(&field);
    ASSERT_TRUE(QTest::qWaitForWindowActive(&field));
    const auto post = [&](int key, const QString& text) {
        QCoreApplication::postEvent(&field, new QKeyEvent(QEvent::KeyPress, key, Qt::NoModifier, text));
    };
    stand.engine.pagePrinted = [](int, int) { return false; };
    QList<int> shown;
    {
        PrintingWatch watch(stand.engine, dialogue, [&](int done, int) { shown << done; });
        EXPECT_TRUE(stand.engine.pagePrinted(1, 9));
        QTest::qSleep(60);
        post(Qt::Key_A, u"a"_s);
        EXPECT_TRUE(stand.engine.pagePrinted(2, 9));
        const QString question = u"Megszakítja a nyomtatást?"_s;
        post(Qt::Key_Escape, {});
        dialogue.expectQuestion(question, Answer::no, printTitle);
        QTest::qSleep(60);
        EXPECT_TRUE(stand.engine.pagePrinted(3, 9));
        EXPECT_TRUE(dialogue.allShown());
        QTimer::singleShot(0, &field, &QWidget::close);
        dialogue.expectQuestion(question, Answer::yes, printTitle);
        QTest::qSleep(60);
        EXPECT_FALSE(stand.engine.pagePrinted(4, 9));
        post(Qt::Key_B, u"b"_s);
    }
    EXPECT_TRUE(field.isVisible());
    EXPECT_EQ(field.text(), QString());
    EXPECT_EQ(shown.value(0), 1);
    EXPECT_GT(shown.size(), 1);
    EXPECT_FALSE(stand.engine.pagePrinted(1, 1)); // the one that was set before
    post(Qt::Key_C, u"c"_s);
    QCoreApplication::processEvents();
    EXPECT_EQ(field.text(), u"c"_s);
}

TEST(PreviewWindow, SavesAsPdf) {
    PreviewScreen screen;
    screen.open();
    const auto save = [] { pressKey(Qt::Key_S, Qt::ControlModifier); };
    const QString path = screen.folder.filePath(u"Őszi lista"_s);
    save(); // given up
    EXPECT_EQ(QFileInfo(screen.asked.suggestion).fileName(), u"Havi lista.pdf"_s);
    screen.answer = SaveAnswer{path, 0};
    save();
    const QString file = path + u".pdf"_s;
    const QByteArray first = fileBytes(file);
    EXPECT_TRUE(first.startsWith("%PDF"));
    EXPECT_EQ(first.count("/Type /Page\n"), 3);
    EXPECT_EQ(screen.note(), u"Mentve: Őszi lista.pdf"_s);

    // An earlier file goes only when the user says so, and the folder is remembered.
    const QString question = u"A(z) \"Őszi lista.pdf\" fájl már létezik. Felülírja?"_s;
    screen.document.AddText(u"még egy"_s, {.fontName = u"Arial"_s});
    screen.dialogue.expectQuestion(question, Answer::no, u"Mentés PDF-be"_s, Icon::warning);
    save();
    EXPECT_EQ(fileBytes(file), first);
    EXPECT_EQ(QFileInfo(screen.asked.suggestion).absolutePath(), screen.folder.path());
    screen.dialogue.expectQuestion(question, Answer::yes, u"Mentés PDF-be"_s, Icon::warning);
    save();
    EXPECT_EQ(fileBytes(file).count("/Type /Page\n"), 4);

    const QString nowhere = screen.folder.filePath(u"nincs/lista.pdf"_s);
    screen.answer = SaveAnswer{nowhere, 0};
    const QString failed = u"A fájl mentése nem sikerült! 76\n"_s + fileFault(ENOENT, nowhere).text();
    screen.dialogue.expect(failed, u"Mentés PDF-be"_s, Icon::warning);
    save();
    EXPECT_EQ(screen.note(), QString());
    EXPECT_EQ(screen.document.ItemCount(), 58 * 3 + 1);
    EXPECT_TRUE(screen.button("MentesPdf")->isEnabled());
}

TEST(PreviewWindow, SavesTheTableInTheChosenEncoding) {
    PreviewScreen screen;
    screen.document.setSaveName(u"Márciusi lista"_s);
    screen.document.table().addRow({u"Név"_s, u"Összeg"_s});
    screen.document.table().addRow({u"Őri 雪"_s, u"1,5"_s});
    screen.open();
    const auto save = [] { pressKey(Qt::Key_T, Qt::ControlModifier); };
    const QString path = screen.folder.filePath(u"tábla.csv"_s);
    screen.answer = SaveAnswer{path, 2};
    const QString question =
        u"A választott kódolásban 1 karakter nem írható le, helyükre kérdőjel kerül. Folytatja a mentést?"_s;
    screen.dialogue.expectQuestion(question, Answer::no, u"Mentés táblázatba"_s, Icon::warning);
    save();
    EXPECT_FALSE(QFile::exists(path));
    EXPECT_EQ(screen.asked.filters.size(), 3);
    EXPECT_EQ(QFileInfo(screen.asked.suggestion).fileName(), u"Márciusi lista.xlsx"_s);
    screen.dialogue.expectQuestion(question, Answer::yes, u"Mentés táblázatba"_s, Icon::warning);
    save();
    EXPECT_EQ(fileBytes(path), QByteArray("N\xE9v;\xD6sszeg\r\n\xD5ri ?;1,5\r\n"));
    const QString other = screen.folder.filePath(u"utf"_s);
    screen.answer = SaveAnswer{other, 1};
    save();
    EXPECT_EQ(fileBytes(other + u".csv"_s),
              QByteArray("\xEF\xBB\xBF") + u"Név;Összeg\r\nŐri 雪;1,5\r\n"_s.toUtf8());
    EXPECT_EQ(screen.note(), u"Mentve: utf.csv"_s);

    // The workbook is the first choice; a typed ending says more than the type that was left chosen.
    screen.answer = SaveAnswer{screen.folder.filePath(u"könyv"_s), 0};
    save();
    EXPECT_TRUE(fileBytes(screen.folder.filePath(u"könyv.xlsx"_s)).startsWith("PK"));
    EXPECT_EQ(screen.note(), u"Mentve: könyv.xlsx"_s);
    screen.answer = SaveAnswer{screen.folder.filePath(u"mégis.CSV"_s), 0};
    save();
    EXPECT_EQ(fileBytes(screen.folder.filePath(u"mégis.CSV"_s)), fileBytes(other + u".csv"_s));
    const QString nowhere = screen.folder.filePath(u"nincs/lista.xlsx"_s);
    screen.answer = SaveAnswer{nowhere, 0};
    screen.dialogue.expect(u"A fájl mentése nem sikerült! 76\n"_s + fileFault(ENOENT, nowhere).text(),
                           u"Mentés táblázatba"_s, Icon::warning);
    save();
}

TEST(PreviewWindow, IsModalAndStandsWhereItStood) {
    PreviewScreen screen;
    screen.document.Preview(); // no window: nothing happens
    installPreview(screen.stand.engine, screen.dialogue);
    const auto preview = [&](const std::function<void(frmPreview&)>& act) {
        bool shown = false;
        QTimer timer;
        timer.setSingleShot(true);
        QObject::connect(&timer, &QTimer::timeout, [&] {
            auto* window = qobject_cast<frmPreview*>(QApplication::activeModalWidget());
            ASSERT_NE(window, nullptr);
            shown = true;
            act(*window);
            QTest::keyClick(window, Qt::Key_Escape);
        });
        timer.start(0);
        screen.document.Preview();
        EXPECT_TRUE(shown);
    };
    const PreviewPlacement& placement = screen.document.previewPlacement();
    preview([](frmPreview& window) {
        const QPoint off =
            window.pos() + window.rect().center() - window.screen()->availableGeometry().center();
        EXPECT_LE(off.manhattanLength(), 2);
        window.resize(950, 480);
        window.move(30, 40);
    });
    EXPECT_EQ(placement.state, 0);
    preview([](frmPreview& window) {
        EXPECT_EQ(window.pos(), QPoint(30, 40));
        EXPECT_EQ(window.size(), QSize(950, 480));
        window.showMaximized();
    });
    EXPECT_EQ(placement.state, 2);
    EXPECT_EQ(placement.width, 950);
    preview([](frmPreview& window) {
        EXPECT_TRUE(window.isMaximized());
        window.showNormal();
    });
    EXPECT_EQ(placement.state, 0);
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

} // namespace vandrel::test
