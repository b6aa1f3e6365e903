// Streams items and class rows straight into the tables and indexes them afterwards.
#include "workbench/sample/large_company.h"

#include <array>
#include <charconv>
#include <string>
#include <string_view>
#include <vector>

#include "workbench/sample/company_rows.h"
#include "workbench/sample/decimal.h"
#include "workbench/sample/item_families.h"
#include "workbench/sample/sample_items.h"
#include "workbench/sample/sample_provisions.h"
#include "workbench/sample/sample_users.h"
#include "workbench/sample/standard_accounts.h"

namespace workbench {
namespace {

constexpr std::uint64_t kLargeStream = 5;
constexpr int kItemsPerGroup = 1000;
constexpr std::string_view kListedCategories = "111222345719";
constexpr std::array<std::string_view, 4> kReserveAccounts = {"1471.01", "1471.02", "1471.03",
                                                              "1471.04"};
constexpr std::string_view kLossAccount = "6701.01";

void SetDigits(int number, int width, std::string* text) {
  std::array<char, 12> digits{};
  const char* const end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
  const auto count = static_cast<int>(end - digits.data());
  for (int i = count; i < width; ++i) text->push_back('0');
  text->append(digits.data(), static_cast<std::size_t>(count));
}

// Item 0 is 01.01.0001, item 1000 is 01.02.0001, item 999999 is 50.20.1000.
void SetCodes(int index, const ItemFamily& family, ItemRow* item) {
  const int group = index / kItemsPerGroup;
  item->number.clear();
  SetDigits(group / 20 + 1, 2, &item->number);
  item->number.push_back('.');
  SetDigits(group % 20 + 1, 2, &item->number);
  item->number.push_back('.');
  SetDigits(index % kItemsPerGroup + 1, 4, &item->number);
  item->shortNumber->assign(family.mnemonic);
  SetDigits(index + 1, 7, &*item->shortNumber);
}

int PickCategory(Random& random) {
  if (random.Chance(1, 50)) return random.Chance(1, 2) ? 6 : 8;
  return kListedCategories[random.Below(kListedCategories.size())] - '0';
}

class LargeCompany {
 public:
  LargeCompany(const LargeCompanyPlan& plan, const std::vector<AccountRow>& accounts,
               CompanyWriter* writer)
      : plan_(plan), accounts_(accounts), writer_(writer), random_(plan.seed, kLargeStream) {}

  void Fill() {
    for (int index = 0; index < plan_.items; ++index) AddItem(index);
    for (int index = 0; index < plan_.items; ++index) AddMember(index);
  }

 private:
  void AddItem(int index) {
    const auto families = ItemFamilies();
    const auto group = static_cast<std::size_t>(index / kItemsPerGroup);
    const ItemFamily& family = families[group % families.size()];
    const auto kinds = KindsOf(family.code);
    item_.id = index + 1;
    item_.shortNumber.emplace();
    SetCodes(index, family, &item_);
    item_.category = PickCategory(random_);
    FillFromKind(kinds[random_.Below(static_cast<std::uint32_t>(kinds.size()))], random_, &item_);
    writer_->Add(item_);
  }

  // Classes contain runs of items, so that a class's members are adjacent, as in real companies.
  void AddMember(int index) {
    const auto of = static_cast<int>(std::int64_t{index} * plan_.classes / plan_.items);
    if (index == 0 || of != class_) StartClass(of);
    row_.itemId = index + 1;
    writer_->Add(row_);
    if (class_ % 10 == 0) {
      writer_->Add(ProvisionRow{row_.itemId, kCurrentYear, 1 + index % kCurrentPeriod,
                                FromHundredths(random_.Between(0, 100000)), 0.0});
    }
  }

  void StartClass(int index) {
    class_ = index;
    row_.number.clear();
    SetDigits(index + 1, 5, &row_.number);
    const auto families = ItemFamilies();
    row_.name = families[random_.Below(static_cast<std::uint32_t>(families.size()))].title;
    row_.name += "第";
    SetDigits(index + 1, 1, &row_.name);
    row_.name += "类";
    row_.lossAccount = kLossAccount;
    row_.lossAccountId = FindAccountId(accounts_, kLossAccount);
    row_.reserveAccount = kReserveAccounts[random_.Below(kReserveAccounts.size())];
    row_.reserveAccountId = FindAccountId(accounts_, row_.reserveAccount);
    row_.percentage = FromHundredths(random_.Between(0, 10000));
  }

  LargeCompanyPlan plan_;
  const std::vector<AccountRow>& accounts_;
  CompanyWriter* writer_;
  Random random_;
  ItemRow item_;
  ClassRow row_;
  int class_ = 0;
};

}  // namespace

void AddLargeCompany(Connection& company, const LargeCompanyPlan& plan,
                     CompanyWriter::Progress progress) {
  const auto accounts = MakeAccounts();
  company.CreateTables();
  {
    CompanyWriter writer(company, std::move(progress));
    writer.AddAll(accounts);
    LargeCompany(plan, accounts, &writer).Fill();
    writer.AddAll(MakeVouchers(plan.seed));
    writer.AddAll(MakeSystemProfile());
    writer.AddAll(MakeUsers());
    writer.AddAll(MakeRights());
    writer.AddAll(MakeUserSettings());
    writer.Finish();
  }
  company.CreateIndexes();
}

void FillLargeCompany(Connection& company, const LargeCompanyPlan& plan,
                      CompanyWriter::Progress progress) {
  Transaction transaction(company);
  AddLargeCompany(company, plan, std::move(progress));
  transaction.Commit();
}

}  // namespace workbench
