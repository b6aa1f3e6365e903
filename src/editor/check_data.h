// `CheckData`: whether the class as it stands in the form may be saved.
// It changes no data; saving is save.
#pragma once

#include "editor/form_state.h"

namespace pricedown {

// True when the class may be saved, and the saved flag is then set. Otherwise the user has been
// told the first failure and the field at fault has the focus; the saved flag is cleared, except
// for an empty class number. Throws AutomationError when the database fails.
bool CheckData(FormParts& form);

}  // namespace pricedown
