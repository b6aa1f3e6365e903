// Texts with choices in them, such as item names and models.
#pragma once

#include <string>
#include <string_view>

#include "workbench/sample/random.h"

namespace workbench {

// Copies `pattern`, replacing "[a|b|c]" by one of its alternatives and "{10-50/5}" by one
// of the whole numbers 10, 15 … 50. Choices do not nest.
// Requires: every bracket is closed and a range has low <= high and a step above 0.
std::string FillTemplate(std::string_view pattern, Random& random);

}  // namespace workbench
