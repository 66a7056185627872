#include "app/program.h"

#include "app/application.h"
#include "foundation/file_checks.h"
#include "foundation/forms/box_dialogue.h"
#include "foundation/forms/frmAbout.h"
#include "foundation/forms/window_helpers.h"
#include "foundation/start_checks.h"
#include "platform/code_page.h"
#include "platform/single_instance.h"
#include "reports/forms/flujForm.h"
#include "reports/forms/levForm.h"
#include "settings/forms/gepazonform.h"
#include "settings/forms/intad.h"
#include "settings/forms/kornyform.h"
#include "sheet/counters.h"
#include "sheet/forms/tetad.h"
#include "statistics/forms/statisztForm.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace vandrel {

namespace {

// One line for each menu entry whose screen is built; entries without a line stand disabled in the menu. The
// entry brings the code and the titles that the form is steered by.
struct Wiring {
    const char* menu;
    void (*open)(Program& program, const MenuEntry& entry);
};

template<class Form>
void openPlain(Program& program, const MenuEntry&) {
    program.openForm<Form>();
}

void openNewSheet(Program& program, const MenuEntry&) {
    program.makeForm<tetad>().Uj();
}

void openReport(Program& program, const MenuEntry& entry) {
    program.openForm<levForm>(menuText(entry.code));
}

void openList(Program& program, const MenuEntry& entry) {
    program.openForm<statisztForm>(entry);
}

constexpr Wiring wirings[] = {
    {"adfelv", openNewSheet},
    {"betforg", openList},
    {"haviosszmunk", openList},
    {"haviossz", openList},
    {"osszlist", openList},
    {"tetlist", openList},
    {"egyktgki", openList},
    {"osszlisn", openList},
    {"vizdijstatmenu", openList},
    {"er", openReport},
    {"flmen", openPlain<flujForm>},
    {"int", openPlain<intad>},
    {"gepazon", openPlain<gepazonform>},
    {"nevj", openPlain<frmAbout>},
};

constexpr std::chrono::seconds checkEvery{10};

} // namespace

Program::Program(Workstation& station, std::function<bool()> otherInstanceRuns)
    : m_station(station), m_otherInstanceRuns(std::move(otherInstanceRuns)) {
    m_station.statusNote = &m_statusWindow;
    if (m_station.printing == nullptr) m_printing = std::make_unique<Printing>(m_station);
    if (!m_station.serveEvents) m_station.serveEvents = [] { QCoreApplication::processEvents(); };
    m_mainWindow = std::make_unique<tetindul>(
        m_station, tetindul::Environment{m_otherInstanceRuns, [this] { end(); }, applySeeThrough});
    wire();
}

Program::~Program() {
    delete m_form;
    m_station.statusNote = nullptr;
}

void Program::wire() {
    for (const Wiring& wiring : wirings) {
        const MenuEntry* entry = menuEntry(wiring.menu);
        m_mainWindow->setOpener(QString::fromLatin1(wiring.menu),
                                [this, entry, open = wiring.open] { open(*this, *entry); });
    }
    m_mainWindow->setClockOpener([this] { openForm<kornyform>(); });
}

bool Program::start() {
    code_page::requireCodec();
    if (!examineDataFiles(m_station)) return false;
    // Sheets can be typed without the page's faces too; lists would break their lines elsewhere.
    deliverShowingFaults(&m_station.dialogue, [] {
        requirePageFonts();
        return true;
    });
    // Another instance may be in the middle of a store; this one ends in a moment anyway.
    if (!m_otherInstanceRuns())
        deliverShowingFaults(&m_station.dialogue, [this] {
            repairCounters(m_station);
            return true;
        });
    m_mainWindow->load();
    m_mainWindow->show();
    // What reports and lists read is read through for damage while the clerk does something else.
    QObject::connect(&m_checkTimer, &QTimer::timeout, m_mainWindow.get(),
                     [this] { m_station.files.checks().goOn(filesOfLists); });
    m_checkTimer.start(checkEvery);
    m_mainWindow->activateWindow(); // a screen without a window manager does not do it by itself
    return true;
}

void Program::adopt(WorkForm* form) {
    form->setAttribute(Qt::WA_DeleteOnClose);
    m_form = form;
}

void Program::end() {
    m_ended = true;
    QCoreApplication::exit(0);
}

int runProgram(int argc, char** argv) {
    Application application(argc, argv);
    prepareApplication(application);
    // The folder of the executable is the program's folder: data files are named alone in places.
    const QString folder = QCoreApplication::applicationDirPath();
    QDir::setCurrent(folder);

    BoxDialogue dialogue;
    application.showFaultsIn(dialogue);
    const SystemClock clock;
    ArjPacker packer;
    Workstation station(folder, dialogue, clock, packer);
    const SingleInstance instance(SingleInstance::programName, folder);
    try {
        Program program(station, [&instance] { return instance.otherRuns(); });
        if (!program.start()) return 1;
        return QCoreApplication::exec();
    } catch (const Fault& fault) {
        // Raised before the event loop could show it.
        dialogue.tell(fault.text(), u"Hiba"_s);
        return 1;
    }
}

} // namespace vandrel
