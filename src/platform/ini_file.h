// setup.ini as the clinics have it: sections and keys without regard to case, values trimmed, one surrounding
// pair of quotes dropped, code page windows-1250, a read buffer of 40 characters.
#pragma once

#include <QString>

#include <utility>
#include <vector>

namespace vandrel {

class IniFile {
  public:
    explicit IniFile(const QString& path) : m_path(path) {}

    const QString& path() const { return m_path; }

    // Empty when the file, the section or the key is missing. Cut to 39 characters, as the buffer has always
    // done; nothing relies on longer values.
    QString value(const QString& section, const QString& key) const;

    // Writes one key and leaves every other line as it is. The file is replaced whole or not at all.
    // Faults: pathAccess, diskFull, pathNotFound.
    void setValue(const QString& section, const QString& key, const QString& value) const;
    // Replaces a whole section: keys that are not given are lost, as the system's section writer does it.
    void setSection(const QString& section, const std::vector<std::pair<QString, QString>>& values) const;

  private:
    QString m_path;
};

} // namespace vandrel
