// Copies of a recordset: new client-side ones with the same fields and rows.
// They share nothing with their source, which is left behind its last row.
#pragma once

#include "platform/recordset.h"

namespace pricedown {

// The browser's copy: the source's filter is cleared, every row is committed as it is added.
// Failing steps are skipped; without any copy the answer has no object.
Recordset CopyRecords(ObjectFactory& factory, const Recordset& source);

// The form's copy of its member list, committed as one batch. Failing steps are skipped.
Recordset CopyList(ObjectFactory& factory, const Recordset& source);

}  // namespace pricedown
