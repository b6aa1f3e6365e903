// The rules for codes, texts, prices and whole numbers.
#include "workbench/sample/field_rules.h"

#include <algorithm>
#include <charconv>

#include "workbench/sample/decimal.h"
#include "workbench/sample/utf8_text.h"

namespace workbench {
namespace {

constexpr double kHighestPrice = 99999999999.99;
constexpr std::size_t kMaximumQuoted = 60;

// The value for a message: shortened, but never inside a character.
std::string Quoted(std::string_view value) {
  std::size_t end = std::min(value.size(), kMaximumQuoted);
  while (end < value.size() && (static_cast<unsigned char>(value[end]) & 0xC0) == 0x80) --end;
  return "\"" + std::string(value.substr(0, end)) + (end < value.size() ? "…" : "") + "\"";
}

bool IsShortEnough(CsvTable& table, const NamedField& field, std::string_view value) {
  const std::size_t length = LengthAsTheSuiteCounts(value);
  if (length <= field.mostLength) return true;
  table.Report(std::string(field.title) + "太长:" + std::to_string(length) + " 个字符,最多 " +
               std::to_string(field.mostLength) + " 个");
  return false;
}

bool IsGoodCode(CsvTable& table, const NamedField& field, std::string_view code) {
  if (HasControlCharacter(code, "")) {
    table.Report(std::string(field.title) + "含有换行或控制字符");
    return false;
  }
  if (code.find('\'') != std::string_view::npos) {
    table.Report(std::string(field.title) + "不能含有单引号:" + Quoted(code));
    return false;
  }
  return IsShortEnough(table, field, code);
}

}  // namespace

std::string ReadCode(CsvTable& table, const NamedField& field) {
  const std::string_view code = table.Field(field.column);
  if (code.empty()) {
    table.Report(std::string(field.title) + "不能为空");
    return {};
  }
  return IsGoodCode(table, field, code) ? std::string(code) : std::string();
}

std::optional<std::string> ReadOptionalCode(CsvTable& table, const NamedField& field) {
  const std::string_view code = table.Field(field.column);
  if (code.empty() || !IsGoodCode(table, field, code)) return std::nullopt;
  return std::string(code);
}

std::optional<std::string> ReadText(CsvTable& table, const NamedField& field, bool isRequired) {
  const std::string_view text = table.Raw(field.column);
  if (isRequired && TrimBlanks(text).empty()) {
    table.Report(std::string(field.title) + "不能为空");
    return std::nullopt;
  }
  if (text.empty()) return std::nullopt;
  if (HasControlCharacter(text, "\t\r\n")) {
    table.Report(std::string(field.title) + "含有控制字符");
    return std::nullopt;
  }
  if (!IsShortEnough(table, field, text)) return std::nullopt;
  return std::string(text);
}

std::optional<double> ReadPrice(CsvTable& table, const NamedField& field) {
  const std::string_view text = table.Field(field.column);
  if (text.empty()) return std::nullopt;
  const bool isNegative = text.front() == '-';
  const auto value = ParsePlainDecimal(isNegative ? text.substr(1) : text);
  if (!value) {
    table.Report(std::string(field.title) + "不是数字:" + Quoted(text));
  } else if (isNegative) {
    table.Report(std::string(field.title) + "不能为负数:" + Quoted(text));
  } else if (*value > kHighestPrice) {
    table.Report(std::string(field.title) + "超过 99999999999.99:" + Quoted(text));
  } else {
    return value;
  }
  return std::nullopt;
}

int ReadWholeNumber(CsvTable& table, const NamedField& field, int low, int high, int preset) {
  const std::string_view text = table.Field(field.column);
  if (text.empty()) return preset;
  int value = 0;
  const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
  const bool isNumber = result.ec == std::errc() && result.ptr == text.data() + text.size();
  if (isNumber && value >= low && value <= high) return value;
  table.Report(std::string(field.title) + "必须是 " + std::to_string(low) + " 到 " +
               std::to_string(high) + " 的整数:" + Quoted(text));
  return preset;
}

}  // namespace workbench
