#include "foundation/file_checks.h"

#include "foundation/workstation.h"

using namespace Qt::StringLiterals;

namespace vandrel {

namespace {

using std::chrono::milliseconds;

constexpr milliseconds turnEvery{20};
constexpr milliseconds moment{200};
constexpr int tries = 3; // a store in between interrupts the reading

std::size_t placeOf(DataFile file) {
    return static_cast<std::size_t>(file);
}

} // namespace

bool FileChecks::knownWhole(DataFile file) {
    keepResult();
    const std::optional<qint64>& version = m_whole[placeOf(file)];
    return version && *version == versionOf(file);
}

void FileChecks::goOn(std::span<const DataFile> files) {
    keepResult();
    if (m_running) return;
    for (const DataFile file : files) {
        try {
            if (knownWhole(file)) continue;
            start(file);
            return;
        } catch (const Fault&) {
            // Told by whoever needs the file.
        }
    }
}

BackgroundCheck::Result FileChecks::check(DataFile file, const std::function<void(milliseconds)>& serve) {
    using Result = BackgroundCheck::Result;
    milliseconds taken{0};
    for (int i = 0; i < tries; ++i) {
        if (knownWhole(file)) return Result::whole;
        if (!m_running || m_running->file != file) start(file);
        // A turn of the event loop may end the reading and even begin another one.
        while (m_running && m_running->file == file && !m_running->check.endsWithin(turnEvery)) {
            taken += turnEvery;
            if (serve) serve(taken);
        }
        if (!m_running || m_running->file != file) continue;
        const Result result = m_running->check.result();
        keepResult();
        if (result != Result::unknown) return result;
    }
    return Result::unknown;
}

void FileChecks::giveWay() {
    if (m_running) m_running->check.interrupt();
}

void FileChecks::forget(DataFile file) {
    if (m_running && m_running->file == file) m_running.reset();
    m_whole[placeOf(file)].reset();
}

// Changes when another program or connection has written, not by this program's own stores.
qint64 FileChecks::versionOf(DataFile file) {
    Query version = m_files[file].query("pragma data_version");
    return version.next() ? version.integer(0) : 0;
}

void FileChecks::start(DataFile file) {
    m_running.reset();
    const qint64 version = versionOf(file);
    m_running.reset(new Running{file, version, BackgroundCheck(m_files.path(file))});
}

void FileChecks::keepResult() {
    if (!m_running || !m_running->check.endsWithin(milliseconds(0))) return;
    const std::unique_ptr<Running> ended = std::move(m_running);
    if (ended->check.result() == BackgroundCheck::Result::whole)
        m_whole[placeOf(ended->file)] = ended->version;
}

bool confirmWhole(Workstation& station, std::span<const DataFile> files, const QString& work,
                  const std::function<void(const QString& fileName)>& checking) {
    using Result = BackgroundCheck::Result;
    FileChecks& checks = station.files.checks();
    for (const DataFile file : files) {
        const QString name = catalogue::fileName(file);
        bool told = false;
        Result result = Result::unknown;
        try {
            result = checks.check(file, [&](milliseconds taken) {
                if (taken >= moment && checking && !std::exchange(told, true)) checking(name);
                if (station.serveEvents) station.serveEvents();
            });
        } catch (const Fault& fault) {
            if (fault.number() == fault::dataFileInUse) throw;
            if (fault.number() != fault::dataFileDamaged) continue; // told by the statement that needs it
            result = Result::damaged;
        }
        if (result == Result::unknown)
            throw Fault(fault::dataFileInUse, u"%1: az adatállományt más program használja"_s.arg(name));
        if (result == Result::damaged &&
            !station.dialogue.ask(
                u"A(z) %1 állomány sérült! Adatlapok vagy egyes adatok hiányozhatnak belőle, "
                "ezért %2 hiányos vagy hibás lehet.\nFolytatja így is?"_s.arg(name, work),
                u"Hiba"_s, Icon::warning))
            return false;
    }
    return true;
}

} // namespace vandrel
