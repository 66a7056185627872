#include "demo/report_play.h"

#include "app/program.h"
#include "demo/keyboard.h"
#include "demo/menu_play.h"
#include "demo/stage.h"
#include "demo/visits.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLabel>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace vandrel::demo {

namespace {

constexpr qsizetype recordWidth = 194;
constexpr qsizetype headLines = 8;
constexpr qsizetype linesOfARecord = 6;

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

// A sheet of n procedures gives n / 6 records, rounded up.
qsizetype expectedRecords() {
    qsizetype records = 0;
    for (const Visit& visit : visits())
        records += (static_cast<qsizetype>(visit.lines.size()) + linesOfARecord - 1) / linesOfARecord;
    return records;
}

void checkShape(Stage& stage, const QByteArray& report) {
    QList<QByteArray> lines = report.split('\n');
    stage.check(lines.back().isEmpty(), u"a jelentés utolsó sora nincs lezárva"_s);
    lines.removeLast();
    qsizetype wrong = 0;
    for (qsizetype i = 0; i < lines.size(); ++i)
        if (!lines[i].endsWith('\r') || (i >= headLines && lines[i].size() != recordWidth + 1)) ++wrong;
    stage.check(wrong == 0, u"%1 sor nem 194 karakter és CR LF"_s.arg(wrong));
    const qsizetype records = lines.size() - headLines;
    stage.check(records == expectedRecords(),
                u"%1 rekord helyett %2 van a jelentésben"_s.arg(expectedRecords()).arg(records));
    stage.check(lines.size() > 3 && lines[3].trimmed().toLongLong() == records,
                u"a fejrész rekordszáma nem egyezik"_s);
    stage.say(u"A jelentés %1 rekordból áll, mind 194 karakter."_s.arg(records));
}

} // namespace

void playReports(Stage& stage, Program& program, const QString& target) {
    const QString report = QDir(program.station().folder).filePath(u"tet1234.amb"_s);
    const QString note = QDir(target).filePath(u"kuldo.txt"_s);
    makeReport(stage, program, target, true);
    const QByteArray first = bytesOf(stage, report), firstNote = bytesOf(stage, note);
    checkShape(stage, first);
    for (const QString& name : {u"1234.id"_s, u"id.txt"_s, u"kuldo.txt"_s, u"tet1234.arj"_s})
        stage.check(QFileInfo::exists(QDir(target).filePath(name)), u"nincs a célmappában: "_s + name);

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
