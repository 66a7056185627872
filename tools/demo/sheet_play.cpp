#include "demo/sheet_play.h"

#include "app/program.h"
#include "demo/keyboard.h"
#include "demo/stage.h"
#include "demo/visits.h"

#include <QApplication>
#include <QLineEdit>
#include <QSet>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace vandrel::demo {

namespace {

constexpr int longestWay = 80; // steps from the first field to the procedures

const QString* find(const std::vector<Entry>& entries, const QString& field) {
    const auto found = std::ranges::find(entries, field, &Entry::first);
    return found != entries.end() ? &found->second : nullptr;
}

QString shownText() {
    const auto* field = qobject_cast<QLineEdit*>(QApplication::focusWidget());
    return field != nullptr ? field->text() : QString();
}

class SheetPlay {
  public:
    SheetPlay(Stage& stage, Program& program) : m_stage(stage), m_program(program) {}

    void play(const Visit& visit, bool first, bool last);

  private:
    QWidget* sheet() const { return m_program.currentForm(); }
    void focusMustBe(const QString& field);
    void fillFields(const Visit& visit, bool first);
    void pickFromList(const QString& field, const QString& begin, bool takePicture);
    void searchDictionary(const QString& field, const QString& name, bool takePicture);
    void addLines(const Visit& visit);
    void fillOtherData(const Visit& visit);
    void store(const Visit& visit, bool last);

    Stage& m_stage;
    Program& m_program;
    bool m_dictionaryShown = false;
};

void SheetPlay::focusMustBe(const QString& field) {
    m_stage.require(focusName() == field,
                    u"a %1 mezőnek kellene következnie, de ez jött: %2"_s.arg(field, focusName()));
}

void SheetPlay::pickFromList(const QString& field, const QString& begin, bool takePicture) {
    press(Qt::Key_F1);
    m_stage.require(focusName() != field, u"nem nyílt lista: "_s + field);
    type(begin);
    if (takePicture) m_stage.picture(u"tetad-lista-"_s + field, sheet());
    press(Qt::Key_Return);
    focusMustBe(field);
}

void SheetPlay::searchDictionary(const QString& field, const QString& name, bool takePicture) {
    press(Qt::Key_F1);
    m_stage.waitFor(u"tetad_kieg1"_s, [] { return focusName() == u"keres"_s; });
    QWidget* list = QApplication::activeWindow();
    press(Qt::Key_Tab); // to the search modes
    if (focusName() == u"Kodra"_s) press(Qt::Key_Right);
    if (focusName() == u"Megnevezesre"_s) press(Qt::Key_Space);
    if (focusName() == u"Megnevezesre"_s) press(Qt::Key_Backtab);
    focusMustBe(u"keres"_s);
    type(name);
    if (takePicture) m_stage.picture(u"tetad_kieg1-"_s + field, list);
    press(Qt::Key_Return);
    m_stage.waitFor(field, [&field] { return focusName() == field; });
}

void SheetPlay::fillFields(const Visit& visit, bool first) {
    focusMustBe(u"Szakrend"_s);
    QSet<QString> met;
    for (int step = 0; step < longestWay && focusName() != u"BEAV"_s; ++step) {
        const QString field = focusName();
        const bool leaveOut = visit.forgetSex && field == u"Nem"_s;
        met.insert(field);
        if (const QString* begin = find(visit.picked, field)) {
            pickFromList(field, *begin, first || field == u"Terites"_s);
        } else if (const QString* name = find(visit.searched, field)) {
            searchDictionary(field, *name, true);
        } else if (const QString* text = find(visit.fields, field)) {
            if (field == u"Szul_dat"_s && !visit.wrongBirth.isEmpty()) {
                m_stage.expectBox(u"Hibás a születési dátum, kérem javítsa!"_s, Qt::Key_Return,
                                  u"uzenet-hibas-datum"_s);
                type(visit.wrongBirth);
                press(Qt::Key_Return);
                m_stage.boxesDone();
                focusMustBe(field);
            }
            // Nobody types what is there already.
            if (!leaveOut && shownText() != *text) type(*text);
        }
        press(Qt::Key_Return);
        m_stage.require(focusName() != field, u"a mező nem enged tovább: "_s + field);
    }
    focusMustBe(u"BEAV"_s);
    for (const std::vector<Entry>* entries : {&visit.fields, &visit.picked, &visit.searched})
        for (const Entry& entry : *entries)
            m_stage.check(met.contains(entry.first), u"nem került sor a mezőre: "_s + entry.first);
}

void SheetPlay::addLines(const Visit& visit) {
    for (const Line& line : visit.lines) {
        focusMustBe(u"BEAV"_s);
        switch (line.way) {
        case Line::Way::code:
            type(line.text);
            break;
        case Line::Way::functionKey:
            press(static_cast<Qt::Key>(Qt::Key_F1 + line.text.mid(1).toInt() - 1));
            break;
        case Line::Way::dictionary:
            searchDictionary(u"BEAV"_s, line.text, true);
            break;
        }
        m_stage.check(shownText() == line.code,
                      u"%1 helyett ez a kód áll a mezőben: %2"_s.arg(line.code, shownText()));
        if (!line.quantity.isEmpty()) {
            press(Qt::Key_Down);
            focusMustBe(u"MENNY"_s);
            type(line.quantity);
        }
        press(Qt::Key_Return);
    }
    focusMustBe(u"BEAV"_s);
}

void SheetPlay::fillOtherData(const Visit& visit) {
    if (!visit.otherData.empty()) {
        press(Qt::Key_E, Qt::ControlModifier);
        focusMustBe(u"Labor"_s);
        for (int step = 0; step < longestWay && focusName() != u"BEAV"_s; ++step) {
            const QString field = focusName();
            if (const QString* text = find(visit.otherData, field)) type(*text);
            if (field == visit.otherData.back().first) m_stage.picture(u"tetad-egyeb-adatok"_s, sheet());
            press(Qt::Key_Return);
            m_stage.require(focusName() != field, u"a mező nem enged tovább: "_s + field);
        }
    }
    if (!visit.note.isEmpty()) {
        press(Qt::Key_N, Qt::ControlModifier);
        focusMustBe(u"NOTE"_s);
        for (const QString& row : visit.note.split(u'\n')) {
            if (!visit.note.startsWith(row)) press(Qt::Key_Return);
            type(row);
        }
        m_stage.picture(u"tetad-megjegyzes"_s, sheet());
        press(Qt::Key_Escape);
        focusMustBe(u"BEAV"_s);
    }
}

void SheetPlay::store(const Visit& visit, bool last) {
    if (visit.forgetSex) {
        m_stage.expectBox(u"Nincs kitöltve a beteg neme!"_s, Qt::Key_Return, u"uzenet-visszautasitva"_s);
        press(Qt::Key_W, Qt::ControlModifier);
        m_stage.boxesDone();
        focusMustBe(u"Nem"_s);
        type(*find(visit.fields, u"Nem"_s));
    }
    if (!visit.known)
        m_stage.expectBox(u"Ilyen TAJ számú beteg nincs a Páciens törzsben!"_s, Qt::Key_Return,
                          visit.forgetSex ? u"uzenet-uj-paciens"_s : QString());
    m_stage.expectBox(u"Adatok eltárolása megtörtént!"_s, last ? Qt::Key_N : Qt::Key_Return,
                      last ? u"uzenet-eltarolva"_s : QString());
    press(Qt::Key_W, Qt::ControlModifier);
    m_stage.boxesDone();
}

void SheetPlay::play(const Visit& visit, bool first, bool last) {
    if (first) m_stage.picture(u"tetad-ures"_s, sheet());
    fillFields(visit, first);
    const auto* name = sheet()->findChild<QLineEdit*>(u"Neve"_s);
    m_stage.check(name != nullptr && name->text() == visit.name,
                  u"nem a beteg neve áll a lapon: "_s + visit.name);
    addLines(visit);
    fillOtherData(visit);
    if (visit.lines.size() == 6 && !visit.known) m_stage.picture(u"tetad"_s, sheet());
    if (find(visit.picked, u"Terites"_s) != nullptr) m_stage.picture(u"tetad-reszleges-terites"_s, sheet());
    store(visit, last);
}

} // namespace

