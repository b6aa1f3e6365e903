// The lines of both import files as rows, by the rules of their fields.
#pragma once

#include <string>
#include <vector>

#include "workbench/sample/company_rows.h"
#include "workbench/sample/csv_table.h"

namespace workbench {

CsvTable OpenItemLines(const CsvFile& file, std::vector<ImportProblem>* problems);
// The current line. Reports what is wrong with it; a bad code is empty.
ItemRow ReadItem(CsvTable& table);

struct AccountLine {
  AccountRow row;
  int line = 0;
  bool hasDirection = false;
};

CsvTable OpenAccountLines(const CsvFile& file, std::vector<ImportProblem>* problems);
AccountLine ReadAccount(CsvTable& table);
// Empty for an account of the first level, and where the number has an empty part.
std::string ParentNumber(const std::string& number);

}  // namespace workbench
