// How a page is fitted into the preview's view: factor, scroll bars, the holder round the page and the ranges
// of the bars. Lengths are twips on the screen; a screen pixel is 15 of them. Knows no window.
#pragma once

#include "print/length_units.h"

#include <QString>
#include <QStringView>

#include <array>
#include <optional>

namespace vandrel {

namespace preview {

inline constexpr double twipsPerPixel = 15; // 96 pixels an inch
inline constexpr double pageMargin = 240;   // round the page in its holder
inline constexpr double scrollUnit = 14.4;  // twips in one step of a scroll bar
inline constexpr int smallChange = 14;      // steps

// Zooms above 0 are percentages.
inline constexpr float wholePage = 0;
inline constexpr float wholeWidth = -1;
inline constexpr float largestZoom = 200;

struct ZoomEntry {
    const char16_t* text;
    float zoom;
};
inline constexpr std::array<ZoomEntry, 5> zoomList{{{u"100 %", 100},
                                                    {u"75 %", 75},
                                                    {u"50 %", 50},
                                                    {u"Teljes oldal", wholePage},
                                                    {u"Teljes szélesség", wholeWidth}}};

// A typed zoom: a number above 0 and at most 200, with a decimal comma or point, "%" after it or not;
// nullopt for anything else.
std::optional<float> readZoom(QStringView typed);
// "120 %", "62,5 %"
QString zoomText(float zoom);

struct Scaling {
    double factor = 1;
    PaperSize copy;   // the page as it is shown
    PaperSize holder; // the copy and the margin round it
    PaperSize view;   // what the scroll bars leave
    bool horizontalBar = false;
    bool verticalBar = false;

    bool operator==(const Scaling&) const = default;
};

// bar: width of the vertical scroll bar and height of the horizontal one. A view too small for any page gives
// the smallest factor, never 0.
Scaling scale(const PaperSize& picture, const PaperSize& area, const PaperSize& bar, float zoom);

// Maximum and large change of a scroll bar, in steps. 0 and the view where nothing is out of sight.
struct ScrollRange {
    int maximum = 0;
    int largeChange = 0;

    bool operator==(const ScrollRange&) const = default;
};
ScrollRange scrollRange(double holder, double view);

} // namespace preview

} // namespace vandrel
