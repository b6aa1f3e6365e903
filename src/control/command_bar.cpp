// The command bar's tools and its members for automation clients.
// The collections by index or name are command_bar_collections, a tool is command_bar_tool.
#include "control/command_bar.h"

#include <algorithm>
#include <array>
#include <utility>

#include "control/command_bar_collections.h"
#include "env/translation.h"
#include "platform/convert.h"
#include "platform/error.h"
#include "platform/text.h"

namespace pricedown {
namespace {

std::shared_ptr<CommandBar> Shared(CommandBar& bar) { return bar.shared_from_this(); }

Value Bands(CommandBar& bar, Access, std::span<Value> arguments) {
  return ItemOrCollection(std::make_shared<BandCollection>(Shared(bar)), arguments);
}

Value Tools(CommandBar& bar, Access, std::span<Value> arguments) {
  return ItemOrCollection(std::make_shared<ToolCollection>(Shared(bar), ToolCollection::Of::Bar),
                          arguments);
}

Value Click(CommandBar& bar, Access, std::span<Value> arguments) {
  bar.Click(ToText(arguments.front()));
  return {};
}

Value Listener(CommandBar& bar, Access access, std::span<Value> arguments) {
  if (access == Access::Call) return bar.Listener();
  const Value& host = arguments.back().Resolved();
  const bool nobody = host.Is(Value::Kind::Object) && host.Object() == nullptr;
  bar.SetListener(nobody ? nullptr : RequireObject(host, u"Listener"));
  return {};
}

}  // namespace

CommandBar::CommandBar() {
  const auto add = [&](std::u16string_view name, std::u16string_view caption,
                       std::u16string_view description, std::u16string_view category) {
    Add({std::u16string(name), Translate(caption), Translate(description),
         std::u16string(category)});
  };
  add(kEditMenu, u"编辑", u"", u"Menus");
  add(kInsertTool, u"新增", u"", u"");
  add(kEditTool, u"修改", u"修改物料类别属性", u"");
  add(kCutTool, u"删除", u"删除物料类别", u"");
  designedCount_ = tools_.size();
}

std::shared_ptr<CommandBarTool> CommandBar::Tool(std::u16string_view name) const {
  const auto found = std::find_if(tools_.begin(), tools_.end(),
                                  [&](const auto& tool) { return tool->Fixed().name == name; });
  return found == tools_.end() ? nullptr : *found;
}

std::shared_ptr<CommandBarTool> CommandBar::Add(CommandBarTool::Definition definition) {
  if (auto present = Tool(definition.name)) {
    // A click on a host's own tool may have come before the tool's texts.
    present->FillTexts(definition);
    return present;
  }
  tools_.push_back(std::make_shared<CommandBarTool>(std::move(definition), listeners_));
  std::shared_ptr<CommandBarTool> tool = tools_.back();
  // What these show is visible until a host says otherwise.
  if (tool->Fixed().name == kToolStripTool || tool->Fixed().name == kStatusBarTool) {
    tool->SetChecked(true);
  }
  return tool;
}

void CommandBar::OnClick(std::function<void(const ObjectPtr& tool)> command) {
  listeners_->command = std::move(command);
}

void CommandBar::SetListener(ObjectPtr host) {
  // The one before is released last: that may call back.
  if (!detached_) std::swap(listeners_->host, host);
}

void CommandBar::Detach() {
  detached_ = true;
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

std::span<const Member<CommandBar>> CommandBar::Members() {
  static constexpr std::array<Member<CommandBar>, 4> kMembers{{
      {u"Bands", MemberKind::Get, Bands, 0, 1},
      {u"Tools", MemberKind::Get, pricedown::Tools, 0, 1},
      {u"Click", MemberKind::Method, pricedown::Click, 1, 1},
      {u"Listener", MemberKind::GetPut, pricedown::Listener},
  }};
  return kMembers;
}

}  // namespace pricedown
