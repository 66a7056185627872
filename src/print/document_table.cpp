#include "print/document_table.h"

#include "platform/atomic_file.h"
#include "platform/code_page.h"

#include <QStringEncoder>

#include <string>
#include <string_view>

using namespace Qt::StringLiterals;

namespace vandrel {

namespace {

constexpr qsizetype blockSize = 1 << 18;
constexpr const char* byteOrderMark = "\xEF\xBB\xBF";

std::string_view view(const QByteArray& bytes, qsizetype from, qsizetype to) {
    return {bytes.constData() + from, static_cast<std::size_t>(to - from)};
}

// Calls line with every physical line of the table, its line end included.
template<typename Line>
void forEachLine(const QByteArray& csv, Line line) {
    for (qsizetype from = 0; from < csv.size();) {
        const qsizetype end = csv.indexOf('\n', from);
        const qsizetype to = end < 0 ? csv.size() : end + 1;
        line(view(csv, from, to));
        from = to;
    }
}

// Without a byte array of its own for each of the million cells of a list.
void appendUtf8(QByteArray& bytes, const QString& cell) {
    const qsizetype before = bytes.size();
    QStringEncoder encoder(QStringEncoder::Utf8);
    bytes.resize(before + encoder.requiredSpace(cell.size()));
    bytes.resize(encoder.appendToBuffer(bytes.data() + before, cell) - bytes.constData());
}

QString quoted(const QString& cell) {
    bool plain = true;
    for (const QChar character : cell)
        plain = plain && character != u';' && character != u'"' && character != u'\r' && character != u'\n';
    if (plain) return cell;
    QString doubled = cell;
    return u'"' + doubled.replace(u'"', "\"\""_L1) + u'"';
}

} // namespace

void DocumentTable::clear() {
    m_packed.clear();
    m_csv.clear();
    m_rows = 0;
}

void DocumentTable::addRow(const QStringList& cells) {
    bool first = true;
    for (const QString& cell : cells) {
        if (!std::exchange(first, false)) m_csv += ';';
        appendUtf8(m_csv, quoted(cell));
    }
    m_csv += "\r\n";
    ++m_rows;
    if (m_csv.size() >= blockSize) pack();
}

void DocumentTable::pack() {
    m_packed.push_back(qCompress(m_csv, 1));
    m_csv.clear();
    m_csv.reserve(blockSize + blockSize / 4);
}

template<class Take>
void DocumentTable::eachBlock(Take take) const {
    for (const QByteArray& block : m_packed)
        take(qUncompress(block));
    take(m_csv);
}

qint64 DocumentTable::unencodable(Encoding encoding) const {
    if (encoding == Encoding::utf8) return 0;
    qint64 count = 0;
    std::string bytes;
    const auto countLine = [&](std::string_view line) {
        bytes.clear();
        if (code_page::appendUtf8(bytes, line)) return;
        for (std::size_t at = 0; at < line.size();) {
            std::size_t next = at + 1;
            while (next < line.size() && (static_cast<unsigned char>(line[next]) & 0xC0) == 0x80)
                ++next;
            if (!code_page::appendUtf8(bytes, line.substr(at, next - at))) ++count;
            at = next;
        }
    };
    eachBlock([&](const QByteArray& block) { forEachLine(block, countLine); });
    return count;
}

void DocumentTable::save(const QString& path, Encoding encoding) const {
    AtomicFile file(path);
    if (encoding == Encoding::utf8) file.write(byteOrderMark);
    std::string bytes;
    eachBlock([&](const QByteArray& block) {
        if (encoding == Encoding::utf8) {
            file.write(block);
            return;
        }
        forEachLine(block, [&](std::string_view line) {
            bytes.clear();
            code_page::appendUtf8(bytes, line);
            file.write(bytes.data(), static_cast<qint64>(bytes.size()));
        });
    });
    file.keep(); // looks at every write
}

} // namespace vandrel
