// A tool of the command bar: fixed texts, three states, and the listeners of clicks and changes.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "platform/local_object.h"

namespace pricedown {

class CommandBarTool;

// One for all tools of a bar.
struct CommandBarListeners {
  // Runs the command of a clicked tool; may be empty.
  std::function<void(const std::shared_ptr<CommandBarTool>& tool)> command;
  // The host's object with any of the methods ToolClicked(tool) and ToolChanged(tool); may be null.
  ObjectPtr host;

  // Calls the host's method, which it need not have; its failure is ignored.
  void Notify(std::u16string_view method, const ObjectPtr& tool) const;
};

class CommandBarTool : public LocalObject<CommandBarTool> {
 public:
  struct Definition {
    std::u16string name;
    std::u16string caption;
    std::u16string description;
    std::u16string category;
  };
  // A tool outside a bar; a click on it has no effect.
  explicit CommandBarTool(Definition definition = {}) : definition_(std::move(definition)) {}
  // Makes it a tool of the bar with those listeners.
  void Join(Definition definition, std::shared_ptr<CommandBarListeners> listeners) {
    definition_ = std::move(definition);
    listeners_ = std::move(listeners);
  }

  const Definition& Fixed() const { return definition_; }
  bool Enabled() const { return enabled_; }
  bool Checked() const { return checked_; }
  bool Visible() const { return visible_; }
  // Each notifies the host of a change. A tool that is disabled for good cannot be enabled.
  void SetEnabled(bool enabled) { Change(enabled_, enabled && !disabledForGood_); }
  void DisableForGood() {
    disabledForGood_ = true;
    SetEnabled(false);
  }
  void SetChecked(bool checked) { Change(checked_, checked); }
  void SetVisible(bool visible) { Change(visible_, visible); }

  // Clicks the tool; a no-op while it is disabled. Notifies the host after the command. Throws
  // AutomationError when the command does.
  void Click();

  static std::span<const Member<CommandBarTool>> Members();

 private:
  void Change(bool& state, bool value);
  void Notify(std::u16string_view method);

  Definition definition_;
  std::shared_ptr<CommandBarListeners> listeners_;
  bool enabled_ = true;
  bool disabledForGood_ = false;
  bool checked_ = false;
  bool visible_ = true;
};

}  // namespace pricedown
