// The one place where a fault that nobody handled reaches the user: it is shown in a box and the program goes
// on. Anything else that is thrown is a mistake of ours and ends the program.
#pragma once

#include "foundation/dialogue.h"

#include <QApplication>

#include <functional>

namespace vandrel {

// Runs one delivery of an event; a Fault out of it is shown with the title "Hiba" and false is given.
bool deliverShowingFaults(Dialogue* dialogue, const std::function<bool()>& deliver);

class Application : public QApplication {
    Q_OBJECT

  public:
    Application(int& argc, char** argv);

    // Until a dialogue is named faults pass through.
    void showFaultsIn(Dialogue& dialogue) { m_dialogue = &dialogue; }

    bool notify(QObject* receiver, QEvent* event) override;

  private:
    Dialogue* m_dialogue = nullptr;
};

// The icon of all windows.
QIcon programIcon();

} // namespace vandrel
