// `DelItem`: items leave the class unless their provisions forbid it.
// The class's own rows are rewritten by the next save only.
#pragma once

#include "editor/form_state.h"

namespace pricedown {

// Removes the selected items; each that may not leave is named in a message and stays. The
// current period's provision rows of a removed item are deleted at once. Throws AutomationError;
// items handled before it stay removed, and the whole list is shown again.
void RemoveSelectedItems(FormParts& form);

}  // namespace pricedown
