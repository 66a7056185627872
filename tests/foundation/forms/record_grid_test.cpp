// The grid by keys and mouse: the selected column, the menu, the marks in the headings, jumping by typing.
#include "foundation/forms/record_grid.h"

#include "support/keyboard.h"
#include "support/test_workstation.h"

#include <QHeaderView>
#include <QMenu>
#include <QSignalSpy>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace vandrel::test {

namespace {

constexpr GridColumn columns[] = {{"TAJ", u"TAJ", 90}, {"Neve", u"Név", 200}, {"ID", u"Szám", 80}};

struct GridScreen : testing::Test {
    GridScreen() {
        setUp.data().executeScript(
            "insert into Paciensek (rowid, ID, TAJ, Neve) values (1, 30, '111', 'Ödön'),"
            " (2, 10, '222', 'Csaba'), (3, 20, '333', 'Cecil'), (4, 5, '444', 'Őrs')");
        grid.setSource({"Paciensek"});
        grid.setAskText([this](QWidget*, const QString& question, const QString& title) {
            questions << title + u": "_s + question;
            return answer;
        });
        grid.resize(500, 300);
        grid.show();
        grid.setFocus();
        QCoreApplication::processEvents();
    }
    QString names() const {
        QStringList all;
        for (qint64 i = 0; i < grid.count(); ++i)
            all << grid.cellText(i, 1);
        return all.join(u' ');
    }
    QString heading(int column) const { return grid.model()->headerData(column, Qt::Horizontal).toString(); }
    // Opens the menu by a key and chooses an entry by keys too.
    void chooseByKeys(Qt::Key key, Qt::KeyboardModifiers modifiers, const QString& command) {
        bool chosen = false;
        QTimer::singleShot(0, &grid, [&] {
            auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
            ASSERT_NE(menu, nullptr);
            for (int i = 0; i < menu->actions().size(); ++i) {
                QTest::keyClick(menu, Qt::Key_Down);
                if (menu->activeAction()->objectName() != command) continue;
                chosen = true;
                QTest::keyClick(menu, Qt::Key_Return);
                return;
            }
            menu->close();
        });
        pressKey(key, modifiers);
        // This platform leaves no window active when a menu closes.
        grid.activateWindow();
        QCoreApplication::processEvents();
        EXPECT_TRUE(chosen) << command.toStdString();
    }

    TestWorkstation setUp;
    RecordGrid grid{setUp.workstation,
                    RecordList(setUp.workstation.files, DataFile::tetdata, "Paciensek", columns),
                    RecordGrid::Services::sortAndNarrow};
    QStringList questions;
    std::optional<QString> answer;
};

} // namespace

TEST_F(GridScreen, SortsAndNarrowsByKeysAlone) {
    EXPECT_EQ(grid.selectedColumn(), -1);
    setUp.dialogue.expect(u"Nincs kijelölve oszlop!"_s, u"Figyelmeztetés"_s, Icon::warning);
    chooseByKeys(Qt::Key_Menu, Qt::NoModifier, u"novekvorendezes"_s);
    setUp.dialogue.expect(u"Jelöljön ki oszlopot!"_s, u"Hiba"_s);
    chooseByKeys(Qt::Key_F10, Qt::ShiftModifier, u"szukreszmenu"_s);
    EXPECT_TRUE(setUp.dialogue.allShown());

    pressKey(Qt::Key_Right);
    pressKey(Qt::Key_Right);
    EXPECT_EQ(grid.selectedColumn(), 1);
    chooseByKeys(Qt::Key_F10, Qt::ShiftModifier, u"novekvorendezes"_s);
    EXPECT_EQ(names(), u"Cecil Csaba Ödön Őrs"_s);
    EXPECT_EQ(heading(1), u"Név ▲"_s);
    chooseByKeys(Qt::Key_Menu, Qt::NoModifier, u"csokkenomenu"_s);
    EXPECT_EQ(names(), u"Őrs Ödön Csaba Cecil"_s);

    const QSignalSpy narrowed(&grid, &RecordGrid::narrowed);
    answer = u" CS"_s;
    chooseByKeys(Qt::Key_Menu, Qt::NoModifier, u"szukreszmenu"_s);
    EXPECT_EQ(names(), u"Csaba"_s);
    EXPECT_EQ(heading(1), u"Név [*CS*]"_s);
    answer = u"ödön"_s;
    chooseByKeys(Qt::Key_Menu, Qt::NoModifier, u"szukteljesmenu"_s);
    EXPECT_EQ(names(), u"Ödön"_s);
    EXPECT_EQ(heading(1), u"Név [ödön]"_s);
    answer.reset(); // given up: the whole table, as for an empty answer
    chooseByKeys(Qt::Key_Menu, Qt::NoModifier, u"szukteljesmenu"_s);
    EXPECT_EQ(names(), u"Ödön Csaba Cecil Őrs"_s);
    EXPECT_EQ(heading(1), u"Név"_s);
    EXPECT_EQ(narrowed.count(), 3);
    EXPECT_EQ(questions, QStringList(3, u"Adatkérés: Kérem az értéket, amire szűkíteni akar!"_s));
    EXPECT_EQ(focusName(), grid.objectName());

    answer = u"nem szám"_s;
    pressKey(Qt::Key_Right);
    setUp.dialogue.expect(u"Ez nem szám: nem szám"_s, u"Hiba"_s);
    chooseByKeys(Qt::Key_Menu, Qt::NoModifier, u"szukteljesmenu"_s);
    EXPECT_EQ(grid.count(), 4);
    const QSignalSpy all(&grid, &RecordGrid::showAllAsked);
    chooseByKeys(Qt::Key_Menu, Qt::NoModifier, u"mindmenu"_s);
    EXPECT_EQ(all.count(), 1);
}

