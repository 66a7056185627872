// The process that the fault trials break: a clerk who stores sheets until something stops him. What has been
// confirmed to him he writes to the standard output, one line a sheet.
//   loop FOLDER SEED         stores until killed
//   fill FOLDER              mounts a small volume on FOLDER, fills it up and says what happened
//   unwritable FOLDER TARGET gives up the right to write and tries a store and a report
#include "clerk.h"

#include "reports/report_run.h"
#include "sheet/sheet_store.h"

#include <QDir>
#include <QFile>

#include <cstdio>
#include <cstdlib>
#include <cstring>

#include <sched.h>
#include <sys/mount.h>
#include <unistd.h>

using namespace vandrel;
using namespace vandrel::test;

namespace {

constexpr int notAllowed = 77; // the exit code of a trial that this machine does not allow
const QDateTime today(QDate(2008, 4, 3), QTime(14, 5, 9));

void say(const std::string& line) {
    const std::string whole = line + '\n';
    if (write(STDOUT_FILENO, whole.data(), whole.size()) != static_cast<ssize_t>(whole.size())) _exit(3);
}

struct Desk {
    explicit Desk(const QString& folder) : station(folder, dialogue, clock, packer) {}
    WillingDialogue dialogue;
    FixedClock clock{today};
    ArjPacker packer;
    Workstation station;
};

int loop(const QString& folder, unsigned seed) {
    Desk desk(folder);
    Clerk clerk(desk.station, seed);
    mendCounters(desk.station);
    say("ready");
    for (;;) {
        const Confirmed sheet = clerk.storeNext();
        say(sheet.key + ' ' + std::to_string(sheet.lines) + ' ' + std::to_string(sheet.mark) + ' ' +
            (sheet.correction ? '1' : '0'));
    }
}

int fill(const QString& folder) {
    const uid_t user = getuid();
    if (user != 0 && unshare(CLONE_NEWUSER | CLONE_NEWNS) != 0) return notAllowed;
    if (user == 0 && unshare(CLONE_NEWNS) != 0) return notAllowed;
    mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr);
    if (mount("tmpfs", QFile::encodeName(folder).constData(), "tmpfs", 0, "size=1600k") != 0)
        return notAllowed;

    prepareClinic(folder);
    Desk desk(folder);
    std::vector<Confirmed> confirmed;
    Clerk clerk(desk.station, 1);
    for (int fault = 0; fault == 0 && confirmed.size() < 100'000;) {
        try {
            confirmed.push_back(clerk.storeNext());
        } catch (const Fault& raised) {
            fault = raised.number();
            say("store " + std::to_string(fault));
        }
    }
    for (const std::string& wrong : examineSheets(desk.station, confirmed))
        say("wrong after the store: " + wrong);

    // The report on a full volume: everything it writes lies there.
    desk.station.reportTarget = folder + QLatin1Char('/');
    desk.dialogue.told = [](const QString& text) { say("report " + text.toStdString()); };
    ReportProgress progress;
    const ReportRequest request{
        QStringLiteral("0"), QStringLiteral("2008.04"), QStringLiteral("2008.04"), {}};
    const ReportOutcome outcome = runReport(desk.station, request, progress);
    say(outcome.complete ? "report complete" : "report not complete");
    desk.dialogue.told = nullptr;
    for (const std::string& wrong : examineSheets(desk.station, confirmed))
        say("wrong after the report: " + wrong);

    // With room again the work goes on: a scratch file that is no longer needed is given up.
    QFile::remove(folder + QStringLiteral("/td2.mdb"));
    QFile::remove(folder + QStringLiteral("/osszedata.mdb"));
    confirmed.push_back(clerk.storeNext());
    for (const std::string& wrong : examineSheets(desk.station, confirmed))
        say("wrong at last: " + wrong);
    say("sheets " + std::to_string(confirmed.size()));
    return 0;
}

int unwritable(const QString& folder, const QString& target) {
    constexpr uid_t nobody = 65534;
    if (getuid() == 0 && (setgid(nobody) != 0 || setuid(nobody) != 0)) return notAllowed;
    if (access(QFile::encodeName(folder).constData(), W_OK) == 0) return notAllowed;
    Desk desk(folder);
    try {
        Clerk(desk.station, 1).storeNext();
        say("stored");
    } catch (const Fault& fault) {
        say("store " + std::to_string(fault.number()) + ' ' + fault.text().toStdString());
    }
    desk.station.reportTarget = target;
    desk.dialogue.told = [](const QString& text) { say("report " + text.toStdString()); };
    ReportProgress progress;
    runReport(desk.station, {QStringLiteral("0"), QStringLiteral("2008.04"), QStringLiteral("2008.04"), {}},
              progress);
    return 0;
}

} // namespace

int main(int argc, char** argv) {
    const QString folder = argc > 2 ? QString::fromLocal8Bit(argv[2]) : QString();
    try {
        if (argc == 4 && std::strcmp(argv[1], "loop") == 0)
            return loop(folder, static_cast<unsigned>(std::atoll(argv[3])));
        if (argc == 3 && std::strcmp(argv[1], "fill") == 0) return fill(folder);
        if (argc == 4 && std::strcmp(argv[1], "unwritable") == 0)
            return unwritable(folder, QString::fromLocal8Bit(argv[3]));
    } catch (const Fault& fault) {
        std::fprintf(stderr, "%d %s\n", fault.number(), fault.what());
        return 1;
    }
    return 2;
}
