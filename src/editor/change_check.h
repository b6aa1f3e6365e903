// Comparisons of the form with its rows and with what was loaded or last saved.
#pragma once

#include "editor/form_state.h"

namespace pricedown {

// Whether the first row of the members carries the header; false for an empty list. The list is
// then at its first row. Throws AutomationError.
bool CarriesHeader(const Recordset& members, const TypedHeader& header);

// Whether header and members are as last saved, or as loaded when nothing was saved. Throws
// AutomationError.
bool IsUnchanged(const FormState& state, const ClassHeader& header);

}  // namespace pricedown
