// A file that is there wholly or not at all: an earlier one of its name stays until the new one is complete.
#pragma once

#include "platform/fault.h"

#include <QSaveFile>

namespace vandrel {

class AtomicFile : public QSaveFile {
  public:
    // Opens a file beside the one of that name. Faults: pathNotFound, pathAccess (also a folder or a device
    // of that name, and an earlier file that may not be written), diskFull.
    explicit AtomicFile(const QString& path);

    // The fault of the first write that failed; for writers that do not look themselves.
    void check() const;
    // Puts the file in its place. Faults diskFull, deviceError and those above; nothing has changed then,
    // even where the caller did not look at the results of his writing.
    void keep();

  protected:
    qint64 writeData(const char* data, qint64 length) override;

  private:
    int m_writeError = 0; // errno of the first write that failed
};

} // namespace vandrel
