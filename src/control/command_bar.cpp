// The command bar's tools, their clicks and its listener.
#include "control/command_bar.h"

#include <algorithm>
#include <utility>

#include "control/commands.h"
#include "env/translation.h"
#include "platform/error.h"
#include "platform/text.h"

namespace pricedown {

CommandBar::CommandBar(Lifetime lifetime) : lifetime_(std::move(lifetime)) {
  Add({std::u16string(kEditMenu), Translate(u"编辑"), {}, u"Menus"});
  for (const ControlCommand* command : CommandsOn(surface::kCommandBar)) {
    Add({std::u16string(command->tool),
         Translate(command->caption),
         Translate(command->description),
         {}});
  }
  designedCount_ = tools_.size();
}

std::shared_ptr<CommandBarTool> CommandBar::Tool(std::u16string_view name) const {
  const auto found = std::find_if(tools_.begin(), tools_.end(),
                                  [&](const auto& tool) { return tool->Fixed().name == name; });
  return found == tools_.end() ? nullptr : *found;
}

std::shared_ptr<CommandBarTool> CommandBar::Add(CommandBarTool::Definition definition) {
  if (auto present = Tool(definition.name)) {
    // The host may have clicked the tool before its texts were set.
    present->FillTexts(definition);
    return present;
  }
  tools_.push_back(std::make_shared<CommandBarTool>(std::move(definition), listeners_));
  std::shared_ptr<CommandBarTool> tool = tools_.back();
  // The tool strip and the status bar start out visible.
  if (tool->Fixed().name == kToolStripTool || tool->Fixed().name == kStatusBarTool) {
    tool->SetChecked(true);
  }
  return tool;
}

void CommandBar::OnClick(std::function<void(const ObjectPtr& tool)> command) {
  listeners_->command = std::move(command);
}

void CommandBar::SetListener(ObjectPtr host) {
  // The previous listener is released last, because that may call back.
  if (!lifetime_.HasEnded()) std::swap(listeners_->host, host);
}

void CommandBar::Detach() {
  OnClick(nullptr);
  std::exchange(listeners_->host, nullptr).reset();
}

void CommandBar::Click(std::u16string_view name) {
  const std::shared_ptr<CommandBarTool> tool = Tool(name);
  if (tool == nullptr) {
    throw AutomationError(ErrorNumber::InvalidArgument, Concatenate({u"命令栏没有该工具: ", name}),
                          u"BarList");
  }
  tool->Click();
}

}  // namespace pricedown
