// A dictionary of the suite: case-insensitive text keys, any values, in the order of adding.
// Members: Add(key, value), Item(key) (default, get and put), GetValue(key, default), Exists(key),
// Count.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "platform/local_object.h"

namespace workbench {

class Dictionary : public pricedown::LocalObject<Dictionary> {
 public:
  using Entries = std::vector<std::pair<std::u16string, pricedown::Value>>;

  // Null when the key is absent.
  const pricedown::Value* Lookup(std::u16string_view key) const;
  void Set(std::u16string_view key, pricedown::Value value);
  const Entries& All() const { return entries_; }

  static std::span<const pricedown::Member<Dictionary>> Members();

 private:
  Entries entries_;
};

}  // namespace workbench
