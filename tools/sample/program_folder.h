// Makes or completes a program folder for the command line: whole files or none, and a list of what was made
// and what was there already.
#pragma once

#include <QStringList>

namespace vandrel {

struct FolderOutcome {
    QStringList made; // file names, in the catalogue's order, setup.ini last
    QStringList kept; // files that were there; not touched, not even opened
};

// Every file is made and filled beside the others first and then moved into its place, so that a run that
// breaks leaves no half-filled dictionary which the next run would take for a whole one. With sample the new
// dictionaries get the starter data. Faults: pathAccess, pathNotFound, diskFull and those of the data files.
FolderOutcome completeProgramFolder(const QString& folder, bool sample);

} // namespace vandrel
