// A company for one test: a file in the temporary folder with empty tables.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "workbench/company/sqlite_connection.h"

namespace workbench::testing {

class CompanyFile {
 public:
  CompanyFile();
  ~CompanyFile();
  CompanyFile(const CompanyFile&) = delete;
  CompanyFile& operator=(const CompanyFile&) = delete;

  // UTF-8, as connections expect.
  std::string Path() const;

 private:
  std::filesystem::path path_;
};

// A company file and a connection to it; texts in UTF-8 so that tests can be read.
class OpenCompany {
 public:
  OpenCompany() : connection_(file_.Path()) {}

  std::string Path() const { return file_.Path(); }
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
