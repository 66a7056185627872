// The process is killed at random moments while sheets are stored: what was confirmed is there whole, nothing
// is half there, and the work goes on. VANDREL_KILLS raises the number of kills, VANDREL_SEED repeats a run.
#include "broken_process.h"
#include "clerk.h"

#include "foundation/start_checks.h"
#include "sheet/sheet_fields.h"
#include "support/test_workstation.h"

#include <chrono>
#include <sstream>
#include <thread>

namespace vandrel::test {

namespace {

// The program's own start on the folder; a box of the start fails the test.
void startAgain(const QString& folder, const std::vector<Confirmed>& confirmed, std::vector<Confirmed>& next,
                unsigned seed) {
    ExpectedDialogue strict;
    const FixedClock clock(QDateTime(QDate(2008, 4, 3), QTime(14, 5, 9)));
    ArjPacker packer;
    {
        Workstation station(folder, strict, clock, packer);
        ASSERT_TRUE(examineDataFiles(station));
        mendCounters(station);
        for (const std::string& wrong : examineSheets(station, confirmed))
            ADD_FAILURE() << wrong;
    }
    // The next store works.
    WillingDialogue willing;
    Workstation station(folder, willing, clock, packer);
    next.push_back(Clerk(station, seed).storeNext());
}

// A correction that was written but not confirmed is what the sheet is from now on.
void takeOverUnconfirmed(const QString& folder, std::vector<Confirmed>& confirmed) {
    Database data(folder + QStringLiteral("/tetdata.mdb"));
    Query row = data.query("select AZONOSITO, BeutOrvos, substr(NOTE,2) from BETEG where JAV='1'");
    while (row.next())
        confirmed.push_back({row.text(0).toStdString(), row.text(1).toInt(), row.text(2).toInt(), true});
}

} // namespace

TEST(Kill, WhileSheetsAreStored) {
    const int kills =
        qEnvironmentVariableIsSet("VANDREL_KILLS") ? qEnvironmentVariableIntValue("VANDREL_KILLS") : 15;
    const unsigned seed = qEnvironmentVariableIsSet("VANDREL_SEED")
                              ? static_cast<unsigned>(qEnvironmentVariableIntValue("VANDREL_SEED"))
                              : std::random_device{}();
    std::printf("%d kills, VANDREL_SEED=%u\n", kills, seed);
    std::mt19937 random(seed);
    const QTemporaryDir directory;
    prepareClinic(directory.path());
    std::vector<Confirmed> confirmed;
    int journals = 0;
    for (int kill = 0; kill < kills; ++kill) {
        SCOPED_TRACE("kill " + std::to_string(kill) + ", VANDREL_SEED=" + std::to_string(seed));
        ClerkProcess clerk({"loop", directory.path().toStdString(), std::to_string(random())});
        ASSERT_EQ(clerk.line(), "ready");
        std::this_thread::sleep_for(std::chrono::microseconds(random() % 200'000));
        for (const std::string& line : clerk.kill()) {
            std::istringstream words(line);
            Confirmed sheet;
            words >> sheet.key >> sheet.lines >> sheet.mark >> sheet.correction;
            ASSERT_FALSE(words.fail()) << line;
            confirmed.push_back(sheet);
        }
        EXPECT_EQ(clerk.exitCode(), -1) << "ended by itself";
        journals += QFile::exists(directory.filePath(QStringLiteral("tetdata.mdb-journal")));
        std::vector<Confirmed> next;
        ASSERT_NO_FATAL_FAILURE(
            startAgain(directory.path(), confirmed, next, static_cast<unsigned>(random())));
        if (testing::Test::HasFailure()) break;
        takeOverUnconfirmed(directory.path(), confirmed);
        confirmed.insert(confirmed.end(), next.begin(), next.end());
    }
    // Without these the kills hit nothing worth hitting.
    std::printf("%zu confirmed stores, %d kills in the middle of a write\n", confirmed.size(), journals);
    EXPECT_GT(confirmed.size(), static_cast<std::size_t>(kills));
    EXPECT_GT(journals, 0);
}

} // namespace vandrel::test
