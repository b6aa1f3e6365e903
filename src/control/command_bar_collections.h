// The command bar's bands and tools as collections for automation clients.
// They hold the bar and nothing of their own; a tool added later appears at once.
#pragma once

#include <memory>
#include <span>

#include "control/command_bar.h"
#include "platform/local_object.h"

namespace pricedown {

// Count, Item(index or name) as the default member, and Add for the bar's own tools.
class ToolCollection : public LocalObject<ToolCollection> {
 public:
  enum class Of { Bar, Band };
  ToolCollection(std::shared_ptr<CommandBar> bar, Of of) : bar_(std::move(bar)), of_(of) {}

  std::span<const std::shared_ptr<CommandBarTool>> Tools() const;
  CommandBar& Bar() { return *bar_; }
  static std::span<const Member<ToolCollection>> Members();

 private:
  std::shared_ptr<CommandBar> bar_;
  Of of_;
};

// The one band: Name and Tools.
class Band : public LocalObject<Band> {
 public:
  explicit Band(std::shared_ptr<CommandBar> bar) : bar_(std::move(bar)) {}
  const std::shared_ptr<CommandBar>& Bar() const { return bar_; }
  static std::span<const Member<Band>> Members();

 private:
  std::shared_ptr<CommandBar> bar_;
};

// Count and Item(index or name) as the default member.
class BandCollection : public LocalObject<BandCollection> {
 public:
  explicit BandCollection(std::shared_ptr<CommandBar> bar) : bar_(std::move(bar)) {}
  const std::shared_ptr<CommandBar>& Bar() const { return bar_; }
  static std::span<const Member<BandCollection>> Members();

 private:
  std::shared_ptr<CommandBar> bar_;
};

// The collection, or its item when an index or name was given.
Value ItemOrCollection(const ObjectPtr& collection, std::span<Value> arguments);

}  // namespace pricedown
