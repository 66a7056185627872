// vandrel-demo FOLDER: plays the program by key strokes on a fresh folder with sample data, offscreen and
// with a fixed clock, and leaves the report files, saved lists and a picture of every screen. Exit code 1
// when anything was not as it must be.
#include "app/application.h"
#include "app/program.h"
#include "demo/list_play.h"
#include "demo/menu_play.h"
#include "demo/report_play.h"
#include "demo/sheet_play.h"
#include "demo/stage.h"
#include "foundation/forms/box_dialogue.h"
#include "foundation/forms/window_helpers.h"
#include "sample/program_folder.h"

#include <QDir>
#include <QFile>
#include <QTemporaryFile>

#include <cstdio>
#include <unistd.h>

using namespace Qt::StringLiterals;
using namespace vandrel;
using namespace vandrel::demo;

namespace {

constexpr unsigned longestPlay = 300; // seconds; a play that hangs must not hang its caller

// What earlier plays left; a folder that holds anything else is somebody's own.
const QStringList ownFolders = {u"program"_s, u"cel"_s, u"kepek"_s};

// What the offscreen platform and the key helper say of themselves is no news; everything else is.
void showMessage(QtMsgType, const QMessageLogContext&, const QString& text) {
    for (const QString& known : {u"This plugin does not support"_s, u"Keyboard event not accepted"_s,
                                 u"QStandardPaths: XDG_RUNTIME_DIR"_s, u"Detected locale"_s})
        if (text.contains(known)) return;
    std::fprintf(stderr, "%s\n", text.toUtf8().constData());
}

bool prepareFolder(const QDir& folder) {
    if (!folder.mkpath(u"."_s)) {
        std::fprintf(stderr, "A mappa nem hozható létre: %s\n", qPrintable(folder.path()));
        return false;
    }
    for (const QString& name : folder.entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot))
        if (!ownFolders.contains(name)) {
            std::fprintf(stderr, "A mappa nem a bemutatóé, más is van benne: %s\n",
                         qPrintable(folder.filePath(name)));
            return false;
        }
    for (const QString& name : ownFolders)
        if (!QDir(folder.filePath(name)).removeRecursively() || !folder.mkpath(name)) {
            std::fprintf(stderr, "A mappa nem írható: %s\n", qPrintable(folder.filePath(name)));
            return false;
        }
    return true;
}

int play(Application& application, const QDir& folder) {
    Stage stage(QDir(folder.filePath(u"kepek"_s)));
    const QString home = folder.filePath(u"program"_s);
    completeProgramFolder(home, true);
    QDir::setCurrent(home);
    stage.say(u"Új programmappa mintaadatokkal: "_s + home);

    BoxDialogue dialogue(0); // no clerk: each key is pressed for the box in sight
    application.showFaultsIn(dialogue);
    const FixedClock clock(QDateTime(QDate(2008, 4, 3), QTime(14, 5)));
    ArjPacker packer;
    Workstation station(home, dialogue, clock, packer);
    try {
        Program program(station, [] { return false; });
        playFirstStart(stage, program);
        playSmallScreens(stage, program);
        playSheets(stage, program);
        checkStoredSheets(stage, program);
        playReports(stage, program, folder.filePath(u"cel"_s));
        playLists(stage, program, folder.filePath(u"cel"_s));
        playExit(stage, program);
    } catch (const Stopped& stopped) {
        stage.fail(QString::fromUtf8(stopped.what()));
        if (QWidget* window = QApplication::activeWindow()) stage.picture(u"megallt"_s, window);
    } catch (const Fault& fault) {
        stage.fail(fault.text());
    }
    stage.say(stage.faults() == 0 ? u"A bemutató hibátlanul végigment: "_s + folder.path()
                                  : u"A bemutató hibával ért véget (%1)."_s.arg(stage.faults()));
    return stage.faults() == 0 ? 0 : 1;
}

} // namespace

int main(int argc, char** argv) {
    qInstallMessageHandler(showMessage);
    // A screen of the smallest size that the program must be usable on, the same on every machine.
    QTemporaryFile screen;
    if (!screen.open()) return 1;
    screen.write(
        R"({"screens":[{"name":"bemutato","x":0,"y":0,"width":1280,"height":800,"logicalDpi":96}]})");
    screen.close();
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + screen.fileName().toLocal8Bit());
    qunsetenv("QT_SCALE_FACTOR");
    Application application(argc, argv);
    prepareApplication(application);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() != 2 || arguments[1].startsWith(u'-')) {
        std::fprintf(stderr, "Használat: vandrel-demo MAPPA\n");
        return 2;
    }
    alarm(longestPlay);
    const QDir folder(QDir(arguments[1]).absolutePath());
    if (!prepareFolder(folder)) return 1;
    try {
        return play(application, folder);
    } catch (const Fault& fault) {
        std::fprintf(stderr, "Hiba: %s\n", qPrintable(fault.text()));
        return 1;
    }
}
