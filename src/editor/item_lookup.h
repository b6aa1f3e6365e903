// `AddItem`: the item lookup and the appending of what the user chose.
// Items leave the list through removal_guard.
#pragma once

#include "editor/form_state.h"

namespace pricedown {

// Offers the items of no class and of this list's removed ones; the chosen ones become rows of
// the member list. Throws AutomationError; rows appended before it stay.
void AddItems(FormParts& form);

}  // namespace pricedown
