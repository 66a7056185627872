// The units in which the print engine's public lengths are given, and their way to twips (1440 an inch).
#pragma once

namespace vandrel {

// The unit codes. Deliberate: any other code converts every length to 0, in both directions.
namespace scale_mode {
inline constexpr long twip = 1;
inline constexpr long inch = 5;
inline constexpr long millimetre = 6; // 56.7 twips, as the lists' tab stops have always been counted
inline constexpr long centimetre = 7;
inline constexpr long percent = 11; // of the paper's width (horizontal) or height (vertical)
} // namespace scale_mode

enum class Axis { horizontal, vertical }; // only percent tells them apart

// Paper width and height in twips.
struct PaperSize {
    double width = 0;
    double height = 0;

    bool operator==(const PaperSize&) const = default;
};

double toTwips(double value, long mode, Axis axis, const PaperSize& paper);
double fromTwips(double twips, long mode, Axis axis, const PaperSize& paper);

} // namespace vandrel
