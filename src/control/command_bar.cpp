// The command bar's tools, their clicks and its listener.
#include "control/command_bar.h"

#include <algorithm>
#include <utility>

#include "control/commands.h"
#include "env/translation.h"
#include "platform/error.h"
#include "platform/text.h"

namespace pricedown {
namespace {

constexpr std::array kCheckTools{kToolStripTool, kStatusBarTool};

}  // namespace

CommandBar::CommandBar(Lifetime lifetime) : lifetime_(std::move(lifetime)) {
  for (std::shared_ptr<CommandBarTool>& tool : checkTools_) {
    tool = std::make_shared<CommandBarTool>();
    tool->SetChecked(true);
  }
  Add({std::u16string(kEditMenu), Translate(u"编辑"), {}, u"Menus"}, Place::Band);
  for (const ControlCommand* command : CommandsOn(surface::kCommandBar)) {
    Add({std::u16string(command->tool),
         Translate(command->caption),
         Translate(command->description),
         {}},
        Place::Band);
  }
}

std::shared_ptr<CommandBarTool> CommandBar::Tool(std::u16string_view name) const {
  const auto found = std::find_if(tools_.begin(), tools_.end(), [&](const auto& tool) {
    return EqualsIgnoringCase(tool->Fixed().name, name);
  });
  return found == tools_.end() ? nullptr : *found;
}

const std::shared_ptr<CommandBarTool>& CommandBar::CheckTool(std::u16string_view name) const {
  return checkTools_[EqualsIgnoringCase(name, kCheckTools[0]) ? 0 : 1];
}

std::shared_ptr<CommandBarTool> CommandBar::Add(CommandBarTool::Definition definition,
                                                Place place) {
  std::shared_ptr<CommandBarTool> tool = Tool(definition.name);
  if (tool == nullptr) {
    const bool checks = std::any_of(kCheckTools.begin(), kCheckTools.end(), [&](auto name) {
      return EqualsIgnoringCase(name, definition.name);
    });
    tool = checks ? CheckTool(definition.name) : std::make_shared<CommandBarTool>();
    tool->Join(std::move(definition), listeners_);
    tools_.push_back(tool);
  }
  const bool inBand = std::find(bandTools_.begin(), bandTools_.end(), tool) != bandTools_.end();
  if (place == Place::Band && !inBand) bandTools_.push_back(tool);
  return tool;
}

void CommandBar::NotifyForwarded(std::u16string_view name, const ObjectPtr& tool) {
  const ObjectPtr own = Tool(name);
  listeners_->Notify(u"ToolClicked", own != nullptr ? own : tool);
}

void CommandBar::OnClick(std::function<void(const std::shared_ptr<CommandBarTool>& tool)> command) {
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
