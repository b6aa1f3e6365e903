// The account lookup of the two account fields.
// Only the number is taken: the id is looked up by the save.
#pragma once

#include "editor/form_state.h"

namespace pricedown {

// Lets the user pick an account for the field; any error is shown to the user and not thrown.
// Requires: an account field.
void LookUpAccount(FormParts& form, FormField field);

}  // namespace pricedown
