#include "print/length_units.h"

namespace vandrel {

namespace {

// Twips in one unit; 0 for a code that is no unit.
double twipsPerUnit(long mode, Axis axis, const PaperSize& paper) {
    switch (mode) {
    case scale_mode::twip:
        return 1;
    case scale_mode::inch:
        return 1440;
    case scale_mode::millimetre:
        return 56.7;
    case scale_mode::centimetre:
        return 567;
    case scale_mode::percent:
        return (axis == Axis::horizontal ? paper.width : paper.height) / 100;
    default:
        return 0;
    }
}

} // namespace

double toTwips(double value, long mode, Axis axis, const PaperSize& paper) {
    return value * twipsPerUnit(mode, axis, paper);
}

double fromTwips(double twips, long mode, Axis axis, const PaperSize& paper) {
    const double unit = twipsPerUnit(mode, axis, paper);
    return unit == 0 ? 0 : twips / unit;
}

} // namespace vandrel
