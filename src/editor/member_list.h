// The member list's layout, and the fields of a recordset for one who walks many rows.
// The rows are made and removed by the form's commands.
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

// Fields that are found once and then read and written in whichever row is current.
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
