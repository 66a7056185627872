#include "sample/program_folder.h"

#include "sample/sample_data.h"

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>

#include <cerrno>

using namespace Qt::StringLiterals;

namespace vandrel {

namespace {

QStringList allNames() {
    QStringList names;
    for (const catalogue::File& file : catalogue::files())
        names << catalogue::fileName(file.file);
    names << u"setup.ini"_s;
    return names;
}

} // namespace

FolderOutcome completeProgramFolder(const QString& folder, bool sample) {
    if (!QDir().mkpath(folder))
        throw Fault(fault::pathAccess, u"A mappa nem hozható létre: %1"_s.arg(folder));
    const QDir target(folder);
    FolderOutcome outcome;
    QStringList missing;
    for (const QString& name : allNames()) {
        // A dangling link counts as there: it is the user's, and nothing may be put in its place.
        const QFileInfo entry(target.filePath(name));
        (entry.exists() || entry.isSymLink() ? outcome.kept : missing) << name;
    }
    if (missing.isEmpty()) return outcome;

    QTemporaryDir workshop(target.filePath(u"uj-XXXXXX"_s));
    if (!workshop.isValid()) throw Fault(fault::pathAccess, u"A mappa nem írható: %1"_s.arg(folder));
    createProgramFolder(workshop.path());
    if (sample) {
        DataFiles files(workshop.path());
        fillSampleData(files);
        files.closeAll();
    }
    for (const QString& name : missing) {
        if (!QFile::rename(workshop.filePath(name), target.filePath(name)))
            throw fileFault(EACCES, target.filePath(name));
        outcome.made << name;
    }
    return outcome;
}

} // namespace vandrel
