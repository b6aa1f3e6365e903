// The tool strip's commands by the keys of their buttons.
#pragma once

#include <gtest/gtest.h>

#include <string_view>

#include "control/commands.h"
#include "tests/support/utf8.h"

namespace pricedown::testing {

// The button of that key, which must exist. The separators "sp2" and "sp3" are buttons without a
// command; choosing one reloads the tree.
inline const ControlCommand& Button(std::u16string_view key) {
  for (const ControlCommand* command : CommandsOn(surface::kToolStrip)) {
    if (command->key == key) return *command;
  }
  ADD_FAILURE() << "the tool strip has no button " << Utf8(key);
  return *CommandsOn(surface::kToolStrip).front();
}

}  // namespace pricedown::testing
