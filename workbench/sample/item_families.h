// What kinds of goods the sample company deals in: families of items, and the kinds within them, as
// tables.
#pragma once

#include <span>
#include <string_view>

namespace workbench {

// Items that share the front of their code.
struct ItemFamily {
  std::string_view code;        // "01.02"; an item's code is code + "." + four digits
  std::string_view mnemonic;    // the short code's letters
  std::string_view title;       // what the family holds
  std::string_view categories;  // digits to choose FErpClsID from, repeated by weight
};

// Names and models in the language of FillTemplate, prices in hundredths of a yuan.
struct ItemKind {
  std::string_view family;
  std::string_view name;
  std::string_view model;
  std::string_view unit;
  int lowPrice;
  int highPrice;
};

// In code order.
std::span<const ItemFamily> ItemFamilies();

// The kinds of one family; every family has at least one.
std::span<const ItemKind> KindsOf(std::string_view familyCode);

}  // namespace workbench
