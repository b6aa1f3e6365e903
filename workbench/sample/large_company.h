// Companies of a chosen size for measuring. They are believable in shape only; the sample
// company is the one with the awkward rows.
#pragma once

#include <sqlite3.h>

#include <cstdint>

namespace workbench {

inline constexpr int kMostItems = 1000000;
inline constexpr int kMostClasses = 20000;

struct LargeCompanyPlan {
  std::uint64_t seed = 1;
  int items = kMostItems;      ///< 1 to kMostItems
  int classes = kMostClasses;  ///< 1 to kMostClasses, and not above items
};

/// Makes the company's tables in an empty database and fills them. Every item is a member of
/// exactly one class, every class has items/classes members, rounded either way; about one
/// item in fifty has a category that is never listed; the members of every tenth class have
/// provision history. Accounts, vouchers, users and profiles are those of the sample company.
/// Same plan, same rows. One transaction: on an exception (SchemaError, SqliteError) the
/// database is empty again.
/// Requires: the plan is within its limits; RegisterServerText was called on `database`.
void FillLargeCompany(sqlite3* database, const LargeCompanyPlan& plan);

}  // namespace workbench
