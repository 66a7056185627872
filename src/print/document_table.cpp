#include "print/document_table.h"

#include "platform/atomic_file.h"
#include "platform/code_page.h"

#include <QStringEncoder>

#include <algorithm>
#include <cstring>
#include <string>
#include <string_view>

using namespace Qt::StringLiterals;

namespace vandrel {

namespace {

constexpr qsizetype blockSize = 1 << 18;
constexpr const char* byteOrderMark = "\xEF\xBB\xBF";

void appendNumber(QByteArray& bytes, quint32 number) {
    bytes.append(reinterpret_cast<const char*>(&number), sizeof number);
}

quint32 numberAt(const char*& at) {
    quint32 number = 0;
    std::memcpy(&number, at, sizeof number);
    at += sizeof number;
    return number;
}

// Without a byte array of its own for each of the million cells of a list.
void appendCell(QByteArray& bytes, const QString& cell) {
    const qsizetype before = bytes.size();
    QStringEncoder encoder(QStringEncoder::Utf8);
    const auto head = static_cast<qsizetype>(sizeof(quint32));
    bytes.resize(before + head + encoder.requiredSpace(cell.size()));
    bytes.resize(encoder.appendToBuffer(bytes.data() + before + head, cell) - bytes.constData());
    const auto length = static_cast<quint32>(bytes.size() - before - head);
    std::memcpy(bytes.data() + before, &length, sizeof length);
}

// "-5", "+36,5": what may begin with a sign without being a formula.
bool isSignedNumber(QByteArrayView cell) {
    bool comma = false, digit = false;
    for (const char c : cell.sliced(1)) {
        if (c == ',' && digit && !comma)
            comma = true;
        else if (c >= '0' && c <= '9')
            digit = true;
        else
            return false;
    }
    return digit && !cell.endsWith(',');
}

bool looksLikeFormula(QByteArrayView cell) {
    if (cell.isEmpty() || std::strchr("=+-@", cell.front()) == nullptr) return false;
    return cell.front() == '=' || cell.front() == '@' || !isSignedNumber(cell);
}

void appendCsv(QByteArray& line, QByteArrayView cell) {
    const bool quoted = std::any_of(cell.begin(), cell.end(),
                                    [](char c) { return c == ';' || c == '"' || c == '\r' || c == '\n'; });
    if (quoted) line += '"';
    if (looksLikeFormula(cell)) line += '\'';
    for (const char c : cell) {
        if (c == '"') line += '"';
        line += c;
    }
    if (quoted) line += '"';
}

} // namespace

void DocumentTable::clear() {
    *this = DocumentTable();
}

void DocumentTable::setCaption(const QString& title, const QString& subtitle) {
    m_title = title;
    m_subtitle = subtitle;
}

void DocumentTable::addHeads(const QStringList& heads, int numbers) {
    m_firstNumber = static_cast<std::size_t>(std::max<qsizetype>(heads.size() - numbers, 0));
    addRow(heads);
}

void DocumentTable::addRow(const QStringList& cells) {
    appendNumber(m_open, static_cast<quint32>(cells.size()));
    if (m_widths.size() < static_cast<std::size_t>(cells.size()))
        m_widths.resize(static_cast<std::size_t>(cells.size()), 0);
    std::size_t column = 0;
    for (const QString& cell : cells) {
        appendCell(m_open, cell);
        qsizetype& width = m_widths[column++];
        width = std::max(width, cell.size());
    }
    ++m_rows;
    if (m_open.size() >= blockSize) pack();
}

void DocumentTable::pack() {
    m_packed.push_back(qCompress(m_open, 1));
    m_open.clear();
    m_open.reserve(blockSize + blockSize / 4);
}

void DocumentTable::eachRow(const std::function<void(const Row&)>& row) const {
    Row cells;
    const auto read = [&](const QByteArray& block) {
        const char* at = block.constData();
        const char* end = at + block.size();
        while (at < end) {
            cells.resize(numberAt(at));
            for (QByteArrayView& cell : cells) {
                const auto length = static_cast<qsizetype>(numberAt(at));
                cell = QByteArrayView(at, length);
                at += length;
            }
            row(cells);
        }
    };
    for (const QByteArray& block : m_packed)
        read(qUncompress(block));
    read(m_open);
}

void DocumentTable::eachCsvLine(const std::function<void(const QByteArray&)>& line) const {
    QByteArray text;
    eachRow([&](const Row& cells) {
        text.clear();
        bool first = true;
        for (const QByteArrayView cell : cells) {
            if (!std::exchange(first, false)) text += ';';
            appendCsv(text, cell);
        }
        text += "\r\n";
        line(text);
    });
}

qint64 DocumentTable::unencodable(Encoding encoding) const {
    if (encoding == Encoding::utf8) return 0;
    qint64 count = 0;
    std::string bytes;
    eachCsvLine([&](const QByteArray& text) {
        const std::string_view line(text.constData(), static_cast<std::size_t>(text.size()));
        bytes.clear();
        if (code_page::appendUtf8(bytes, line)) return;
        for (std::size_t at = 0; at < line.size();) {
            std::size_t next = at + 1;
            while (next < line.size() && (static_cast<unsigned char>(line[next]) & 0xC0) == 0x80)
                ++next;
            if (!code_page::appendUtf8(bytes, line.substr(at, next - at))) ++count;
            at = next;
        }
    });
    return count;
}

void DocumentTable::save(const QString& path, Encoding encoding) const {
    AtomicFile file(path);
    if (encoding == Encoding::utf8) file.write(byteOrderMark);
    std::string bytes;
    eachCsvLine([&](const QByteArray& line) {
        if (encoding == Encoding::utf8) {
            file.write(line);
            return;
        }
        bytes.clear();
        code_page::appendUtf8(bytes, {line.constData(), static_cast<std::size_t>(line.size())});
        file.write(bytes.data(), static_cast<qint64>(bytes.size()));
    });
    file.keep(); // looks at every write
}

} // namespace vandrel
