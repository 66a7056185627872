// A real volume that fills up, and folders that cannot be written: the box, and the data as they were.
#include "child_process.h"
#include "clerk.h"

#include <QFile>

#include <algorithm>

#include <sched.h>
#include <sys/mount.h>
#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace vandrel::test {

TEST(FullDisk, AVolumeFilledToItsEnd) {
    Clinic clinic;
    Workstation& station = clinic.workstation;
    station.files.closeAll();
    ChildProcess clerk([&](const Say& say) {
        // The folder as it is, on a small volume that only this process sees.
        if (unshare(getuid() == 0 ? CLONE_NEWNS : CLONE_NEWUSER | CLONE_NEWNS) != 0)
            return ChildProcess::notAllowed;
        mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr);
        std::vector<std::pair<QString, QByteArray>> files;
        for (const QString& name : QDir(station.folder).entryList(QDir::Files))
            files.emplace_back(clinic.path(name), fileBytes(clinic.path(name)));
        if (mount("tmpfs", QFile::encodeName(station.folder).constData(), "tmpfs", 0, "size=1600k") != 0)
            return ChildProcess::notAllowed;
        for (const auto& [path, bytes] : files)
            makeFile(path, bytes);
        std::vector<Confirmed> confirmed;
        const auto examine = [&](const char* when) {
            for (const std::string& wrong : examineSheets(clinic, confirmed))
                say(when + wrong);
        };
        std::mt19937 random(1);
        const int fault = faultNumberOf([&] {
            while (confirmed.size() < 100'000)
                confirmed.push_back(storeNext(station, random));
        });
        say("store " + std::to_string(fault));
        examine("wrong after the store: ");
        station.reportTarget = station.folder + '/'_L1; // everything a report writes lies there
        say(clinic.report().complete ? "report complete" : "report not complete");
        say(clinic.onlyBox().toStdString());
        examine("wrong after the report: ");
        // The last byte is taken; a file of a new name is still made, but holds nothing.
        QFile filler(clinic.path(u"tele"_s));
        if (!filler.open(QIODevice::WriteOnly | QIODevice::Unbuffered)) return 1;
        while (filler.write(QByteArray(512, 'x')) > 0)
            ;
        const QByteArray setup = fileBytes(station.setup.path());
        const int settings = faultNumberOf([&] { station.setup.setValue(u"VENY"_s, u"TOP"_s, u"7"_s); });
        say("setup.ini " + std::to_string(settings) +
            (fileBytes(station.setup.path()) == setup ? " as it was" : " changed"));
        filler.remove();
        // With room again the work goes on: a scratch file that is no longer needed is given up.
        QFile::remove(clinic.path(u"td2.mdb"_s));
        QFile::remove(clinic.path(u"osszedata.mdb"_s));
        confirmed.push_back(storeNext(station, random));
        examine("wrong at last: ");
        return 0;
    });
    const std::vector<std::string> said = clerk.lines();
    if (clerk.exitCode() == ChildProcess::notAllowed) GTEST_SKIP() << "no volume may be mounted here";
    ASSERT_EQ(clerk.exitCode(), 0);
    ASSERT_EQ(said.size(), 4U) << testing::PrintToString(said);
    EXPECT_EQ(said[0], "store " + std::to_string(fault::dataFileFull));
    EXPECT_EQ(said[1], "report not complete");
    EXPECT_EQ(said[2].find("Hiba történt"), 0U) << said[2];
    EXPECT_EQ(said[3], "setup.ini " + std::to_string(fault::diskFull) + " as it was");
}

// A file that cannot be read is not replaced by the one section that was just written.
TEST(Unwritable, SettingsThatCannotBeRead) {
    TestWorkstation station;
    const IniFile& setup = station.workstation.setup;
    setup.setValue(u"VENY"_s, u"TOP"_s, u"7"_s);
    const QByteArray before = fileBytes(setup.path());
    ASSERT_EQ(chmod(QFile::encodeName(station.directory.path()).constData(), 0777), 0);
    ASSERT_EQ(chmod(QFile::encodeName(setup.path()).constData(), 0222), 0);
    ChildProcess clerk([&](const Say& say) {
        constexpr uid_t nobody = 65534;
        if (getuid() == 0 && (setgid(nobody) != 0 || setuid(nobody) != 0)) return ChildProcess::notAllowed;
        say(std::to_string(faultNumberOf([&] { setup.setValue(u"KJELO"_s, u"Login"_s, u"x"_s); })));
        return 0;
    });
    const std::vector<std::string> said = clerk.lines();
    if (clerk.exitCode() == ChildProcess::notAllowed) GTEST_SKIP() << "the user cannot be changed here";
    EXPECT_EQ(said, std::vector{std::to_string(fault::pathAccess)});
    ASSERT_EQ(chmod(QFile::encodeName(setup.path()).constData(), 0644), 0);
    EXPECT_EQ(fileBytes(setup.path()), before);
}

// Rights bind a user who is not the administrator: the process gives its own up.
TEST(Unwritable, FolderAndTarget) {
    Clinic clinic;
    clinic.workstation.files.closeAll();
    const auto rights = [](const QString& path, mode_t mode) {
        EXPECT_EQ(chmod(QFile::encodeName(path).constData(), mode), 0);
    };
    const QString target = clinic.path(u"target"_s);
    const QByteArray before = fileBytes(clinic.path(u"tetdata.mdb"_s));
    for (const QString& file : QDir(clinic.workstation.folder).entryList(QDir::Files))
        rights(clinic.path(file), 0444);
    rights(clinic.workstation.folder, 0555);
    const std::pair<mode_t, const char*> trials[] = {{0777, "Hiba történt! Leválogatás nem futtatható3027"},
                                                     {0555, "Hiba történt! Leválogatás nem futtatható75"}};
    for (const auto& [targetMode, box] : trials) {
        rights(target, targetMode);
        ChildProcess clerk([&](const Say& say) {
            constexpr uid_t nobody = 65534;
            if (getuid() == 0 && (setgid(nobody) != 0 || setuid(nobody) != 0))
                return ChildProcess::notAllowed;
            if (access(QFile::encodeName(target + u"/.."_s).constData(), W_OK) == 0)
                return ChildProcess::notAllowed;
            std::mt19937 random(1);
            try {
                storeNext(clinic.workstation, random);
            } catch (const Fault& fault) {
                say(fault.what());
            }
            clinic.report();
            say(clinic.onlyBox().toStdString());
            return 0;
        });
        const std::vector<std::string> said = clerk.lines();
        if (clerk.exitCode() == ChildProcess::notAllowed) GTEST_SKIP() << "this user may write everywhere";
        ASSERT_EQ(said.size(), 2U);
        EXPECT_EQ(said[0], "tetdata.mdb: az adatállomány nem írható");
        EXPECT_EQ(said[1], box);
        QFile::remove(target + u"/id.txt"_s); // left by the target's test
    }
    EXPECT_EQ(fileBytes(clinic.path(u"tetdata.mdb"_s)), before);
    EXPECT_FALSE(QFile::exists(clinic.path(u"tetN123.amb"_s)));
    rights(clinic.workstation.folder, 0755);
}

} // namespace vandrel::test
