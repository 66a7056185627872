// What every input form relies on: the way through the fields, their colours, and checks that give the focus
// back.
#include "foundation/forms/field_chain.h"
#include "foundation/forms/masked_field.h"
#include "support/keyboard.h"

#include <gtest/gtest.h>

#include <QClipboard>
#include <QGuiApplication>
#include <QLineEdit>
#include <QVBoxLayout>

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
};

TEST_F(FieldChainTest, EnterAndArrowsSkipWhatIsHiddenOrDisabled) {
    QLineEdit* a = edit("a");
    QLineEdit* hidden = edit("hidden");
    QLineEdit* disabled = edit("disabled");
    QLineEdit* b = edit("b");
    for (QLineEdit* field : {a, hidden, disabled, b})
        chain.add(field);
    hidden->hide();
    disabled->setEnabled(false);
    b->setText(QStringLiteral("régi"));
    showOn(a);
    pressKey(Qt::Key_Return);
    EXPECT_EQ(focusName(), QStringLiteral("b"));
    EXPECT_EQ(b->selectedText(), QStringLiteral("régi"));
    EXPECT_EQ(b->palette().color(QPalette::Base), QColor(255, 255, 255));
    EXPECT_EQ(b->palette().color(QPalette::Text), QColor(192, 0, 0));
    EXPECT_EQ(a->palette().color(QPalette::Base), QColor(192, 192, 192));
    typeText(QStringLiteral("új ő"));
    EXPECT_EQ(b->text(), QStringLiteral("új ő"));
    pressKey(Qt::Key_Up);
    EXPECT_EQ(focusName(), QStringLiteral("a"));
    EXPECT_EQ(b->cursorPosition(), 0); // a long text left shows its beginning
    EXPECT_FALSE(b->hasSelectedText());
    pressKey(Qt::Key_Down);
    EXPECT_EQ(focusName(), QStringLiteral("b"));
    pressKey(Qt::Key_Return);
    EXPECT_EQ(focusName(), QStringLiteral("b")); // the last one keeps the focus
}

TEST_F(FieldChainTest, NumericFieldsDropOtherKeys) {
    QLineEdit* a = edit("a");
    chain.add(a, {.numeric = true});
    showOn(a);
    typeText(QStringLiteral("1x2,ő.-3"));
    EXPECT_EQ(a->text(), QStringLiteral("12,3"));
    pressKey(Qt::Key_Backspace);
    EXPECT_EQ(a->text(), QStringLiteral("12,"));
    QGuiApplication::clipboard()->setText(QStringLiteral("4x"));
    a->paste();
    EXPECT_EQ(a->text(), QStringLiteral("12,"));
    QGuiApplication::clipboard()->setText(QStringLiteral("45"));
    a->paste();
    EXPECT_EQ(a->text(), QStringLiteral("12,45"));
    // A stored value is shown as it is, and can be mended letter by letter.
    a->setText(QStringLiteral("H-1117"));
    EXPECT_EQ(a->text(), QStringLiteral("H-1117"));
    pressKey(Qt::Key_Backspace);
    typeText(QStringLiteral("8"));
    EXPECT_EQ(a->text(), QStringLiteral("H-1118"));
    pressKey(Qt::Key_Home);
    pressKey(Qt::Key_Delete);
    pressKey(Qt::Key_Delete);
    EXPECT_EQ(a->text(), QStringLiteral("1118"));
}

TEST_F(FieldChainTest, AFailedCheckTakesTheFocusBackOnceAndDropsWhatWasTypedAhead) {
    QLineEdit* a = edit("a");
    QLineEdit* b = edit("b");
    int checks = 0;
    chain.add(a, {.leave = [&] {
                  ++checks;
                  return a->text() == QStringLiteral("jó");
              }});
    chain.add(b);
    showOn(a);
    // Without an event turn between Enter and the next key, as from a fast hand.
    QTest::keyClick(a, Qt::Key_Return);
    QKeyEvent ahead(QEvent::KeyPress, Qt::Key_X, Qt::NoModifier, QStringLiteral("x"));
    QApplication::sendEvent(b, &ahead);
    QCoreApplication::processEvents();
    EXPECT_EQ(checks, 1);
    EXPECT_EQ(focusName(), QStringLiteral("a"));
    EXPECT_EQ(b->text(), QString());
    typeText(QStringLiteral("jó"));
    pressKey(Qt::Key_Return);
    EXPECT_EQ(checks, 2);
    EXPECT_EQ(focusName(), QStringLiteral("b"));
    a->clear();
    pressKey(Qt::Key_Up);
    chain.blockChecks(true);
    pressKey(Qt::Key_Return);
    EXPECT_EQ(checks, 2); // a form that closes asks nothing more
}

