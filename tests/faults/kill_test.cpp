// The process is killed before each single write of a store, one after the other: what was confirmed is there
// whole, nothing is half there, and the work goes on.
#include "child_process.h"
#include "clerk.h"

#include "foundation/start_checks.h"
#include "sheet/counters.h"

#include <QFile>

#include <sqlite3.h>

#include <sstream>

using namespace Qt::StringLiterals;

// A kill loses nothing that was written, so these trials need not wait for the disk.
extern "C" int fsync(int) {
    return 0;
}
extern "C" int fdatasync(int) {
    return 0;
}

namespace vandrel::test {

namespace {

int writesLeft = 0; // of the child; it dies when none is left

void countWrite() {
    if (--writesLeft == 0) raise(SIGKILL);
}

ssize_t countedWrite(int file, const void* data, size_t size) {
    countWrite();
    return write(file, data, size);
}

ssize_t countedWriteAt(int file, const void* data, size_t size, off_t place) {
    countWrite();
    return pwrite(file, data, size, place);
}

int countedTruncate(int file, off_t size) {
    countWrite();
    return ftruncate(file, size);
}

// To remove the journal is what commits.
int countedRemove(const char* path) {
    countWrite();
    return unlink(path);
}

// From here on the storage engine's writes are counted, and the process dies before the one of this number.
void dieBeforeWrite(int number) {
    writesLeft = number;
    sqlite3_vfs* system = sqlite3_vfs_find(nullptr);
    const auto replace = [system](const char* name, auto call) {
        if (system->xSetSystemCall(system, name, reinterpret_cast<sqlite3_syscall_ptr>(call)) != SQLITE_OK)
            _exit(3);
    };
    replace("write", &countedWrite);
    replace("pwrite", &countedWriteAt);
    replace("pwrite64", &countedWriteAt);
    replace("ftruncate", &countedTruncate);
    replace("unlink", &countedRemove);
}

} // namespace

TEST(Kill, BeforeEachWriteOfAStore) {
    Clinic clinic;
    Workstation& station = clinic.workstation;
    std::vector<Confirmed> confirmed;
    std::mt19937 random(1);
    int kills = 0, journals = 0;
    for (bool stored = false; !stored && !testing::Test::HasFailure();) {
        SCOPED_TRACE("before write " + std::to_string(kills + 1));
        station.files.closeAll();
        ChildProcess clerk([&](const Say& say) {
            std::mt19937 same(5);
            dieBeforeWrite(kills + 1);
            const Confirmed sheet = storeNext(station, same);
            say(sheet.key + ' ' + std::to_string(sheet.lines) + ' ' + std::to_string(sheet.mark));
            return 0;
        });
        for (const std::string& line : clerk.lines()) {
            std::istringstream words(line);
            Confirmed sheet;
            words >> sheet.key >> sheet.lines >> sheet.mark;
            ASSERT_FALSE(words.fail()) << line;
            confirmed.push_back(sheet);
        }
        stored = clerk.exitCode() == 0;
        if (!stored) {
            ASSERT_EQ(clerk.exitCode(), -1) << "ended by itself";
            ++kills;
        }
        journals += QFile::exists(clinic.path(u"tetdata.mdb-journal"_s));
        // The program's own start on the folder, without a word; then the next store works.
        clinic.dialogue.boxes.clear();
        ASSERT_TRUE(examineDataFiles(station));
        repairCounters(station);
        EXPECT_TRUE(clinic.dialogue.boxes.empty());
        for (const std::string& wrong : examineSheets(clinic, confirmed))
            ADD_FAILURE() << wrong;
        confirmed.push_back(storeNext(station, random));
    }
    // Fewer would mean that the writes are no longer counted.
    EXPECT_GT(kills, 20);
    EXPECT_GT(journals, 10);
    std::printf("%d kills, %d of them in the middle of a write\n", kills, journals);
}

} // namespace vandrel::test
