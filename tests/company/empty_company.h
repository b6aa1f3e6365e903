// The tables of a company in a new file.
#pragma once

#include <sqlite3.h>

#include <memory>
#include <stdexcept>
#include <string>

#include "workbench/company/collation.h"
#include "workbench/company/schema.h"

namespace workbench::testing {

// Throws std::runtime_error if no file can be made at `path` (UTF-8).
inline void CreateEmptyCompany(const std::string& path) {
  sqlite3* opened = nullptr;
  const int result = sqlite3_open(path.c_str(), &opened);
  const std::unique_ptr<sqlite3, int (*)(sqlite3*)> database(opened, sqlite3_close);
  if (result != SQLITE_OK) throw std::runtime_error("no test company at " + path);
  RegisterServerText(opened);
  // A test's company need not survive a power failure.
  sqlite3_exec(opened, "PRAGMA synchronous=OFF; BEGIN", nullptr, nullptr, nullptr);
  CreateCompanyTables(opened);
  CreateCompanyIndexes(opened);
  sqlite3_exec(opened, "COMMIT", nullptr, nullptr, nullptr);
}

}  // namespace workbench::testing
