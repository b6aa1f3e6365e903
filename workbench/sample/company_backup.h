// A safe copy of a company file that others may be using.
#pragma once

#include <string>

namespace workbench {

// Copies the company file at `from` to `to` (UTF-8), with all that is committed, then opens the
// copy and checks every page of it. A file at `to`, or a log of SQLite beside it, is refused.
// Throws CompanyFileError, SchemaError, SqliteError; `to` then does not exist.
void BackUpCompanyFile(const std::string& from, const std::string& to);

}  // namespace workbench
