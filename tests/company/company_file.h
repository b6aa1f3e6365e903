// A company for one test: a file with empty tables in a folder of its own.
#pragma once

#include <string>
#include <string_view>

#include "tests/company/empty_company.h"
#include "tests/sample/temporary_folder.h"
#include "workbench/company/sqlite_connection.h"

namespace workbench::testing {

class CompanyFile {
 public:
  CompanyFile() { CreateEmptyCompany(path_); }

  // UTF-8, as connections expect.
  const std::string& Path() const { return path_; }

 private:
  TemporaryFolder folder_;
  std::string path_ = folder_.PathOf("company.db");
};

// A company file and a connection to it; texts in UTF-8 so that tests can be read.
class OpenCompany {
 public:
  OpenCompany() : connection_(file_.Path()) {}

  const std::string& Path() const { return file_.Path(); }
  SqliteConnection& Connection() { return connection_; }

  ResultSet Execute(std::string_view text);

  // The rows of Execute as RowsOf writes them.
  std::string Rows(std::string_view text);

  // The whole error message; empty if the text is accepted.
  std::string Refusal(std::string_view text);

  // The native error number; 0 if the text is accepted.
  int RefusalNumber(std::string_view text);

 private:
  CompanyFile file_;
  SqliteConnection connection_;
};

// One line per row, cells separated by "|", texts between apostrophes: 1|'a'|NULL|12.5
std::string RowsOf(const ResultSet& result);

// The columns as name:type(size), separated by blanks, the type as ADO's number.
std::string ColumnsOf(const ResultSet& result);

}  // namespace workbench::testing
