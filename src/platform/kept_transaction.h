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

    // Does nothing where the engine itself has rolled back (a full disk) or commit() was called before.
    // Faults of the engine; nothing was written then.
    void commit();

  private:
    Database& m_database;
    bool m_open = true;
};

} // namespace vandrel
