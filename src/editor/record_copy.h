// Copies of a recordset: client-side, same fields, same rows. The source is then after its last
// row.
#pragma once

#include "platform/recordset.h"

namespace pricedown {

// The browser's copy: clears the source's filter and commits row by row. Skips failing steps;
// returns no object when no copy can be opened.
Recordset CopyRecords(ObjectFactory& factory, const Recordset& source);

// The form's copy of its member list, committed as one batch. Skips failing steps.
Recordset CopyList(ObjectFactory& factory, const Recordset& source);

}  // namespace pricedown
