// Runs commands: checks the right, runs, reloads. Failures reach the caller.
#include "control/price_down.h"
#include "platform/convert.h"
#include "platform/error.h"

namespace pricedown {
namespace {

// All rights are checked on this object.
constexpr std::int32_t kRightsObjectType = 1002;
constexpr std::int32_t kRightsObjectNumber = 35;

}  // namespace

void PriceDown::ParentWindow_ToolBarClick(const ObjectPtr& tool) { CommandBarToolClicked(tool); }

void PriceDown::CommandBarToolClicked(const ObjectPtr& tool) {
  if (HasEnded()) return;
  const ObjectPtr clicked = RequireObject(Value(tool), u"Tool");
  const ControlCommand* command = CommandOfTool(ToText(clicked->Get(u"Name")));
  // The host may have closed the control when it was asked.
  if (HasEnded() || command == nullptr) return;
  if (command->toggle != nullptr) {
    command->toggle(*this, clicked);
  } else if ((command->surfaces & surface::kCommandBar) == 0) {
    command->run(*this);
  } else if (IsToolEnabled(command->tool)) {
    // A host may forward a click on a tool that is disabled in the bar.
    RunFromToolStrip(*command);
  }
}

void PriceDown::CommandChosen(const ControlCommand& command) {
  if (HasEnded() || !IsEnabled(command)) return;
  if ((command.surfaces & surface::kToolStrip) != 0) {
    RunFromToolStrip(command);
  } else if (const auto tool = bar_->Tool(command.tool); tool != nullptr && !command.tool.empty()) {
    // The tool notifies the host.
    tool->Click();
  } else {
    command.run(*this);
  }
}

bool PriceDown::IsEnabled(const ControlCommand& command) const {
  if (command.changesClasses && classesLocked_) return false;
  return command.enabled == nullptr || command.enabled(*this);
}

bool PriceDown::IsToolEnabled(std::u16string_view name) const {
  const std::shared_ptr<CommandBarTool> tool = bar_->Tool(name);
  return tool == nullptr || tool->Enabled();
}

void PriceDown::RunFromToolStrip(const ControlCommand& command) {
  const bool allowed =
      command.right == 0 ||
      environment_.rights.Check(kRightsObjectType, kRightsObjectNumber, command.right);
  if (allowed && command.run != nullptr) command.run(*this);
  // The command may have ended the control.
  if (HasEnded()) return;
  // Intentionally also after a refused right and for a separator.
  LoadTree();
  grid_.Cells().Repaint();
}

void PriceDown::ToggleToolStrip(const ObjectPtr& tool) {
  tool->Put(u"Checked", !ToBoolean(tool->Get(u"Checked")));
  FollowTool(tool, kToolStripTool);
}

// The clicked tool may be the host's; the layout reads the bar's tool of that name.
void PriceDown::FollowTool(const ObjectPtr& tool, std::u16string_view name) {
  const bool checked = ToBoolean(tool->Get(u"Checked"));
  bar_->Add({std::u16string(name), {}, {}, {}})->SetChecked(checked);
  // The notified host may have closed the control.
  if (!HasEnded()) LayOut();
}

Value PriceDown::addRecord() {
  if (!HasEnded()) commands_.Add();
  return {};
}

Value PriceDown::editRecord() {
  if (!HasEnded()) commands_.Edit();
  return {};
}

Value PriceDown::delRecord() {
  if (!HasEnded()) commands_.Delete();
  return {};
}

}  // namespace pricedown
