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

    // The same without the cut, for keys that are this program's own.
    QString longValue(const QString& section, const QString& key) const;

    using Values = std::vector<std::pair<QString, QString>>; // key and value

    // Writes keys and leaves every other line as it is. The file is replaced whole or not at all; a file that
    // is there but cannot be read is never replaced. Faults: pathAccess, diskFull, pathNotFound, deviceError.
    void setValues(const QString& section, const Values& values) const;
    void setValue(const QString& section, const QString& key, const QString& value) const {
        setValues(section, {{key, value}});
    }
    // Replaces a whole section: keys that are not given are lost, as the system's section writer does it.
    // Faults as setValues.
    void setSection(const QString& section, const Values& values) const;

  private:
    QString m_path;
};

} // namespace vandrel
