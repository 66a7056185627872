#include "print/preview_scaling.h"

#include "platform/format.h"

#include <QRegularExpression>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace vandrel::preview {

namespace {
constexpr double smallestFactor = 0.001;
}

std::optional<float> readZoom(QStringView typed) {
    static const QRegularExpression shape(u"^([0-9]{1,9})(?:[,.]([0-9]{1,9}))?\\s*%?$"_s);
    const QRegularExpressionMatch match = shape.match(typed.toString().trimmed());
    if (!match.hasMatch()) return std::nullopt;
    const double value = (match.captured(1) + u'.' + match.captured(2) + u'0').toDouble();
    if (!(value > 0) || value > double{largestZoom}) return std::nullopt;
    return static_cast<float>(value);
}

QString zoomText(float zoom) {
    // The digits of the single, not those of the double that it is kept in.
    const double shown = QString::number(double{zoom}, 'g', 7).toDouble();
    return format::number(shown) + u" %"_s;
}

Scaling scale(const PaperSize& picture, const PaperSize& area, const PaperSize& bar, float zoom) {
    constexpr double margins = 2 * pageMargin;
    Scaling result;
    result.view = area;
    for (;;) {
        double factor = double{zoom} / 100;
        if (zoom == wholePage) factor = (result.view.height - margins) / picture.height;
        if (zoom == wholeWidth) factor = (result.view.width - margins) / picture.width;
        result.factor = std::max(factor, smallestFactor);
        result.copy = {picture.width * result.factor, picture.height * result.factor};
        // Deliberate: the page is compared, not its holder: a page that just fits hides a strip of its
        // margin. A bar that was needed once stays, or it would come and go for ever.
        if (!result.horizontalBar && result.copy.width > result.view.width) {
            result.horizontalBar = true;
            result.view.height -= bar.height;
        } else if (!result.verticalBar && result.copy.height > result.view.height) {
            result.verticalBar = true;
            result.view.width -= bar.width;
        } else {
            break;
        }
    }
    result.holder = {result.copy.width + margins, result.copy.height + margins};
    return result;
}

ScrollRange scrollRange(double holder, double view) {
    ScrollRange range;
    range.largeChange = static_cast<int>(std::max(view, 0.0) / scrollUnit);
    if (holder > view) range.maximum = static_cast<int>((holder - view) / scrollUnit + 1);
    return range;
}

} // namespace vandrel::preview
