// The sample company as a whole. It fills a database that is given; files are made elsewhere.
#pragma once

#include <sqlite3.h>

#include <cstdint>

namespace workbench {

/// Makes the company's tables in an empty database and fills them: the standard chart of
/// accounts, 3,200 items, 25 classes, provision history, vouchers, users and profiles.
/// The same seed gives the same rows in the same order on every platform. One transaction:
/// on an exception (SchemaError, SqliteError) the database is empty again.
/// Requires: RegisterServerText was called on `database`.
void FillSampleCompany(sqlite3* database, std::uint64_t seed);

}  // namespace workbench
