// Tables, rows and the mark that lets a company be replaced.
#include "workbench/sample/server_company.h"

#include <algorithm>
#include <iterator>

#include "workbench/company/schema.h"
#include "workbench/sample/company_query.h"
#include "workbench/sample/sample_company.h"

namespace workbench {
namespace {

// The row of t_systemprofile that marks a replaceable company.
constexpr const char* kMarkCategory = "Workbench";
constexpr const char* kMarkKey = "SchemaVersion";

// By the states of ODBC and of PostgreSQL.
bool IsMissingTableOrColumn(const DatabaseError& error) {
  constexpr std::u16string_view kStates[] = {u"[42S02]", u"[42P01]", u"[S0002]",
                                             u"[42S22]", u"[42703]", u"[S0022]"};
  return std::any_of(std::begin(kStates), std::end(kStates), [&error](std::u16string_view state) {
    return error.Message().starts_with(state);
  });
}

bool IsOurs(OdbcConnection& server) {
  try {
    return !ProfileOf(server, kMarkCategory, kMarkKey).empty();
  } catch (const DatabaseError& error) {
    if (!IsMissingTableOrColumn(error)) throw;
    return false;
  }
}

void DropTables(OdbcConnection& server, const std::vector<std::string_view>& missing) {
  for (const std::string_view table : kCompanyTables) {
    if (std::find(missing.begin(), missing.end(), table) != missing.end()) continue;
    Ask(server, "DROP TABLE " + std::string(table));
  }
}

}  // namespace

void CreateServerCompany(OdbcConnection& server, const CompanyFilePlan& plan,
                         CompanyWriter::Progress progress) {
  const std::vector<std::string_view> missing = server.MissingTables();
  const bool isThere = missing.size() < std::size(kCompanyTables);
  if (isThere && !plan.replaces) throw CompanyFileError("数据库中已有公司的表(使用 --force 覆盖)");
  if (isThere && !IsOurs(server)) {
    throw CompanyFileError("数据库中的公司不是工作台建立的,不能覆盖");
  }
  Transaction transaction(server);
  if (isThere) DropTables(server, missing);
  if (plan.large) {
    LargeCompanyPlan large = *plan.large;
    large.seed = plan.seed;
    AddLargeCompany(server, large, std::move(progress));
  } else {
    AddSampleCompany(server, plan.seed, std::move(progress));
  }
  Ask(server, "INSERT INTO t_systemprofile(FCategory,FKey,FValue)VALUES(" + Literal(kMarkCategory) +
                  "," + Literal(kMarkKey) + "," + Literal(std::to_string(kCompanySchemaVersion)) +
                  ")");
  transaction.Commit();
}

}  // namespace workbench
