// The comparisons of the form with what was loaded or last saved.
// They report in flags of the state; what a change leads to is decided by the form.
#pragma once

#include "editor/form_state.h"

namespace pricedown {

// Whether the member list's first row carries exactly the header in the fields; false for an
// empty list. The list is then at its first row. Throws AutomationError.
bool Check(const FormParts& form);

// Sets the texts-unchanged flag: the fields hold the saved values.
void CheckTextSave(FormParts& form);

// Sets the unchanged flag: fields and members are as saved, or as loaded when nothing was saved.
// Throws AutomationError.
void CheckRecord(FormParts& form);

}  // namespace pricedown
