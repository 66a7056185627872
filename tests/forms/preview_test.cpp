// The preview and the print dialog under real keys: a document of the fixed meter, printers that only record.
#include "print/forms/frmPreview.h"
#include "print/forms/frmPrint.h"
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

namespace vandrel::test {

namespace {

const QString printTitle = QStringLiteral("Nyomtatás");

// Three pages on A4: 58 lines of 240 twips fit between the margins.
struct PreviewScreen {
    explicit PreviewScreen(int lines = 58 * 3) {
        document.setAppName(QStringLiteral("Havi lista"));
        for (int line = 1; line <= lines; ++line)
            document.AddText(QStringLiteral("sor %1").arg(line), {.fontName = QStringLiteral("Arial")});
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
    QPushButton* button(const char* name) { return window->findChild<QPushButton*>(QLatin1String(name)); }
    QComboBox* zooms() { return window->findChild<QComboBox*>(QStringLiteral("Nezet")); }
    QString status() { return window->findChild<QLabel*>(QStringLiteral("Oldal"))->text(); }
    QString note() { return window->findChild<QLabel*>(QStringLiteral("Uzenet"))->text(); }
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
    PrintStand stand{{standPrinter(QStringLiteral("Irodai nyomtató")),
                      standPrinter(QStringLiteral("Kis lapok"), 11906, 9000)}};
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
    EXPECT_EQ(screen.window->windowTitle(), QStringLiteral("Nyomtatás előnézet"));
    EXPECT_EQ(screen.drawn, 1);
    const auto expect = [&](const char* status, bool previous, bool next) {
        EXPECT_EQ(screen.status(), QLatin1String(status));
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
    EXPECT_EQ(screen.zooms()->currentText(), QStringLiteral("100 %"));
    pressKey(Qt::Key_Escape);
    EXPECT_FALSE(screen.window->isVisible());

    PreviewScreen single(1);
    single.open();
    EXPECT_EQ(single.status(), QStringLiteral("1 / 1"));
    EXPECT_FALSE(single.button("Elozo")->isEnabled() || single.button("Kovetkezo")->isEnabled());
    EXPECT_FALSE(single.button("MentesTablazat")->isEnabled());
}

TEST(PreviewWindow, ZoomsAreChosenAndTyped) {
    PreviewScreen screen;
    screen.open();
    QStringList entries;
    for (int entry = 0; entry < screen.zooms()->count(); ++entry)
        entries << screen.zooms()->itemText(entry);
    EXPECT_EQ(entries.join(u'|'), QStringLiteral("100 %|75 %|50 %|Teljes oldal|Teljes szélesség"));

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
    screen.typeZoom(QStringLiteral("x"));
    EXPECT_EQ(screen.zooms()->currentText(), QStringLiteral("Teljes oldal"));
    // What was typed without Enter goes when the field is left.
    screen.zooms()->lineEdit()->selectAll();
    typeText(QStringLiteral("120"));
    screen.window->area().setFocus();
    QCoreApplication::processEvents();
    EXPECT_EQ(screen.zooms()->currentText(), QStringLiteral("Teljes oldal"));
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
    screen.typeZoom(QStringLiteral("200"));
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
    screen.typeZoom(QStringLiteral("150"));
    EXPECT_EQ(area.verticalBar()->value(), 0);
}

TEST(PrintDialog, OptionsRangeAndPrinters) {
    PreviewScreen screen;
    screen.open();
    pressKey(Qt::Key_PageDown);
    screen.print([](frmPrint& dialog) {
        EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Nyomtató beállítás"));
        EXPECT_EQ(dialog.findChild<QLabel*>(QStringLiteral("Oldal"))->text(), QStringLiteral("2 / 3"));
        EXPECT_EQ(dialog.findChild<QComboBox*>(QStringLiteral("PrinterNumber"))->itemText(1),
                  QStringLiteral("Kis lapok on LPT1"));
        EXPECT_EQ(focusName(), QStringLiteral("PrintDoc"));
        pressKey(Qt::Key_Escape);
    });
    EXPECT_TRUE(screen.stand.printers.jobs.empty());
    screen.print([](frmPrint&) { pressKey(Qt::Key_Return); });
    ASSERT_EQ(screen.stand.printers.jobs.size(), 1U);
    EXPECT_TRUE(screen.stand.printers.jobs.back()->ended);
    EXPECT_EQ(screen.pagesOfLastJob(), 3U);
    EXPECT_EQ(screen.stand.printers.jobs.back()->setup.title, QStringLiteral("Havi lista"));

    screen.print([&](frmPrint& dialog) {
        const auto text = [&](const char* name) {
            return dialog.findChild<QLineEdit*>(QLatin1String(name))->text();
        };
        auto* from = dialog.findChild<QLineEdit*>(QStringLiteral("PageStart"));
        dialog.findChild<QRadioButton*>(QStringLiteral("MindenOldal"))->setFocus();
        pressKey(Qt::Key_Down);
        EXPECT_EQ(text("PageStart") + text("PageEnd"), QStringLiteral("22"));
        EXPECT_FALSE(from->isEnabled());
        pressKey(Qt::Key_Down);
        EXPECT_EQ(text("PageStart") + text("PageEnd"), QStringLiteral("13"));
        pressKey(Qt::Key_Return);
        EXPECT_EQ(focusName(), QStringLiteral("PageStart"));
        typeText(QStringLiteral("3x"));
        pressKey(Qt::Key_Return);
        typeText(QStringLiteral("2"));
        pressKey(Qt::Key_Down);
        EXPECT_EQ(focusName(), QStringLiteral("Copies"));
        pressKey(Qt::Key_Delete);
        pressKey(Qt::Key_Return);
        EXPECT_EQ(focusName(), QStringLiteral("Collate"));
        pressKey(Qt::Key_Return);
        screen.dialogue.expect(QStringLiteral("Please enter a valid page range."),
                               QStringLiteral("Range Error"), Icon::warning);
        pressKey(Qt::Key_Return);
        EXPECT_TRUE(dialog.isVisible());
        EXPECT_EQ(focusName(), QStringLiteral("PageStart"));
        typeText(QStringLiteral("2"));
        dialog.findChild<QPushButton*>(QStringLiteral("PrintDoc"))->setFocus();
        pressKey(Qt::Key_Return);
        EXPECT_EQ(dialog.Copies(), 0);
    });
    ASSERT_EQ(screen.stand.printers.jobs.size(), 2U);
    EXPECT_EQ(screen.pagesOfLastJob(), 1U);
    EXPECT_EQ(screen.stand.printers.jobs.back()->pages[0].texts[0].text, QStringLiteral("sor 59"));

    // A click into a closed range field chooses the range.
    screen.print([](frmPrint& dialog) {
        auto* to = dialog.findChild<QLineEdit*>(QStringLiteral("PageEnd"));
        QTest::mouseClick(to, Qt::LeftButton);
        EXPECT_TRUE(dialog.findChild<QRadioButton*>(QStringLiteral("Oldaltartomany"))->isChecked());
        EXPECT_EQ(focusName(), QStringLiteral("PageEnd"));
    });

    // Another printer with smaller paper: all pages still means all, in copies page by page.
    screen.print([](frmPrint& dialog) {
        dialog.findChild<QComboBox*>(QStringLiteral("PrinterNumber"))->setFocus();
        pressKey(Qt::Key_Down);
        dialog.findChild<QLineEdit*>(QStringLiteral("Copies"))->setText(QStringLiteral("2"));
        dialog.findChild<QCheckBox*>(QStringLiteral("Collate"))->setFocus();
        pressKey(Qt::Key_Space);
        dialog.findChild<QPushButton*>(QStringLiteral("PrintDoc"))->setFocus();
        pressKey(Qt::Key_Return);
    });
    ASSERT_EQ(screen.stand.printers.jobs.size(), 3U);
    const auto& job = *screen.stand.printers.jobs.back();
    EXPECT_EQ(job.setup.printer, 1);
    EXPECT_EQ(screen.status(), QStringLiteral("2 / 7")); // 25 lines a page
    ASSERT_EQ(job.pages.size(), 14U);
    EXPECT_EQ(job.pages[1].texts[0].text, QStringLiteral("sor 1"));
    EXPECT_EQ(job.pages[13].texts.back().text, QStringLiteral("sor 174"));

    // Without its bits the dialog keeps the printer in use and has one frame.
    screen.document.setPrintOptions(0);
    screen.print([](frmPrint& dialog) {
        EXPECT_FALSE(dialog.findChild<QComboBox*>(QStringLiteral("PrinterNumber"))->isVisible());
        EXPECT_FALSE(dialog.findChild<QLineEdit*>(QStringLiteral("Copies"))->isVisible());
        EXPECT_EQ(dialog.PrinterNumber(), 1);
    });
}

TEST(PreviewWindow, StaysWithTheDocumentWhenPrintingFails) {
    PreviewScreen screen;
    screen.open();
    const auto print = [&] { screen.print([](frmPrint&) { pressKey(Qt::Key_Return); }); };
    screen.stand.printers.entries[0].vanished = true;
    screen.dialogue.expect(QStringLiteral("Nincs telepítve nyomtató, Ambuláns adatlap nem nyomtatható ki!"),
                           printTitle, Icon::warning);
    print();
    screen.stand.printers.entries[0].vanished = false;
    screen.stand.printers.entries[0].faultyPage = 2;
    screen.dialogue.expect(QStringLiteral("Hiba lépett fel a nyomtatás során! 57\nA nyomtató hibát jelzett."),
                           printTitle, Icon::warning);
    print();
    EXPECT_FALSE(screen.stand.printers.jobs.back()->ended);
    EXPECT_EQ(screen.status(), QStringLiteral("1 / 3"));
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
    EXPECT_EQ(status, QStringLiteral("Nyomtatás..."));
    EXPECT_FALSE(open);
    EXPECT_TRUE(screen.window->isVisible());
    EXPECT_TRUE(screen.stand.printers.jobs.back()->ended);
    EXPECT_EQ(screen.status(), QStringLiteral("1 / 3"));

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
        post(Qt::Key_A, QStringLiteral("a"));
        EXPECT_TRUE(stand.engine.pagePrinted(2, 9));
        const QString question = QStringLiteral("Megszakítja a nyomtatást?");
        post(Qt::Key_Escape, {});
        dialogue.expectQuestion(question, Answer::no, printTitle);
        QTest::qSleep(60);
        EXPECT_TRUE(stand.engine.pagePrinted(3, 9));
        EXPECT_TRUE(dialogue.allShown());
        QTimer::singleShot(0, &field, &QWidget::close);
        dialogue.expectQuestion(question, Answer::yes, printTitle);
        QTest::qSleep(60);
        EXPECT_FALSE(stand.engine.pagePrinted(4, 9));
        post(Qt::Key_B, QStringLiteral("b"));
    }
    EXPECT_TRUE(field.isVisible());
    EXPECT_EQ(field.text(), QString());
    EXPECT_EQ(shown.value(0), 1);
    EXPECT_GT(shown.size(), 1);
    EXPECT_FALSE(stand.engine.pagePrinted(1, 1)); // the one that stood there before
    post(Qt::Key_C, QStringLiteral("c"));
    QCoreApplication::processEvents();
    EXPECT_EQ(field.text(), QStringLiteral("c"));
}

TEST(PreviewWindow, SavesAsPdf) {
    PreviewScreen screen;
    screen.open();
    const auto save = [] { pressKey(Qt::Key_S, Qt::ControlModifier); };
    const QString path = screen.folder.filePath(QStringLiteral("Őszi lista"));
    save(); // given up
    EXPECT_EQ(QFileInfo(screen.asked.suggestion).fileName(), QStringLiteral("Havi lista.pdf"));
    screen.answer = SaveAnswer{path, 0};
    save();
    const QString file = path + QStringLiteral(".pdf");
    const QByteArray first = fileBytes(file);
    EXPECT_TRUE(first.startsWith("%PDF"));
    EXPECT_EQ(first.count("/Type /Page\n"), 3);
    EXPECT_EQ(screen.note(), QStringLiteral("Mentve: Őszi lista.pdf"));

    // An earlier file goes only when the user says so, and the folder is remembered.
    const QString question = QStringLiteral("A(z) \"Őszi lista.pdf\" fájl már létezik. Felülírja?");
    screen.document.AddText(QStringLiteral("még egy"), {.fontName = QStringLiteral("Arial")});
    screen.dialogue.expectQuestion(question, Answer::no, QStringLiteral("Mentés PDF-be"), Icon::warning);
    save();
    EXPECT_EQ(fileBytes(file), first);
    EXPECT_EQ(QFileInfo(screen.asked.suggestion).absolutePath(), screen.folder.path());
    screen.dialogue.expectQuestion(question, Answer::yes, QStringLiteral("Mentés PDF-be"), Icon::warning);
    save();
    EXPECT_EQ(fileBytes(file).count("/Type /Page\n"), 4);

    const QString nowhere = screen.folder.filePath(QStringLiteral("nincs/lista.pdf"));
    screen.answer = SaveAnswer{nowhere, 0};
    screen.dialogue.expect(printFaultText(fileFault(ENOENT, nowhere)), printTitle, Icon::warning);
    save();
    EXPECT_EQ(screen.note(), QString());
    EXPECT_EQ(screen.document.ItemCount(), 58 * 3 + 1);
    EXPECT_TRUE(screen.button("MentesPdf")->isEnabled());
}

TEST(PreviewWindow, SavesTheTableInTheChosenEncoding) {
    PreviewScreen screen;
    screen.document.table().addRow({QStringLiteral("Név"), QStringLiteral("Összeg")});
    screen.document.table().addRow({QStringLiteral("Őri 雪"), QStringLiteral("1,5")});
    screen.open();
    const auto save = [] { pressKey(Qt::Key_T, Qt::ControlModifier); };
    const QString path = screen.folder.filePath(QStringLiteral("tábla.csv"));
    screen.answer = SaveAnswer{path, 1};
    const QString question = QStringLiteral(
        "A választott kódolásban 1 karakter nem írható le, helyükre kérdőjel kerül. Folytatja a mentést?");
    screen.dialogue.expectQuestion(question, Answer::no, QStringLiteral("Mentés táblázatba"), Icon::warning);
    save();
    EXPECT_FALSE(QFile::exists(path));
    EXPECT_EQ(screen.asked.filters.size(), 2);
    screen.dialogue.expectQuestion(question, Answer::yes, QStringLiteral("Mentés táblázatba"), Icon::warning);
    save();
    EXPECT_EQ(fileBytes(path), QByteArray("N\xE9v;\xD6sszeg\r\n\xD5ri ?;1,5\r\n"));
    const QString other = screen.folder.filePath(QStringLiteral("utf"));
    screen.answer = SaveAnswer{other, 0};
    save();
    EXPECT_EQ(fileBytes(other + QStringLiteral(".csv")),
              QByteArray("\xEF\xBB\xBF") + QStringLiteral("Név;Összeg\r\nŐri 雪;1,5\r\n").toUtf8());
    EXPECT_EQ(screen.note(), QStringLiteral("Mentve: utf.csv"));
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
