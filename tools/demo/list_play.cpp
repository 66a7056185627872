#include "demo/list_play.h"

#include "app/program.h"
#include "demo/expected_lists.h"
#include "demo/keyboard.h"
#include "demo/menu_play.h"
#include "demo/stage.h"
#include "demo/visits.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace vandrel::demo {

namespace {

// Does something in a modal window that a key brings up, while that key has not come back yet.
class InWindow {
  public:
    InWindow(Stage& stage, const QString& name, const std::function<void(QWidget&)>& action)
        : m_stage(stage), m_name(name), m_action(action) {
        look();
    }
    bool seen() const { return m_seen; }

  private:
    // A single shot each time: a repeating timer does not fire while its own call has a window of its own up.
    void look() {
        QTimer::singleShot(5, &m_life, [this] {
            QWidget* window = QApplication::activeModalWidget();
            if (window == nullptr || window->objectName() != m_name || !window->isVisible()) return look();
            m_seen = true;
            window->activateWindow();
            settle();
            try {
                m_action(*window);
            } catch (const Stopped& stopped) { // must not go through the event loop
                m_stage.fail(QString::fromUtf8(stopped.what()));
            }
            if (window == QApplication::activeModalWidget()) press(Qt::Key_Escape);
        });
    }

    Stage& m_stage;
    const QString m_name;
    const std::function<void(QWidget&)> m_action;
    QObject m_life; // nothing is done any more when it ends
    bool m_seen = false;
};

QString labelOf(const QWidget& window, const QString& name) {
    const auto* label = window.findChild<QLabel*>(name);
    return label != nullptr ? label->text() : QString();
}

// Saves by a key of the preview under this path.
void save(Stage& stage, QWidget& preview, Qt::Key key, const QString& path) {
    const InWindow question(stage, u"mentes"_s, [&stage, path](QWidget& window) {
        auto* name = qobject_cast<QLineEdit*>(QApplication::focusWidget());
        stage.require(name != nullptr, u"a mentés nem a fájl nevét kérdezi: "_s + focusName());
        press(Qt::Key_A, Qt::ControlModifier);
        type(path);
        if (QApplication::activePopupWidget() != nullptr) press(Qt::Key_Escape); // suggested names
        if (path.endsWith(u".pdf")) stage.picture(u"mentes"_s, &window);
        press(Qt::Key_Return);
    });
    press(key, Qt::ControlModifier);
    stage.check(labelOf(preview, u"Uzenet"_s) == u"Mentve: "_s + path.section(u'/', -1),
                u"nem mentette el: "_s + path + u" - "_s + labelOf(preview, u"Uzenet"_s));
}

class ListPlay {
  public:
    ListPlay(Stage& stage, Program& program) : m_stage(stage), m_program(program) {}

    void open(const QString& menu) {
        m_menu = menu;
        openFromMenu(m_stage, m_program, Qt::Key_S, {menu});
        m_stage.waitFor(u"statisztForm"_s, [this] {
            return form() != nullptr && form()->isVisible() && form()->isActiveWindow() &&
                   form()->objectName() == u"statisztForm";
        });
    }
    // Types into one field after the other; the focus must be where the next one is typed.
    void fill(const std::vector<Entry>& entries) {
        for (const auto& [field, text] : entries) {
            m_stage.require(focusName() == field, u"a %1 mező helyett: %2"_s.arg(field, focusName()));
            type(text);
            press(Qt::Key_Return);
        }
    }
    // All categories, March 2008 and all units, on the panel of two steps.
    void fillTrafficLog() {
        for (int box = 0; box < 20 && focusName() != u"TeritesOsszes"; ++box)
            press(Qt::Key_Down);
        press(Qt::Key_Space);
        press(Qt::Key_Return);
        press(Qt::Key_Return); // "Tovább"
        fill({{u"IdoszakTol"_s, u"20080301"_s},
              {u"IdoszakIg"_s, u"20080331"_s},
              {u"KodTol"_s, u"010100001"_s},
              {u"KodIg"_s, u"040100001"_s}});
    }
    // "Feldolgozás"; what is done in the preview; and back.
    void process(const std::function<void(QWidget&)>& inPreview) {
        m_stage.require(focusName() == u"Feldolgozas", u"a Feldolgozás helyett: "_s + focusName());
        m_stage.picture(u"statisztForm-"_s + m_menu, form());
        const InWindow window(m_stage, u"frmPreview"_s, [&](QWidget& preview) {
            m_stage.picture(u"lista-"_s + m_menu, &preview);
            inPreview(preview);
        });
        press(Qt::Key_Return);
        m_stage.check(window.seen(), u"nem volt mit megnézni: "_s + m_menu);
        m_stage.check(labelOf(*form(), u"Allapot"_s) == u"Lista kész!", u"nem készült el: "_s + m_menu);
    }
    void sheetsMustBe(int count) {
        m_stage.check(
            labelOf(*form(), u"Adatlapok"_s) == u"%1 / %1"_s.arg(count),
            u"%1: %2 adatlap helyett %3"_s.arg(m_menu).arg(count).arg(labelOf(*form(), u"Adatlapok"_s)));
    }
    // Saves the list's table and compares these columns of it.
    void tableMustBe(const QString& path, const std::vector<int>& columns, const QStringList& expected) {
        process([&](QWidget& preview) { save(m_stage, preview, Qt::Key_T, path); });
        QFile file(path);
        m_stage.require(file.open(QIODevice::ReadOnly), u"nem készült el: "_s + path);
        QStringList lines = QString::fromUtf8(file.readAll()).split(u"\r\n"_s, Qt::SkipEmptyParts);
        lines.removeFirst(); // the heads
        QStringList rows;
        for (const QString& line : lines) {
            QStringList cells;
            for (const int column : columns)
                cells << line.split(u';').value(column);
            rows << cells.join(u';');
        }
        rows.sort();
        if (m_stage.check(!expected.isEmpty() && rows == expected,
                          u"%1: a táblázat más, mint ami a begépeltekből következik:\n%2\nhelyett\n%3"_s.arg(
                              m_menu, expected.join(u'\n'), rows.join(u'\n'))))
            m_stage.say(
                u"%1: a táblázat %2 sora az, ami a begépeltekből következik."_s.arg(m_menu).arg(rows.size()));
    }
    void close() { press(Qt::Key_Escape); }

