// What every input form relies on: the way through the fields, their colours, and checks that give the focus
// back.
#include "foundation/forms/field_chain.h"
#include "foundation/forms/masked_field.h"
#include "foundation/forms/note_edit.h"
#include "support/keyboard.h"

#include <gtest/gtest.h>

#include <QClipboard>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace vandrel::test {

class FieldChainTest : public testing::Test {
  protected:
    QLineEdit* edit(const char* name) {
        auto* field = new QLineEdit(&window);
        field->setObjectName(QString::fromLatin1(name));
        layout->addWidget(field);
        return field;
    }
    void showOn(QWidget* field) {
        window.show();
        QApplication::setActiveWindow(&window);
        field->setFocus();
        QCoreApplication::processEvents();
    }

    QWidget window;
    QVBoxLayout* layout = new QVBoxLayout(&window);
    FieldChain chain{&window};
    QLineEdit* const a = edit("a");
    QLineEdit* const b = edit("b");
};

TEST_F(FieldChainTest, EnterAndArrowsSkipWhatIsHiddenOrDisabled) {
    QLineEdit* hidden = edit("hidden");
    QLineEdit* disabled = edit("disabled");
    for (QLineEdit* field : {a, hidden, disabled, b})
        chain.add(field);
    hidden->hide();
    disabled->setEnabled(false);
    b->setText(u"régi"_s);
    showOn(a);
    EXPECT_EQ(pressKey(Qt::Key_Return), u"b"_s);
    EXPECT_EQ(b->selectedText(), u"régi"_s);
    EXPECT_EQ(b->palette().color(QPalette::Base), QColor(255, 255, 255));
    EXPECT_EQ(b->palette().color(QPalette::Text), QColor(192, 0, 0));
    EXPECT_EQ(a->palette().color(QPalette::Base), QColor(192, 192, 192));
    typeText(u"új ő"_s);
    EXPECT_EQ(b->text(), u"új ő"_s);
    EXPECT_EQ(pressKey(Qt::Key_Up), u"a"_s);
    EXPECT_EQ(b->cursorPosition(), 0); // a long text left shows its beginning
    EXPECT_FALSE(b->hasSelectedText());
    EXPECT_EQ(pressKey(Qt::Key_Down), u"b"_s);
    EXPECT_EQ(pressKey(Qt::Key_Return), u"b"_s); // the last one keeps the focus
}

TEST_F(FieldChainTest, NumericFieldsDropOtherKeys) {
    chain.add(a, {.numeric = true});
    showOn(a);
    typeText(u"1x2,ő.-3"_s);
    EXPECT_EQ(a->text(), u"12,3"_s);
    pressKey(Qt::Key_Backspace);
    EXPECT_EQ(a->text(), u"12,"_s);
    QGuiApplication::clipboard()->setText(u"4x"_s);
    a->paste();
    EXPECT_EQ(a->text(), u"12,"_s);
    QGuiApplication::clipboard()->setText(u"45"_s);
    a->paste();
    EXPECT_EQ(a->text(), u"12,45"_s);
    // A stored value is shown as it is, and can be mended letter by letter.
    a->setText(u"H-1117"_s);
    EXPECT_EQ(a->text(), u"H-1117"_s);
    pressKey(Qt::Key_Backspace);
    typeText(u"8"_s);
    EXPECT_EQ(a->text(), u"H-1118"_s);
    pressKey(Qt::Key_Home);
    pressKey(Qt::Key_Delete);
    pressKey(Qt::Key_Delete);
    EXPECT_EQ(a->text(), u"1118"_s);
}

