// The tool strip's commands by the keys of their buttons.
#pragma once

#include <string_view>

#include "control/commands.h"

namespace pricedown::testing {

// A button without a command for a key that the tool strip has not.
inline const ControlCommand& Button(std::u16string_view key) {
  static const ControlCommand none{{}, {.surfaces = surface::kToolStrip}};
  for (const ControlCommand* command : CommandsOn(surface::kToolStrip)) {
    if (command->key == key) return *command;
  }
  return none;
}

}  // namespace pricedown::testing
