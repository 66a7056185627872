#include "foundation/forms/box_dialogue.h"

#include <QApplication>
#include <QGridLayout>
#include <QMessageBox>
#include <QPushButton>
#include <QShortcut>

using namespace Qt::StringLiterals;

namespace vandrel {

namespace {

QMessageBox::Icon boxIcon(Icon icon) {
    switch (icon) {
    case Icon::none:
        return QMessageBox::NoIcon;
    case Icon::information:
        return QMessageBox::Information;
    case Icon::question:
        return QMessageBox::Question;
    case Icon::warning:
        return QMessageBox::Warning;
    case Icon::critical:
        return QMessageBox::Critical;
    }
    return QMessageBox::NoIcon;
}

// A short text must not make the box so narrow that the title bar cuts the title: the layout sets the size of
// a message box, so an empty row holds it open. The title bar's own icon and buttons take their share.
void holdTitle(QMessageBox& box) {
    constexpr int titleButtons = 150; // pixels
    auto* grid = qobject_cast<QGridLayout*>(box.layout());
    if (grid == nullptr) return;
    QFont bold = box.font();
    bold.setBold(true);
    const int width = QFontMetrics(bold).horizontalAdvance(box.windowTitle()) + titleButtons;
    grid->addItem(new QSpacerItem(width, 0), grid->rowCount(), 0, 1, grid->columnCount());
}

} // namespace

Answer BoxDialogue::show(const Message& message) {
    QMessageBox box(QApplication::activeWindow());
    box.setObjectName(u"uzenet"_s);
    box.setWindowTitle(message.title);
    box.setTextFormat(Qt::PlainText); // data in a message is never mark-up
    box.setText(message.text);
    box.setIcon(boxIcon(message.icon));
    if (message.buttons == Buttons::ok) {
        box.addButton(u"Rendben"_s, QMessageBox::AcceptRole);
        holdTitle(box);
        box.exec();
        return Answer::ok;
    }
    QPushButton* yes = box.addButton(u"&Igen"_s, QMessageBox::YesRole);
    QPushButton* no = box.addButton(u"&Nem"_s, QMessageBox::NoRole);
    box.setDefaultButton(yes);
    box.setEscapeButton(no);
    holdTitle(box);
    // One letter answers: the clerk's hands stay where they are.
    QObject::connect(new QShortcut(Qt::Key_I, &box), &QShortcut::activated, yes, &QPushButton::click);
    QObject::connect(new QShortcut(Qt::Key_N, &box), &QShortcut::activated, no, &QPushButton::click);
    box.exec();
    return box.clickedButton() == yes ? Answer::yes : Answer::no;
}

} // namespace vandrel
