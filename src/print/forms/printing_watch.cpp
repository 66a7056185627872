#include "print/forms/printing_watch.h"

#include <QCoreApplication>
#include <QKeyEvent>

#include <utility>

using namespace Qt::StringLiterals;

namespace vandrel {

namespace {
constexpr std::chrono::milliseconds turnEvery{50};
}

PrintingWatch::PrintingWatch(PrintEngine& engine, Dialogue& dialogue, std::function<void(int, int)> show)
    : m_engine(engine), m_dialogue(dialogue), m_show(std::move(show)),
      m_before(std::exchange(engine.pagePrinted,
                             [this](int done, int total) { return pagePrinted(done, total); })),
      m_turn([] { QCoreApplication::processEvents(); }, turnEvery) {}

PrintingWatch::~PrintingWatch() {
    m_engine.pagePrinted = std::move(m_before);
    if (!m_swallowing) return;
    m_turn.serve(); // what was typed while the last pages went out is meant for nobody
    swallowInput(false);
}

void PrintingWatch::swallowInput(bool swallow) {
    m_swallowing = swallow;
    if (swallow)
        QCoreApplication::instance()->installEventFilter(this);
    else
        QCoreApplication::instance()->removeEventFilter(this);
}

bool PrintingWatch::pagePrinted(int done, int total) {
    if (!m_swallowing) {
        swallowInput(true);
        m_show(done, total);
    }
    if (m_turn.due()) {
        if (m_turn.displayDue()) m_show(done, total);
        m_turn.serve();
    }
    return !std::exchange(m_stopWanted, false) || goesOn();
}

bool PrintingWatch::goesOn() {
    swallowInput(false);
    if (m_engine.busy) m_engine.busy(false); // no hourglass over the question
    const bool stop = m_dialogue.ask(u"Megszakítja a nyomtatást?"_s, u"Nyomtatás"_s);
    if (m_engine.busy) m_engine.busy(true);
    swallowInput(true);
    return !stop;
}

bool PrintingWatch::eventFilter(QObject*, QEvent* event) {
    switch (event->type()) {
    case QEvent::KeyPress:
        if (static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) m_stopWanted = true;
        return true;
    case QEvent::Close:
        m_stopWanted = true;
        event->ignore();
        return true;
    case QEvent::KeyRelease:
    case QEvent::Shortcut:
    case QEvent::ShortcutOverride:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::NonClientAreaMouseButtonDblClick:
    case QEvent::Wheel:
    case QEvent::ContextMenu:
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::Drop:
        return true;
    default:
        return false;
    }
}

} // namespace vandrel
