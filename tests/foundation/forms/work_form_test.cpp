// What every working form does: the guard around a run, Esc and Enter, its place on the screen; and the parts
// that forms are made of.
#include "foundation/forms/work_form.h"

#include "foundation/forms/form_parts.h"
#include "foundation/forms/progress_line.h"
#include "foundation/forms/window_helpers.h"
#include "support/keyboard.h"
#include "support/test_workstation.h"

#include <QPushButton>
#include <QScreen>

using namespace Qt::StringLiterals;

namespace vandrel::test {

namespace {

struct Form : WorkForm {
    using WorkForm::Run;
    using WorkForm::WorkForm;
    void closeWished() override { ++wishes; }
    int wishes = 0;
};

} // namespace

TEST(WorkFormRun, StartsOnceAndKeepsTheFormOpen) {
    TestWorkstation test;
    QWidget opener;
    opener.show();
    Form form(test.workstation, &opener);
    ProgressLine line(form, ProgressLine::Figure::count, u"Darab"_s, u"Adatlapok:"_s);
    form.open();
    {
        const Form::Run run(form);
        EXPECT_TRUE(static_cast<bool>(run));
        EXPECT_FALSE(static_cast<bool>(Form::Run(form))); // and its end is not the end of the first
        EXPECT_TRUE(form.isRunning());
        EXPECT_FALSE(line.stopWished());
        QTest::keyClick(&form, Qt::Key_Escape);
        EXPECT_TRUE(form.isVisible());
        EXPECT_EQ(form.wishes, 1);
        EXPECT_TRUE(line.stopWished());
        EXPECT_FALSE(line.stopWished()); // told once
        QTest::keyClick(&form, Qt::Key_Escape);
        EXPECT_FALSE(line.ending());
        opener.hide();
        EXPECT_TRUE(line.ending());
        opener.show();
    }
    EXPECT_FALSE(form.isRunning());
    {
        const Form::Run next(form);
        EXPECT_FALSE(line.stopWished()); // the wish was for the run before
    }
    form.setEnabled(false); // another window is in front of it
    EXPECT_FALSE(form.close());
    form.setEnabled(true);
    QTest::keyClick(&form, Qt::Key_Escape);
    EXPECT_FALSE(form.isVisible());
    EXPECT_TRUE(opener.isEnabled());
}

TEST(WorkFormKeys, EnterPressesTheFocusedButtonOfAnyKind) {
    TestWorkstation test;
    Form form(test.workstation, nullptr);
    auto* plain = new QPushButton(&form);
    int pressed = 0;
    QObject::connect(plain, &QPushButton::clicked, [&] { ++pressed; });
    form.open();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
    plain->setFocus();
    pressKey(Qt::Key_Return);
    pressKey(Qt::Key_Enter);
    EXPECT_EQ(pressed, 2);
}

TEST(WindowPlace, AWindowStaysInsideTheScreenWithItsFrame) {
    QWidget window;
    const QRect area = window.screen()->availableGeometry();
    window.resize(area.size() + QSize(300, 200));
    window.show();
    centreOnScreen(window);
    QCoreApplication::processEvents();
    EXPECT_TRUE(area.contains(window.frameGeometry()));
    // One that cannot be so small keeps its beginning in sight.
    window.setMinimumSize(area.size() + QSize(100, 100));
    centreOnScreen(window);
    EXPECT_EQ(window.pos(), area.topLeft());
    window.setMinimumSize(0, 0);
    window.resize(300, 200);
    centreOnScreen(window);
    EXPECT_NEAR(window.frameGeometry().center().x(), area.center().x(), 6);

    window.showMaximized();
    QCoreApplication::processEvents();
    const QRect maximised = window.geometry();
    centreOnScreen(window);
    QCoreApplication::processEvents();
    EXPECT_TRUE(window.isMaximized());
    EXPECT_EQ(window.geometry(), maximised);
}

TEST(FormParts, NamesTellCaptionAndValue) {
    ValueLabel value(u"Output"_s, u"Output rekord: "_s);
    EXPECT_EQ(value.accessibleName(), u"Output rekord"_s);
    value.setText(u"<b>12</b>"_s);
    EXPECT_EQ(value.accessibleName(), u"Output rekord: <b>12</b>"_s);
    value.clear();
    EXPECT_EQ(value.accessibleName(), u"Output rekord"_s);
    ValueLabel drive(u"Meghajto"_s, u"Meghajtó"_s);
    drive.setText(u"Meghajtó: C - "_s); // brings its caption along
    EXPECT_EQ(drive.accessibleName(), u"Meghajtó: C -"_s);
    const std::unique_ptr<QPushButton> button(makeButton(u"Tarol"_s, u"&Tárol"_s));
    EXPECT_EQ(button->accessibleName(), u"Tárol"_s);
}

} // namespace vandrel::test
