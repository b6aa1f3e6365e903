// A CSV file as a table with known columns: finds them by the header line and reports problems by
// line.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "workbench/sample/csv_reader.h"

namespace workbench {

// The content of a file; the name is for messages.
struct CsvFile {
  std::string name;
  std::string bytes;
};

struct ImportProblem {
  std::string file;
  int line = 0;
  std::string reason;  // Chinese
};

// "文件:行号: 原因"
std::string ToText(const ImportProblem& problem);

// A column and the header names it is known by, in lower case without blanks or
// underscores, separated by "|"; the first is the one used in messages.
struct CsvColumn {
  std::string_view names;
  bool isRequired;
};

class CsvTable {
 public:
  // Reads the header line. Problems of encoding or header are added to `problems`, and the table
  // is then empty. The arguments must outlive the table.
  CsvTable(const CsvFile& file, std::span<const CsvColumn> columns,
           std::vector<ImportProblem>* problems);

  // Moves to the next readable line; unreadable ones are added to the problems.
  bool Next();

  int line() const { return record_.line; }
  bool Has(std::size_t column) const { return places_[column].has_value(); }
  // The field of the current line, unchanged; empty when the file has no such column.
  std::string_view Raw(std::size_t column) const;
  // The same without blanks and tabs around it.
  std::string_view Field(std::size_t column) const;
  // Adds a problem of the current line.
  void Report(const std::string& reason);
  // Adds a problem of any line.
  void ReportAt(int line, const std::string& reason);

 private:
  void ReadHeader();
  void PlaceColumn(const std::string& title, std::size_t place);

  const CsvFile& file_;
  std::span<const CsvColumn> columns_;
  std::vector<ImportProblem>* problems_;
  CsvReader reader_;
  CsvRecord record_;
  std::vector<std::optional<std::size_t>> places_;
  std::size_t width_ = 0;
  bool isUsable_ = false;
};

}  // namespace workbench
