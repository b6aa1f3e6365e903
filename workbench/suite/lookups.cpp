// Results of the suite's lookups. They hold copies and stay valid after the company is closed.
#include "workbench/suite/lookups.h"

#include <algorithm>
#include <unordered_map>

#include "platform/convert.h"
#include "platform/error.h"
#include "platform/text.h"
#include "workbench/company/database_error.h"
#include "workbench/suite/result_rows.h"

namespace workbench {

using pricedown::Access;
using pricedown::Concatenate;
using pricedown::LocalObject;
using pricedown::Member;
using pricedown::MemberKind;
using pricedown::NumberText;
using pricedown::ObjectPtr;
using pricedown::ToInt32;
using pricedown::ToText;
using pricedown::Value;

namespace {

constexpr std::int32_t kItemType = 4;
constexpr std::u16string_view kLookupSource = u"ZEPEBCGLView.GLView";

// The result of a lookup.
class LookupResult : public LocalObject<LookupResult> {
 public:
  bool confirmed = false;
  std::u16string returnValue;
  Value returnObject;

  static std::span<const Member<LookupResult>> Members() {
    static constexpr Member<LookupResult> kMembers[] = {
        {u"ReturnOK", MemberKind::Get,
         [](LookupResult& result, Access, std::span<Value>) { return Value(result.confirmed); }},
        {u"ReturnValue", MemberKind::Get,
         [](LookupResult& result, Access, std::span<Value>) { return Value(result.returnValue); }},
        {u"ReturnObject", MemberKind::Get,
         [](LookupResult& result, Access, std::span<Value>) { return result.returnObject; }},
    };
    return kMembers;
  }
};

class Account : public LocalObject<Account> {
 public:
  std::u16string number;
  std::u16string name;

  static std::span<const Member<Account>> Members() {
    static constexpr Member<Account> kMembers[] = {
        {u"Number", MemberKind::Get,
         [](Account& account, Access, std::span<Value>) { return Value(account.number); }, 0, 0,
         true},
        {u"Name", MemberKind::Get,
         [](Account& account, Access, std::span<Value>) { return Value(account.name); }},
    };
    return kMembers;
  }
};

class Item : public LocalObject<Item> {
 public:
  Dictionary::Entries properties;

  static std::span<const Member<Item>> Members() {
    static constexpr Member<Item> kMembers[] = {
        {u"Properties", MemberKind::Get,
         [](Item& item, Access, std::span<Value> arguments) {
           const std::u16string name = ToText(arguments[0]);
           for (const auto& [key, value] : item.properties) {
             if (pricedown::EqualsIgnoringCase(key, name)) return value;
           }
           return Value();
         },
         1, 1},
    };
    return kMembers;
  }
};

class ItemCollection : public LocalObject<ItemCollection> {
 public:
  std::vector<ObjectPtr> items;

