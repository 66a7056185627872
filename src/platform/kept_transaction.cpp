#include "platform/kept_transaction.h"

namespace vandrel {

KeptTransaction::KeptTransaction(Database& database) : m_database(database) {
    m_database.execute("begin immediate");
}

KeptTransaction::~KeptTransaction() {
    try {
        commit();
    } catch (const Fault&) {
        // What could not be committed is gone whole.
    }
}

void KeptTransaction::commit() {
    if (!m_open) return;
    m_open = false;
    if (!m_database.inTransaction()) return;
    try {
        m_database.execute("commit");
    } catch (const Fault&) {
        try {
            if (m_database.inTransaction()) m_database.execute("rollback");
        } catch (const Fault&) {
            // The fault of the commit is the one to be told.
        }
        throw;
    }
}

} // namespace vandrel
