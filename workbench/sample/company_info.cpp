// The counting statements behind the figures of a company.
#include "workbench/sample/company_info.h"

#include <set>

#include "workbench/sample/company_query.h"

namespace workbench {
namespace {

std::vector<CompanyUser> ReadUsers(Connection& company) {
  const ResultSet rows =
      Ask(company, "SELECT FUserID,FName,FDescription FROM t_user ORDER BY FUserID");
  std::vector<CompanyUser> users;
  for (std::size_t row = 0; row < rows.RowCount(); ++row) {
    users.push_back({IntegerOf(rows.At(row, 0)), TextOf(rows.At(row, 1)), TextOf(rows.At(row, 2))});
  }
  return users;
}

}  // namespace

CompanyInfo ReadCompanyInfo(Connection& company) {
  company.RequireCompany();
  CompanyInfo info;
  info.companyName = ProfileOf(company, "General", "CompanyName");
  info.items = QueryInteger(company, "SELECT count(*) FROM t_ICItem");
  info.accounts = QueryInteger(company, "SELECT count(*) FROM t_account");
  const ResultSet classes = Ask(company, "SELECT FItemClassNumber FROM icPriceDownClass");
  std::set<std::u16string_view> numbers;
  for (std::size_t row = 0; row < classes.RowCount(); ++row) {
    const Cell& number = classes.At(row, 0);
    if (number.Kind() == CellKind::Text) numbers.insert(number.Text());
  }
  info.classes = static_cast<std::int64_t>(numbers.size());
  info.classRows = static_cast<std::int64_t>(classes.RowCount());
  info.provisions = QueryInteger(company, "SELECT count(*) FROM ICPriceDownPrepare");
  info.vouchers = QueryInteger(company, "SELECT count(*) FROM t_voucher");
  info.currentYear = ProfileOf(company, "IC", "CurrentYear");
  info.currentPeriod = ProfileOf(company, "IC", "CurrentPeriod");
  info.itemClassType = ProfileOf(company, "IC", "PriceDownPrepare");
  info.users = ReadUsers(company);
  return info;
}

}  // namespace workbench
