// What the machine is: for the about box and for a clinic's call to the help desk.
#pragma once

#include <QString>

#include <utility>
#include <vector>

namespace vandrel {

// Pairs of a Hungarian name and a value; the disk is the one that holds the folder. What the system does not
// tell reads "ismeretlen".
std::vector<std::pair<QString, QString>> machineInfo(const QString& folder);

} // namespace vandrel