TEST_F(FieldChainTest, AFailedCheckTakesTheFocusBackOnceAndDropsWhatWasTypedAhead) {
    int checks = 0;
    chain.add(a, {.leave = [&] {
                  ++checks;
                  return a->text() == u"jó"_s;
              }});
    chain.add(b);
    showOn(a);
    // Without an event turn between Enter and the next key, as from a fast hand.
    QTest::keyClick(a, Qt::Key_Return);
    QKeyEvent ahead(QEvent::KeyPress, Qt::Key_X, Qt::NoModifier, u"x"_s);
    QApplication::sendEvent(b, &ahead);
    QCoreApplication::processEvents();
    EXPECT_EQ(checks, 1);
    EXPECT_EQ(focusName(), u"a"_s);
    EXPECT_EQ(b->text(), QString());
    enter(u"jó"_s);
    EXPECT_EQ(checks, 2);
    EXPECT_EQ(focusName(), u"b"_s);
    a->clear();
    pressKey(Qt::Key_Up);
    chain.stopChecks();
    pressKey(Qt::Key_Return);
    EXPECT_EQ(checks, 2); // a form that closes asks nothing more
}

TEST_F(FieldChainTest, HelpAndOwnKeysComeBeforeTheChain) {
    int helped = 0;
    chain.add(a, {.help = [&] { ++helped; }, .key = [&](int key) { return key == Qt::Key_Down; }});
    chain.add(b);
    showOn(a);
    pressKey(Qt::Key_F1);
    EXPECT_EQ(helped, 1);
    EXPECT_EQ(pressKey(Qt::Key_Down), u"a"_s);
    pressKey(Qt::Key_Enter); // the key of the number block too
    EXPECT_EQ(focusName(), u"b"_s);
}

TEST_F(FieldChainTest, MasksKeepTheirLiteralsAndBlanks) {
    auto* date = new MaskedField(MaskedField::Mask::date, &window);
    auto* time = new MaskedField(MaskedField::Mask::time, &window);
    layout->addWidget(date);
    layout->addWidget(time);
    chain.add(date);
    chain.add(time);
    EXPECT_EQ(date->value(), u"    .  .  ."_s);
    EXPECT_EQ(time->value(), u"  :  "_s);
    EXPECT_EQ(MaskedField(MaskedField::Mask::account).value(), u"        -        -        "_s);
    EXPECT_EQ(MaskedField(MaskedField::Mask::taxNumber).value(), u"        - -  "_s);
    EXPECT_EQ(MaskedField(MaskedField::Mask::period).value(), u"    .  "_s);
    showOn(date);
    typeText(u"20080403"_s);
    EXPECT_EQ(date->value(), u"2008.04.03."_s);
    date->setValue(u"1999.12.31."_s);
    pressKey(Qt::Key_Return);
    typeText(u"9x05"_s);
    EXPECT_EQ(time->value(), u"90:5 "_s);
    pressKey(Qt::Key_Up);
    typeText(u"2008 0401"_s); // selected on focus: typing replaces all; a blank is a place left empty
    EXPECT_EQ(date->value().left(4), u"2008"_s);
    date->clearValue();
    EXPECT_TRUE(date->isEmptyMask());
}

// Several keys may wait in the queue while a box or a slow step holds the program up.
TEST_F(FieldChainTest, KeysTypedAheadAreNotWrittenOver) {
    chain.add(a);
    chain.add(b);
    showOn(a);
    QTest::keyClick(a, Qt::Key_Return);
    QTest::keyClick(b, Qt::Key_1); // no event loop between
    QTest::keyClick(b, Qt::Key_2);
    QCoreApplication::processEvents();
    typeText(u"3"_s);
    EXPECT_EQ(b->text(), u"123"_s);
}

TEST_F(FieldChainTest, FocusedFieldIsCheckedOnDemand) {
    int checks = 0;
    bool good = false;
    chain.add(a, {.leave = [&] {
                  ++checks;
                  return good;
              }});
    chain.add(b);
    showOn(a);
    EXPECT_FALSE(chain.checkFocused());
    EXPECT_EQ(focusName(), u"a"_s);
    good = true;
    EXPECT_TRUE(chain.checkFocused());
    b->setFocus();
    EXPECT_TRUE(chain.checkFocused()); // settles what was left
    EXPECT_EQ(checks, 3);
    {
        const ChecksPaused outer(chain);
        { const ChecksPaused inner(chain); }
        a->setFocus();
        EXPECT_TRUE(chain.checkFocused());
        b->setFocus();
    }
    QCoreApplication::processEvents();
    EXPECT_EQ(checks, 3); // what was left during the pause is not checked after it either
    a->setFocus();
    EXPECT_TRUE(chain.checkFocused());
    EXPECT_EQ(checks, 4);
}

