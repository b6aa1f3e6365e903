// The writing of a class: header into the members, account ids, one statement text.
// Whether it may be written is check_data; what follows a save is the form's.
#pragma once

#include <string>

#include "editor/form_state.h"

namespace pricedown {

// Validates and writes the class; the saved flag says whether it was written. False when the
// checks refused it. Throws AutomationError; there is no transaction.
bool SaveClass(FormParts& form);

// The text that replaces the class's rows by one per row of the member list, from its current row
// on. Throws AutomationError.
std::u16string SaveText(const FormState& state);

}  // namespace pricedown
