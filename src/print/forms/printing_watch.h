// Keeps the windows alive while a document is printed or saved: shows how far it is, swallows everything that
// is typed or clicked meanwhile, and asks whether to stop when Esc is pressed or the window is to be closed.
#pragma once

#include "foundation/dialogue.h"
#include "platform/event_turn.h"
#include "print/print_engine.h"

#include <QObject>

namespace vandrel {

class PrintingWatch : public QObject {
    Q_OBJECT

  public:
    // Is engine.pagePrinted as long as it lives. show is told the pages done and all of them, a
    // few times a second. Input is swallowed from the first page on; before it a file name may be asked.
    PrintingWatch(PrintEngine& engine, Dialogue& dialogue, std::function<void(int, int)> show);
    ~PrintingWatch() override;

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    bool pagePrinted(int done, int total);
    bool goesOn();
    void swallowInput(bool swallow);

    PrintEngine& m_engine;
    Dialogue& m_dialogue;
    std::function<void(int, int)> m_show;
    std::function<bool(int, int)> m_before; // the port as it was
    EventTurn m_turn;
    bool m_swallowing = false;
    bool m_stopWanted = false;
};

} // namespace vandrel
