// The workstation's single-byte code page, windows-1250: conversions, and the one class that writes text
// files in it (binary, CR LF).
#pragma once

#include "platform/fault.h"

#include <QByteArray>
#include <QString>

#include <cstdio>
#include <string>
#include <string_view>

namespace vandrel {

namespace code_page {

// A character outside the page becomes '?'.
QByteArray fromUnicode(QStringView text);
QString toUnicode(const QByteArray& bytes);
// Appends UTF-8 text as windows-1250 bytes. False when it holds what is no character of the page: a letter
// outside it, U+FEFF, broken UTF-8; each is a '?' then.
bool appendUtf8(std::string& target, std::string_view utf8);
// The same for a part of a line, where a line end and NUL are no characters either.
bool appendLinePart(std::string& target, std::string_view utf8);
// Number of characters (not bytes) of a UTF-8 text, as the single-byte code page will count them.
std::size_t characters(std::string_view utf8);
// Fault fileNotFound when this machine has no windows-1250 converter; called once at start.
void requireCodec();

} // namespace code_page

// A text file opened for output and overwritten from its start. Every failure, a full disk at closing
// included, is raised as a Fault; a file not opened raises badFile when written to.
class CodePageFile {
  public:
    CodePageFile() = default;
    ~CodePageFile(); // closes without raising: call close() to learn of a fault
    CodePageFile(const CodePageFile&) = delete;
    CodePageFile& operator=(const CodePageFile&) = delete;

    // Faults: pathNotFound, pathAccess, diskFull, permissionDenied, diskNotReady.
    void open(const QString& path);
    bool isOpen() const { return m_file != nullptr; }
    // Text and a line end; what is no character of a line becomes '?', as appendLinePart says.
    void writeLine(QStringView text);
    // Bytes already in the code page, line end included. Faults of writing and closing: diskFull,
    // diskNotReady, deviceError; none that a caller would answer by trying again.
    void writeBytes(std::string_view bytes);
    void close();

  private:
    std::FILE* m_file = nullptr;
    QString m_path;
};

// Makes, or empties, a file and closes it. Faults as CodePageFile::open.
void makeEmptyFile(const QString& path);
// Copies a file over another one. Faults: fileNotFound, deviceError and those of CodePageFile.
void copyFileOver(const QString& from, const QString& to);

} // namespace vandrel
