// Combines the generated rows into the sample company.
#include "workbench/sample/sample_company.h"

#include "workbench/sample/company_rows.h"
#include "workbench/sample/sample_classes.h"
#include "workbench/sample/sample_items.h"
#include "workbench/sample/sample_provisions.h"
#include "workbench/sample/sample_users.h"
#include "workbench/sample/standard_accounts.h"

namespace workbench {

void AddSampleCompany(Connection& company, std::uint64_t seed, CompanyWriter::Progress progress) {
  const auto accounts = MakeAccounts();
  const auto items = MakeSampleItems(seed);
  const auto classRows = MakeClassRows(items, accounts, seed);

  company.CreateTables();
  {
    CompanyWriter writer(company, std::move(progress));
    writer.AddAll(accounts);
    writer.AddAll(items);
    writer.AddAll(classRows);
    writer.AddAll(MakeProvisionRows(items, classRows, seed));
    writer.AddAll(MakeVouchers(seed));
    writer.AddAll(MakeSystemProfile());
    writer.AddAll(MakeUsers());
    writer.AddAll(MakeRights());
    writer.AddAll(MakeUserSettings());
    writer.Finish();
  }
  company.CreateIndexes();
}

void FillSampleCompany(Connection& company, std::uint64_t seed, CompanyWriter::Progress progress) {
  Transaction transaction(company);
  AddSampleCompany(company, seed, std::move(progress));
  transaction.Commit();
}

}  // namespace workbench
