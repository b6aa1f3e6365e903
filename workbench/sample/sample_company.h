// The sample company as a whole.
#pragma once

#include <cstdint>

#include "workbench/sample/company_rows.h"

namespace workbench {

// Makes the company's tables in a database without them and fills them: the standard chart of
// accounts, 3,200 items, 25 classes, provision history, vouchers, users and profiles.
// The same seed gives the same rows in the same order on every platform. One transaction:
// on an exception (SchemaError, DatabaseError) the database is empty again.
void FillSampleCompany(Connection& company, std::uint64_t seed,
                       CompanyWriter::Progress progress = {});

// The same inside a transaction of the caller's.
void AddSampleCompany(Connection& company, std::uint64_t seed,
                      CompanyWriter::Progress progress = {});

}  // namespace workbench
