// `AddItem`: looks items up and appends those that the user chose.
#pragma once

#include "editor/form_state.h"

namespace pricedown {

// Offers the items of no class, those removed from this list included; the chosen ones become rows
// of the member list. Throws AutomationError; rows appended before it stay.
void AddItems(FormContext& form);

}  // namespace pricedown
