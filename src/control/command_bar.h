// The command bar `BarList` as an automation object that a host merges into its own toolbar.
//
// Members for hosts: Bands (Count, Item(index or name): Name, Tools), Tools (Count, Item(index or
// name), Add(name, caption, category)), Click(name), Listener. A tool has Name, Caption,
// Description, Category, Enabled, Checked, Visible and Click; the first four are read-only.
// Indexes count from 1.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "control/command_bar_tool.h"
#include "platform/lifetime.h"
#include "platform/local_object.h"

namespace pricedown {

inline constexpr std::u16string_view kMenuBand = u"MnuBand1";
inline constexpr std::u16string_view kEditMenu = u"mnuEdit";

class CommandBar : public LocalObject<CommandBar> {
 public:
  // Creates the designed contents in one band: the menu "mnuEdit" and the tools "iInsert", "iEdit"
  // and "iCut".
  explicit CommandBar(Lifetime lifetime = {});

  // Null when the bar has no tool of that name (compared exactly).
  std::shared_ptr<CommandBarTool> Tool(std::u16string_view name) const;
  const std::vector<std::shared_ptr<CommandBarTool>>& Tools() const { return tools_; }
  // The number of leading tools that are in the designed band.
  std::size_t DesignedCount() const { return designedCount_; }
  // Adds a tool, or returns the existing one of that name unchanged.
  std::shared_ptr<CommandBarTool> Add(CommandBarTool::Definition definition);

  // Called when a client clicks any tool; may be empty.
  void OnClick(std::function<void(const ObjectPtr& tool)> command);
  // The host's object that is notified of clicks and changes; null for none.
  const ObjectPtr& Listener() const { return listeners_->host; }
  void SetListener(ObjectPtr host);
  // Releases handler and listener. Requires: the control has ended.
  void Detach();

  // Clicks the tool of that name. Throws AutomationError when there is none, or when its command
  // does.
  void Click(std::u16string_view name);

  static std::span<const Member<CommandBar>> Members();

 private:
  std::vector<std::shared_ptr<CommandBarTool>> tools_;
  std::size_t designedCount_ = 0;
  std::shared_ptr<CommandBarListeners> listeners_ = std::make_shared<CommandBarListeners>();
  Lifetime lifetime_;  // of the control
};

}  // namespace pricedown
