// `DelItem`: removes items from the class unless their provisions forbid it.
#pragma once

#include "editor/form_state.h"

namespace pricedown {

// Removes the selected items from the member list; each that must stay is named in a
// message. The current period's provision rows of a removed item are deleted at once, the class's
// own rows by the next save. Throws AutomationError; items removed before it stay removed, and the
// list shows the rest.
void RemoveSelectedItems(FormContext& form);

}  // namespace pricedown
