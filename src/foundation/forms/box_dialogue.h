// The dialogue of the running program: message boxes with Hungarian buttons over the active window.
#pragma once

#include "foundation/dialogue.h"

namespace vandrel {

class BoxDialogue : public Dialogue {
  public:
    // A key answers only after this many milliseconds without one, counted from when the box is seen: what a
    // clerk types ahead answers nothing and is dropped. Clicks answer at once.
    explicit BoxDialogue(int quietBeforeKeys = 400) : m_quiet(quietBeforeKeys) {}

    Answer show(const Message& message) override;

  private:
    const int m_quiet;
};

} // namespace vandrel
