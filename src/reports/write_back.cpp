#include "reports/write_back.h"

#include "foundation/period_condition.h"
#include "platform/event_turn.h"

#include <QRegularExpression>

#include <algorithm>
#include <vector>

using namespace Qt::StringLiterals;

namespace vandrel {

namespace {

struct OptionRule {
    const char* found; // condition on the sheet
    const char* clear;
};

OptionRule ruleOf(WriteBack option) {
    switch (option) {
    case WriteBack::original:
        return {"FLOPPY=1", "update BETEG set FLOPPY=0 where rowid=?"};
    case WriteBack::corrected:
        return {"FLOPPY2=1", "update BETEG set FLOPPY2=0 where rowid=?"};
    case WriteBack::both:
        break;
    }
    return {"(FLOPPY=1 or FLOPPY2=1)", "update BETEG set FLOPPY=0, FLOPPY2=0 where rowid=?"};
}

// Year and month whole. A half-filled mask compares as a text with every date, and would clear the marks of
// other years.
bool isPeriod(const QString& text) {
    static const QRegularExpression period(u"^[0-9]{4}\\.(0[1-9]|1[0-2])$"_s);
    return period.match(text).hasMatch();
}

} // namespace

WriteBackOutcome writeBackMarks(Workstation& station, const QString& from, const QString& to,
                                WriteBack option, const std::function<void(qint64, qint64)>& moved) {
    if (!isPeriod(from)) {
        station.dialogue.tell(u"Nem adott meg -Tól értéket!"_s);
        return {u"from"_s, 0};
    }
    if (!isPeriod(to)) {
        station.dialogue.tell(u"Nem adott meg -Ig értéket!"_s);
        return {u"to"_s, 0};
    }
    WriteBackOutcome outcome;
    try {
        const OptionRule rule = ruleOf(option);
        const PeriodCondition period = periodCondition(from, to);
        EventTurn turn(station.serveEvents, station.turnEvery);
        Database& data = station.files[DataFile::tetdata];
        std::vector<qint64> sheets;
        {
            Query found = data.query("select rowid from BETEG where " + period.sql + " and " + rule.found,
                                     period.lower, period.upper);
            while (found.next()) {
                sheets.push_back(found.integer(0));
                if ((sheets.size() & 63) == 0 && turn.due()) turn.serve();
            }
        }
        std::sort(sheets.begin(), sheets.end());
        Transaction transaction(data);
        Query clear = data.query(rule.clear);
        const auto total = static_cast<qint64>(sheets.size());
        qint64 position = 0;
        for (const qint64 sheet : sheets) {
            clear.bind(1, sheet).run();
            ++position;
            if (position == total || turn.due()) {
                if (moved) moved(position, total);
                turn.serve();
            }
        }
        transaction.commit();
        outcome.sheets = total;
    } catch (const Fault& fault) {
        station.dialogue.tell(
            u"Az adatvisszaállítás nem sikerült, az adatok nem változtak!\n"_s + fault.text(), u"Hiba"_s);
        return {};
    }
    if (outcome.sheets == 0)
        station.dialogue.tell(u"Nincs visszaállítható adat!"_s, programTitle, Icon::warning);
    else
        station.dialogue.tell(u"Kész az adatvisszaállítás!"_s, programTitle, Icon::information);
    return outcome;
}

} // namespace vandrel
