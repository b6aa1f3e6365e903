// Fields of the member list's recordset, and fast access to fields over many rows.
#pragma once

#include <cstddef>
#include <initializer_list>
#include <string_view>
#include <vector>

#include "platform/recordset.h"

namespace pricedown {

// Appends the fifteen fields of the member list, in their order. Requires: not open.
// Throws AutomationError.
void AppendMemberFields(const Recordset& recordset);

// Rows of the recordset; none when there is no recordset. Throws AutomationError.
std::int32_t RowCountOf(const Recordset& recordset);

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

}  // namespace pricedown
