// Provision rows and vouchers, period by period.
#include "workbench/sample/sample_provisions.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <set>

#include "workbench/sample/decimal.h"
#include "workbench/sample/random.h"
#include "workbench/sample/sample_classes.h"

namespace workbench {
namespace {

constexpr std::uint64_t kProvisionStream = 3;
constexpr std::uint64_t kVoucherStream = 4;
constexpr int kProvisionVoucher = 820;
constexpr const char* kIndustry = "Industry";

struct SamplePeriod {
  int year;
  int period;
};

constexpr SamplePeriod kHistory[] = {{2007, 10}, {2007, 11}, {2007, 12}, {2008, 1}, {2008, 2}};
constexpr SamplePeriod kCurrent = {kCurrentYear, kCurrentPeriod};
constexpr SamplePeriod kLater[] = {{2008, 4}, {2009, 1}};

class ProvisionMaker {
 public:
  ProvisionMaker(std::uint64_t seed, std::vector<ProvisionRow>* rows)
      : random_(seed, kProvisionStream), rows_(rows) {}

  void AddByPattern(int itemId, ProvisionPattern pattern) {
    switch (pattern) {
      case ProvisionPattern::None:
        break;
      case ProvisionPattern::EarlierAndCurrent:
        for (const SamplePeriod& period : kHistory) AddAmounts(itemId, period);
        AddAmounts(itemId, kCurrent);
        break;
      case ProvisionPattern::EarlierYearOnly:
        AddAmounts(itemId, {2007, 12});
        break;
      case ProvisionPattern::SameYearOnly:
        // Accumulated, but nothing added: one non-zero amount is enough for history.
        Add(itemId, {2008, 1}, Amount(), 0.0);
        break;
      case ProvisionPattern::EarlierZero:
        for (const SamplePeriod& period : kHistory) Add(itemId, period, 0.0, 0.0);
        Add(itemId, {2007, 9}, std::nullopt, std::nullopt);
        break;
      case ProvisionPattern::CurrentOnly:
        Add(itemId, kCurrent, 0.0, Amount());
        break;
      case ProvisionPattern::CurrentZero:
        Add(itemId, kCurrent, 0.0, 0.0);
        break;
      case ProvisionPattern::LaterOnly:
        for (const SamplePeriod& period : kLater) AddAmounts(itemId, period);
        break;
    }
  }

  bool Most() { return random_.Chance(3, 4); }

 private:
  double Amount() { return FromHundredths(random_.Between(1, 5000000)); }

  void AddAmounts(int itemId, const SamplePeriod& period) {
    const double haveAdd = Amount();
    Add(itemId, period, haveAdd, Amount());
  }

  void Add(int itemId, const SamplePeriod& period, std::optional<double> haveAdd,
           std::optional<double> currentAdd) {
    rows_->push_back({itemId, period.year, period.period, haveAdd, currentAdd});
  }

  Random random_;
  std::vector<ProvisionRow>* rows_;
};

ProvisionPattern PatternOf(const std::string& classNumber) {
  const auto classes = SampleClasses();
  const auto found = std::find_if(classes.begin(), classes.end(), [&](const SampleClass& sample) {
    return sample.number == classNumber;
  });
  return found == classes.end() ? ProvisionPattern::None : found->provisions;
}

std::string DateText(int year, int period, int day) {
  const auto twoDigits = [](int number) {
    return (number < 10 ? "0" : "") + std::to_string(number);
  };
  return std::to_string(year) + "-" + twoDigits(period) + "-" + twoDigits(day);
}

constexpr std::array kExplanations = {"采购材料入库", "销售商品出库", "车间领用材料",
                                      "产成品入库",   "支付货款",     "计提固定资产折旧",
                                      "结转制造费用", "收回货款"};

class VoucherMaker {
 public:
  VoucherMaker(std::uint64_t seed, std::vector<VoucherRow>* rows)
      : random_(seed, kVoucherStream), rows_(rows) {}

  void AddOrdinary(int year, int period) {
    const int count = random_.Between(5, 9);
    for (int i = 0; i < count; ++i) {
      const auto& explanation = kExplanations[random_.Below(kExplanations.size())];
      Add(year, period, random_.Between(1, 28), std::nullopt, std::nullopt, explanation);
    }
  }

  void Add(int year, int period, int day, std::optional<int> tranType,
           std::optional<std::string> internalInd, const char* explanation) {
    if (rows_->empty() || rows_->back().period != period) number_ = 0;
    VoucherRow row;
    row.year = year;
    row.period = period;
    row.date = DateText(year, period, day);
    row.number = ++number_;
    row.tranType = tranType;
    row.internalInd = std::move(internalInd);
    row.explanation = explanation;
    rows_->push_back(std::move(row));
  }

 private:
  Random random_;
  std::vector<VoucherRow>* rows_;
  int number_ = 0;
};

bool HasProvisionVoucher(int year, int period) {
  return std::any_of(std::begin(kHistory), std::end(kHistory), [&](const SamplePeriod& each) {
    return each.year == year && each.period == period;
  });
}

}  // namespace

std::vector<ProvisionRow> MakeProvisionRows(const std::vector<ItemRow>& items,
                                            const std::vector<ClassRow>& classRows,
                                            std::uint64_t seed) {
  std::vector<ProvisionRow> rows;
  ProvisionMaker maker(seed, &rows);
  std::set<int> members;
  std::string number;
  for (const ClassRow& row : classRows) {
    const bool isFirst = row.number != number;
    number = row.number;
    members.insert(row.itemId);
    // Some members never had a provision; the first of a class always shows its pattern.
    if (maker.Most() || isFirst) maker.AddByPattern(row.itemId, PatternOf(number));
  }
  int classless = 0;
  for (const ItemRow& item : items) {
    if (classless == 2) break;
    if (members.count(item.id) != 0) continue;
    maker.AddByPattern(item.id, ProvisionPattern::EarlierAndCurrent);
    ++classless;
  }
  return rows;
}

std::vector<VoucherRow> MakeVouchers(std::uint64_t seed) {
  std::vector<VoucherRow> rows;
  VoucherMaker maker(seed, &rows);
  for (int year = kCurrentYear - 1; year <= kCurrentYear; ++year) {
    const int last = year == kCurrentYear ? kCurrentPeriod : kPeriodsPerYear;
    for (int period = 1; period <= last; ++period) {
      maker.AddOrdinary(year, period);
      if (HasProvisionVoucher(year, period)) {
        maker.Add(year, period, 28, kProvisionVoucher, kIndustry, "计提存货跌价准备");
      }
    }
  }
  maker.Add(kCurrentYear, kCurrentPeriod, 15, kProvisionVoucher, "GL", "手工调整存货跌价准备");
  maker.Add(kCurrentYear, kCurrentPeriod, 16, kProvisionVoucher, std::nullopt, "冲回存货跌价准备");
  maker.Add(kCurrentYear, kCurrentPeriod, 17, 810, kIndustry, "存货盘盈入账");
  return rows;
}

}  // namespace workbench
