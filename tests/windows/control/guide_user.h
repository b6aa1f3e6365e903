// Plays a line of the guide's table of keys: its key, or the way to a command that has none. In
// steps, each followed by the messages of the window's own loop.
#pragma once

#include <windows.h>

#include <string>

#include "platform/key.h"
#include "tests/windows/support/modal_steps.h"

namespace pricedown::testing {

// The key with its modifiers, to the window that has the focus.
Steps StepsOfKey(const KeyPress& press);
// From where the focus is to the tool strip that has the button, to the button, and Enter.
Steps StepsByBar(const std::string& caption);
// The menu key, and the line of that caption.
Steps StepsByMenu(const std::string& caption);

}  // namespace pricedown::testing
