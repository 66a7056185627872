#include "demo/report_play.h"

#include "app/program.h"
#include "demo/expected_report.h"
#include "demo/keyboard.h"
#include "demo/menu_play.h"
#include "demo/stage.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLabel>
#include <QProcess>
#include <QPushButton>
#include <QTemporaryDir>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace vandrel::demo {

namespace {

QByteArray bytesOf(Stage& stage, const QString& path) {
    QFile file(path);
    stage.require(file.open(QIODevice::ReadOnly), u"nem készült el: "_s + path);
    return file.readAll();
}

bool formStands(Program& program, const QString& name) {
    const WorkForm* form = program.currentForm();
    return form != nullptr && form->isVisible() && form->isActiveWindow() && form->objectName() == name;
}

void chooseTarget(Stage& stage, Program& program, const QString& target, bool takePictures) {
    stage.require(focusName() == u"IdoszakTol"_s, u"levForm: "_s + focusName());
    press(Qt::Key_Return);
    press(Qt::Key_Return);
    press(Qt::Key_Down); // past "Leválogatás"
    stage.require(focusName() == u"MentesiUt"_s, u"levForm: "_s + focusName());
    press(Qt::Key_Return);
    stage.waitFor(u"openform"_s, [] { return focusName() == u"Mappak"_s; });
    press(Qt::Key_Tab);
    stage.require(focusName() == u"Utvonal"_s, u"openform: "_s + focusName());
    press(Qt::Key_A, Qt::ControlModifier);
    type(target);
    if (takePictures) stage.picture(u"openform"_s, QApplication::activeWindow());
    press(Qt::Key_Return);
    stage.waitFor(u"levForm"_s, [&program] { return formStands(program, u"levForm"_s); });
    stage.check(program.station().reportTarget == target + u'/', u"a mentési út nem a választott"_s);
}

// One report from the opened screen to the note's last word.
void makeReport(Stage& stage, Program& program, const QString& target, bool takePictures) {
    press(Qt::Key_E, Qt::ControlModifier); // "Eredeti (floppy.bat)"
    stage.waitFor(u"levForm"_s, [&program] { return formStands(program, u"levForm"_s); });
    if (takePictures) stage.picture(u"levForm-elotte"_s, program.currentForm());
    chooseTarget(stage, program, target, takePictures);
    auto* run = program.currentForm()->findChild<QPushButton*>(u"Levalogatas"_s);
    for (int step = 0; step < 8 && focusName() != u"Levalogatas"_s; ++step)
        press(Qt::Key_Tab);
    stage.require(run != nullptr && run->hasFocus(), u"a leválogatás gombja nem érhető el"_s);
    press(Qt::Key_Return);
    stage.waitFor(u"nemform"_s, [&program] {
        const auto* button = program.statusWindow().findChild<QPushButton*>(u"OK"_s);
        return program.statusWindow().isVisible() && button != nullptr && button->isEnabled();
    });
    if (takePictures) stage.picture(u"nemform"_s, &program.statusWindow());
    press(Qt::Key_Return);
    stage.waitFor(u"levForm"_s, [&program] { return formStands(program, u"levForm"_s); });
    if (takePictures) stage.picture(u"levForm-utana"_s, program.currentForm());
    press(Qt::Key_Escape);
    program.station().packer.waitForFinished();
}

void writeMarksBack(Stage& stage, Program& program) {
    openFromMenu(stage, program, Qt::Key_V, {u"flmen"_s});
    stage.waitFor(u"flujForm"_s, [&program] { return formStands(program, u"flujForm"_s); });
    type(u"200803"_s);
    press(Qt::Key_Return);
    type(u"200803"_s);
    press(Qt::Key_Return);
    stage.require(focusName() == u"Visszaallitas"_s, u"flujForm: "_s + focusName());
    stage.expectBox(u"Kész az adatvisszaállítás!"_s, Qt::Key_Return, u"uzenet-visszairas"_s);
    press(Qt::Key_Return);
    stage.boxesDone();
    stage.picture(u"flujForm"_s, program.currentForm());
    press(Qt::Key_Escape);
}

// Says where two files part, for the log.
void compare(Stage& stage, const QString& what, const QByteArray& made, const QByteArray& expected) {
    if (made == expected) {
        stage.say(
            u"%1: bájtról bájtra az, ami a begépeltekből következik (%2 bájt)."_s.arg(what).arg(made.size()));
        return;
    }
    const auto [at, other] = std::ranges::mismatch(made, expected);
    const qsizetype place = at - made.begin();
    const qsizetype line = made.left(place).count('\n') + 1;
    stage.fail(
        u"%1: a(z) %2. sorban, a(z) %3. bájttól más, mint ami a begépeltekből következik: \"%4\" helyett \"%5\""_s
            .arg(what)
            .arg(line)
            .arg(place - made.lastIndexOf('\n', place - 1))
            .arg(QString::fromLatin1(expected.mid(place, 20)), QString::fromLatin1(made.mid(place, 20))));
}

// The archive as the Fund would open it: one file under its bare name.
void checkArchive(Stage& stage, const QString& archive, const QByteArray& report) {
    const QTemporaryDir unpacked;
    QProcess arj;
    arj.setWorkingDirectory(unpacked.path());
    arj.start(u"arj"_s, {u"e"_s, u"-y"_s, archive});
    stage.check(arj.waitForFinished() && arj.exitCode() == 0, u"az archívum nem bontható ki"_s);
    const QDir content(unpacked.path());
    if (stage.check(content.entryList(QDir::Files) == QStringList{u"tet1234.amb"_s} &&
                        bytesOf(stage, content.filePath(u"tet1234.amb"_s)) == report,
                    u"az archívum nem a jelentést tartalmazza"_s))
        stage.say(u"Az archívum az arj programmal kibontva a jelentést adja vissza."_s);
}

QHash<QString, int> procedurePoints(Program& program) {
    QHash<QString, int> points;
    Query rows = program.station().files[DataFile::beav].query("select BEAV_KOD, NEMET_PONT from BEAV");
    while (rows.next())
        points.insert(rows.text(0), static_cast<int>(rows.integer(1)));
    return points;
}

} // namespace

