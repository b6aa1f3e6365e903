// Companies in memory for tests, and short ways to query them.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "workbench/company/sqlite_connection.h"
#include "workbench/sample/csv_import.h"
#include "workbench/sample/large_company.h"
#include "workbench/sample/sample_company.h"
#include "workbench/sample/sqlite_handle.h"

namespace workbench::testing {

inline Database SampleCompany(std::uint64_t seed) {
  Database company(":memory:", Database::Mode::Create);
  SqliteConnection connection(company.get());
  FillSampleCompany(connection, seed);
  return company;
}

inline Database LargeCompany(const LargeCompanyPlan& plan) {
  Database company(":memory:", Database::Mode::Create);
  SqliteConnection connection(company.get());
  FillLargeCompany(connection, plan);
  return company;
}

// Five items 01.01.0001 to 01.01.0005 in two classes, the whole chart of accounts.
inline Database TinyCompany() { return LargeCompany({1, 5, 2}); }

inline ImportResult Import(const Database& company, const std::optional<CsvFile>& items,
                           const std::optional<CsvFile>& accounts) {
  SqliteConnection connection(company.get());
  return ImportCsv(connection, items, accounts);
}

inline std::int64_t Count(const Database& company, std::string_view sql) {
  return QueryInteger(company.get(), sql);
}

// One text per row, columns joined by "|", NULL as "NULL".
inline std::vector<std::string> Rows(const Database& company, std::string_view sql) {
  Statement statement(company.get(), sql);
  std::vector<std::string> rows;
  while (statement.Step()) {
    std::string row;
    for (int column = 0; column < statement.ColumnCount(); ++column) {
      if (column > 0) row += '|';
      row += statement.Type(column) == SQLITE_NULL ? "NULL" : statement.Text(column);
    }
    rows.push_back(row);
  }
  return rows;
}

}  // namespace workbench::testing
