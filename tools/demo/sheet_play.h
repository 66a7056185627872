// Types the visits into the real sheet screen, key by key, and looks at what was stored.
#pragma once

namespace vandrel {
class Program;
}

namespace vandrel::demo {

class Stage;

// From the main window to the last stored sheet and back. Stopped where the screen does not follow the keys.
void playSheets(Stage& stage, Program& program);
// Compares the data file with what was typed: every sheet once, each with its lines in their order.
void checkStoredSheets(Stage& stage, Program& program);

} // namespace vandrel::demo
