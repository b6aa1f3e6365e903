// The table of sample classes and the choice of their members.
#include "workbench/sample/sample_classes.h"

#include <algorithm>

#include "workbench/sample/decimal.h"
#include "workbench/sample/random.h"
#include "workbench/sample/sample_items.h"
#include "workbench/sample/standard_accounts.h"

namespace workbench {
namespace {

constexpr std::uint64_t kClassStream = 2;

using enum MemberRule;
using enum ProvisionPattern;

// Families are spread over the classes without overlap, so that an item has one class. The
// second group holds what real companies hold sooner or later.
constexpr SampleClass kClasses[] = {
    {"01", "黑色金属材料", "5", "6701.01", "1471.01", "01.01 01.02 01.03", Most, EarlierAndCurrent},
    {"02", "铸锻毛坯", "8", "6701.01", "1471.01", "01.04 01.05", Most, EarlierYearOnly},
    {"03", "有色金属材料", "3.5", "6701.01", "1471.01", "02.01 02.02", Most, SameYearOnly},
    {"04", "焊接材料", "2", "6701.01", "1471.01", "02.03", Most, EarlierZero},
    {"05", "标准紧固件", "1.25", "6701.01", "1471.01", "03.01 03.02", Most, CurrentOnly},
    {"06", "轴承与密封件", "2.75", "6701.01", "1471.01", "03.03 03.04 03.05", Most, LaterOnly},
    {"07", "电气元件", "6.5", "6701.01", "1471.01", "04.01 04.02 04.05", Most, EarlierAndCurrent},
    {"08", "电线电缆", "4", "6701.01", "1471.01", "04.03", Most, CurrentZero},
    {"09", "电子元器件", "12.5", "6701.01", "1471.01", "05.01 05.02 05.03 05.04", Most,
     CurrentOnly},
    {"10", "液压气动件", "7.0625", "6701.01", "1471.01", "06.01 06.02 06.03", Most, None},
    {"11", "油品化工料", "9.1234", "6701.01", "1471.01", "07.01 07.02 07.03 07.04", Most, None},
    {"12", "包装物", "0", "6701.01", "1471.04", "08.01 08.02", Most, None},
    {"13", "自制半成品", "10", "6701.01", "1471.02", "10.01 10.02 10.03", Most, EarlierAndCurrent},
    {"14", "产成品", "15", "6701.01", "1471.03", "11.01 11.02 11.03 11.04", Most, CurrentOnly},
    {"15", "低值易耗品", "33.3333", "6701.01", "1471.04", "09.01 09.02", Most, EarlierYearOnly},

    // Rows that differ in name; a name with outer blanks; items shared with other classes.
    {kTwoNamedClass, "停产专用料", "50", "6701.01", "1471.99", "12.01", All, CurrentOnly},
    {"17", "  呆滞材料 ", "40", "6701.01", "1471.99", "12.02", All, None},
    {kSharingClass, "跨类共用件", "4.5", "6701.02", "1231.10", "05.05", Most, None},
    // Missing short codes and models, and an account that a number would be confused with.
    {"19", "资料不全件", "20", "6701.20", "1471.20", "05.06", All, None},
    // Members that are never listed beside listed ones, then nothing but such members.
    {"20", "含费用与规划项目", "1", "6701.01.01", "1471.01.02", "04.04 12.03 12.04", FirstHalf,
     CurrentOnly},
    {"21", "全部不列示", "1", "6701.01", "1471.99", "12.03 12.04", SecondHalf, None},
    // Two classes whose numbers differ only in letter case.
    {"B7", "进口组件", "18.75", "6701.01", "1471.02", "10.04", FirstHalf, EarlierAndCurrent},
    {"b7", "进口组件(小写代码)", "18.75", "6701.01", "1471.02", "10.04", SecondHalf, CurrentOnly},
    // A number and a name of 40 characters, percentages at the ends, the longest account.
    {"2008-LB-LAODONG-BAOHU-YONGPIN-000001-ABC", "劳动保护用品", "0.0001", "6701.01", "1471.04",
     "09.03", All, None},
    {"22", "长期积压且无使用价值、拟于下一会计年度全部报废处理的办公用品及塑料包装物(异地)", "100",
     "6701.01.02", "1471.99.0001.ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789", "09.04 08.03", All, None},
};

bool IncludesItem(MemberRule rule, const ItemRow& item, Random& random) {
  const int ordinal = (item.id - 1) % kItemsPerFamily;
  switch (rule) {
    case Most:
      return random.Chance(3, 4);
    case FirstHalf:
      return ordinal < kItemsPerFamily / 2;
    case SecondHalf:
      return ordinal >= kItemsPerFamily / 2;
    case All:
      break;
  }
  return true;
}

ClassRow MakeHeader(const SampleClass& sample, const std::vector<AccountRow>& accounts) {
  ClassRow row;
  row.number = sample.number;
  row.name = sample.name;
  row.lossAccount = sample.lossAccount;
  row.lossAccountId = FindAccountId(accounts, sample.lossAccount);
  row.reserveAccount = sample.reserveAccount;
  row.reserveAccountId = FindAccountId(accounts, sample.reserveAccount);
  row.percentage = ParsePlainDecimal(sample.percentage).value_or(0);
  return row;
}

// The first member of each class that shares.
void AddShared(const ClassRow& header, std::vector<ClassRow>* rows) {
  for (const std::string_view from : kSharedFrom) {
    const auto first = std::find_if(rows->begin(), rows->end(),
                                    [&](const ClassRow& row) { return row.number == from; });
    if (first == rows->end()) continue;
    ClassRow shared = header;
    shared.itemId = first->itemId;
    rows->push_back(std::move(shared));
  }
}

void AddMembers(const SampleClass& sample, const ClassRow& header,
                const std::vector<ItemRow>& items, Random& random, std::vector<ClassRow>* rows) {
  for (const ItemRow& item : items) {
    if (sample.families.find(FamilyOf(item)) == std::string_view::npos) continue;
    if (!IncludesItem(sample.members, item, random)) continue;
    ClassRow row = header;
    row.itemId = item.id;
    if (sample.number == kTwoNamedClass && item.id % 3 == 0) row.name = kSecondName;
    rows->push_back(std::move(row));
  }
}

}  // namespace

std::span<const SampleClass> SampleClasses() { return kClasses; }

std::vector<ClassRow> MakeClassRows(const std::vector<ItemRow>& items,
                                    const std::vector<AccountRow>& accounts, std::uint64_t seed) {
  Random random(seed, kClassStream);
  std::vector<ClassRow> rows;
  for (const SampleClass& sample : kClasses) {
    const ClassRow header = MakeHeader(sample, accounts);
    AddMembers(sample, header, items, random, &rows);
    if (sample.number == kSharingClass) AddShared(header, &rows);
  }
  return rows;
}

}  // namespace workbench
