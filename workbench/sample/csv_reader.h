// Reads comma-separated text record by record, with quotes as in RFC 4180.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace workbench {

struct CsvRecord {
  int line = 0;  // the line on which the record begins, counted from 1
  std::vector<std::string> fields;
  std::string problem;  // why the record cannot be read; empty when it can
};

// Lines end with CR LF, LF or CR; quoted fields may hold line breaks, commas and doubled quotes.
// Empty lines are skipped. A malformed record carries its problem, and reading continues at the
// next line.
class CsvReader {
 public:
  // `text` must outlive the reader; a byte order mark at its start is skipped.
  explicit CsvReader(std::string_view text);

  // False at the end of the text.
  bool Next(CsvRecord* record);

 private:
  bool AtEnd() const { return at_ == text_.size(); }
  bool AtLineBreak() const { return text_[at_] == '\n' || text_[at_] == '\r'; }
  void PassLineBreak();
  void PassLine();
  void ReadPlainField(CsvRecord* record);
  void ReadQuotedField(CsvRecord* record);
  void ReadRecord(CsvRecord* record);

  std::string_view text_;
  std::size_t at_ = 0;
  int line_ = 1;
};

}  // namespace workbench
