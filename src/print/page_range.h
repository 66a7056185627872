// Which pages the print dialog's options mean, and whether a typed range is one.
#pragma once

#include <QString>

#include <optional>

namespace vandrel {

enum class PageChoice { all, current, range };

struct PageRange {
    int start = 1;
    int end = 1;

    bool operator==(const PageRange&) const = default;
};

// What the two range fields read at an option: the current page twice, or the whole document.
PageRange offeredRange(PageChoice choice, int current, int total);

// from and to are the fields as typed; they count only for a range. nullopt: no whole numbers, below 1, above
// the total, or in the wrong order.
std::optional<PageRange> chosenRange(PageChoice choice, int current, int total, const QString& from,
                                     const QString& to);

// The copies field: its whole number; empty or no number is 0, which prints once.
int typedCopies(const QString& typed);

} // namespace vandrel
