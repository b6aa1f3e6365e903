// Puts the generated rows of the sample company together. The rows themselves come from the
// files beside it.
#include "workbench/sample/sample_company.h"

#include "workbench/company/schema.h"
#include "workbench/sample/company_rows.h"
#include "workbench/sample/sample_classes.h"
#include "workbench/sample/sample_items.h"
#include "workbench/sample/sample_provisions.h"
#include "workbench/sample/sample_users.h"
#include "workbench/sample/standard_accounts.h"

namespace workbench {

void FillSampleCompany(sqlite3* database, std::uint64_t seed) {
  const auto accounts = MakeAccounts();
  const auto items = MakeSampleItems(seed);
  const auto classRows = MakeClassRows(items, accounts, seed);

  Transaction transaction(database);
  CreateCompanyTables(database);
  {
    CompanyWriter writer(database);
    writer.AddAll(accounts);
    writer.AddAll(items);
    writer.AddAll(classRows);
    writer.AddAll(MakeProvisionRows(items, classRows, seed));
    writer.AddAll(MakeVouchers(seed));
    writer.AddAll(MakeSystemProfile());
    writer.AddAll(MakeUsers());
    writer.AddAll(MakeRights());
    writer.AddAll(MakeUserSettings());
  }
  CreateCompanyIndexes(database);
  transaction.Commit();
}

}  // namespace workbench