void playReports(Stage& stage, Program& program, const QString& target) {
    const QString report = QDir(program.station().folder).filePath(u"tet1234.amb"_s);
    const QString note = QDir(target).filePath(u"kuldo.txt"_s);
    makeReport(stage, program, target, true);
    const QByteArray first = bytesOf(stage, report), firstNote = bytesOf(stage, note);
    compare(stage, u"A jelentés"_s, first, expectedReport());
    compare(stage, u"A kísérőjegyzék"_s, firstNote, expectedNote(procedurePoints(program)));
    for (const QString& name : {u"1234.id"_s, u"id.txt"_s})
        stage.check(QFileInfo::exists(QDir(target).filePath(name)), u"nincs a célmappában: "_s + name);

    checkArchive(stage, QDir(target).filePath(u"tet1234.arj"_s), first);

    // Without the write-back there is nothing left to report.
    press(Qt::Key_E, Qt::ControlModifier);
    stage.waitFor(u"levForm"_s, [&program] { return formStands(program, u"levForm"_s); });
    chooseTarget(stage, program, target, false);
    stage.expectBox(u"Nincs a feltételeknek megfelelő adat!"_s, Qt::Key_Return, u"uzenet-nincs-adat"_s);
    for (int step = 0; step < 8 && focusName() != u"Levalogatas"_s; ++step)
        press(Qt::Key_Tab);
    press(Qt::Key_Return);
    stage.boxesDone();
    press(Qt::Key_Escape);
    stage.say(u"Visszaírás nélkül nincs mit újra jelenteni: a program megmondja."_s);

    writeMarksBack(stage, program);
    QFile::remove(report);
    makeReport(stage, program, target, false);
    if (stage.check(bytesOf(stage, report) == first, u"a megismételt jelentés nem ugyanaz"_s) &&
        stage.check(bytesOf(stage, note) == firstNote, u"a megismételt kísérőjegyzék nem ugyanaz"_s))
        stage.say(
            u"A visszaírás után megismételt jelentés bájtról bájtra ugyanaz (%1 bájt)."_s.arg(first.size()));
}

} // namespace vandrel::demo
