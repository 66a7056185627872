// The running program: the Workstation with its real dialogue, and every form with its opener.
#pragma once

namespace vandrel {

// Runs the program in the folder of its executable; gives the process's exit code.
int runProgram(int argc, char** argv);

} // namespace vandrel
