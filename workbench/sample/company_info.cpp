// The counting statements behind the figures of a company. It formats nothing for the user.
#include "workbench/sample/company_info.h"

#include "workbench/company/schema.h"
#include "workbench/sample/sqlite_handle.h"

namespace workbench {
namespace {

std::string ReadProfile(sqlite3* company, const char* category, const char* key) {
  Statement statement(company,
                      "SELECT FValue FROM t_systemprofile WHERE FCategory=? AND FKey=? LIMIT 1");
  statement.Start(category, key);
  return statement.Step() ? statement.Text(0) : std::string();
}

std::vector<CompanyUser> ReadUsers(sqlite3* company) {
  Statement statement(company, "SELECT FUserID,FName,FDescription FROM t_user ORDER BY FUserID");
  std::vector<CompanyUser> users;
  while (statement.Step()) {
    users.push_back({statement.Integer(0), statement.Text(1), statement.Text(2)});
  }
  return users;
}

}  // namespace

CompanyInfo ReadCompanyInfo(sqlite3* company) {
  RequireCompany(company);
  CompanyInfo info;
  info.schemaVersion = CompanySchemaVersion(company);
  info.companyName = ReadProfile(company, "General", "CompanyName");
  info.items = QueryInteger(company, "SELECT count(*) FROM t_ICItem");
  info.accounts = QueryInteger(company, "SELECT count(*) FROM t_account");
  info.classes = QueryInteger(
      company, "SELECT count(DISTINCT FItemClassNumber COLLATE BINARY) FROM icPriceDownClass");
  info.classRows = QueryInteger(company, "SELECT count(*) FROM icPriceDownClass");
  info.provisions = QueryInteger(company, "SELECT count(*) FROM ICPriceDownPrepare");
  info.vouchers = QueryInteger(company, "SELECT count(*) FROM t_voucher");
  info.currentYear = ReadProfile(company, "IC", "CurrentYear");
  info.currentPeriod = ReadProfile(company, "IC", "CurrentPeriod");
  info.itemClassType = ReadProfile(company, "IC", "PriceDownPrepare");
  info.users = ReadUsers(company);
  return info;
}

}  // namespace workbench
