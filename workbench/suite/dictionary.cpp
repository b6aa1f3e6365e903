// The suite's dictionary object. Values are stored unchanged.
#include "workbench/suite/dictionary.h"

#include <cstddef>
#include <utility>
#include <vector>

#include "platform/cell_block.h"
#include "platform/convert.h"
#include "platform/error.h"
#include "platform/text.h"

namespace workbench {

using pricedown::Access;
using pricedown::Member;
using pricedown::MemberKind;
using pricedown::Value;

namespace {

// A row is the caller's, and locked as long as it is kept.
std::vector<Value> CopyOf(const pricedown::BlockRow& cells) {
  std::vector<Value> copy;
  for (std::size_t column = 0; column < cells.block->ColumnCount(); ++column) {
    copy.push_back(cells.block->CellValue(column, cells.row));
  }
  return copy;
}

}  // namespace

const Value* Dictionary::Lookup(std::u16string_view key) const {
  for (const auto& [name, value] : entries_) {
    if (pricedown::EqualsIgnoringCase(name, key)) return &value;
  }
  return nullptr;
}

void Dictionary::Set(std::u16string_view key, Value value) {
  if (value.Is(Value::Kind::Row)) value = CopyOf(value.Row());
  for (auto& [name, kept] : entries_) {
    if (pricedown::EqualsIgnoringCase(name, key)) {
      kept = std::move(value);
      return;
    }
  }
  entries_.emplace_back(std::u16string(key), std::move(value));
}

namespace {

Value ItemOfKey(Dictionary& dictionary, Access access, std::span<Value> arguments) {
  const std::u16string key = pricedown::ToText(arguments[0]);
  if (access != Access::Call) {
    dictionary.Set(key, arguments[1].Resolved());
    return {};
  }
  const Value* value = dictionary.Lookup(key);
  return value == nullptr ? Value() : *value;
}

Value Add(Dictionary& dictionary, Access, std::span<Value> arguments) {
  const std::u16string key = pricedown::ToText(arguments[0]);
  if (dictionary.Lookup(key) != nullptr) {
    throw pricedown::AutomationError(pricedown::ErrorNumber::InvalidArgument,
                                     pricedown::Concatenate({u"字典中已有键“", key, u"”。"}),
                                     u"ZEPEBCBASE.Dictionary");
  }
  dictionary.Set(key, arguments[1].Resolved());
  return {};
}

Value GetValue(Dictionary& dictionary, Access, std::span<Value> arguments) {
  const Value* value = dictionary.Lookup(pricedown::ToText(arguments[0]));
  return value == nullptr ? arguments[1].Resolved() : *value;
}

}  // namespace

std::span<const Member<Dictionary>> Dictionary::Members() {
  static constexpr Member<Dictionary> kMembers[] = {
      {u"Item", MemberKind::GetPut, ItemOfKey, 1, 1, true},
      {u"Add", MemberKind::Method, Add, 2, 2},
      {u"GetValue", MemberKind::Method, GetValue, 2, 2},
      {u"Exists", MemberKind::Method,
       [](Dictionary& dictionary, Access, std::span<Value> arguments) {
         return Value(dictionary.Lookup(pricedown::ToText(arguments[0])) != nullptr);
       },
       1, 1},
      {u"Count", MemberKind::Get,
       [](Dictionary& dictionary, Access, std::span<Value>) {
         return Value(static_cast<std::int32_t>(dictionary.All().size()));
       }},
  };
  return kMembers;
}

}  // namespace workbench
