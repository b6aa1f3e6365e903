// The items of the sample company, generated from a seed.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "workbench/sample/company_rows.h"
#include "workbench/sample/item_families.h"
#include "workbench/sample/random.h"

namespace workbench {

inline constexpr int kItemsPerFamily = 64;

// 64 items of every family, in code order, ids from 1. The same seed gives the same items. Some
// have no short code, no model, or an empty text: always the first items of family "05.06", and
// others at random.
std::vector<ItemRow> MakeSampleItems(std::uint64_t seed);

// Sets name, model, unit and prices for an item of `kind`.
void FillFromKind(const ItemKind& kind, Random& random, ItemRow* item);

// The family part of an item's code: "01.02" of "01.02.0007".
std::string_view FamilyOf(const ItemRow& item);

}  // namespace workbench
