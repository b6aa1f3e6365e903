// `Save`: checks, header into the members, account ids, one statement text.
#pragma once

#include <optional>
#include <string>

#include "editor/form_state.h"

namespace pricedown {

// Returns the number of the class that was written; none when a check refuses it, and then the user
// has the message and the field at fault the focus. Sets the saved flag once the checks pass.
// Throws AutomationError; there is no transaction.
std::optional<std::u16string> SaveClass(FormContext& form);

// The text that replaces the class's rows by one per row of the member list, from its current row
// to its end. Throws AutomationError.
std::u16string SaveText(const FormState& state);

}  // namespace pricedown
