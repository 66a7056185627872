// What a report writer does about a fault: a small table, and the loop that carries it out. Opens no file.
#pragma once

#include "platform/fault.h"

#include <functional>
#include <span>

namespace vandrel {

enum class Reaction {
    wrongPath,     // its box, the run ends
    tryAgain,      // the event loop is served and the statement tried again
    nextStatement, // the run goes on after the statement
    endRun         // the box with the number, the run ends
};

struct FaultReaction {
    int number;
    Reaction reaction;
};

// Of the report writers; every other fault ends the run.
inline constexpr FaultReaction writerFaults[] = {
    {fault::diskNotReady, Reaction::wrongPath},    {fault::pathNotFound, Reaction::wrongPath},
    {fault::permissionDenied, Reaction::tryAgain}, {fault::fileNotFound, Reaction::nextStatement},
    {fault::pathAccess, Reaction::nextStatement},
};

constexpr Reaction reactionTo(std::span<const FaultReaction> reactions, int number) {
    for (const FaultReaction& entry : reactions)
        if (entry.number == number) return entry.reaction;
    return Reaction::endRun;
}

// Runs one statement under the table. Comes back when it is done or skipped; a fault that ends the run is
// raised again. wait serves the event loop and is false when nobody wants to wait any longer: then the fault
// is raised.
template<class Statement>
void runStatement(std::span<const FaultReaction> reactions, const std::function<bool()>& wait,
                  Statement&& statement) {
    for (;;) {
        try {
            statement();
            return;
        } catch (const Fault& fault) {
            const Reaction reaction = reactionTo(reactions, fault.number());
            if (reaction == Reaction::nextStatement) return;
            if (reaction != Reaction::tryAgain || !wait()) throw;
        }
    }
}

} // namespace vandrel