// What a report could not carry never enters a field, however it comes; a stored text stays until it is
// edited.
TEST_F(FieldChainTest, FieldsTakeTheLettersOfTheCodePage) {
    auto* note = new NoteEdit(&window);
    auto* status = new QLabel(&window);
    layout->addWidget(note);
    chain.add(a);
    chain.add(b);
    chain.adopt(note);
    chain.setStatusLine(status);
    b->setText(u"漢"_s);
    showOn(a);
    typeText(u"Muñoz"_s);
    EXPECT_EQ(a->text(), u"Munoz"_s);
    EXPECT_TRUE(status->text().contains(u"ñ"_s)) << status->text().toStdString();
    a->setCursorPosition(2);
    typeText(u"漢é"_s);
    EXPECT_EQ(a->text(), u"Muénoz"_s); // and the cursor is where it was
    EXPECT_TRUE(status->text().contains(u"漢"_s));
    QGuiApplication::clipboard()->setText(u"\uFEFFțőke\u200B"_s);
    a->selectAll();
    a->paste();
    EXPECT_EQ(a->text(), u"tőke"_s);
    EXPECT_EQ(b->text(), u"漢"_s);
    note->setFocus();
    note->paste();
    typeText(u"ñ漢"_s);
    EXPECT_EQ(note->toPlainText(), u"tőken"_s);
}

TEST_F(FieldChainTest, SingleDigitsOfDatesAndHoursGetTheirZero) {
    auto* date = new MaskedField(MaskedField::Mask::date, &window);
    auto* time = new MaskedField(MaskedField::Mask::time, &window);
    layout->addWidget(date);
    layout->addWidget(time);
    QString seen;
    chain.add(date, {.leave = [&] {
                  seen = date->value();
                  return true;
              }});
    chain.add(time);
    showOn(date);
    typeText(u"2008.4.1."_s);
    pressKey(Qt::Key_Return);
    EXPECT_EQ(seen, u"2008.04.01."_s); // the check sees the mended date
    typeText(u"9:30"_s);
    pressKey(Qt::Key_Up);
    EXPECT_EQ(time->value(), u"09:30"_s);
    time->clearValue();
    pressKey(Qt::Key_Return);
    pressKey(Qt::Key_Up);
    EXPECT_TRUE(time->isEmptyMask());
}

// Without this, what is typed after the click is lost behind the end of the mask.
TEST_F(FieldChainTest, ClickIntoAnEmptyMaskGoesToItsFirstPlace) {
    auto* date = new MaskedField(MaskedField::Mask::date, &window);
    layout->addWidget(date);
    chain.add(date);
    showOn(date);
    QTest::mouseClick(date, Qt::LeftButton, {}, QPoint(date->width() - 5, date->height() / 2));
    QCoreApplication::processEvents();
    typeText(u"20080403"_s);
    EXPECT_EQ(date->value(), u"2008.04.03."_s);
}

TEST_F(FieldChainTest, OnlyAChangedFieldIsCheckedBeforeItsContentIsTaken) {
    int checks = 0;
    chain.add(a, {.leave = [&] {
                  ++checks;
                  return true;
              }});
    chain.add(b);
    a->setText(u"x"_s);
    showOn(a);
    EXPECT_TRUE(chain.checkFocusedIfChanged());
    EXPECT_EQ(checks, 0);
    typeText(u"y"_s);
    EXPECT_TRUE(chain.checkFocusedIfChanged());
    EXPECT_EQ(checks, 1);
    chain.takeAsUnchanged();
    {
        // A list over the form: what it puts into the field is a change, though the focus was away meanwhile.
        QLineEdit list(&window);
        list.show();
        const ChecksPaused paused(chain);
        list.setFocus();
        a->setText(u"z"_s);
        a->setFocus();
    }
    EXPECT_TRUE(chain.checkFocusedIfChanged());
    EXPECT_EQ(checks, 2);
}

} // namespace vandrel::test
