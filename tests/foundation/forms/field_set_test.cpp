// A form made from its field table: keys, limits, masks, lists, checks, and the way to the record and back.
#include "foundation/forms/field_set.h"

#include "support/keyboard.h"
#include "support/test_workstation.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace vandrel::test {

using namespace Qt::StringLiterals;

namespace {

struct Visitor {
    QString name, town, born, sex, count, key;
};

constexpr FieldRow<QString Visitor::*> table[] = {
    {&Visitor::key, {.name = "KEY", .place = FieldPlace::none}},
    {&Visitor::name, {.name = "NAME", .label = u"Név:"}},
    {&Visitor::town, {.name = "TOWN", .label = u"Lakhely:", .accessible = u"Lakhely: város", .limit = 4}},
    {&Visitor::born,
     {.name = "BORN", .label = u"Született:", .shape = FieldShape::date, .dateCheck = DateCheck::birth}},
    {&Visitor::sex, {.name = "SEX", .label = u"Nem:", .limit = 1, .list = PickMarker::Nem}},
    {&Visitor::count, {.name = "COUNT", .numeric = true, .zeroWhenEmpty = true, .place = FieldPlace::aside}},
};
static_assert(noFieldTwice(table));

class FieldSetTest : public testing::Test {
  protected:
    FieldSetTest() {
        auto* column = new QVBoxLayout(&form);
        for (const auto& row : table)
            if (fields.input(row.key) != nullptr) column->addWidget(fields.input(row.key));
    }

    void show() {
        fields.buildChain();
        form.show();
        form.activateWindow();
        SelectAll(fields[&Visitor::name]);
        QCoreApplication::processEvents();
    }

    TestWorkstation machine;
    QWidget form;
    FieldSet<QString Visitor::*> fields{machine.workstation, &form, table};
};

} // namespace

TEST_F(FieldSetTest, FieldsGoThroughTheRecordAndBack) {
    EXPECT_EQ(fields[&Visitor::key], nullptr);
    int changes = 0;
    int shown = 0;
    fields.rules(&Visitor::town).changed = [&] { ++changes; };
    fields.rules(&Visitor::town).shown.push_back([&] { ++shown; });
    fields.write(Visitor{u"Ács"_s, u"Szeged"_s, {}, u"2"_s, u"7"_s, u"K1"_s});
    EXPECT_EQ(changes, 0); // a record put on the form is no change by hand
    EXPECT_EQ(shown, 1);
    EXPECT_EQ(fields.text(&Visitor::town), u"Szeged"_s); // longer than may be typed, and whole all the same
    EXPECT_EQ(fields.text(&Visitor::born), u"    .  .  ."_s);
    fields.setText(&Visitor::town, u"Ada"_s);
    EXPECT_EQ(changes, 1);
    Visitor visitor;
    fields.read(visitor);
    EXPECT_EQ(visitor.town, u"Ada"_s);
    EXPECT_EQ(visitor.count, u"7"_s);
    EXPECT_TRUE(visitor.key.isEmpty());
    EXPECT_EQ(*fields.keyOf(u"BORN"), &Visitor::born);
    EXPECT_EQ(fields.keyOf(u"XYZ"), nullptr);
    EXPECT_EQ(fields[&Visitor::town]->accessibleName(), u"Lakhely: város"_s);
    EXPECT_EQ(fields[&Visitor::name]->accessibleName(), u"Név:"_s);
}

TEST_F(FieldSetTest, KeysMeanWhatTheTableSays) {
    QStringList opened;
    fields.setAids(
        {.openList = [&](PickMarker list, QLineEdit*) { opened << QString::number(static_cast<int>(list)); },
         .openCalendar = [&](QLineEdit* field) { opened << field->objectName(); }});
    fields.link(&Visitor::count, &Visitor::sex, &Visitor::name);
    QLabel* meaning = fields.makeMeaning(&Visitor::sex);
    meaning->setParent(&form);
    show();
    EXPECT_EQ(enter(u"Ács"_s), u"TOWN"_s);
    EXPECT_EQ(enter(u"Szeged"_s), u"BORN"_s);
    EXPECT_EQ(fields.text(&Visitor::town), u"Szeg"_s);
    pressKey(Qt::Key_F1);
    machine.dialogue.expect(u"Hibás a születési dátum, kérem javítsa!"_s, u"Hiba!"_s);
    EXPECT_EQ(enter(u"18590101"_s), u"BORN"_s);
    EXPECT_EQ(enter(u"19590101"_s), u"SEX"_s);
    pressKey(Qt::Key_F1);
    EXPECT_EQ(opened, QStringList({u"BORN"_s, u"9"_s}));
    EXPECT_EQ(enter(u"2"_s), u"SEX"_s); // the chain ends here
    EXPECT_EQ(meaning->text(), u"Nő"_s);
    SelectAll(fields[&Visitor::count]);
    EXPECT_EQ(enter(u"x"_s), u"NAME"_s);
    EXPECT_EQ(fields.text(&Visitor::count), u"0"_s);
}

// The form's own check has the word before the field's rule, and a fault keeps nobody in the field.
TEST_F(FieldSetTest, ChecksRunInTheirOrder) {
    QStringList order;
    bool good = false;
    fields.check = [&](const FieldDescription& field, QLineEdit*) {
        order << QString::fromLatin1(field.name);
        return good;
    };
    fields.rules(&Visitor::name).leave = [&]() -> bool {
        order << u"rule"_s;
        throw Fault(5, u"baj"_s);
    };
    show();
    EXPECT_EQ(pressKey(Qt::Key_Return), u"NAME"_s);
    good = true;
    machine.dialogue.expect(u"baj"_s, u"Hiba"_s);
    EXPECT_EQ(pressKey(Qt::Key_Return), u"TOWN"_s);
    EXPECT_EQ(order, QStringList({u"NAME"_s, u"NAME"_s, u"rule"_s}));
}

} // namespace vandrel::test
