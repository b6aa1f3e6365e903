// Creates items family by family from the tables of kinds.
#include "workbench/sample/sample_items.h"

#include <algorithm>
#include <set>
#include <utility>

#include "workbench/sample/decimal.h"
#include "workbench/sample/template_text.h"

namespace workbench {
namespace {

constexpr std::uint64_t kItemStream = 1;
constexpr int kTriesForAnotherName = 50;

std::string FourDigits(int number) {
  std::string digits = std::to_string(number);
  return std::string(4 - digits.size(), '0') + digits;
}

// Families of few kinds run out of combinations; rare duplicates are accepted.
void FillUnlikeOthers(const ItemFamily& family, Random& random,
                      std::set<std::pair<std::string, std::string>>* seen, ItemRow* item) {
  const auto kinds = KindsOf(family.code);
  for (int tries = 0; tries < kTriesForAnotherName; ++tries) {
    const auto& kind = kinds[random.Below(static_cast<std::uint32_t>(kinds.size()))];
    FillFromKind(kind, random, item);
    if (seen->emplace(item->name, *item->model).second) return;
  }
}

// Missing data as in real companies, at fixed places and at random.
void LeaveGaps(std::string_view family, int ordinal, Random& random, ItemRow* item) {
  if (random.Chance(2, 100)) item->shortNumber.reset();
  if (random.Chance(3, 100)) item->model.reset();
  if (random.Chance(5, 100)) item->planPrice.reset();
  if (family != "05.06") return;
  if (ordinal == 1 || ordinal == 3) item->shortNumber.reset();
  if (ordinal == 2 || ordinal == 3) item->model.reset();
  if (ordinal == 4) item->shortNumber = "";
  if (ordinal == 5) item->model = "";
}

}  // namespace

void FillFromKind(const ItemKind& kind, Random& random, ItemRow* item) {
  item->name = FillTemplate(kind.name, random);
  item->model = FillTemplate(kind.model, random);
  item->unit = kind.unit;
  const int price = random.Between(kind.lowPrice, kind.highPrice);
  const std::int64_t markup = random.Between(105, 160);
  item->planPrice = FromHundredths(price);
  item->salePrice = FromHundredths(price * markup / 100);
}

std::string_view FamilyOf(const ItemRow& item) {
  return std::string_view(item.number).substr(0, item.number.rfind('.'));
}

std::vector<ItemRow> MakeSampleItems(std::uint64_t seed) {
  Random random(seed, kItemStream);
  std::vector<ItemRow> items;
  items.reserve(ItemFamilies().size() * kItemsPerFamily);
  for (const ItemFamily& family : ItemFamilies()) {
    std::set<std::pair<std::string, std::string>> seen;
    for (int ordinal = 1; ordinal <= kItemsPerFamily; ++ordinal) {
      ItemRow item;
      item.id = static_cast<int>(items.size()) + 1;
      item.number = std::string(family.code) + "." + FourDigits(ordinal);
      item.shortNumber = std::string(family.mnemonic) + FourDigits(ordinal);
      const auto choices = static_cast<std::uint32_t>(family.categories.size());
      item.category = family.categories[random.Below(choices)] - '0';
      FillUnlikeOthers(family, random, &seen, &item);
      LeaveGaps(family.code, ordinal, random, &item);
      items.push_back(std::move(item));
    }
  }
  return items;
}

}  // namespace workbench
