// The tables of a company database and how a company file is recognised.
#pragma once

#include <sqlite3.h>

#include <stdexcept>
#include <string>
#include <string_view>

namespace workbench {

// Kept in PRAGMA user_version; raised whenever a table changes its meaning.
inline constexpr int kCompanySchemaVersion = 1;

// Kept in PRAGMA application_id, so that another program's database is not mistaken for one.
inline constexpr int kCompanyApplicationId = 0x5A504443;  // "ZPDC"

// Every table of a company.
inline constexpr std::string_view kCompanyTables[] = {
    "icPriceDownClass", "ICPriceDownPrepare", "t_voucher", "t_ICItem",    "t_account",
    "t_systemprofile",  "t_UserSetting",      "t_user",    "t_UserRight", "t_UserProfile"};

// A database that cannot be used as a company; the text is Chinese, for the user.
class SchemaError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// Creates every table, empty, and marks the database as a company of this version.
// Requires: RegisterServerText was called on `database`; none of the tables exists.
// Throws SchemaError and may leave some tables made: call it inside a transaction.
void CreateCompanyTables(sqlite3* database);

// Creates the indexes that the statements of the library rely on. Separate from the
// tables because filling a large company first and indexing it afterwards is far quicker.
// Throws SchemaError.
void CreateCompanyIndexes(sqlite3* database);

// The schema version of a company, or 0 when `database` is not a company at all.
// Throws SchemaError when the file cannot be read as a database.
int CompanySchemaVersion(sqlite3* database);

// Returns when `database` is a company of exactly kCompanySchemaVersion; else throws
// SchemaError that says whether it is foreign, older or newer.
void RequireCompany(sqlite3* database);

}  // namespace workbench
