// Runs commands: checks the right, runs, reloads. Failures reach the caller.
#include "control/price_down.h"
#include "platform/convert.h"
#include "platform/skip.h"

namespace pricedown {
void PriceDown::ParentWindow_ToolBarClick(const ObjectPtr& tool) {
  if (HasEnded()) return;
  const std::shared_ptr<CommandBar> bar = commandBar_;
  const ObjectPtr clicked = RequireObject(Value(tool), u"Tool");
  const std::u16string name = ToText(clicked->Get(u"Name"));
  if (RunTool(name, clicked)) bar->NotifyForwarded(name, clicked);
}

bool PriceDown::RunTool(std::u16string_view name, const ObjectPtr& tool) {
  // A host that was asked for the name of its tool may have closed the control.
  if (HasEnded()) return false;
  const ControlCommand* command = CommandOfTool(name);
  // A tool of the host's own among the bar's.
  if (command == nullptr) {
    const auto own = commandBar_->Tool(name);
    return own != nullptr && !name.empty() && own->Enabled() &&
           CommandOfTool(own->Fixed().name) == nullptr;
  }
  // A host may forward a click on a tool that it shows enabled although the bar's is not.
  const bool fromToolStrip = (command->surfaces & surface::kCommandBar) != 0;
  if (fromToolStrip && !IsToolEnabled(command->tool)) return false;
  if (command->toggle != nullptr) {
    command->toggle(*this, tool);
  } else if (fromToolStrip) {
    RunFromToolStrip(*command);
  } else {
    command->run(*this);
  }
  return true;
}

void PriceDown::CommandChosen(const ControlCommand& command) {
  if (HasEnded() || !IsEnabled(command)) return;
  if ((command.surfaces & surface::kToolStrip) != 0) {
    RunFromToolStrip(command);
  } else if (const auto tool = commandBar_->Tool(command.tool);
             tool != nullptr && !command.tool.empty()) {
    // The tool notifies the host.
    tool->Click();
  } else {
    command.run(*this);
  }
}

void PriceDown::CommandFailed(const Failure& failure) { environment_.NotifyFailed(failure); }

bool PriceDown::IsEnabled(const ControlCommand& command) const {
  if (command.changesClasses && classesLocked_) return false;
  return command.enabled == nullptr || command.enabled(*this);
}

bool PriceDown::IsToolEnabled(std::u16string_view name) const {
  const std::shared_ptr<CommandBarTool> tool = commandBar_->Tool(name);
  return tool == nullptr || tool->Enabled();
}

void PriceDown::RunFromToolStrip(const ControlCommand& command) {
  const bool allowed = command.right == 0 || environment_.rights.Check(command.right);
  if (allowed && command.run != nullptr) command.run(*this);
  // The command may have ended the control. Without a window a reload would only lose the selected
  // class, which the end of the control stores.
  if (HasEnded() || !ports_.view.HasWindow()) return;
  // Intentionally also after a refused right and for a separator.
  LoadTree();
  grid_.GetGrid().Repaint();
}

// The bar's state counts, not that of a host's own tool of the same name.
void PriceDown::ToggleToolStrip(const ObjectPtr& tool) {
  const bool checked = !commandBar_->CheckTool(kToolStripTool)->Checked();
  commandBar_->CheckTool(kToolStripTool)->SetChecked(checked);
  // The host is notified, and may close the control. Its tool need not have a state.
  if (!HasEnded()) SkipFailing([&] { tool->Put(u"Checked", checked); });
  if (!HasEnded()) LayOut();
}

// The host has changed the state of its tool; a tool without one toggles.
void PriceDown::FollowStatusBarTool(const ObjectPtr& tool) {
  const std::shared_ptr<CommandBarTool> own = commandBar_->CheckTool(kStatusBarTool);
  bool checked = !own->Checked();
  SkipFailing([&] { checked = ToBoolean(tool->Get(u"Checked")); });
  if (HasEnded()) return;
  own->SetChecked(checked);
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
