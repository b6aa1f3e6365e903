// `Save`: checks, header into the members, account ids, one statement text.
#pragma once

#include <string>

#include "editor/form_state.h"

namespace pricedown {

// Returns whether the class was written; when a check refuses it, the user has the message and the
// field at fault the focus. Sets the saved flag once the checks pass. Throws AutomationError; there
// is no transaction.
bool SaveClass(FormContext& form);

// The text that replaces the class's rows by one per row of the member list, from its current row
// to its end. Throws AutomationError.
std::u16string SaveText(const FormState& state);

}  // namespace pricedown
