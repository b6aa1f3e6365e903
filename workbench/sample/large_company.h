// Companies of a chosen size for measurements. For edge cases use the sample company.
#pragma once

#include <cstdint>

#include "workbench/sample/company_rows.h"

namespace workbench {

inline constexpr int kMaximumItems = 1000000;
inline constexpr int kMaximumClasses = 20000;

struct LargeCompanyPlan {
  std::uint64_t seed = 1;
  int items = kMaximumItems;      // 1 to kMaximumItems
  int classes = kMaximumClasses;  // 1 to kMaximumClasses, and not above items
};

// Makes the company's tables in a database without them and fills them. Every item is a member of
// exactly one class, every class has items/classes members, rounded either way; about one
// item in fifty has a category that is never listed; the members of every tenth class have
// provision history. Accounts, vouchers, users and profiles are those of the sample company.
// Same plan, same rows. One transaction: on an exception (SchemaError, DatabaseError) the
// database is empty again.
// Requires: the plan is within its limits.
void FillLargeCompany(Connection& company, const LargeCompanyPlan& plan,
                      CompanyWriter::Progress progress = {});

// The same inside a transaction of the caller's.
void AddLargeCompany(Connection& company, const LargeCompanyPlan& plan,
                     CompanyWriter::Progress progress = {});

}  // namespace workbench
