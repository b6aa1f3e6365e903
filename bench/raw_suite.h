// The raw side through the suite: the same calls to its objects as the library's, without the
// library. Results are read to the end and dropped.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/automation.h"

namespace bench {

// The texts of the tree's nodes below the root: a class's rows follow each other.
std::vector<std::u16string> TreeTexts(pricedown::ObjectFactory& factory);

// The items of a class, or all, as the grid reads them; and with all columns, as the form does.
void WalkItems(pricedown::ObjectFactory& factory, std::u16string_view classNumber);
void WalkAllItems(pricedown::ObjectFactory& factory);
void WalkMembers(pricedown::ObjectFactory& factory, std::u16string_view classNumber);

// The calls to the suite when a control is created, and, besides the tree, when it is shown.
void AskForCreation(pricedown::ObjectFactory& factory);
void AskForShowing(pricedown::ObjectFactory& factory);

// The statements of a class's deletion, guards and the reload of tree and grid included.
void DeleteClass(pricedown::ObjectFactory& factory, std::u16string_view classNumber);

}  // namespace bench
