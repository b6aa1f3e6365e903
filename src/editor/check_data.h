// `CheckData`: whether the class as typed may be saved.
#pragma once

#include <optional>
#include <string>

#include "editor/form_state.h"

namespace pricedown {

// Why a class may not be saved, for the user.
struct CheckFailure {
  std::u16string message;
  // The field at fault; none for the member list.
  std::optional<FormField> field;
  bool keepsSavedFlag = false;
};

// The first check that fails, or none. Throws AutomationError when the database fails.
std::optional<CheckFailure> CheckData(const FormState& state, const TypedHeader& header,
                                      ObjectFactory& factory);

}  // namespace pricedown