  static std::span<const Member<ItemCollection>> Members() {
    static constexpr Member<ItemCollection> kMembers[] = {
        {u"Item", MemberKind::Get,
         [](ItemCollection& collection, Access, std::span<Value> arguments) {
           const std::int32_t number = ToInt32(arguments[0].Resolved());
           if (number < 1 || static_cast<std::size_t>(number) > collection.items.size()) {
             throw pricedown::AutomationError(pricedown::ErrorNumber::InvalidArgument,
                                              u"没有这个序号的物料。",
                                              std::u16string(kLookupSource));
           }
           return Value(collection.items[static_cast<std::size_t>(number) - 1]);
         },
         1, 1, true},
        {u"Size", MemberKind::Get,
         [](ItemCollection& collection, Access, std::span<Value>) {
           return Value(static_cast<std::int32_t>(collection.items.size()));
         }},
    };
    return kMembers;
  }
};

ObjectPtr MakeItem(const ResultRows& rows, std::size_t row) {
  auto item = std::make_shared<Item>();
  for (std::size_t column = 0; column < rows.Fields().size(); ++column) {
    item->properties.emplace_back(rows.Fields()[column].name, rows.Get(row, column));
  }
  return item;
}

// In the order of the ids; unknown ids are skipped.
std::vector<ObjectPtr> ReadItems(SuiteState& suite, std::span<const std::int32_t> ids) {
  constexpr std::size_t kAtOnce = 500;
  std::vector<ObjectPtr> items;
  items.reserve(ids.size());
  while (!ids.empty()) {
    const auto some = ids.first(std::min(kAtOnce, ids.size()));
    ids = ids.subspan(some.size());
    std::u16string list;
    for (const std::int32_t id : some) {
      if (!list.empty()) list += u',';
      list += NumberText(id);
    }
    const ResultRows rows(suite.Execute(Concatenate(
        {u"SELECT x2.FItemID,x2.FNumber,x2.FShortNumber,x2.FName,x2.FModel FROM t_ICItem x2 "
         u"WHERE x2.FItemID IN(",
         list, u")"})));
    std::unordered_map<std::int32_t, std::size_t> rowOfId;
    for (std::size_t row = 0; row < rows.RowCount(); ++row) {
      rowOfId[ToInt32(rows.Get(row, 0))] = row;
    }
    for (const std::int32_t id : some) {
      if (const auto row = rowOfId.find(id); row != rowOfId.end()) {
        items.push_back(MakeItem(rows, row->second));
      }
    }
  }
  return items;
}

// A DatabaseError in a picker reaches the caller as an AutomationError.
template <typename Pick>
auto AskPickers(Pick&& pick) {
  try {
    return pick();
  } catch (const DatabaseError& error) {
    throw pricedown::AutomationError(pricedown::ErrorNumber::Unspecified, error.Message(),
                                     std::u16string(kLookupSource));
  }
}

bool AllowsSeveral(const Value& parameters) {
  const Value& given = parameters.Resolved();
  if (!given.Is(Value::Kind::Object) || given.Object() == nullptr) return false;
  const Value answer = given.Object()->Call(u"GetValue", {u"Multislt", Value(std::int16_t{0})});
  return pricedown::ToDouble(answer) != 0;
}

}  // namespace

Value GLView::AccountLookup(std::u16string_view text) {
  if (suite_->company == nullptr) suite_->Execute({});
  const std::shared_ptr<Connection> company = suite_->company;
  auto result = std::make_shared<LookupResult>();
  const auto number = AskPickers([&] { return suite_->pickers->PickAccount(*company, text); });
  if (number) {
    auto account = std::make_shared<Account>();
    account->number = *number;
    const ResultRows rows(suite_->Execute(Concatenate(
        {u"SELECT FName FROM t_account WHERE FNumber=", SuiteState::Literal(*number)})));
    if (rows.RowCount() > 0) account->name = ToText(rows.Get(0, 0));
    result->confirmed = true;
    result->returnValue = *number;
    result->returnObject = ObjectPtr(account);
  }
  return ObjectPtr(result);
}

Value GLView::ItemLookUp(std::int32_t type, std::u16string_view condition,
                         const Value& parameters) {
  if (type != kItemType) {
    throw pricedown::AutomationError(pricedown::ErrorNumber::InvalidArgument, u"只能查询物料。",
                                     std::u16string(kLookupSource));
  }
  if (suite_->company == nullptr) suite_->Execute({});
  const std::shared_ptr<Connection> company = suite_->company;
  auto result = std::make_shared<LookupResult>();
  const bool several = AllowsSeveral(parameters);
  const auto ids =
      AskPickers([&] { return suite_->pickers->PickItems(*company, condition, several); });
  if (ids && !ids->empty()) {
    std::vector<ObjectPtr> items = ReadItems(*suite_, *ids);
    result->confirmed = true;
    if (items.size() == 1) {
      result->returnValue = ToText(items.front()->Call(u"Properties", {u"FNumber"}));
      // An empty one would say that several were chosen.
      if (result->returnValue.empty()) {
        result->returnValue = ToText(items.front()->Call(u"Properties", {u"FItemID"}));
      }
      result->returnObject = items.front();
    } else {
      auto collection = std::make_shared<ItemCollection>();
      collection->items = std::move(items);
      result->returnObject = ObjectPtr(collection);
    }
  }
  return ObjectPtr(result);
}

std::span<const Member<GLView>> GLView::Members() {
  static constexpr Member<GLView> kMembers[] = {
      {u"AccountLookup", MemberKind::Method,
       [](GLView& view, Access, std::span<Value> arguments) {
         return view.AccountLookup(ToText(arguments[0]));
       },
       1, 1},
      {u"ItemLookUp", MemberKind::Method,
       [](GLView& view, Access, std::span<Value> arguments) {
         return view.ItemLookUp(ToInt32(arguments[0].Resolved()), ToText(arguments[2]),
                                arguments[3]);
       },
       4, 4},
  };
  return kMembers;
}

}  // namespace workbench
