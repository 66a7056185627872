// vandrel-data: the command line beside the program. Makes a program folder, empty or with sample data; an
// existing file is never touched. Knows no window.
#include "sample/program_folder.h"

#include "platform/fault.h"

#include <QCoreApplication>
#include <QDir>
#include <QStringList>

#include <cstdio>

using namespace Qt::StringLiterals;

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
        print(stdout, u"elkészült:  %1\n"_s.arg(name));
    for (const QString& name : outcome.kept)
        print(stdout, u"már megvolt: %1\n"_s.arg(name));
    if (outcome.made.isEmpty())
        print(stdout, u"A mappa teljes, nem volt mit létrehozni: %1\n"_s.arg(folder));
    else
        print(stdout, sample ? u"A mappa kész, az új szótárak mintaadatokat tartalmaznak: %1\n"_s.arg(folder)
                             : u"A mappa kész: %1\n"_s.arg(folder));
    return done;
}

} // namespace

int main(int argc, char** argv) {
    QCoreApplication application(argc, argv);
    QStringList arguments = application.arguments().mid(1);
    if (arguments.contains(u"--help"_s)) {
        print(stdout, QString::fromUtf8(usage));
        return done;
    }
    if (arguments.isEmpty() || arguments.takeFirst() != "create"_L1)
        return refuse(u"Hiányzó vagy ismeretlen parancs."_s);
    const bool sample = arguments.removeAll(u"--sample"_s) > 0;
    for (const QString& argument : arguments)
        if (argument.startsWith(u'-')) return refuse(u"Ismeretlen kapcsoló: %1"_s.arg(argument));
    if (arguments.size() != 1 || arguments.front().isEmpty())
        return refuse(u"Pontosan egy mappát kell megadni."_s);
    try {
        return create(arguments.front(), sample);
    } catch (const vandrel::Fault& fault) {
        print(stderr, u"Hiba: %1 (%2)\n"_s.arg(fault.text()).arg(fault.number()));
        return failed;
    }
}
