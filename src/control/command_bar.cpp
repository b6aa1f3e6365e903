// The command bar's tools and their members for automation clients.
// The collections by index or name are bar_collections.
#include "control/command_bar.h"

#include <algorithm>
#include <array>
#include <utility>

#include "control/bar_collections.h"
#include "env/translation.h"
#include "platform/convert.h"
#include "platform/error.h"
#include "platform/text.h"

namespace pricedown {
namespace {

template <std::u16string BarTool::Definition::*part>
Value FixedText(BarTool& tool, Access, std::span<Value>) {
  return tool.Fixed().*part;
}

template <bool (BarTool::*read)() const, void (BarTool::*write)(bool)>
Value State(BarTool& tool, Access access, std::span<Value> arguments) {
  if (access == Access::Call) return (tool.*read)();
  (tool.*write)(ToBoolean(arguments.back()));
  return {};
}

std::shared_ptr<CommandBar> Shared(CommandBar& bar) { return bar.shared_from_this(); }

Value Bands(CommandBar& bar, Access, std::span<Value> arguments) {
  return ItemOrCollection(std::make_shared<BandCollection>(Shared(bar)), arguments);
}

Value Tools(CommandBar& bar, Access, std::span<Value> arguments) {
  return ItemOrCollection(std::make_shared<ToolCollection>(Shared(bar), ToolCollection::Of::Bar),
                          arguments);
}

Value ClickTool(BarTool& tool, Access, std::span<Value>) {
  tool.Click();
  return {};
}

Value Click(CommandBar& bar, Access, std::span<Value> arguments) {
  bar.Click(ToText(arguments.front()));
  return {};
}

}  // namespace

void BarTool::Change(bool& state, bool value) {
  if (state == value) return;
  state = value;
  // A copy, because the handler may replace itself.
  if (const ChangeHandler handler = change_) handler(*this);
}

void BarTool::Click() {
  // A copy, because the command may end the control, which takes the handler away.
  const ClickHandler handler = click_;
  if (enabled_ && handler) handler(shared_from_this());
}

std::span<const Member<BarTool>> BarTool::Members() {
  static constexpr std::array<Member<BarTool>, 8> kMembers{{
      {u"Name", MemberKind::Get, FixedText<&Definition::name>, 0, 0, true},
      {u"Caption", MemberKind::Get, FixedText<&Definition::caption>},
      {u"Description", MemberKind::Get, FixedText<&Definition::description>},
      {u"Category", MemberKind::Get, FixedText<&Definition::category>},
      {u"Enabled", MemberKind::GetPut, State<&BarTool::Enabled, &BarTool::SetEnabled>},
      {u"Checked", MemberKind::GetPut, State<&BarTool::Checked, &BarTool::SetChecked>},
      {u"Visible", MemberKind::GetPut, State<&BarTool::Visible, &BarTool::SetVisible>},
      {u"Click", MemberKind::Method, ClickTool},
  }};
  return kMembers;
}

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

std::shared_ptr<BarTool> CommandBar::Tool(std::u16string_view name) const {
  const auto found = std::find_if(tools_.begin(), tools_.end(),
                                  [&](const auto& tool) { return tool->Fixed().name == name; });
  return found == tools_.end() ? nullptr : *found;
}

std::shared_ptr<BarTool> CommandBar::Add(BarTool::Definition definition) {
  if (auto present = Tool(definition.name)) return present;
  auto tool = std::make_shared<BarTool>(std::move(definition));
  // What these show is visible until a host says otherwise.
  if (tool->Fixed().name == kToolStripTool || tool->Fixed().name == kStatusBarTool) {
    tool->SetChecked(true);
  }
  tool->OnChange(change_);
  tool->OnClick(click_);
  tools_.push_back(tool);
  return tool;
}

void CommandBar::OnClick(BarTool::ClickHandler handler) {
  click_ = std::move(handler);
  for (const auto& tool : tools_) tool->OnClick(click_);
}

void CommandBar::OnChange(BarTool::ChangeHandler handler) {
  change_ = std::move(handler);
  for (const auto& tool : tools_) tool->OnChange(change_);
}

void CommandBar::Detach() {
  OnClick(nullptr);
  OnChange(nullptr);
}

void CommandBar::Click(std::u16string_view name) {
  const std::shared_ptr<BarTool> tool = Tool(name);
  if (tool == nullptr) {
    throw AutomationError(ErrorNumber::InvalidArgument, Concatenate({u"命令栏没有该工具: ", name}),
                          u"BarList");
  }
  tool->Click();
}

std::span<const Member<CommandBar>> CommandBar::Members() {
  static constexpr std::array<Member<CommandBar>, 3> kMembers{{
      {u"Bands", MemberKind::Get, Bands, 0, 1},
      {u"Tools", MemberKind::Get, pricedown::Tools, 0, 1},
      {u"Click", MemberKind::Method, pricedown::Click, 1, 1},
  }};
  return kMembers;
}

}  // namespace pricedown
