// Line-wise reading and writing of the INI file, so that comments and foreign keys survive.
#include "platform/ini_file.h"

#include "platform/atomic_file.h"
#include "platform/code_page.h"

#include <QFile>
#include <QStringList>

#include <cerrno>

using namespace Qt::StringLiterals;

namespace vandrel {

namespace {

constexpr int bufferCharacters = 39; // a buffer of 40 with its closing zero

QStringList linesOf(QFile& file) {
    const QString text = code_page::toUnicode(file.readAll());
    QStringList lines = text.split('\n'_L1);
    for (QString& line : lines)
        if (line.endsWith('\r'_L1)) line.chop(1);
    if (!lines.isEmpty() && lines.last().isEmpty()) lines.removeLast();
    return lines;
}

// For asking: a file that is not there or cannot be read has no values.
QStringList readLines(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return {};
    return linesOf(file);
}

// For writing: lines that cannot be read would be lost by the new file, so they are a fault.
QStringList readLinesToKeep(const QString& path) {
    QFile file(path);
    if (!file.exists()) return {};
    errno = 0;
    if (!file.open(QIODevice::ReadOnly)) throw fileFault(errno != 0 ? errno : EACCES, path);
    QStringList lines = linesOf(file);
    if (file.error() != QFileDevice::NoError) throw fileFault(EIO, path);
    return lines;
}

void writeLines(const QString& path, const QStringList& lines) {
    AtomicFile file(path);
    for (const QString& line : lines)
        file.write(code_page::fromUnicode(line) + "\r\n");
    file.keep();
}

bool isSection(const QString& line, const QString& section) {
    const QString trimmed = line.trimmed();
    return trimmed.startsWith('['_L1) && trimmed.endsWith(']'_L1) &&
           trimmed.mid(1, trimmed.size() - 2).trimmed().compare(section, Qt::CaseInsensitive) == 0;
}

bool isAnySection(const QString& line) {
    return line.trimmed().startsWith('['_L1);
}

// Where a section's lines stand: [first, last) without its own head line; first < 0 when it is not there.
struct Range {
    qsizetype first = -1;
    qsizetype last = -1;
};

Range findSection(const QStringList& lines, const QString& section) {
    Range range;
    for (qsizetype i = 0; i < lines.size(); ++i) {
        if (range.first < 0) {
            if (isSection(lines[i], section)) range.first = i + 1;
        } else if (isAnySection(lines[i])) {
            range.last = i;
            break;
        }
    }
    if (range.first >= 0 && range.last < 0) range.last = lines.size();
    return range;
}

bool isKey(const QString& line, const QString& key) {
    const qsizetype sign = line.indexOf('='_L1);
    return sign >= 0 && !line.trimmed().startsWith(';'_L1) &&
           line.left(sign).trimmed().compare(key, Qt::CaseInsensitive) == 0;
}

// A line end inside a value would forge another key.
QString assignment(const QString& key, const QString& value) {
    QString oneLine = value;
    oneLine.replace('\r'_L1, ' '_L1).replace('\n'_L1, ' '_L1);
    return key + '='_L1 + oneLine;
}

// Puts one key into its section; both are added at the end where they are not there.
void assign(QStringList& lines, const QString& section, const QString& key, const QString& value) {
    const Range range = findSection(lines, section);
    if (range.first < 0) {
        lines << '['_L1 + section + ']'_L1 << assignment(key, value);
        return;
    }
    for (qsizetype i = range.first; i < range.last; ++i) {
        if (!isKey(lines[i], key)) continue;
        lines[i] = assignment(key, value);
        return;
    }
    qsizetype end = range.last;
    while (end > range.first && lines[end - 1].trimmed().isEmpty())
        --end;
    lines.insert(end, assignment(key, value));
}

} // namespace

QString IniFile::value(const QString& section, const QString& key) const {
    return longValue(section, key).left(bufferCharacters);
}

QString IniFile::longValue(const QString& section, const QString& key) const {
    const QStringList lines = readLines(m_path);
    const Range range = findSection(lines, section);
    if (range.first < 0) return {};
    for (qsizetype i = range.first; i < range.last; ++i) {
        if (!isKey(lines[i], key)) continue;
        QString value = lines[i].mid(lines[i].indexOf('='_L1) + 1).trimmed();
        if (value.size() >= 2 && (value.front() == '"'_L1 || value.front() == '\''_L1) &&
            value.back() == value.front())
            value = value.mid(1, value.size() - 2);
        return value;
    }
    return {};
}

void IniFile::setValues(const QString& section, const Values& values) const {
    QStringList lines = readLinesToKeep(m_path);
    for (const auto& [key, value] : values)
        assign(lines, section, key, value);
    writeLines(m_path, lines);
}

void IniFile::setSection(const QString& section, const Values& values) const {
    QStringList lines = readLinesToKeep(m_path);
    const Range range = findSection(lines, section);
    qsizetype place = range.first;
    if (place < 0) {
        lines << '['_L1 + section + ']'_L1;
        place = lines.size();
    } else {
        lines.erase(lines.begin() + range.first, lines.begin() + range.last);
    }
    for (const auto& [key, value] : values)
        lines.insert(place++, assignment(key, value));
    writeLines(m_path, lines);
}

} // namespace vandrel
