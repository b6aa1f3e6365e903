// Header and encoding checks of an import file.
#include "workbench/sample/csv_table.h"

#include <algorithm>

#include "workbench/sample/utf8_text.h"

namespace workbench {
namespace {

// "Short_Number", "short number" and "shortnumber" are one name.
std::string Simplified(std::string_view title) {
  std::string simple;
  for (const char c : title) {
    if (c == ' ' || c == '\t' || c == '_') continue;
    simple.push_back(c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c);
  }
  return simple;
}

bool IsOneOf(std::string_view names, std::string_view name) {
  while (!names.empty()) {
    const std::size_t bar = std::min(names.find('|'), names.size());
    if (names.substr(0, bar) == name) return true;
    names.remove_prefix(std::min(bar + 1, names.size()));
  }
  return false;
}

std::string Title(const CsvColumn& column) {
  return std::string(column.names.substr(0, column.names.find('|')));
}

// Spreadsheets save emptied rows as lines of commas.
bool IsBlankLine(const CsvRecord& record) {
  return std::all_of(record.fields.begin(), record.fields.end(),
                     [](const std::string& field) { return TrimBlanks(field).empty(); });
}

int LineOf(std::string_view text, std::size_t position) {
  int line = 1;
  for (std::size_t i = 0; i < position; ++i) {
    const bool isPair = text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n';
    if ((text[i] == '\r' && !isPair) || text[i] == '\n') ++line;
  }
  return line;
}

}  // namespace

std::string ToText(const ImportProblem& problem) {
  return problem.file + ":" + std::to_string(problem.line) + ": " + problem.reason;
}

CsvTable::CsvTable(const CsvFile& file, std::span<const CsvColumn> columns,
                   std::vector<ImportProblem>* problems)
    : file_(file),
      columns_(columns),
      problems_(problems),
      reader_(file.bytes),
      places_(columns.size()) {
  const std::string_view bytes = file.bytes;
  const std::string_view mark = bytes.substr(0, 2);
  const std::size_t bad = FindInvalidUtf8(bytes);
  if (mark == "\xFF\xFE" || mark == "\xFE\xFF") {
    ReportAt(1, "文件编码是 UTF-16,请另存为 UTF-8 后再导入");
  } else if (bad != std::string_view::npos) {
    ReportAt(LineOf(bytes, bad), "文件编码不是 UTF-8(可能是 GB18030/GBK),请另存为 UTF-8 后再导入");
  } else if (const auto zero = bytes.find('\0'); zero != std::string_view::npos) {
    ReportAt(LineOf(bytes, zero), "文件含有空字符,不是文本文件");
  } else {
    ReadHeader();
  }
}

void CsvTable::ReadHeader() {
  if (!reader_.Next(&record_)) {
    ReportAt(1, "文件为空,缺少标题行");
    return;
  }
  const std::size_t before = problems_->size();
  if (!record_.problem.empty()) {
    Report(record_.problem);
    return;
  }
  width_ = record_.fields.size();
  for (std::size_t place = 0; place < width_; ++place) PlaceColumn(record_.fields[place], place);
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    if (columns_[i].isRequired && !places_[i]) Report("缺少列:" + Title(columns_[i]));
  }
  isUsable_ = problems_->size() == before;
}

void CsvTable::PlaceColumn(const std::string& title, std::size_t place) {
  const std::string name = Simplified(title);
  const auto found = std::find_if(columns_.begin(), columns_.end(), [&](const CsvColumn& column) {
    return IsOneOf(column.names, name);
  });
  if (found == columns_.end()) {
    Report("无法识别的列名:" + (title.empty() ? "(空)" : title));
    return;
  }
  auto& known = places_[static_cast<std::size_t>(found - columns_.begin())];
  if (known) {
    Report("列重复:" + Title(*found));
  } else {
    known = place;
  }
}

bool CsvTable::Next() {
  while (isUsable_ && reader_.Next(&record_)) {
    if (!record_.problem.empty()) {
      Report(record_.problem);
    } else if (IsBlankLine(record_)) {
      continue;
    } else if (record_.fields.size() != width_) {
      Report("应有 " + std::to_string(width_) + " 个字段,实有 " +
             std::to_string(record_.fields.size()) + " 个");
    } else {
      return true;
    }
  }
  return false;
}

std::string_view CsvTable::Raw(std::size_t column) const {
  return places_[column] ? std::string_view(record_.fields[*places_[column]]) : std::string_view();
}

std::string_view CsvTable::Field(std::size_t column) const { return TrimBlanks(Raw(column)); }

void CsvTable::Report(const std::string& reason) { ReportAt(record_.line, reason); }

void CsvTable::ReportAt(int line, const std::string& reason) {
  problems_->push_back({file_.name, line, reason});
}

}  // namespace workbench