  private:
    QWidget* form() const { return m_program.currentForm(); }

    Stage& m_stage;
    Program& m_program;
    QString m_menu;
};

Tariff tariffOf(Program& program) {
    Tariff tariff;
    Query points = program.station().files[DataFile::beav].query("select BEAV_KOD, NEMET_PONT from BEAV");
    while (points.next())
        tariff.points.insert(points.text(0), points.number(1));
    Query units = program.station().files[DataFile::tetmod].query("select REND_KOD, SZORZO from SZAKREND");
    while (units.next())
        tariff.multipliers.insert(units.text(0), units.number(1));
    return tariff;
}

} // namespace

void playLists(Stage& stage, Program& program, const QString& folder) {
    const QDir target(folder);
    const Tariff tariff = tariffOf(program);
    const QString surgery = u"020100001"_s, gynaecology = u"040100001"_s;
    ListPlay play(stage, program);

    play.open(u"betforg"_s);
    play.fillTrafficLog();
    const QString pdf = target.filePath(u"naplo.pdf"_s);
    play.process([&](QWidget& preview) { save(stage, preview, Qt::Key_S, pdf); });
    play.sheetsMustBe(sheetsOfTheBoxes());
    QFile file(pdf);
    if (stage.check(file.open(QIODevice::ReadOnly) && file.readAll().startsWith("%PDF-"),
                    u"nem PDF: "_s + pdf))
        stage.say(u"A betegforgalmi napló %1 adatlappal PDF-be mentve."_s.arg(sheetsOfTheBoxes()));
    play.close();

    const std::vector<Entry> months = {{u"IdoszakTol"_s, u"200803"_s}, {u"IdoszakIg"_s, u"200803"_s}};
    const auto monthly = [&](const QString& from, const QString& to) {
        play.fill(months);
        play.fill({{u"KodTol"_s, from}, {u"KodIg"_s, to}, {u"Terites"_s, u"01"_s}, {u"CsakOsszesen"_s, {}}});
    };
    play.open(u"haviossz"_s);
    monthly(u"800000001"_s, u"899999999"_s);
    play.tableMustBe(target.filePath(u"bekuldok.csv"_s), {0, 1, 2, 4, 6, 7}, referrerRows(tariff));
    play.close();

    play.open(u"osszlist"_s);
    monthly(u"010100001"_s, gynaecology);
    play.tableMustBe(target.filePath(u"beavatkozasok.csv"_s), {0, 2, 4, 6, 7}, procedureRows(tariff));
    play.close();

    play.open(u"tetlist"_s);
    play.fillTrafficLog();
    play.process([](QWidget&) {});
    play.sheetsMustBe(sheetsOfTheBoxes());
    play.close();

    const QString taj = visits().at(4).taj;
    play.open(u"egyktgki"_s);
    play.fill(months);
    play.fill({{u"Kod"_s, taj}});
    play.tableMustBe(target.filePath(u"egyeni.csv"_s), {0, 1, 2, 4, 6, 8, 10, 11}, patientRows(taj, tariff));
    play.close();

    play.open(u"osszlisn"_s);
    play.fill(months);
    play.fill({{u"Kod"_s, surgery}});
    play.tableMustBe(target.filePath(u"osszesitett.csv"_s), {0, 2, 3, 4}, unitRows(surgery));
    play.close();

    play.open(u"vizdijstatmenu"_s);
    play.fill(months);
    play.fill({{u"Kod"_s, gynaecology}});
    play.tableMustBe(target.filePath(u"vizitdij.csv"_s), {0, 1, 6}, visitFeeRows(gynaecology));
    play.close();
}

} // namespace vandrel::demo
