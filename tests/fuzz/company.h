// A small company in memory and the dialect on it, for the targets that send statements.
#pragma once

#include <sqlite3.h>

#include <string_view>

#include "tests/fuzz/fuzz_input.h"
#include "workbench/company/database_error.h"
#include "workbench/company/dialect.h"
#include "workbench/company/sqlite_connection.h"
#include "workbench/company/sqlite_schema.h"
#include "workbench/sample/large_company.h"
#include "workbench/sample/sqlite_handle.h"

namespace pricedown::fuzz {

// Five items in two classes; made once.
inline workbench::Database& Company() {
  static workbench::Database company = [] {
    workbench::Database made(":memory:", workbench::Database::Mode::Create);
    workbench::SqliteConnection connection(made.get());
    workbench::FillLargeCompany(connection, {1, 5, 2});
    return made;
  }();
  return company;
}

// Whether the dialect accepts the text; SQLite must accept what the dialect accepts.
inline bool IsAccepted(std::u16string_view text) {
  workbench::SqliteSchema schema(Company().get());
  workbench::TranslatedText translated;
  try {
    translated = workbench::TranslateText(text, schema);
  } catch (const workbench::DatabaseError&) {
    return false;
  }
  for (const auto& shape : translated.shapes) {
    sqlite3_stmt* statement = nullptr;
    const int code = sqlite3_prepare_v2(Company().get(), shape.sql.data(),
                                        static_cast<int>(shape.sql.size()), &statement, nullptr);
    sqlite3_finalize(statement);
    if (code != SQLITE_OK) {
      std::fprintf(stderr, "%s\n%s\n", shape.sql.c_str(), sqlite3_errmsg(Company().get()));
    }
    Require(code == SQLITE_OK, "SQLite takes what the dialect makes");
  }
  return true;
}

}  // namespace pricedown::fuzz
