// The data files of one program folder, each opened on first use and kept as one connection.
#pragma once

#include "foundation/catalogue.h"
#include "platform/database.h"

#include <QString>

#include <array>
#include <memory>

namespace vandrel {

class FileChecks;

class DataFiles {
  public:
    explicit DataFiles(const QString& folder);
    ~DataFiles();
    DataFiles(const DataFiles&) = delete;
    DataFiles& operator=(const DataFiles&) = delete;

    const QString& folder() const { return m_folder; }
    QString path(DataFile file) const;

    // The open file. Fault dataFileMissing when it is not there, with the text "Nem található a NAME
    // állomány!".
    Database& operator[](DataFile file);
    // Closes a file before it is copied or replaced; the next use opens it again.
    void close(DataFile file);
    void closeAll();

    // Which of them are known to be whole.
    FileChecks& checks() { return *m_checks; }

    // Looks whether tetseged.mdb is whole and has all its tables: a file that is missing, damaged or of
    // another layout is replaced by a new one without rows. No statement on it may be open. Faults of a file
    // that cannot be replaced or that another program holds.
    void renewScratch();

    // What is wrong with a file, in Hungarian, naming it; empty when it is there with all its tables and
    // columns. Files up to a few megabytes are also read through for damage.
    QString examine(DataFile file);

  private:
    QString m_folder;
    std::array<std::unique_ptr<Database>, 11> m_open;
    std::unique_ptr<FileChecks> m_checks;
};

// Makes one data file of the catalogue, with its indexes, views and first rows. Fault where it exists
// already.
void createDataFile(const QString& path, DataFile file);
// Makes a program folder: every data file that is not there yet, and setup.ini with every key. Gives the
// names of what was made; existing files are never touched.
QStringList createProgramFolder(const QString& folder);

} // namespace vandrel
