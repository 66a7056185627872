// The running program: the main window and every form with its opener. It alone knows all forms; what it runs
// on (folder, clock, dialogue, whether another instance runs) is given to it, so that the tests and the
// demonstration drive the very same windows.
#pragma once

#include "app/printing.h"
#include "foundation/forms/nemform.h"
#include "foundation/forms/tetindul.h"
#include "foundation/forms/work_form.h"
#include "foundation/workstation.h"

#include <QPointer>
#include <QTimer>

#include <functional>
#include <memory>

namespace vandrel {

class Program {
  public:
    // The print engine is made here, unless the station brings one. otherInstanceRuns is asked at every
    // activation of the main window.
    Program(Workstation& station, std::function<bool()> otherInstanceRuns);
    ~Program();
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    // Examines the data files and shows the main window. False: the program cannot run, the user has been
    // told why. Faults pass through.
    bool start();

    Workstation& station() { return m_station; }
    tetindul& mainWindow() { return *m_mainWindow; }
    nemform& statusWindow() { return m_statusWindow; }
    // The working form that stands, or null.
    WorkForm* currentForm() const { return m_form; }
    bool ended() const { return m_ended; }

    // For the table of openers. Makes a form that is forgotten when it closes; it opens itself when its
    // content is there.
    template<class Form, class... More>
    Form& makeForm(const More&... more) {
        auto* form = new Form(m_station, m_mainWindow.get(), more...);
        adopt(form);
        return *form;
    }
    // The same, opened at once before the main window.
    template<class Form, class... More>
    Form& openForm(const More&... more) {
        Form& form = makeForm<Form>(more...);
        form.open();
        return form;
    }

  private:
    void wire();
    void adopt(WorkForm* form);
    void end();

    Workstation& m_station;
    std::unique_ptr<Printing> m_printing;
    nemform m_statusWindow;
    std::unique_ptr<tetindul> m_mainWindow;
    std::function<bool()> m_otherInstanceRuns;
    QPointer<WorkForm> m_form;
    bool m_ended = false;
    QTimer m_checkTimer;
};

// Runs the program in the folder of its executable; gives the process's exit code.
int runProgram(int argc, char** argv);

} // namespace vandrel
