// What one running program is: its folder, its data, the ways to the outside, and the few process-wide
// values. Made once in main() (or by a test on a temporary folder) and passed by reference; there is no other
// global.
#pragma once

#include "foundation/data_files.h"
#include "foundation/dialogue.h"
#include "platform/clock.h"
#include "platform/ini_file.h"
#include "platform/packer.h"

#include <QDir>
#include <QString>

#include <chrono>
#include <functional>

namespace vandrel {

using namespace Qt::StringLiterals;

struct PrintEngine; // the print room's; only carried here
struct StoreSteps;  // the sheet room's; only carried here

struct Workstation {
    Workstation(const QString& programFolder, Dialogue& dialogueToUse, const Clock& clockToUse,
                Packer& packerToUse)
        : folder(programFolder), files(programFolder), setup(QDir(programFolder).filePath(u"setup.ini"_s)),
          dialogue(dialogueToUse), clock(clockToUse), packer(packerToUse) {}

    QString folder; // the program's folder, which is also its working folder; no closing separator
    DataFiles files;
    IniFile setup;
    Dialogue& dialogue;
    const Clock& clock;
    Packer& packer;
    PrintEngine* printing = nullptr;        // set by the program before any form opens
    const StoreSteps* storeSteps = nullptr; // what other rooms write with a sheet; null: nothing
    StatusNote* statusNote = nullptr;       // null: no window, the notes go nowhere
    std::function<void()> serveEvents;      // one turn of the event loop; empty without a window
    // How often a long run calls it; 0: wherever a turn could be due.
    std::chrono::milliseconds turnEvery{20};

    // Process-wide values that cross forms.
    bool Attunes = true;              // see-through windows
    QString reportTarget = u"a:\\"_s; // folder of the report files, with its closing separator
};

} // namespace vandrel
