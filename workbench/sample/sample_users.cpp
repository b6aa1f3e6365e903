// Users with different rights and the company's profile values, independent of the seed.
#include "workbench/sample/sample_users.h"

#include "workbench/sample/sample_provisions.h"

namespace workbench {
namespace {

// Rights on the item classes (object 1002, number 35).
constexpr int kPrint = 0x8000;
constexpr int kDelete = 0x10000;
constexpr int kAdd = 0x20000;
constexpr int kEdit = 0x400000;
constexpr int kAllCommands = kPrint | kDelete | kAdd | kEdit;

// Scopes of the item data (objects 10 and 11, number 151), highest first.
constexpr int kScopeTwo = 0x400000;
constexpr int kScopeOne = 0x200000;
constexpr int kScopeZero = 0x100000;

void AddRights(int userId, int commands, int scopes, std::vector<RightRow>* rights) {
  rights->push_back({userId, 1002, 35, commands});
  rights->push_back({userId, 10, 151, scopes});
  rights->push_back({userId, 11, 151, scopes});
}

}  // namespace

std::vector<UserRow> MakeUsers() {
  return {
      {kAdministrator, "系统管理员", "全部权限"},
      {kUserWithoutAdd, "王会计", "不能新增物料类别"},
      {kUserWithoutPrint, "李核算", "不能从工具条打印"},
      {kUserOfScopeOne, "张仓管", "数据范围为 1,只能打印"},
      {kUserOfScopeZero, "赵查询", "数据范围为 0,明细全部锁定"},
      {kUserWithoutRights, "陈访客", "没有任何权限"},
  };
}

std::vector<RightRow> MakeRights() {
  std::vector<RightRow> rights;
  AddRights(kAdministrator, kAllCommands, kScopeTwo | kScopeOne | kScopeZero, &rights);
  AddRights(kUserWithoutAdd, kAllCommands & ~kAdd, kScopeTwo | kScopeZero, &rights);
  AddRights(kUserWithoutPrint, kAllCommands & ~kPrint, kScopeTwo, &rights);
  AddRights(kUserOfScopeOne, kPrint, kScopeOne | kScopeZero, &rights);
  AddRights(kUserOfScopeZero, kPrint, kScopeZero, &rights);
  return rights;
}

std::vector<UserSettingRow> MakeUserSettings() {
  return {
      {kAdministrator, "ZEP_APFC", "RptFontSize", "12"},
      {kAdministrator, "ZEP_APFC", "Auditor's Font", "11"},
      {kAdministrator, "ZEP_APFC", "RptMargin", ""},
      {kAdministrator, "ZEP_OTHER", "RptFontSize", "16"},
      {kUserWithoutAdd, "ZEP_APFC", "RptFontSize", "8"},
      {kUserWithoutPrint, "ZEP_APFC", "RptFontSize", "20"},
      {kUserOfScopeOne, "ZEP_APFC", "RptFontSize", "九号"},
      {kUserOfScopeZero, "ZEP_APFC", "RptFontSize", std::nullopt},
  };
}

std::vector<ProfileRow> MakeSystemProfile() {
  return {
      {"General", "CompanyName", "岚禾机电制造有限公司"},
      {"General", "CurrencyName", "人民币"},
      {"General", "PeriodCount", std::to_string(kPeriodsPerYear)},
      {"GL", "CurrentYear", std::to_string(kCurrentYear)},
      {"GL", "CurrentPeriod", "2"},
      {"IC", "CurrentYear", std::to_string(kCurrentYear)},
      {"IC", "CurrentPeriod", std::to_string(kCurrentPeriod)},
      {"IC", "StartYear", "2007"},
      {"IC", "StartPeriod", "1"},
      {"IC", "UseShortNumber", "0"},
      {"IC", "PriceDownPrepare", "1"},
      {"IC", "PriceDownPrepareStart", "2007"},
  };
}

}  // namespace workbench
