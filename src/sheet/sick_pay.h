// Sick-pay episodes: what the judgement of fitness for work opens or refuses, what the panel asks for, and
// what a store writes into TAPPENZ. Knows no window.
#pragma once

#include "foundation/checks.h"
#include "foundation/workstation.h"
#include "sheet/sheet_record.h"

#include <QDate>
#include <QString>

#include <optional>

namespace vandrel {

// What the code of K_KEP does with an episode: 1 and 2 take on, 3 to 5 end, all else nothing.
enum class EpisodeWork { none, takeOn, end };
EpisodeWork episodeWork(const QString& workCapacity);

// What leaving K_KEP comes to.
struct WorkCapacityLeft {
    QString value;                       // what the field holds from now on
    std::optional<CheckFailure> refusal; // tell it; the focus goes to its field, the sheet stays as it is
    bool panelOpens = false;             // false: the panel's button is hidden
    SickPayEpisode panel;                // filled by the check; as given where it is refused or does nothing
};
// panel is what the panel holds. altEng: an empty code becomes "0" only while it is on. Faults of the data
// file pass through.
WorkCapacityLeft leaveWorkCapacity(Workstation& station, const SheetFields& sheet,
                                   const SickPayEpisode& panel, bool altEng);

// The first required field of the panel that is empty, in their order; nullopt lets the panel close.
std::optional<CheckFailure> checkSickPayPanel(const SickPayEpisode& panel, const QString& workCapacity);

// The panel of a sheet that is opened for correction, and whether the panel's button is shown.
struct LoadedEpisode {
    SickPayEpisode panel;
    bool buttonShown = false;
};
LoadedEpisode loadEpisode(Workstation& station, const SheetFields& sheet);

// The store's step inside the transaction; nothing for a sheet without a panel.
void storeEpisode(StoreRun& run);
// The sick-pay journal number of the panel: what a new row of DEFAULT gets as TN. 0 unless taken on. Faults
// typeMismatch and overflow for a text that is no number.
qint64 sickPayJournal(const SheetRecord& record);

// Whole years at today; a birthday today counts. nullopt for what is no date.
std::optional<int> ageAt(const QString& birthDate, QDate today);
// Two digits of the date's year and its week by weekOf; empty for what is no date.
// Deliberate: padded up to and including 10, so that week 10 gives "08010"; reports look for just that text.
QString weekKey(const QString& date, QDate today);

} // namespace vandrel