TEST_F(GridScreen, AFaultLeavesRowsAndCurrentRowAsTheyWere) {
    grid.setSource({"select * from Paciensek order by ID"});
    grid.goTo(2);
    grid.selectColumn(1);
    setUp.dialogue.takeAll();
    grid.sortBySelected(SortDirection::ascending);
    ASSERT_EQ(setUp.dialogue.boxes.size(), 1U);
    EXPECT_TRUE(setUp.dialogue.boxes[0].text.startsWith("tetdata.mdb: "_L1)); // the storage's own fault
    EXPECT_EQ(names(), u"Őrs Csaba Cecil Ödön"_s);
    EXPECT_EQ(grid.position(), 2);
    EXPECT_EQ(grid.currentIndex().row(), 2);
}

TEST_F(GridScreen, TheMouseSelectsByTheHeadingAndSortsByADoubleClick) {
    QTest::mouseDClick(grid.viewport(), Qt::LeftButton, {}, QPoint(20, 30));
    EXPECT_EQ(names(), u"Ödön Csaba Cecil Őrs"_s); // no column is selected: nothing happens
    QTest::mouseClick(grid.horizontalHeader()->viewport(), Qt::LeftButton, {}, QPoint(120, 8));
    EXPECT_EQ(grid.selectedColumn(), 1);
    QTest::mouseDClick(grid.viewport(), Qt::LeftButton, {}, QPoint(20, 30));
    EXPECT_EQ(names(), u"Cecil Csaba Ödön Őrs"_s);
    QTest::mousePress(grid.horizontalHeader()->viewport(), Qt::RightButton, {}, QPoint(20, 8));
    EXPECT_EQ(grid.selectedColumn(), 0);
}

TEST_F(GridScreen, MovesAndJumpsInTheOrderShown) {
    EXPECT_FALSE(grid.goPrevious());
    pressKey(Qt::Key_Down);
    EXPECT_EQ(grid.position(), 1);
    pressKey(Qt::Key_End);
    EXPECT_FALSE(grid.goNext());
    pressKey(Qt::Key_Home);
    EXPECT_EQ(grid.position(), 0);
    grid.selectColumn(1);
    typeText(u"őr"_s);
    EXPECT_EQ(grid.position(), 3);
    const QSignalSpy chosen(&grid, &RecordGrid::rowChosen);
    pressKey(Qt::Key_Return);
    ASSERT_EQ(chosen.count(), 1);
    EXPECT_EQ(chosen[0][0].toLongLong(), 3);
    setUp.data().executeScript("delete from Paciensek where rowid=1");
    grid.setSource({"select * from Paciensek where ID= ?1", {qint64{77}}});
    EXPECT_EQ(grid.position(), -1);
    EXPECT_FALSE(grid.goNext());
    pressKey(Qt::Key_Return);
    EXPECT_EQ(chosen.count(), 1);
}

} // namespace vandrel::test
