#include "print/page_range.h"

namespace vandrel {

PageRange offeredRange(PageChoice choice, int current, int total) {
    return choice == PageChoice::current ? PageRange{current, current} : PageRange{1, total};
}

std::optional<PageRange> chosenRange(PageChoice choice, int current, int total, const QString& from,
                                     const QString& to) {
    if (choice != PageChoice::range) return offeredRange(choice, current, total);
    const PageRange typed{from.trimmed().toInt(), to.trimmed().toInt()}; // 0 when it is no whole number
    if (typed.start < 1 || typed.end < 1 || typed.start > total || typed.end > total ||
        typed.start > typed.end)
        return std::nullopt;
    return typed;
}

int typedCopies(const QString& typed) {
    return typed.trimmed().toInt();
}

} // namespace vandrel
