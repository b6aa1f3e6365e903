// A tool's members for automation clients, its clicks and its changes. A failing listener of the
// host does not fail a click or a change.
#include "control/command_bar_tool.h"

#include "platform/convert.h"
#include "platform/skip.h"

namespace pricedown {
namespace {

template <std::u16string CommandBarTool::Definition::*part>
Value FixedText(CommandBarTool& tool, Access, std::span<Value>) {
  return tool.Fixed().*part;
}

template <bool (CommandBarTool::*read)() const, void (CommandBarTool::*write)(bool)>
Value State(CommandBarTool& tool, Access access, std::span<Value> arguments) {
  if (access == Access::Call) return (tool.*read)();
  (tool.*write)(ToBoolean(arguments.back()));
  return {};
}

Value ClickTool(CommandBarTool& tool, Access, std::span<Value>) {
  tool.Click();
  return {};
}

}  // namespace

void CommandBarListeners::Notify(std::u16string_view method, const ObjectPtr& tool) const {
  // A copy, because the host may end the control or set another listener.
  const ObjectPtr listener = host;
  if (listener != nullptr) SkipFailing([&] { listener->Call(method, {Value(tool)}); });
}

void CommandBarTool::Change(bool& state, bool value) {
  if (state == value) return;
  state = value;
  Notify(u"ToolChanged");
}

void CommandBarTool::Click() {
  if (!enabled_ || listeners_ == nullptr) return;
  // A copy, because the command may end the control, which clears both listeners.
  const auto command = listeners_->command;
  if (!command) return;
  command(shared_from_this());
  Notify(u"ToolClicked");
}

void CommandBarTool::Notify(std::u16string_view method) {
  if (listeners_ != nullptr) listeners_->Notify(method, shared_from_this());
}

std::span<const Member<CommandBarTool>> CommandBarTool::Members() {
  static constexpr Member<CommandBarTool> kMembers[]{
      {u"Name", MemberKind::Get, FixedText<&Definition::name>, 0, 0, true},
      {u"Caption", MemberKind::Get, FixedText<&Definition::caption>},
      {u"Description", MemberKind::Get, FixedText<&Definition::description>},
      {u"Category", MemberKind::Get, FixedText<&Definition::category>},
      {u"Enabled", MemberKind::GetPut,
       State<&CommandBarTool::Enabled, &CommandBarTool::SetEnabled>},
      {u"Checked", MemberKind::GetPut,
       State<&CommandBarTool::Checked, &CommandBarTool::SetChecked>},
      {u"Visible", MemberKind::GetPut,
       State<&CommandBarTool::Visible, &CommandBarTool::SetVisible>},
      {u"Click", MemberKind::Method, ClickTool},
  };
  return kMembers;
}

}  // namespace pricedown
