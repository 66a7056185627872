// The process is killed at random moments while sheets are stored: what was confirmed is there whole, nothing
// is half there, and the work goes on. VANDREL_KILLS raises the number of kills, VANDREL_SEED repeats a run.
#include "child_process.h"
#include "clerk.h"

#include "foundation/start_checks.h"
#include "sheet/counters.h"

#include <QFile>

#include <chrono>
#include <sstream>
#include <thread>

using namespace Qt::StringLiterals;

namespace vandrel::test {

TEST(Kill, WhileSheetsAreStored) {
    const int kills =
        qEnvironmentVariableIsSet("VANDREL_KILLS") ? qEnvironmentVariableIntValue("VANDREL_KILLS") : 15;
    const unsigned seed = qEnvironmentVariableIsSet("VANDREL_SEED")
                              ? static_cast<unsigned>(qEnvironmentVariableIntValue("VANDREL_SEED"))
                              : std::random_device{}();
    std::printf("%d kills, VANDREL_SEED=%u\n", kills, seed);
    std::mt19937 random(seed);
    Clinic clinic;
    Workstation& station = clinic.workstation;
    std::vector<Confirmed> confirmed;
    int journals = 0;
    for (int kill = 0; kill < kills && !testing::Test::HasFailure(); ++kill) {
        SCOPED_TRACE("kill " + std::to_string(kill) + ", VANDREL_SEED=" + std::to_string(seed));
        station.files.closeAll();
        std::mt19937 childsRandom(random());
        ChildProcess clerk([&](const Say& say) {
            repairCounters(station);
            say("ready");
            for (;;) {
                const Confirmed sheet = storeNext(station, childsRandom);
                say(sheet.key + ' ' + std::to_string(sheet.lines) + ' ' + std::to_string(sheet.mark));
            }
            return 0;
        });
        ASSERT_EQ(clerk.line(), "ready");
        std::this_thread::sleep_for(std::chrono::microseconds(random() % 200'000));
        for (const std::string& line : clerk.kill()) {
            std::istringstream words(line);
            Confirmed sheet;
            words >> sheet.key >> sheet.lines >> sheet.mark;
            ASSERT_FALSE(words.fail()) << line;
            confirmed.push_back(sheet);
        }
        EXPECT_EQ(clerk.exitCode(), -1) << "ended by itself";
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
    // Without these the kills hit nothing worth hitting.
    std::printf("%zu confirmed stores, %d kills in the middle of a write\n", confirmed.size(), journals);
    EXPECT_GT(confirmed.size(), static_cast<std::size_t>(kills));
    EXPECT_GT(journals, 0);
}

} // namespace vandrel::test