TEST_F(FieldChainTest, HelpAndOwnKeysComeBeforeTheChain) {
    QLineEdit* a = edit("a");
    QLineEdit* b = edit("b");
    int helped = 0;
    chain.add(a, {.help = [&] { ++helped; }, .key = [&](int key) { return key == Qt::Key_Down; }});
    chain.add(b);
    showOn(a);
    pressKey(Qt::Key_F1);
    EXPECT_EQ(helped, 1);
    pressKey(Qt::Key_Down);
    EXPECT_EQ(focusName(), QStringLiteral("a"));
    pressKey(Qt::Key_Enter); // the key of the number block too
    EXPECT_EQ(focusName(), QStringLiteral("b"));
}

TEST_F(FieldChainTest, MasksKeepTheirLiteralsAndBlanks) {
    auto* date = new MaskedField(MaskedField::Mask::date, &window);
    auto* time = new MaskedField(MaskedField::Mask::time, &window);
    layout->addWidget(date);
    layout->addWidget(time);
    chain.add(date);
    chain.add(time);
    EXPECT_EQ(date->value(), QStringLiteral("    .  .  ."));
    EXPECT_EQ(time->value(), QStringLiteral("  :  "));
    EXPECT_EQ(MaskedField(MaskedField::Mask::account).value(), QStringLiteral("        -        -        "));
    EXPECT_EQ(MaskedField(MaskedField::Mask::taxNumber).value(), QStringLiteral("        - -  "));
    EXPECT_EQ(MaskedField(MaskedField::Mask::period).value(), QStringLiteral("    .  "));
    showOn(date);
    typeText(QStringLiteral("20080403"));
    EXPECT_EQ(date->value(), QStringLiteral("2008.04.03."));
    date->setValue(QStringLiteral("1999.12.31."));
    pressKey(Qt::Key_Return);
    typeText(QStringLiteral("9x05"));
    EXPECT_EQ(time->value(), QStringLiteral("90:5 "));
    pressKey(Qt::Key_Up);
    typeText(
        QStringLiteral("2008 0401")); // selected on focus: typing replaces all; a blank is a place left empty
    EXPECT_EQ(date->value().left(4), QStringLiteral("2008"));
    date->clearValue();
    EXPECT_TRUE(date->isEmptyMask());
}

// Several keys may wait in the queue while a box or a slow step holds the program up.
TEST_F(FieldChainTest, KeysTypedAheadAreNotWrittenOver) {
    QLineEdit* a = edit("a");
    QLineEdit* b = edit("b");
    chain.add(a);
    chain.add(b);
    showOn(a);
    QTest::keyClick(a, Qt::Key_Return);
    QTest::keyClick(b, Qt::Key_1); // no event loop between
    QTest::keyClick(b, Qt::Key_2);
    QCoreApplication::processEvents();
    typeText(QStringLiteral("3"));
    EXPECT_EQ(b->text(), QStringLiteral("123"));
}

TEST_F(FieldChainTest, FocusedFieldIsCheckedOnDemand) {
    QLineEdit* a = edit("a");
    QLineEdit* b = edit("b");
    int checks = 0;
    bool good = false;
    chain.add(a, {.leave = [&] {
                  ++checks;
                  return good;
              }});
    chain.add(b);
    showOn(a);
    EXPECT_FALSE(chain.checkFocused());
    EXPECT_EQ(focusName(), QStringLiteral("a"));
    good = true;
    EXPECT_TRUE(chain.checkFocused());
    b->setFocus();
    EXPECT_TRUE(chain.checkFocused()); // settles what was left
    EXPECT_EQ(checks, 3);
    chain.blockChecks(true);
    a->setFocus();
    EXPECT_TRUE(chain.checkFocused());
    EXPECT_EQ(checks, 3);
}

} // namespace vandrel::test
