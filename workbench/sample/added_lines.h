// The lines of an import file that were added, by their new ids, and the search for codes that
// stood in the company or in the file before.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "workbench/sample/company_query.h"
#include "workbench/sample/csv_table.h"

namespace workbench {

// A table whose rows have an id and a code FNumber.
struct CodedTable {
  std::string_view table;
  std::string_view id;
  std::string_view title;  // what messages call the code
};

class AddedLines {
 public:
  // Throws DatabaseError.
  AddedLines(Connection& company, const CodedTable& coded)
      : company_(company),
        coded_(coded),
        firstNewId_(
            static_cast<int>(QueryInteger(company, "SELECT max(" + std::string(coded.id) +
                                                       ") FROM " + std::string(coded.table))) +
            1) {}

  int NextId() const { return firstNewId_ + Count(); }
  int Count() const { return static_cast<int>(lines_.size()); }
  // The line got NextId().
  void Remember(int line) { lines_.push_back(line); }

  // Reports every added line whose code was there before. The database is asked, because only
  // it compares codes as the company does. Throws DatabaseError.
  void ReportKnown(CsvTable& table) const {
    const std::string id(coded_.id);
    const std::string name(coded_.table);
    const std::string first = std::to_string(firstNewId_);
    const ResultSet pairs =
        Ask(company_, "SELECT b." + id + ",a." + id + ",b.FNumber FROM " + name + " b INNER JOIN " +
                          name + " a ON a.FNumber=b.FNumber WHERE b." + id + ">=" + first +
                          " AND a." + id + "<b." + id + " ORDER BY b." + id + ",a." + id);
    int reported = 0;
    for (std::size_t row = 0; row < pairs.RowCount(); ++row) {
      const auto added = static_cast<int>(IntegerOf(pairs.At(row, 0)));
      const auto before = static_cast<int>(IntegerOf(pairs.At(row, 1)));
      if (added == reported) continue;
      reported = added;
      const std::string number = TextOf(pairs.At(row, 2));
      const std::string title(coded_.title);
      if (before < firstNewId_) {
        table.ReportAt(LineOf(added), title + "已在公司中存在:" + number);
      } else {
        table.ReportAt(LineOf(added),
                       title + "与第 " + std::to_string(LineOf(before)) + " 行重复:" + number);
      }
    }
  }

 private:
  int LineOf(int id) const { return lines_[static_cast<std::size_t>(id - firstNewId_)]; }

  Connection& company_;
  CodedTable coded_;
  int firstNewId_;
  std::vector<int> lines_;
};

}  // namespace workbench
