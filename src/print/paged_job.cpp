#include "print/paged_job.h"

#include <QPageSize>

#include <algorithm>
#include <utility>

namespace vandrel {

bool PagedJob::begin(QPagedPaintDevice& device) {
    m_device = &device;
    if (!m_painter.begin(&device)) return false;
    m_page = std::make_unique<PagePainter>(m_painter);
    return true;
}

void PagedJob::stop() {
    m_page.reset();
    if (m_painter.isActive()) m_painter.end();
}

void PagedJob::endDoc() {
    turnPages(std::exchange(m_ended, 0) - 1);
    m_page.reset();
    if (!m_painter.end()) throw refused();
    bringOut();
}

void PagedJob::turnPages(int pages) {
    for (; pages > 0; --pages) {
        if (!m_device->newPage()) throw refused();
        check();
    }
}

PagePainter& PagedJob::current() {
    turnPages(std::exchange(m_ended, 0));
    return *m_page;
}

void PagedJob::text(const TextRun& run) {
    current().text(run);
}

void PagedJob::rule(double left, double right, double y, double width, long color) {
    current().rule(left, right, y, width, color);
}

void PagedJob::box(double left, double top, double right, double bottom, long fill, double outline,
                   long color) {
    current().box(left, top, right, bottom, fill, outline, color);
}

QPageSize pageSize(double width, double height) {
    constexpr double twipsPerPoint = 20, largest = 14400; // points; what a PDF reader still shows
    const auto sound = [](double twips) {
        return twips >= twipsPerPoint && twips <= largest * twipsPerPoint;
    };
    if (!sound(width) || !sound(height)) return QPageSize(QPageSize::A4);
    return QPageSize(QSizeF(width, height) / twipsPerPoint, QPageSize::Point, {}, QPageSize::ExactMatch);
}

} // namespace vandrel
