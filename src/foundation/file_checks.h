// Which data files are known to be whole. A file that was read through stays known while this program alone
// writes to it; what another program has written is read through again.
#pragma once

#include "foundation/data_files.h"
#include "platform/background_check.h"

#include <array>
#include <functional>
#include <memory>
#include <optional>
#include <span>

namespace vandrel {

struct Workstation;

class FileChecks {
  public:
    explicit FileChecks(DataFiles& files) : m_files(files) {}

    // Faults of opening the file.
    bool knownWhole(DataFile file);
    // Begins to read the next of these files that is not known, or goes on with it. Comes back at once; meant
    // to be called every few seconds. Files that cannot be opened are left out.
    void goOn(std::span<const DataFile> files);
    // Reads a file through now, unless it is known. serve is called about every 20 ms, after the time the
    // check has taken so far. unknown: the file was locked all the time. Faults of opening the file.
    BackgroundCheck::Result check(DataFile file, const std::function<void(std::chrono::milliseconds)>& serve);

    // A write waits for the file: the reading gives way and is begun again later.
    void giveWay();
    // The file is closed, to be copied or replaced.
    void forget(DataFile file);

  private:
    struct Running {
        DataFile file;
        qint64 version; // of the file when the reading began
        BackgroundCheck check;
    };

    qint64 versionOf(DataFile file);
    void start(DataFile file);
    void keepResult();

    DataFiles& m_files;
    std::array<std::optional<qint64>, 11> m_whole; // versions of the files that are known
    std::unique_ptr<Running> m_running;
};

// What the month's report and the lists read.
inline constexpr DataFile filesOfReports[] = {DataFile::tetdata, DataFile::tetmod, DataFile::beav};
inline constexpr DataFile filesOfLists[] = {DataFile::tetdata, DataFile::tetmod, DataFile::beav,
                                            DataFile::diagnos};

// Reads through what is not known to be whole. A damaged file is named in a box, and the user decides: false
// when the work is not to be done. work: "a jelentés", as the box calls it. checking gets the name of the
// file that takes longer than a moment. station.serveEvents gets its turns. Fault dataFileInUse where a file
// is locked; one that is missing is left to the statement that needs it.
bool confirmWhole(Workstation& station, std::span<const DataFile> files, const QString& work,
                  const std::function<void(const QString& fileName)>& checking);

} // namespace vandrel
