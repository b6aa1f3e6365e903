// Fast access to fields of a recordset over many rows.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/recordset.h"

namespace pricedown {

// Fields looked up once, then read and written in the current row.
class BoundFields {
 public:
  // Throws AutomationError when the recordset lacks one. Requires: open.
  BoundFields(const Recordset& recordset, const std::vector<std::u16string_view>& names);

  std::size_t Count() const { return fields_.size(); }
  // Positions are those of `names`. Throw AutomationError.
  Value Get(std::size_t position) const;
  void Set(std::size_t position, Value value) const;

 private:
  struct Field {
    ObjectPtr object;
    MemberId value;
  };
  std::vector<Field> fields_;
};

// A field that is looked up when it is first used: one that is lacking fails alone.
class LazyField {
 public:
  // The text of `name` must outlive the object.
  LazyField(const Recordset& recordset, std::u16string_view name)
      : recordset_(recordset), name_(name) {}
  // Throw AutomationError.
  Value Get() { return Bound().Get(0); }
  void Set(Value value) { Bound().Set(0, std::move(value)); }

 private:
  const BoundFields& Bound() {
    if (!bound_) bound_.emplace(recordset_, std::vector{name_});
    return *bound_;
  }

  Recordset recordset_;
  std::u16string_view name_;
  std::optional<BoundFields> bound_;
};

}  // namespace pricedown
