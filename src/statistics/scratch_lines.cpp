#include "statistics/scratch_lines.h"

namespace vandrel {

std::vector<qint64> copyLines(ListRun& run, ScratchKey key) {
    enum Column { AZONOSITO, SZAKREND, IGENYLO };
    Database& scratch = run.scratch();
    Transaction transaction(scratch);
    scratch.execute("delete from EUSZOLG");
    std::vector<qint64> copies;
    {
        Query copy = scratch.query(
            "insert into EUSZOLG (Azonosito, BEAV, MENNY, IGENYLO, SZAKREND) values (?1, ?2, ?3, ?4, ?5)");
        run.eachSheet("AZONOSITO, SZAKREND, IGENYLO", [&](const Query& sheet) {
            copy.bind(4, key == ScratchKey::referrerAndUnit ? sheet.optionalBytes(IGENYLO) : std::nullopt);
            copy.bind(5, sheet.optionalBytes(SZAKREND));
            Query line = run.data().query("select Azonosito, BEAV, MENNY from EUSZOLG where Azonosito=?1 "
                                          "order by rowid",
                                          sheet.bytes(AZONOSITO));
            while (line.next()) {
                copy.bind(1, line.optionalBytes(0)).bind(2, line.optionalBytes(1));
                copy.bind(3, line.optionalBytes(2)); // the column makes a number of it again
                copy.run();
                copies.push_back(scratch.lastRowId());
            }
        });
    }
    transaction.commit();
    return copies;
}

} // namespace vandrel
