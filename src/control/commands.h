// The one table of the control's commands: tool strip, command bar, context menus and keys read it.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "env/command.h"
#include "platform/automation.h"

namespace pricedown {

class PriceDown;

// Where a command is shown; values combine.
namespace surface {
inline constexpr unsigned kToolStrip = 1;
inline constexpr unsigned kCommandBar = 2;  // the designed bar
inline constexpr unsigned kTreeMenu = 4;
inline constexpr unsigned kGridMenu = 8;
inline constexpr unsigned kMenus = kTreeMenu | kGridMenu;
}  // namespace surface

// Check tools of the host: the tool strip and the status bar are visible while theirs is checked.
inline constexpr std::u16string_view kToolStripTool = u"iToolBar";
inline constexpr std::u16string_view kStatusBarTool = u"mnuViewStatusBar";

struct CommandAction {
  unsigned surfaces = 0;
  bool beginsGroup = false;              // below a separator in menus
  std::u16string_view tool = {};         // name of the command bar's tool, empty for none
  std::u16string_view description = {};  // of that tool, before Translate
  bool changesClasses = false;           // only while provisions are kept by item class
  std::int32_t right = 0;                // access mask asked for by the tool strip, 0 for none
  void (*run)(PriceDown& control) = nullptr;
  // A click on a check tool, in place of `run`.
  void (*toggle)(PriceDown& control, const ObjectPtr& tool) = nullptr;
  // Null for a command that is always enabled.
  bool (*enabled)(const PriceDown& control) = nullptr;
};

struct ControlCommand : Command, CommandAction {};

// All rows, in the order in which each surface shows its own.
std::span<const ControlCommand> ControlCommands();

// The rows of one surface.
std::vector<const ControlCommand*> CommandsOn(unsigned surface);

// Null when there is none.
const ControlCommand* CommandOfTool(std::u16string_view tool);
// A key works where the menu shows its command. Null when no command has it.
const ControlCommand* CommandOfPress(const KeyPress& press, unsigned menu);

}  // namespace pricedown
