// Reads the class rows once, in class order; each rule is a function over one class.
#include "workbench/sample/company_check.h"

#include <algorithm>
#include <charconv>
#include <map>
#include <set>
#include <unordered_map>

#include "platform/convert.h"
#include "platform/error.h"
#include "workbench/company/collation.h"
#include "workbench/company/utf.h"
#include "workbench/sample/company_query.h"

namespace workbench {
namespace {

constexpr std::string_view kNodePrefix = "gi";

struct ByServerText {
  bool operator()(const std::string& left, const std::string& right) const {
    return CompareServerText(left, right) < 0;
  }
};

struct Item {
  std::string label;  // code and name
  bool isListed = false;
};

struct Member {
  std::int64_t itemId = 0;
  std::string header;  // name, accounts and percentage as one text
};

struct ItemClass {
  std::vector<Member> members;
  std::set<std::string> accounts;
};

std::string CellLabel(const Cell& cell) { return cell.IsNull() ? "(空)" : TextOf(cell); }

// What a save looks an account up by: the number at the start of the text, in its shortest form.
// Empty where it is too large, which ends the save.
std::string LeadingNumberText(std::string_view text) {
  try {
    return Utf8FromUtf16(pricedown::NumberText(pricedown::LeadingNumber(Utf16FromUtf8(text))));
  } catch (const pricedown::AutomationError&) {
    return {};
  }
}

class Checker {
 public:
  explicit Checker(Connection& company) : company_(company) {
    ReadItems();
    ReadClasses();
  }

  std::vector<std::string> Check() {
    FindSharedItems();
    FindMixedHeaders();
    FindMembersWithoutItem();
    FindUnknownAccounts();
    FindUnlistedClasses();
    FindStaleSettings();
    return std::move(findings_);
  }

 private:
  void ReadItems() {
    const ResultSet rows = Ask(company_, "SELECT FItemID,FNumber,FName,FErpClsID FROM t_ICItem");
    for (std::size_t row = 0; row < rows.RowCount(); ++row) {
      const std::int64_t kind = IntegerOf(rows.At(row, 3));
      items_[IntegerOf(rows.At(row, 0))] = {TextOf(rows.At(row, 1)) + " " + TextOf(rows.At(row, 2)),
                                            kind != 6 && kind != 8};
    }
  }

  void ReadClasses() {
    const ResultSet rows =
        Ask(company_,
            "SELECT FItemClassNumber,FItemID,FItemClassName,FAPAccID,FAPNumber,FARAccID,"
            "FARNumber,FPencentPrepare FROM icPriceDownClass ORDER BY FItemClassNumber");
    for (std::size_t row = 0; row < rows.RowCount(); ++row) {
      ItemClass& itemClass = classes_[TextOf(rows.At(row, 0))];
      Member& member = itemClass.members.emplace_back();
      member.itemId = IntegerOf(rows.At(row, 1));
      for (std::size_t column = 2; column < rows.ColumnCount(); ++column) {
        if (column > 2) member.header += ", ";
        member.header += CellLabel(rows.At(row, column));
      }
      for (const std::size_t account : {4U, 6U}) {
        itemClass.accounts.insert(TextOf(rows.At(row, account)));
      }
    }
  }

  std::string LabelOf(std::int64_t itemId) const {
    const auto found = items_.find(itemId);
    return found == items_.end() ? "编号 " + std::to_string(itemId) : found->second.label;
  }

  void Report(std::string finding) { findings_.push_back(std::move(finding)); }

  void FindSharedItems() {
    std::map<std::int64_t, std::vector<const std::string*>> classesOf;
    for (const auto& [number, itemClass] : classes_) {
      for (const Member& member : itemClass.members) {
        auto& of = classesOf[member.itemId];
        if (of.empty() || of.back() != &number) of.push_back(&number);
      }
    }
    for (const auto& [itemId, of] : classesOf) {
      if (of.size() < 2) continue;
      std::string numbers;
      for (const std::string* number : of) numbers += (numbers.empty() ? "" : ", ") + *number;
      Report("物料属于多个类别: " + LabelOf(itemId) + ": " + numbers);
    }
  }

  void FindMixedHeaders() {
    for (const auto& [number, itemClass] : classes_) {
      std::set<std::string> headers;
      for (const Member& member : itemClass.members) headers.insert(member.header);
      if (headers.size() < 2) continue;
      std::string all;
      for (const std::string& header : headers) all += " [" + header + "]";
      Report("类别各行的名称、科目或百分比不一致: " + number + ":" + all);
    }
  }

