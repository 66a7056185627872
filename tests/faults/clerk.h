// A clerk at work through the program's own rules, for the fault trials: stores one sheet after the other and
// can tell from the data files alone whether every one is whole.
#pragma once

#include "foundation/workstation.h"

#include <functional>
#include <random>
#include <string>
#include <vector>

namespace vandrel::test {

// Says yes to every question. told gets each box's text.
class WillingDialogue : public Dialogue {
  public:
    Answer show(const Message& message) override;
    std::function<void(const QString& text)> told;
};

// A folder with an institution, a label, procedures and a unit.
void prepareClinic(const QString& folder);

// A sheet as it was confirmed: its key, its lines' number, and the mark that all its texts carry.
struct Confirmed {
    std::string key;
    int lines = 0;
    int mark = 0;
    bool correction = false;
};

class Clerk {
  public:
    Clerk(Workstation& station, unsigned seed) : m_station(station), m_random(seed) {}

    // Enters one new sheet with 0 to 13 lines for a new or a known patient, or corrects an earlier one; what
    // comes back has been confirmed. Faults pass through.
    Confirmed storeNext();

  private:
    int below(int limit) { return static_cast<int>(m_random() % static_cast<unsigned>(limit)); }
    Confirmed correctEarlier();

    Workstation& m_station;
    std::mt19937 m_random;
};

// What is wrong with the sheets and patients on the disk, each in a sentence; empty when all is whole:
// everything confirmed is there, nothing is half written, no key and no patient number was given twice.
std::vector<std::string> examineSheets(Workstation& station, const std::vector<Confirmed>& confirmed);

} // namespace vandrel::test