void playSheets(Stage& stage, Program& program) {
    press(Qt::Key_N, Qt::ControlModifier); // "Adatok felvitele"
    stage.waitFor(u"tetad"_s, [] { return focusName() == u"Szakrend"_s; });
    SheetPlay play(stage, program);
    const std::vector<Visit>& all = visits();
    for (std::size_t i = 0; i < all.size(); ++i) {
        stage.say(u"%1. lap: %2, %3 - %4 (%5 beavatkozás)"_s.arg(i + 1)
                      .arg(all[i].name, all[i].date, all[i].remark)
                      .arg(all[i].lines.size()));
        play.play(all[i], i == 0, i + 1 == all.size());
    }
    stage.waitFor(u"tetindul"_s, [&program] { return program.mainWindow().isActiveWindow(); });
}

void checkStoredSheets(Stage& stage, Program& program) {
    Database& data = program.station().files[DataFile::tetdata];
    int number = 0;
    Query sheets = data.query("select AZONOSITO, SZEM_SZAM, F_DATUM, DIAG1, Neve from BETEG "
                              "left join Paciensek on ID = PaciensId order by BETEG.rowid");
    for (const Visit& visit : visits()) {
        ++number;
        if (!stage.check(sheets.next(), u"hiányzik a(z) %1. lap"_s.arg(number))) return;
        const QString key = sheets.text(0);
        const QStringList stored = {key, sheets.text(1), sheets.text(2), sheets.text(3).trimmed(),
                                    sheets.text(4)};
        const QStringList typed = {u"A01%1"_s.arg(number, 7, 10, '0'_L1), visit.taj, visit.date,
                                   visit.diagnosis, visit.name};
        stage.check(stored == typed, u"a(z) %1. lap: %2 helyett %3 van eltárolva"_s.arg(number).arg(
                                         typed.join(u", "_s), stored.join(u", "_s)));
        QStringList storedLines, typedLines;
        Query lines = data.query(
            "select BEAV, MENNY, BeavJelleg from EUSZOLG where Azonosito = ?1 order by rowid", key);
        while (lines.next())
            storedLines << lines.text(0) + u'*' + lines.text(1) + lines.text(2);
        for (const Line& line : visit.lines)
            typedLines << line.code + u'*' + (line.quantity.isEmpty() ? u"1"_s : line.quantity) + u'A';
        stage.check(storedLines == typedLines, u"a(z) %1. lap beavatkozásai: %2 helyett %3"_s.arg(number).arg(
                                                   typedLines.join(u", "_s), storedLines.join(u", "_s)));
    }
    stage.check(!sheets.next(), u"több lap van eltárolva, mint amennyit begépeltünk"_s);
}

} // namespace vandrel::demo
