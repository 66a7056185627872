// windows-1250 through Qt's converter, with a table of its own for the report's hot path.
#include "platform/code_page.h"

#include <QFile>
#include <QStringDecoder>
#include <QStringEncoder>

#include <array>
#include <cerrno>
#include <unordered_map>

using namespace Qt::StringLiterals;

namespace vandrel {

namespace code_page {

namespace {

constexpr const char* pageName = "windows-1250";

struct Table {
    std::array<char16_t, 128> upper{}; // of bytes 128..255; 0 where the page has no character
    std::unordered_map<char16_t, char> bytes;
};

const Table& table() {
    static const Table result = [] {
        Table made;
        for (int byte = 128; byte < 256; ++byte) {
            QStringDecoder decoder(pageName);
            const QString text = decoder(QByteArray(1, static_cast<char>(byte)));
            if (decoder.hasError() || text.size() != 1 || text[0].unicode() < 128 ||
                text[0].unicode() == 0xFFFD)
                continue;
            made.upper[static_cast<std::size_t>(byte - 128)] = text[0].unicode();
            made.bytes[text[0].unicode()] = static_cast<char>(byte);
        }
        return made;
    }();
    return result;
}

} // namespace

void requireCodec() {
    if (!QStringEncoder(pageName).isValid() || table().bytes.empty())
        throw Fault(fault::fileNotFound, u"A windows-1250 kódlap nem érhető el ezen a gépen!"_s);
}

QByteArray fromUnicode(QStringView text) {
    const Table& page = table();
    QByteArray result;
    result.reserve(text.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        const char16_t unit = text[i].unicode();
        if (unit < 128) {
            result.append(static_cast<char>(unit));
            continue;
        }
        if (text[i].isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate()) ++i;
        const auto found = page.bytes.find(unit);
        result.append(found != page.bytes.end() ? found->second : '?');
    }
    return result;
}

QString toUnicode(const QByteArray& bytes) {
    const Table& page = table();
    QString result;
    result.reserve(bytes.size());
    for (const char byte : bytes) {
        const auto value = static_cast<unsigned char>(byte);
        const char16_t upper = value < 128 ? value : page.upper[value - 128U];
        result.append(QChar(upper != 0 || value == 0 ? upper : char16_t(0xFFFD)));
    }
    return result;
}

namespace {

bool append(std::string& target, std::string_view utf8, bool linePart) {
    constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
    bool plain = true;
    for (const char c : utf8)
        plain = plain && static_cast<unsigned char>(c) >= 32 && static_cast<unsigned char>(c) < 128;
    if (plain) {
        target.append(utf8);
        return true;
    }
    const Table& page = table();
    bool whole = true;
    const QString text = QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
    if (utf8.starts_with(byteOrderMark)) { // the conversion above drops it without a word
        whole = false;
        target.push_back('?');
    }
    for (qsizetype i = 0; i < text.size(); ++i) {
        const char16_t unit = text[i].unicode();
        if (linePart && (unit == 0 || unit == '\r' || unit == '\n')) {
            whole = false;
            target.push_back('?');
            continue;
        }
        if (unit < 128) {
            target.push_back(static_cast<char>(unit));
            continue;
        }
        if (text[i].isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate()) ++i;
        const auto found = page.bytes.find(unit);
        whole = whole && found != page.bytes.end();
        target.push_back(found != page.bytes.end() ? found->second : '?');
    }
    return whole;
}

} // namespace

bool appendUtf8(std::string& target, std::string_view utf8) {
    return append(target, utf8, false);
}

bool appendLinePart(std::string& target, std::string_view utf8) {
    return append(target, utf8, true);
}

std::size_t characters(std::string_view utf8) {
    std::size_t count = 0;
    for (const char c : utf8)
        count += (static_cast<unsigned char>(c) & 0xC0) != 0x80 ? 1 : 0;
    return count;
}

} // namespace code_page

namespace {

// Of writing and closing. What part of the bytes has reached the file is unknown then: neither trying again
// nor going on would give a whole file, so the faults that invite to it are not raised here.
Fault writeFault(int errorNumber, const QString& path) {
    const Fault fault = fileFault(errorNumber, path);
    switch (fault.number()) {
    case fault::diskFull:
    case fault::diskNotReady:
        return fault;
    default:
        return {fault::deviceError, u"Írási hiba: %1"_s.arg(path)};
    }
}

} // namespace

CodePageFile::~CodePageFile() {
    if (m_file != nullptr) std::fclose(m_file);
}

void CodePageFile::open(const QString& path) {
    m_path = path;
    errno = 0;
    m_file = std::fopen(QFile::encodeName(path).constData(), "wb");
    if (m_file == nullptr) throw fileFault(errno, path);
}

void CodePageFile::writeLine(QStringView text) {
    const QByteArray utf8 = text.toUtf8();
    std::string bytes;
    code_page::appendLinePart(bytes, {utf8.constData(), static_cast<std::size_t>(utf8.size())});
    bytes += "\r\n";
    writeBytes(bytes);
}

void CodePageFile::writeBytes(std::string_view bytes) {
    if (m_file == nullptr) throw Fault(fault::badFile, u"Az állomány nincs megnyitva: %1"_s.arg(m_path));
    errno = 0;
    if (std::fwrite(bytes.data(), 1, bytes.size(), m_file) != bytes.size()) throw writeFault(errno, m_path);
}

void CodePageFile::close() {
    if (m_file == nullptr) return;
    errno = 0;
    std::FILE* file = std::exchange(m_file, nullptr);
    const bool flushed = std::fflush(file) == 0;
    const int flushError = errno;
    const bool closed = std::fclose(file) == 0;
    if (!flushed) throw writeFault(flushError, m_path);
    if (!closed) throw writeFault(errno, m_path);
}

void makeEmptyFile(const QString& path) {
    CodePageFile file;
    file.open(path);
    file.close();
}

void copyFileOver(const QString& from, const QString& to) {
    QFile source(from);
    errno = 0;
    if (!source.open(QIODevice::ReadOnly)) throw fileFault(errno != 0 ? errno : ENOENT, from);
    CodePageFile target;
    target.open(to);
    while (true) {
        const QByteArray part = source.read(1 << 16);
        if (part.isEmpty()) {
            if (source.error() != QFileDevice::NoError)
                throw Fault(fault::deviceError, u"Olvasási hiba: %1"_s.arg(from));
            break;
        }
        target.writeBytes({part.constData(), static_cast<std::size_t>(part.size())});
    }
    target.close();
}

} // namespace vandrel
