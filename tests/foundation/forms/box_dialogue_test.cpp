// The program's boxes: keys typed ahead answer nothing, and some questions are not answered by accident.
#include "foundation/forms/box_dialogue.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace vandrel::test {

namespace {

constexpr int quiet = 300; // milliseconds

// Shows the question and meanwhile does this to its box.
Answer answerTo(Asking asking, int quietBeforeKeys, const std::function<void(QMessageBox&)>& meanwhile) {
    BoxDialogue dialogue(quietBeforeKeys);
    QTimer::singleShot(0, [&] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_NE(box, nullptr);
        meanwhile(*box);
    });
    return dialogue.show({u"Kérdés?"_s, u"Cím"_s, Icon::question, Buttons::yesNo, asking});
}

void press(QMessageBox& box, Qt::Key key) {
    QTest::keyClick(&box, key);
    QCoreApplication::processEvents();
}

} // namespace

TEST(BoxDialogue, KeysTypedAheadAnswerNothingAndAreDropped) {
    const Answer answer = answerTo(Asking::plain, quiet, [](QMessageBox& box) {
        for (const Qt::Key key : {Qt::Key_I, Qt::Key_Return, Qt::Key_Space, Qt::Key_Escape, Qt::Key_I}) {
            press(box, key);
            ASSERT_TRUE(box.isVisible());
        }
        // Each of them starts the waiting anew.
        QTest::qWait(quiet * 2 / 3);
        press(box, Qt::Key_I);
        QTest::qWait(quiet * 2 / 3);
        press(box, Qt::Key_I);
        ASSERT_TRUE(box.isVisible());
        QTest::qWait(quiet + 50);
        press(box, Qt::Key_N);
        EXPECT_FALSE(box.isVisible());
    });
    EXPECT_EQ(answer, Answer::no);
}

TEST(BoxDialogue, AMouseClickAnswersAtOnce) {
    EXPECT_EQ(answerTo(Asking::plain, quiet,
                       [](QMessageBox& box) {
                           QTest::mouseClick(box.defaultButton(), Qt::LeftButton);
                           EXPECT_FALSE(box.isVisible());
                       }),
              Answer::yes);
}

TEST(BoxDialogue, HowAQuestionIsPutDecidesWhatEnterAndEscAre) {
    const auto pressing = [](Qt::Key key) { return [key](QMessageBox& box) { press(box, key); }; };
    EXPECT_EQ(answerTo(Asking::plain, 0, pressing(Qt::Key_Return)), Answer::yes);
    EXPECT_EQ(answerTo(Asking::plain, 0, pressing(Qt::Key_Escape)), Answer::no);
    EXPECT_EQ(answerTo(Asking::loss, 0, pressing(Qt::Key_Return)), Answer::no);
    EXPECT_EQ(answerTo(Asking::loss, 0, pressing(Qt::Key_I)), Answer::yes);
    EXPECT_EQ(answerTo(Asking::writes, 0,
                       [](QMessageBox& box) {
                           press(box, Qt::Key_Escape);
                           EXPECT_TRUE(box.isVisible());
                           box.close();
                           EXPECT_TRUE(box.isVisible());
                           press(box, Qt::Key_I);
                       }),
              Answer::yes);
}

} // namespace vandrel::test
