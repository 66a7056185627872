#include "platform/kept_transaction.h"

namespace vandrel {

KeptTransaction::KeptTransaction(Database& database) : m_database(database) {
    begin();
}

KeptTransaction::~KeptTransaction() {
    try {
        commit();
    } catch (const Fault&) {
        // What could not be committed is gone whole.
        try {
            if (m_database.inTransaction()) m_database.execute("rollback");
        } catch (const Fault&) {
        }
    }
}

void KeptTransaction::begin() {
    m_database.execute("begin immediate");
}

void KeptTransaction::commit() {
    if (m_database.inTransaction()) m_database.execute("commit");
}

void KeptTransaction::commitAndGoOn() {
    commit();
    begin();
}

} // namespace vandrel
