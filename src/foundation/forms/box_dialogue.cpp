#include "foundation/forms/box_dialogue.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QGridLayout>
#include <QKeyEvent>
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

// Keeps the keys of a box away until nothing was typed for a while.
class TypedAhead : public QObject {
  public:
    TypedAhead(QMessageBox& box, int quiet) : m_box(box), m_quiet(quiet) {
        m_sinceKey.start();
        qApp->installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        switch (event->type()) {
        case QEvent::Paint:
            if (watched != &m_box || m_seen) break;
            m_seen = true;
            m_sinceKey.restart();
            break;
        case QEvent::ShortcutOverride: // comes before the key itself and before any shortcut of it
        case QEvent::KeyPress:
            if (!isAnswer(static_cast<QKeyEvent*>(event)->key())) {
                event->accept(); // an accepted override keeps shortcuts away
                return true;
            }
            break;
        case QEvent::KeyRelease:
            m_taken = 0;
            break;
        default:
            break;
        }
        return false;
    }

  private:
    // One key stroke arrives several times, at the window, its shortcuts and the widget.
    bool isAnswer(int key) {
        if (m_taken != 0 && key == m_taken) return true;
        const bool quiet = m_sinceKey.restart() >= m_quiet;
        if (quiet) m_taken = key;
        return quiet;
    }

    QMessageBox& m_box;
    const int m_quiet;
    QElapsedTimer m_sinceKey;
    int m_taken = 0; // the key that is on its way to the box
    bool m_seen = false;
};

} // namespace

Answer BoxDialogue::show(const Message& message) {
    QMessageBox box(QApplication::activeWindow());
    box.setObjectName(u"uzenet"_s);
    box.setWindowTitle(message.title);
    box.setTextFormat(Qt::PlainText); // data in a message is never mark-up
    box.setText(message.text);
    box.setIcon(boxIcon(message.icon));
    const TypedAhead typedAhead(box, m_quiet);
    if (message.buttons == Buttons::ok) {
        box.addButton(u"Rendben"_s, QMessageBox::AcceptRole);
        holdTitle(box);
        box.exec();
        return Answer::ok;
    }
    // A button of the "no" role would answer Esc by itself.
    const bool buttonsOnly = message.asking == Asking::writes;
    QPushButton* yes =
        box.addButton(u"&Igen"_s, buttonsOnly ? QMessageBox::ActionRole : QMessageBox::YesRole);
    QPushButton* no = box.addButton(u"&Nem"_s, buttonsOnly ? QMessageBox::ActionRole : QMessageBox::NoRole);
    box.setDefaultButton(message.asking == Asking::loss ? no : yes);
    if (!buttonsOnly) box.setEscapeButton(no);
    holdTitle(box);
    // One letter answers: the clerk's hands stay where they are.
    QObject::connect(new QShortcut(Qt::Key_I, &box), &QShortcut::activated, yes, &QPushButton::click);
    QObject::connect(new QShortcut(Qt::Key_N, &box), &QShortcut::activated, no, &QPushButton::click);
    box.exec();
    return box.clickedButton() == yes ? Answer::yes : Answer::no;
}

} // namespace vandrel
