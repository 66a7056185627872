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

#include <type_traits>

using namespace Qt::StringLiterals;

namespace vandrel {

namespace {

// How the forms that are built are opened, by the name that the menu map gives; entries of other forms are
// disabled. A form that is steered by its entry (code, titles) takes it.
template<class Form>
void openByEntry(Program& program, const MenuEntry& entry) {
    if constexpr (std::is_constructible_v<Form, Workstation&, QWidget*, const MenuEntry&>)
        program.openForm<Form>(entry);
    else
        program.openForm<Form>();
}

void openNewSheet(Program& program, const MenuEntry&) {
    program.makeForm<tetad>().Uj();
}

struct FormOpener {
    std::string_view form;
    void (*open)(Program& program, const MenuEntry& entry);
    std::string_view onlyCode = {}; // the one code that the form knows so far; empty: all
};

constexpr FormOpener openers[] = {
    {"tetad", openNewSheet},
    {"statisztForm", openByEntry<statisztForm>},
    {"levForm", openByEntry<levForm>, "0"},
    {"flujForm", openByEntry<flujForm>},
    {"intad", openByEntry<intad>},
    {"gepazonform", openByEntry<gepazonform>},
    {"frmAbout", openByEntry<frmAbout>},
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
    for (const MenuEntry& entry : menuMap())
        for (const FormOpener& opener : openers) {
            if (entry.form != opener.form) continue;
            if (!opener.onlyCode.empty() && entry.code != opener.onlyCode) continue;
            m_mainWindow->setOpener(menuText(entry.name),
                                    [this, &entry, open = opener.open] { open(*this, entry); });
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
