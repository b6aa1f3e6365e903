// How texts and values are shown.
#include "tests/support/utf8.h"

#include <array>
#include <charconv>
#include <cstddef>
#include <ostream>

#include "platform/automation.h"
#include "platform/cell_block.h"
#include "platform/text.h"

namespace pricedown::testing {
namespace {

std::string HexDigits(unsigned number) {
  std::array<char, 8> digits{};
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number, 16).ptr;
  return {digits.data(), end};
}

std::string DoubleText(double number) {
  std::array<char, 40> digits{};
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
  return {digits.data(), end};
}

std::string ObjectText(const ObjectPtr& object) {
  if (object == nullptr) return "Nothing";
  const auto* named = dynamic_cast<const NamedObject*>(object.get());
  return named == nullptr ? "[object]" : "[" + named->ObjectName() + "]";
}

std::string BlockText(const CellBlock* block) {
  if (block == nullptr) return "block";
  return "block " + std::to_string(block->ColumnCount()) + "x" + std::to_string(block->RowCount());
}

std::string RowText(const BlockRow& row) {
  std::string text = "[";
  for (std::size_t column = 0; column < row.block->ColumnCount(); ++column) {
    if (column > 0) text += ", ";
    text += Readable(row.block->CellValue(column, row.row));
  }
  return text + "]";
}

}  // namespace

std::string Utf8(std::u16string_view text) { return ToUtf8(text); }

std::string Quoted(std::u16string_view text) {
  std::string quoted = "\"";
  for (char c : ToUtf8(text)) {
    const auto code = static_cast<unsigned char>(c);
    if (c == '\r') {
      quoted += "\\r";
    } else if (c == '\n') {
      quoted += "\\n";
    } else if (c == '\t') {
      quoted += "\\t";
    } else if (code < 0x20 || code == 0x7F) {
      quoted += "\\u{" + HexDigits(code) + "}";
    } else {
      if (c == '"' || c == '\\') quoted += '\\';
      quoted += c;
    }
  }
  return quoted + "\"";
}

std::string Readable(const Value& value) {
  switch (value.GetKind()) {
    case Value::Kind::Empty:
      return "Empty";
    case Value::Kind::Null:
      return "Null";
    case Value::Kind::Missing:
      return "Missing";
    case Value::Kind::Boolean:
      return value.Boolean() ? "True" : "False";
    case Value::Kind::Int16:
      return "int16 " + std::to_string(value.Int16());
    case Value::Kind::Int32:
      return std::to_string(value.Int32());
    case Value::Kind::Double: {
      std::string text = DoubleText(value.Double());
      if (text.find_first_not_of("-0123456789") == std::string::npos) text += ".0";
      return text;
    }
    case Value::Kind::Date:
      return "date " + DoubleText(value.DateValue().days);
    case Value::Kind::Text:
      return Quoted(value.Text());
    case Value::Kind::Object:
      return ObjectText(value.Object());
    case Value::Kind::Block:
      return BlockText(value.Block().get());
    case Value::Kind::List:
      return "[" + Arguments(std::span<const Value>(value.List())) + "]";
    case Value::Kind::Row:
      return RowText(value.Row());
    case Value::Kind::Reference:
      return "ref " + Readable(value.Target());
  }
  return "value of unknown kind";
}

std::string Arguments(std::span<const Value> values) {
  std::string text;
  for (const Value& value : values) {
    if (&value != values.data()) text += ", ";
    text += Readable(value);
  }
  return text;
}

std::string Arguments(std::initializer_list<Value> values) {
  return Arguments(std::span(values.begin(), values.size()));
}

}  // namespace pricedown::testing

namespace pricedown {

void PrintTo(const Value& value, std::ostream* stream) { *stream << testing::Readable(value); }

}  // namespace pricedown
