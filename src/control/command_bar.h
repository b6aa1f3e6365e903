// The command bar `BarList` as an automation object that a host merges into its own toolbar.
// What its keys do is decided by the control's dispatch; it shows nothing itself.
//
// Members for hosts: Bands (Count, Item(index or name): Name, Tools), Tools (Count, Item(index or
// name), Add(name, caption, category)), Click(name). A tool has Name, Caption, Description,
// Category, Enabled, Checked, Visible and Click; the first four are read-only. Indexes count
// from 1.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/local_object.h"

namespace pricedown {

inline constexpr std::u16string_view kMenuBand = u"MnuBand1";
inline constexpr std::u16string_view kEditMenu = u"mnuEdit";
inline constexpr std::u16string_view kInsertTool = u"iInsert";
inline constexpr std::u16string_view kEditTool = u"iEdit";
// Check tools of the host: what they show is shown while they are checked.
inline constexpr std::u16string_view kToolStripTool = u"iToolBar";
inline constexpr std::u16string_view kStatusBarTool = u"mnuViewStatusBar";
inline constexpr std::u16string_view kCutTool = u"iCut";
inline constexpr std::u16string_view kRefreshTool = u"iRefresh";

class BarTool : public LocalObject<BarTool> {
 public:
  struct Definition {
    std::u16string name;
    std::u16string caption;
    std::u16string description;
    std::u16string category;
  };
  explicit BarTool(Definition definition) : definition_(std::move(definition)) {}

  const Definition& Fixed() const { return definition_; }
  bool Enabled() const { return enabled_; }
  bool Checked() const { return checked_; }
  bool Visible() const { return visible_; }
  // Enabling is ignored once the tool is disabled for good.
  void SetEnabled(bool enabled) { Change(enabled_, enabled && !disabledForGood_); }
  void DisableForGood() {
    disabledForGood_ = true;
    SetEnabled(false);
  }
  void SetChecked(bool checked) { Change(checked_, checked); }
  void SetVisible(bool visible) { Change(visible_, visible); }

  // Called after each change of Enabled, Checked or Visible; null for none.
  using ChangeHandler = std::function<void(const BarTool& tool)>;
  void OnChange(ChangeHandler handler) { change_ = std::move(handler); }
  // Called when a client clicks the tool; null for none.
  using ClickHandler = std::function<void(const ObjectPtr& tool)>;
  void OnClick(ClickHandler handler) { click_ = std::move(handler); }

  // What a click of a client does; nothing while the tool is disabled. Throws AutomationError when
  // its command does.
  void Click();

  static std::span<const Member<BarTool>> Members();

 private:
  void Change(bool& state, bool value);

  Definition definition_;
  bool enabled_ = true;
  bool disabledForGood_ = false;
  bool checked_ = false;
  bool visible_ = true;
  ChangeHandler change_;
  ClickHandler click_;
};

class CommandBar : public LocalObject<CommandBar> {
 public:
  // With the designed contents: the menu "mnuEdit" and the tools "iInsert", "iEdit", "iCut", all
  // in the one band.
  CommandBar();

  // Null when the bar has no tool of that name (compared exactly).
  std::shared_ptr<BarTool> Tool(std::u16string_view name) const;
  const std::vector<std::shared_ptr<BarTool>>& Tools() const { return tools_; }
  // How many of them, from the first on, the designed band holds.
  std::size_t DesignedCount() const { return designedCount_; }
  // The bar's tool of that name: a new one, or the one that is there already, unchanged.
  std::shared_ptr<BarTool> Add(BarTool::Definition definition);

  // Called when a client clicks any tool; null for none.
  void OnClick(BarTool::ClickHandler handler);
  // Called after a change of any tool; null for none.
  void OnChange(BarTool::ChangeHandler handler);
  // Drops all handlers; clicks do nothing afterwards.
  void Detach();

  // Clicks the tool of that name. Throws AutomationError when there is none, or when its command
  // does.
  void Click(std::u16string_view name);

  static std::span<const Member<CommandBar>> Members();

 private:
  std::vector<std::shared_ptr<BarTool>> tools_;
  std::size_t designedCount_ = 0;
  BarTool::ClickHandler click_;
  BarTool::ChangeHandler change_;
};

}  // namespace pricedown
