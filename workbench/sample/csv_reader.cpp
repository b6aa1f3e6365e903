// Reads plain and quoted fields and line breaks.
#include "workbench/sample/csv_reader.h"

#include <algorithm>

namespace workbench {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

}  // namespace

CsvReader::CsvReader(std::string_view text) : text_(text) {
  if (text_.substr(0, kByteOrderMark.size()) == kByteOrderMark) at_ = kByteOrderMark.size();
}

bool CsvReader::Next(CsvRecord* record) {
  while (!AtEnd() && AtLineBreak()) PassLineBreak();
  if (AtEnd()) return false;
  record->line = line_;
  record->fields.clear();
  record->problem.clear();
  ReadRecord(record);
  return true;
}

void CsvReader::ReadRecord(CsvRecord* record) {
  while (true) {
    if (!AtEnd() && text_[at_] == '"') {
      ReadQuotedField(record);
    } else {
      ReadPlainField(record);
    }
    if (!record->problem.empty()) {
      PassLine();
      return;
    }
    if (AtEnd()) return;
    if (AtLineBreak()) {
      PassLineBreak();
      return;
    }
    ++at_;  // the comma; a field follows it even at the end of the text
  }
}

void CsvReader::ReadPlainField(CsvRecord* record) {
  const std::size_t end = std::min(text_.find_first_of(",\r\n", at_), text_.size());
  const std::string_view field = text_.substr(at_, end - at_);
  at_ = end;
  if (field.find('"') != std::string_view::npos) {
    record->problem = "引号只能出现在用引号括起的字段中";
  }
  record->fields.emplace_back(field);
}

void CsvReader::ReadQuotedField(CsvRecord* record) {
  std::string field;
  ++at_;
  while (true) {
    if (AtEnd()) {
      record->problem = "引号没有结束";
      return;
    }
    if (text_[at_] == '"') {
      ++at_;
      if (AtEnd() || text_[at_] != '"') break;
      field.push_back('"');
      ++at_;
    } else if (AtLineBreak()) {
      const std::size_t start = at_;
      PassLineBreak();
      field.append(text_.substr(start, at_ - start));
    } else {
      field.push_back(text_[at_++]);
    }
  }
  if (!AtEnd() && !AtLineBreak() && text_[at_] != ',') {
    record->problem = "引号结束后还有多余的字符";
  }
  record->fields.push_back(std::move(field));
}

void CsvReader::PassLineBreak() {
  const bool isPair = text_.substr(at_, 2) == "\r\n";
  at_ += isPair ? 2 : 1;
  ++line_;
}

void CsvReader::PassLine() {
  at_ = std::min(text_.find_first_of("\r\n", at_), text_.size());
  if (!AtEnd()) PassLineBreak();
}

}  // namespace workbench
