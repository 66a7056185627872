// vandrel-data: the command line beside the program. Makes a program folder, empty or with sample data; an
// existing file is never touched. Knows no window.
#include "sample/program_folder.h"

#include "platform/fault.h"

#include <QCoreApplication>
#include <QDir>
#include <QStringList>

#include <cstdio>

namespace {

enum ExitCode { done = 0, failed = 1, wrongUse = 2 };

constexpr char usage[] = "Használat: vandrel-data create MAPPA [--sample]\n"
                         "\n"
                         "  create MAPPA   létrehozza a mappát és benne minden hiányzó adatállományt,\n"
                         "                 valamint a setup.ini állományt; a meglévőkhöz nem nyúl\n"
                         "  --sample       az új szótárakat mintaadatokkal tölti fel\n"
                         "  --help         ezt a leírást írja ki\n";

void print(std::FILE* stream, const QString& text) {
    std::fputs(text.toUtf8().constData(), stream);
}

int refuse(const QString& reason) {
    print(stderr, reason + u'\n' + QString::fromUtf8(usage));
    return wrongUse;
}

int create(const QString& folder, bool sample) {
    const vandrel::FolderOutcome outcome = vandrel::completeProgramFolder(folder, sample);
    for (const QString& name : outcome.made)
        print(stdout, QStringLiteral("elkészült:  %1\n").arg(name));
    for (const QString& name : outcome.kept)
        print(stdout, QStringLiteral("már megvolt: %1\n").arg(name));
    if (outcome.made.isEmpty())
        print(stdout, QStringLiteral("A mappa teljes, nem volt mit létrehozni: %1\n").arg(folder));
    else
        print(
            stdout,
            sample
                ? QStringLiteral("A mappa kész, az új szótárak mintaadatokat tartalmaznak: %1\n").arg(folder)
                : QStringLiteral("A mappa kész: %1\n").arg(folder));
    return done;
}

} // namespace

int main(int argc, char** argv) {
    QCoreApplication application(argc, argv);
    QStringList arguments = application.arguments().mid(1);
    if (arguments.contains(QStringLiteral("--help"))) {
        print(stdout, QString::fromUtf8(usage));
        return done;
    }
    if (arguments.isEmpty() || arguments.takeFirst() != QLatin1String("create"))
        return refuse(QStringLiteral("Hiányzó vagy ismeretlen parancs."));
    const bool sample = arguments.removeAll(QStringLiteral("--sample")) > 0;
    for (const QString& argument : arguments)
        if (argument.startsWith(u'-')) return refuse(QStringLiteral("Ismeretlen kapcsoló: %1").arg(argument));
    if (arguments.size() != 1 || arguments.front().isEmpty())
        return refuse(QStringLiteral("Pontosan egy mappát kell megadni."));
    try {
        return create(arguments.front(), sample);
    } catch (const vandrel::Fault& fault) {
        print(stderr, QStringLiteral("Hiba: %1 (%2)\n").arg(fault.text()).arg(fault.number()));
        return failed;
    }
}
