// The dialogue of the running program: message boxes with Hungarian buttons over the active window.
#pragma once

#include "foundation/dialogue.h"

namespace vandrel {

class BoxDialogue : public Dialogue {
  public:
    Answer show(const Message& message) override;
};

} // namespace vandrel
