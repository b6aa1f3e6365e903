// The command bar's members for automation clients, with its bands and tools as collections.
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "control/command_bar.h"
#include "platform/convert.h"
#include "platform/error.h"
#include "platform/local_object.h"
#include "platform/text.h"

namespace pricedown {
namespace {

// Count, Item(index or name) as the default member, and Add.
class ToolCollection : public LocalObject<ToolCollection> {
 public:
  using Place = CommandBar::Place;
  ToolCollection(std::shared_ptr<CommandBar> bar, Place place)
      : bar_(std::move(bar)), place_(place) {}

  const CommandBar::ToolList& Tools() const {
    return place_ == Place::Band ? bar_->BandTools() : bar_->Tools();
  }
  ObjectPtr Add(CommandBarTool::Definition definition) {
    return bar_->Add(std::move(definition), place_);
  }
  std::optional<std::vector<Value>> Elements() override;
  static std::span<const Member<ToolCollection>> Members();

 private:
  std::shared_ptr<CommandBar> bar_;
  Place place_;
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
  ObjectPtr Only() const { return std::make_shared<Band>(bar_); }
  std::optional<std::vector<Value>> Elements() override {
    return std::vector<Value>{Value(Only())};
  }
  static std::span<const Member<BandCollection>> Members();

 private:
  std::shared_ptr<CommandBar> bar_;
};

// The collection, or its item for an index or name.
Value ItemOrCollection(const ObjectPtr& collection, std::span<Value> arguments) {
  if (arguments.empty() || arguments.front().Resolved().Is(Value::Kind::Missing)) {
    return collection;
  }
  return collection->Call(u"", {arguments.front()});
}

[[noreturn]] void ThrowNoItem(const Value& index) {
  throw AutomationError(ErrorNumber::InvalidArgument,
                        Concatenate({u"命令栏没有该项: ", ToText(index)}), u"BarList");
}

// The position of an item, from 0. `find` returns the position of a name, or `count`.
template <typename Find>
std::size_t PositionOf(const Value& argument, std::size_t count, Find find) {
  const Value& index = argument.Resolved();
  std::size_t position = count;
  if (index.Is(Value::Kind::Text)) {
    position = find(index.Text());
  } else if (const std::int32_t number = ToInt32(index); number >= 1) {
    position = static_cast<std::size_t>(number) - 1;
  }
  if (position >= count) ThrowNoItem(index);
  return position;
}

Value ToolCount(ToolCollection& collection, Access, std::span<Value>) {
  return static_cast<std::int32_t>(collection.Tools().size());
}

Value ToolItem(ToolCollection& collection, Access, std::span<Value> arguments) {
  const auto& tools = collection.Tools();
  const auto find = [&](const std::u16string& name) {
    std::size_t position = 0;
    while (position < tools.size() && !NamesEqual(tools[position]->Fixed().name, name)) ++position;
    return position;
  };
  return ObjectPtr(tools[PositionOf(arguments.front(), tools.size(), find)]);
}

// The text of an optional argument.
std::u16string TextAt(std::span<Value> arguments, std::size_t index) {
  return index < arguments.size() ? ToText(arguments[index]) : std::u16string();
}

Value AddTool(ToolCollection& collection, Access, std::span<Value> arguments) {
  return collection.Add({TextAt(arguments, 0), TextAt(arguments, 1), {}, TextAt(arguments, 2)});
}

Value BandName(Band&, Access, std::span<Value>) { return kMenuBand; }

Value BandTools(Band& band, Access, std::span<Value> arguments) {
  return ItemOrCollection(std::make_shared<ToolCollection>(band.Bar(), ToolCollection::Place::Band),
                          arguments);
}

Value BandCount(BandCollection&, Access, std::span<Value>) { return std::int32_t{1}; }

Value BandItem(BandCollection& collection, Access, std::span<Value> arguments) {
  PositionOf(arguments.front(), 1,
             [](const std::u16string& name) { return NamesEqual(name, kMenuBand) ? 0u : 1u; });
  return collection.Only();
}

std::optional<std::vector<Value>> ToolCollection::Elements() {
  std::vector<Value> tools;
  for (const auto& tool : Tools()) tools.emplace_back(ObjectPtr(tool));
  return tools;
}

std::span<const Member<ToolCollection>> ToolCollection::Members() {
  static constexpr Member<ToolCollection> kMembers[]{
      {u"Count", MemberKind::Get, ToolCount},
      {u"Item", MemberKind::Get, ToolItem, 1, 1, true},
      {u"Add", MemberKind::Method, AddTool, 1, 3},
  };
  return kMembers;
}

std::span<const Member<Band>> Band::Members() {
  static constexpr Member<Band> kMembers[]{
      {u"Name", MemberKind::Get, BandName, 0, 0, true},
      {u"Tools", MemberKind::Get, BandTools, 0, 1},
  };
  return kMembers;
}

std::span<const Member<BandCollection>> BandCollection::Members() {
  static constexpr Member<BandCollection> kMembers[]{
      {u"Count", MemberKind::Get, BandCount},
      {u"Item", MemberKind::Get, BandItem, 1, 1, true},
  };
  return kMembers;
}

Value Bands(CommandBar& bar, Access, std::span<Value> arguments) {
  return ItemOrCollection(std::make_shared<BandCollection>(bar.shared_from_this()), arguments);
}

Value Tools(CommandBar& bar, Access, std::span<Value> arguments) {
  return ItemOrCollection(
      std::make_shared<ToolCollection>(bar.shared_from_this(), ToolCollection::Place::Bar),
      arguments);
}

Value Click(CommandBar& bar, Access, std::span<Value> arguments) {
  bar.Click(ToText(arguments.front()));
  return {};
}

Value Listener(CommandBar& bar, Access access, std::span<Value> arguments) {
  if (access == Access::Call) return bar.Listener();
  const Value& host = arguments.back().Resolved();
  bar.SetListener(host == Value(nullptr) ? nullptr : RequireObject(host, u"Listener"));
  return {};
}

}  // namespace

std::span<const Member<CommandBar>> CommandBar::Members() {
  static constexpr Member<CommandBar> kMembers[]{
      {u"Bands", MemberKind::Get, Bands, 0, 1},
      {u"Tools", MemberKind::Get, pricedown::Tools, 0, 1},
      {u"Click", MemberKind::Method, pricedown::Click, 1, 1},
      {u"Listener", MemberKind::GetPut, pricedown::Listener},
  };
  return kMembers;
}

}  // namespace pricedown
