// All that one store writes: the sheet and what hangs on it.
#pragma once

#include "sheet/sheet_fields.h"
#include "sheet/sick_pay_episode.h"

#include <QString>

#include <functional>
#include <optional>
#include <vector>

namespace vandrel {

struct Workstation;

// The fields of the EU sheet that a store asks for.
struct EuSheet {
    QString BIZT_ORSZ, CS_NEV, KER_NEV, BIZT_SZAM;
};

struct SheetRecord {
    SheetRecord() = default;
    // A sheet with nothing that hangs on it.
    SheetRecord(const SheetFields& sheetFields) : fields(sheetFields) {}

    SheetFields fields;
    EuSheet euSheet;
    // nullopt: the form has no panel, and nothing is written; a panel that was never filled is a default one.
    std::optional<SickPayEpisode> sickPay;
    QString transactionCode; // of the last eligibility check; empty: there was none
};

// One store while it runs.
struct StoreRun {
    Workstation& station;
    const SheetRecord& record;
    // Read before anything is written.
    qint64 visitFee = 0;       // forints, 16 bits
    double partFee = 0;        // forints
    qint64 journal = 0;        // of a new sheet only
    qint64 sickPayJournal = 0; // of an episode that is taken on
    bool enterPatient = false; // an unknown patient goes into the register
    qint64 patientId = 0;      // inside and after: the patient's number; 0 when not in the register
};

// When a step of the store runs:
// before: nothing is written and nothing locked; the place for questions and refusals. A fault ends the
// store. inside: in the one transaction that writes register, sheet and what hangs on it; no box may be
// shown. A
//         fault leaves nothing written.
// after:  the sheet is safe, the counters have not moved yet. A fault is told as one that came after it.
enum class StoreTime { before, inside, after };

struct StoreStep {
    StoreTime time;
    std::function<void(StoreRun&)> run;
};

// The steps that other rooms offer, in their order; each runs after the sheet's own of its time.
struct StoreSteps {
    std::vector<StoreStep> offered;
};

} // namespace vandrel
