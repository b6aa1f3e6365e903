// Fields of the member list's recordset.
#pragma once

#include <cstdint>

#include "platform/recordset.h"

namespace pricedown {

// Appends the fifteen fields of the member list, in their order. Requires: not open.
// Throws AutomationError.
void AppendMemberFields(const Recordset& recordset);

// Rows of the recordset; none when there is no recordset. Throws AutomationError.
std::int32_t RowCountOf(const Recordset& recordset);

}  // namespace pricedown
