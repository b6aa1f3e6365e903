// The items of the sample company, made from a seed. It writes to no database.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "workbench/sample/company_rows.h"
#include "workbench/sample/item_families.h"
#include "workbench/sample/random.h"

namespace workbench {

inline constexpr int kItemsPerFamily = 64;

/// 64 items of every family, in code order, ids from 1. The same seed gives the same items.
/// Some have no short code, no model, or an empty text there: always the first items of
/// family "05.06", and here and there another.
std::vector<ItemRow> MakeSampleItems(std::uint64_t seed);

/// One item of `kind`: name, model, unit and prices; id, codes and category are left alone.
void FillFromKind(const ItemKind& kind, Random& random, ItemRow* item);

/// The family part of an item's code: "01.02" of "01.02.0007".
std::string_view FamilyOf(const ItemRow& item);

}  // namespace workbench
