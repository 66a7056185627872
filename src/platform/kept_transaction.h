// A write transaction for long runs whose finished part is to stay when a later part breaks.
#pragma once

#include "platform/database.h"

namespace vandrel {

// Begun at once. The destructor commits, also when a fault passes through, where Transaction rolls back; a
// fault of its own is dropped then, since the first one is on its way to the user. What the caller wants
// rolled back with the record at fault must not have been written yet.
class KeptTransaction {
  public:
    explicit KeptTransaction(Database& database); // Fault dataFileInUse and others of the engine
    ~KeptTransaction();
    KeptTransaction(const KeptTransaction&) = delete;
    KeptTransaction& operator=(const KeptTransaction&) = delete;

    // Nothing where the engine itself has rolled back (a full disk) or commit() was called before. Faults of
    // the engine; then nothing was written.
    void commit();
    // Commits and begins the next one.
    void commitAndGoOn();

  private:
    void begin();

    Database& m_database;
};

} // namespace vandrel