  void FindMembersWithoutItem() {
    for (const auto& [number, itemClass] : classes_) {
      for (const Member& member : itemClass.members) {
        if (items_.count(member.itemId) != 0) continue;
        Report("类别的明细没有物料: " + number + ": 编号 " + std::to_string(member.itemId));
      }
    }
  }

  bool HasAccount(const std::string& number) {
    const auto [known, isNew] = accounts_.try_emplace(number, false);
    if (isNew) {
      known->second =
          Ask(company_, "SELECT FAccountID FROM t_account WHERE FNumber=" + Literal(number))
              .RowCount() > 0;
    }
    return known->second;
  }

  bool CanLookUp(const std::string& account) {
    // A save does not escape apostrophes in the number.
    if (account.find('\'') != std::string::npos) return false;
    return HasAccount(account) && HasAccount(LeadingNumberText(account));
  }

  void FindUnknownAccounts() {
    for (const auto& [number, itemClass] : classes_) {
      for (const std::string& account : itemClass.accounts) {
        if (CanLookUp(account)) continue;
        Report("保存时查不到科目: " + number + ": " + (account.empty() ? "(空)" : account));
      }
    }
  }

  void FindUnlistedClasses() {
    for (const auto& [number, itemClass] : classes_) {
      const bool isListed = std::any_of(itemClass.members.begin(), itemClass.members.end(),
                                        [this](const Member& member) {
                                          const auto found = items_.find(member.itemId);
                                          return found != items_.end() && found->second.isListed;
                                        });
      if (number.find('\'') != std::string::npos) {
        Report("类别代码含单引号,不能列出: " + number);
      } else if (!isListed) {
        Report("类别没有可列出的物料: " + number);
      }
    }
  }

  void FindStaleSettings() {
    const ResultSet nodes = Ask(company_,
                                "SELECT FUserID,FKey,FValue FROM t_UserProfile WHERE "
                                "FSection='PriceDown' AND FKey IN('NodeSel1','NodeSel2')");
    for (std::size_t row = 0; row < nodes.RowCount(); ++row) {
      const std::string node = TextOf(nodes.At(row, 2));
      if (node.rfind(kNodePrefix, 0) != 0) continue;
      const std::string number = node.substr(kNodePrefix.size());
      if (classes_.count(number) != 0) continue;
      Report("设置中的类别已不存在: 用户 " + std::to_string(IntegerOf(nodes.At(row, 0))) + ", " +
             TextOf(nodes.At(row, 1)) + ": " + number);
    }
    std::set<std::int64_t> users;
    const ResultSet known = Ask(company_, "SELECT FUserID FROM t_user");
    for (std::size_t row = 0; row < known.RowCount(); ++row) {
      users.insert(IntegerOf(known.At(row, 0)));
    }
    for (const char* table : {"t_UserProfile", "t_UserSetting", "t_UserRight"}) {
      const ResultSet of = Ask(company_, std::string("SELECT DISTINCT FUserID FROM ") + table);
      std::set<std::int64_t> missing;
      for (std::size_t row = 0; row < of.RowCount(); ++row) {
        const std::int64_t user = IntegerOf(of.At(row, 0));
        if (users.count(user) == 0) missing.insert(user);
      }
      for (const std::int64_t user : missing) {
        Report("设置属于不存在的用户: " + std::string(table) + ": " + std::to_string(user));
      }
    }
    for (const char* key : {"CurrentYear", "CurrentPeriod"}) {
      const std::string value = ProfileOf(company_, "IC", key);
      int number = 0;
      const auto read = std::from_chars(value.data(), value.data() + value.size(), number);
      if (read.ec == std::errc() && read.ptr == value.data() + value.size()) continue;
      Report("当前期间不是数字: " + std::string(key) + ": " + value);
    }
  }

  Connection& company_;
  std::unordered_map<std::int64_t, Item> items_;
  std::map<std::string, ItemClass, ByServerText> classes_;
  std::map<std::string, bool> accounts_;
  std::vector<std::string> findings_;
};

}  // namespace

std::vector<std::string> CheckCompany(Connection& company) {
  company.RequireCompany();
  return Checker(company).Check();
}

}  // namespace workbench
