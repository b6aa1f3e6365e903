// The raw side through the suite: its objects asked for the same as by the library, and nothing
// else done. Answers are walked to the end and forgotten.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/automation.h"

namespace bench {

// The texts of the tree's nodes below the root: a class's rows follow each other.
std::vector<std::u16string> TreeTexts(pricedown::ObjectFactory& factory);

// The items of a class: as the grid reads them, and with all columns, as the form does.
void WalkItems(pricedown::ObjectFactory& factory, std::u16string_view classNumber);
void WalkMembers(pricedown::ObjectFactory& factory, std::u16string_view classNumber);

// What the suite is asked when a control is made, and, besides the tree, when it is shown.
void AskForCreation(pricedown::ObjectFactory& factory);
void AskForShowing(pricedown::ObjectFactory& factory);

// The statements of a class's deletion, guards and the reload of tree and grid included.
void DeleteClass(pricedown::ObjectFactory& factory, std::u16string_view classNumber);

}  // namespace bench
