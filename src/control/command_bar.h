// The command bar `BarList` as an automation object that a host merges into its own toolbar.
//
// Members for hosts: Bands (Count, Item(index or name): Name, Tools), Tools (Count, Item(index or
// name), Add(name, caption, category)), Click(name), Listener. Bands and Tools can be enumerated. A
// tool has Name, Caption, Description, Category, Enabled, Checked, Visible and Click; the first
// four are read-only. Indexes count from 1; names are found without regard to case.
#pragma once

#include <array>
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

  using ToolList = std::vector<std::shared_ptr<CommandBarTool>>;
  // Null when the bar has no tool of that name.
  std::shared_ptr<CommandBarTool> Tool(std::u16string_view name) const;
  const ToolList& Tools() const { return tools_; }
  // Those of them that are in the band.
  const ToolList& BandTools() const { return bandTools_; }
  // The tool whose state decides what is shown, kToolStripTool or kStatusBarTool. It starts checked
  // and keeps its state also while it is not among the bar's tools. Never null.
  const std::shared_ptr<CommandBarTool>& CheckTool(std::u16string_view name) const;

  enum class Place { Bar, Band };
  // The bar's tool of that name: a new one, or the existing one, unchanged. It stands
  // in the band, too, for Place::Band.
  std::shared_ptr<CommandBarTool> Add(CommandBarTool::Definition definition,
                                      Place place = Place::Bar);

  // Called when a client clicks any tool; may be empty.
  void OnClick(std::function<void(const std::shared_ptr<CommandBarTool>& tool)> command);
  // The host's object that is notified of clicks and changes; null for none.
  const ObjectPtr& Listener() const { return listeners_->host; }
  void SetListener(ObjectPtr host);
  // Releases handler and listener. Requires: the control has ended.
  void Detach();

  // Notifies the listener after the command of a forwarded click on `tool`, passing the bar's tool
  // of that name if there is one.
  void NotifyForwarded(std::u16string_view name, const ObjectPtr& tool);

  // Clicks the tool of that name. Throws AutomationError when there is none, or when its command
  // does.
  void Click(std::u16string_view name);

  static std::span<const Member<CommandBar>> Members();

 private:
  ToolList tools_;
  ToolList bandTools_;
  std::array<std::shared_ptr<CommandBarTool>, 2> checkTools_;
  std::shared_ptr<CommandBarListeners> listeners_ = std::make_shared<CommandBarListeners>();
  Lifetime lifetime_;  // of the control
};

}  // namespace pricedown
