#include "print/page_spool.h"

#include "platform/fault.h"
#include "print/print_service.h"

#include <cerrno>

namespace vandrel {

namespace {

enum class Entry : quint8 { text, rule, box, newPage };

} // namespace

PageSpool::PageSpool() {
    errno = 0;
    if (!m_file.open()) throw fileFault(errno != 0 ? errno : EACCES, m_file.fileTemplate());
    m_stream.setDevice(&m_file);
}

void PageSpool::text(const TextRun& run) {
    if (run.text.isEmpty() || run.xs.empty() || run.face == nullptr) return;
    const auto [place, fresh] = m_places.try_emplace(run.face, static_cast<qint32>(m_faces.size()));
    if (fresh) m_faces.push_back(run.face);
    m_stream << static_cast<quint8>(Entry::text) << place->second << run.text.toString() << run.y
             << run.underline << static_cast<qint64>(run.color) << run.natural;
    // Where each character begins at the end of the one before, the first place says all.
    for (const double x : run.natural ? run.xs.first(1) : run.xs)
        m_stream << x;
}

void PageSpool::rule(double left, double right, double y, double width, long color) {
    m_stream << static_cast<quint8>(Entry::rule) << left << right << y << width << static_cast<qint64>(color);
}

void PageSpool::box(double left, double top, double right, double bottom, long fill, double outline,
                    long color) {
    m_stream << static_cast<quint8>(Entry::box) << left << top << right << bottom << static_cast<qint64>(fill)
             << outline << static_cast<qint64>(color);
}

void PageSpool::newPage() {
    m_stream << static_cast<quint8>(Entry::newPage);
    check();
}

void PageSpool::check() const {
    if (m_stream.status() != QDataStream::Ok || m_file.error() != QFileDevice::NoError)
        throw fileFault(m_file.error() == QFileDevice::ResourceError ? ENOSPC : EIO, m_file.fileName());
}

void PageSpool::playText(PageTarget& page) {
    qint32 face = 0;
    QString text;
    TextRun run;
    qint64 color = 0;
    m_stream >> face >> text >> run.y >> run.underline >> color >> run.natural;
    check();
    run.text = text;
    run.face = m_faces.at(static_cast<std::size_t>(face));
    run.color = static_cast<long>(color);
    std::vector<double> xs(static_cast<std::size_t>(text.size()));
    m_stream >> xs[0];
    for (std::size_t at = 1; at < xs.size(); ++at) {
        if (!run.natural) {
            m_stream >> xs[at];
            continue;
        }
        const auto unit = static_cast<qsizetype>(at);
        const bool pair = text[unit].isLowSurrogate() && text[unit - 1].isHighSurrogate();
        // Both halves of a pair have its place; the character after it is a pair's width further.
        if (pair)
            xs[at] = xs[at - 1];
        else if (at >= 2 && text[unit - 1].isLowSurrogate() && text[unit - 2].isHighSurrogate())
            xs[at] = xs[at - 1] + run.face->width(QStringView(text).mid(unit - 2, 2));
        else
            xs[at] = xs[at - 1] + run.face->width(QStringView(text).mid(unit - 1, 1));
    }
    run.xs = xs;
    page.text(run);
}

void PageSpool::play(PrintJob& job) {
    if (!m_file.flush()) throw fileFault(ENOSPC, m_file.fileName());
    check();
    m_file.seek(0);
    while (!m_stream.atEnd()) {
        quint8 entry = 0;
        double a = 0, b = 0, c = 0, d = 0, outline = 0;
        qint64 fill = 0, color = 0;
        m_stream >> entry;
        switch (static_cast<Entry>(entry)) {
        case Entry::text:
            playText(job.page());
            break;
        case Entry::rule:
            m_stream >> a >> b >> c >> d >> color;
            job.page().rule(a, b, c, d, static_cast<long>(color));
            break;
        case Entry::box:
            m_stream >> a >> b >> c >> d >> fill >> outline >> color;
            job.page().box(a, b, c, d, static_cast<long>(fill), outline, static_cast<long>(color));
            break;
        case Entry::newPage:
            job.newPage();
            break;
        }
        check();
    }
}

} // namespace vandrel
