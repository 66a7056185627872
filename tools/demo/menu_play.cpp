#include "demo/menu_play.h"

#include "app/program.h"
#include "demo/keyboard.h"
#include "demo/stage.h"

#include <QApplication>
#include <QLineEdit>
#include <QMenu>

using namespace Qt::StringLiterals;

namespace vandrel::demo {

namespace {

constexpr int longestMenu = 40;

void waitForMainWindow(Stage& stage, Program& program) {
    stage.waitFor(u"tetindul"_s, [&program] {
        return program.mainWindow().isEnabled() && program.mainWindow().isActiveWindow();
    });
}

} // namespace

void openFromMenu(Stage& stage, Program& program, Qt::Key letter, const QStringList& path) {
    waitForMainWindow(stage, program);
    press(letter, Qt::AltModifier);
    for (const QString& name : path) {
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        stage.require(menu != nullptr, u"nem nyílt meg a menü: "_s + name);
        for (int step = 0; step < longestMenu; ++step) {
            if (menu->activeAction() != nullptr && menu->activeAction()->objectName() == name) break;
            press(Qt::Key_Down);
        }
        stage.require(menu->activeAction() != nullptr && menu->activeAction()->objectName() == name,
                      u"nincs ilyen menüpont: "_s + name);
        press(name == path.back() ? Qt::Key_Return : Qt::Key_Right);
    }
}

void playFirstStart(Stage& stage, Program& program) {
    stage.expectBox(u"Az intézeti adatok nincsenek kitöltve!Kívánja most kitölteni?"_s, Qt::Key_Return,
                    u"uzenet-elso-inditas"_s);
    stage.require(program.start(), u"a program nem indult el"_s);
    stage.waitFor(u"intad"_s, [] { return focusName() == u"Int_nev"_s; });
    stage.boxesDone();

    // Left half empty first: the screen says what is missing.
    const std::pair<QString, QString> fields[] = {
        {u"Int_nev"_s, u"Minta Egészségügyi Szolgálat, Járóbeteg-szakrendelő"_s},
        {u"Gyogyi_kod"_s, u"M123"_s},
        {u"Orv_kod"_s, u"90001"_s},
        {u"Szakrend_kod"_s, u"010100001"_s},
        {u"irsz"_s, u"1081"_s},
        {u"City"_s, {}},
        {u"cim"_s, u"Minta körút 25."_s},
        {u"Bankszamla"_s, u"117000012000000300000004"_s},
        {u"Adoig_szam"_s, u"12345678241"_s},
        {u"NBK_KOD"_s, u"1234"_s},
        {u"Login"_s, {}},
        {u"Password"_s, {}},
    };
    for (const auto& [field, text] : fields) {
        stage.require(focusName() == field, u"a %1 mező helyett: %2"_s.arg(field, focusName()));
        type(text);
        press(Qt::Key_Return);
    }
    press(Qt::Key_Return); // "Tárol"
    stage.picture(u"intad"_s, program.currentForm());
    Query row = program.station().files[DataFile::tetdata].query(
        "select Int_nev, City, Bankszamla, Adoig_szam, NBK_KOD from intezet");
    stage.check(row.next() && row.text(0) == fields[0].second && row.text(1) == u"Budapest"_s &&
                    row.text(2) == u"11700001-20000003-00000004"_s && row.text(3) == u"12345678-2-41"_s &&
                    row.text(4) == u"1234"_s,
                u"az intézet adatai nem a begépeltek"_s);
    press(Qt::Key_Escape);
    waitForMainWindow(stage, program);
    stage.say(u"Az intézet adatai begépelve és eltárolva."_s);
    stage.picture(u"tetindul"_s, &program.mainWindow());
}

void playSmallScreens(Stage& stage, Program& program) {
    openFromMenu(stage, program, Qt::Key_V, {u"gepazon"_s});
    stage.waitFor(u"gepazonform"_s, [] { return focusName() == u"Gepazon"_s; });
    const auto* label = qobject_cast<QLineEdit*>(QApplication::focusWidget());
    stage.check(label != nullptr && label->text() == u"A01"_s, u"a gépazonosító nem A01"_s);
    stage.picture(u"gepazonform"_s, program.currentForm());
    press(Qt::Key_Escape);

    waitForMainWindow(stage, program);
    press(Qt::Key_J, Qt::AltModifier);
    stage.waitFor(u"frmAbout"_s, [&program] {
        return program.currentForm() != nullptr && program.currentForm()->isVisible() &&
               program.currentForm()->objectName() == u"frmAbout"_s;
    });
    stage.picture(u"frmAbout"_s, program.currentForm());
    press(Qt::Key_Escape);

    waitForMainWindow(stage, program);
    for (int step = 0; step < 12 && focusName() != u"datum"_s; ++step)
        press(Qt::Key_Tab);
    stage.require(focusName() == u"datum"_s, u"a dátum nem érhető el billentyűzettel"_s);
    press(Qt::Key_Return);
    stage.waitFor(u"kornyform"_s, [&program] {
        return program.currentForm() != nullptr && program.currentForm()->isVisible() &&
               program.currentForm()->objectName() == u"kornyform"_s;
    });
    stage.picture(u"kornyform"_s, program.currentForm());
    press(Qt::Key_Escape);
    waitForMainWindow(stage, program);

    press(Qt::Key_V, Qt::AltModifier);
    stage.picture(u"tetindul-menu"_s, QApplication::activePopupWidget());
    press(Qt::Key_Escape);
    press(Qt::Key_Escape);
    waitForMainWindow(stage, program);
}

void playExit(Stage& stage, Program& program) {
    waitForMainWindow(stage, program);
    stage.expectBox(u"Valóban ki akar lépni?"_s, Qt::Key_Return, u"uzenet-kilepes"_s);
    press(Qt::Key_Q, Qt::ControlModifier);
    stage.boxesDone();
    stage.check(program.ended(), u"a program nem ért véget"_s);
}

} // namespace vandrel::demo
