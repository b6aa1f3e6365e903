// The command bar `BarList` as an automation object that a host merges into its own toolbar.
// Its keys and what they do are dispatch.h; it shows nothing itself.
//
// Members for hosts: Bands (Count, Item(index or name): Name, Tools), Tools (Count, Item(index or
// name), Add(name, caption, category)), Click(name). A tool has Name, Caption, Description,
// Category, Enabled, Checked, Visible; the first four are read-only.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/local_object.h"

namespace pricedown {

inline constexpr std::u16string_view kMenuBand = u"MnuBand1";

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
  bool enabled = true;
  bool checked = false;
  bool visible = true;

  static std::span<const Member<BarTool>> Members();

 private:
  Definition definition_;
};

class CommandBar : public LocalObject<CommandBar> {
 public:
  // With the designed contents: the menu "mnuEdit" and the tools "iInsert", "iEdit", "iCut".
  CommandBar();

  // Null when the bar has no tool of that name (compared exactly).
  std::shared_ptr<BarTool> Tool(std::u16string_view name) const;
  const std::vector<std::shared_ptr<BarTool>>& Tools() const { return tools_; }
  std::shared_ptr<BarTool> Add(BarTool::Definition definition);

  // Called when a client clicks a tool; null after Detach.
  void OnClick(std::function<void(const ObjectPtr& tool)> handler) { click_ = std::move(handler); }
  void Detach() { click_ = nullptr; }
  void Click(std::u16string_view name);

  static std::span<const Member<CommandBar>> Members();

 private:
  std::vector<std::shared_ptr<BarTool>> tools_;
  std::function<void(const ObjectPtr& tool)> click_;
};

}  // namespace pricedown
