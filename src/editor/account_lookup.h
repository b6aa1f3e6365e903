// Account lookup of the two account fields. It sets the number; a save looks the id up.
#pragma once

#include "editor/form_state.h"

namespace pricedown {

// Lets the user pick an account for the field; shows the user any error and throws none.
// Requires: an account field.
void LookUpAccount(FormContext& form, FormField field);

}  // namespace pricedown
