// Ordered checks: a table of tests, and what the first one that fails has to say. The one shape for the
// checks of a sheet, a panel, a period or a list; it knows none of them.
#pragma once

#include "foundation/dialogue.h"

#include <QString>

#include <optional>

namespace vandrel {

struct CheckFailure {
    QString message = {};         // empty: what was asked for stops without a word
    QString title = programTitle; // of the box; empty: the text goes to the form's status line instead
    Icon icon = Icon::critical;
    QString field = {}; // objectName of the field that gets the focus; empty: it stays where it is
};

// One entry of a table of checks. The inputs are what the test looks at, the same for the whole table.
template<class... Inputs>
struct OrderedCheck {
    bool (*failsIf)(Inputs...);
    const char16_t* message = u"";
    const char* field = "";
    const char16_t* title = nullptr; // null: the program's
    Icon icon = Icon::critical;

    CheckFailure failure() const {
        return {QString::fromUtf16(message), title != nullptr ? QString::fromUtf16(title) : programTitle,
                icon, QString::fromLatin1(field)};
    }
};

// What the first failing check of the table says; nullopt when all pass. Later tests are then not run, so a
// test may rely on those before it. Faults of a test pass through.
template<class Table, class... Inputs>
std::optional<CheckFailure> firstFailure(const Table& table, Inputs&&... inputs) {
    for (const auto& check : table)
        if (check.failsIf(inputs...)) return check.failure();
    return std::nullopt;
}

// Shows the failure's box; nothing for a failure without a word.
inline void tell(Dialogue& dialogue, const CheckFailure& failure) {
    if (!failure.message.isEmpty()) dialogue.tell(failure.message, failure.title, failure.icon);
}

} // namespace vandrel
