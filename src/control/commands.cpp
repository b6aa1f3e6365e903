// Look-ups in the table of commands.
#include "control/commands.h"

#include <algorithm>

namespace pricedown {
namespace {

template <typename Matches>
const ControlCommand* FirstCommand(Matches matches) {
  const std::span<const ControlCommand> commands = ControlCommands();
  const auto found = std::find_if(commands.begin(), commands.end(), matches);
  return found == commands.end() ? nullptr : &*found;
}

}  // namespace

std::vector<const ControlCommand*> CommandsOn(unsigned surface) {
  std::vector<const ControlCommand*> shown;
  for (const ControlCommand& command : ControlCommands()) {
    if ((command.surfaces & surface) != 0) shown.push_back(&command);
  }
  return shown;
}

const ControlCommand* CommandOfTool(std::u16string_view tool) {
  if (tool.empty()) return nullptr;
  return FirstCommand([tool](const ControlCommand& command) { return command.tool == tool; });
}

const ControlCommand* CommandOfPress(const KeyPress& press, unsigned menu) {
  return FirstCommand([&press, menu](const ControlCommand& command) {
    return (command.surfaces & menu) != 0 && command.Has(press);
  });
}

}  // namespace pricedown
