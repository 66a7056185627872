// Run-time faults: the numbered errors that handlers all over the program decide upon.
// A fault is an exception with the system's number and a Hungarian text; it knows no window.
#pragma once

#include <QString>

#include <exception>
#include <string>

namespace vandrel {

// The numbers that some handler knows. They are shown in boxes and have not changed since the first version,
// so that the clinics and their support know them: file faults have two digits, the storage engine's four.
namespace fault {
inline constexpr int invalidCall = 5; // also: a value longer than its report column
inline constexpr int overflow = 6;
inline constexpr int subscript = 9;
inline constexpr int typeMismatch = 13;
inline constexpr int badFile = 52; // writing to a file that is not open
inline constexpr int fileNotFound = 53;
inline constexpr int deviceError = 57;
inline constexpr int diskFull = 61;
inline constexpr int permissionDenied = 70; // another program holds the file
inline constexpr int diskNotReady = 71;
inline constexpr int pathAccess = 75; // read-only file or folder
inline constexpr int pathNotFound = 76;
inline constexpr int webService = 440; // a web service that does not do what it says
inline constexpr int noPrinter = 482;
inline constexpr int noCurrentRecord = 3021;
inline constexpr int dataFileMissing = 3024;
inline constexpr int dataFileFull = 3026;
inline constexpr int dataFileReadOnly = 3027;
inline constexpr int dataFileInUse = 3045;
inline constexpr int columnMissing = 3061;
inline constexpr int tableMissing = 3078;
inline constexpr int dataFileDamaged = 3343;
inline constexpr int storage = 3251;        // any other refusal of the storage engine
inline constexpr int dataConversion = 3421; // a value that the column's type refuses
} // namespace fault

class Fault : public std::exception {
  public:
    // source: the class that raises a fault of its own; empty for the system's.
    Fault(int number, const QString& text, const QString& source = {})
        : m_number(number), m_text(text), m_source(source), m_what(text.toStdString()) {}

    int number() const noexcept { return m_number; }
    // Hungarian, fit for a message box; names the file where one is concerned.
    const QString& text() const noexcept { return m_text; }
    const QString& source() const noexcept { return m_source; }
    const char* what() const noexcept override { return m_what.c_str(); }

  private:
    int m_number;
    QString m_text;
    QString m_source;
    std::string m_what;
};

// The fault for a file operation that failed with an errno; path is named in the text.
// A missing folder gives pathNotFound, a read-only place pathAccess, a full disk diskFull.
Fault fileFault(int errorNumber, const QString& path);

} // namespace vandrel
