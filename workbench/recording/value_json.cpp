// The conversions between values and JSON.
#include "workbench/recording/value_json.h"

#include <cmath>
#include <limits>
#include <nlohmann/json.hpp>
#include <utility>
#include <vector>

#include "platform/cell_block.h"
#include "platform/error.h"
#include "platform/text.h"
#include "workbench/recording/passwords.h"

namespace workbench {
namespace {

using pricedown::CellBlock;
using pricedown::CellBlockPtr;
using pricedown::CellView;
using pricedown::ObjectPtr;
using pricedown::Value;
using NumberOf = std::function<ObjectNumber(const ObjectPtr&)>;
using ObjectOf = std::function<ObjectPtr(ObjectNumber)>;

Json Tagged(const char* kind, Json content) {
  Json tagged = Json::object();
  tagged[kind] = std::move(content);
  return tagged;
}

Json TextToJson(const std::u16string& text) {
  std::string bytes = pricedown::ToUtf8(text);
  if (pricedown::FromUtf8(bytes) == text) return WithoutPasswords(bytes);
  // Lone surrogates have no UTF-8.
  return Tagged("units", Json(std::vector<std::uint16_t>(text.begin(), text.end())));
}

Json DoubleToJson(double number) {
  if (std::isfinite(number)) return number;
  return Tagged("double", std::isnan(number) ? "nan" : number > 0 ? "inf" : "-inf");
}

Json ListToJson(const std::vector<Value>& list, const NumberOf& numberOf) {
  Json cells = Json::array();
  for (const Value& value : list) cells.push_back(ToJson(value, numberOf));
  return Tagged("list", std::move(cells));
}

Json RowCells(const CellBlock& block, std::size_t row, const NumberOf& numberOf) {
  Json cells = Json::array();
  for (std::size_t column = 0; column < block.ColumnCount(); ++column) {
    cells.push_back(ToJson(block.CellValue(column, row), numberOf));
  }
  return cells;
}

Json BlockToJson(const CellBlockPtr& block, const NumberOf& numberOf) {
  if (block == nullptr) return Tagged("other", true);
  Json rows = Json::array();
  for (std::size_t row = 0; row < block->RowCount(); ++row) {
    rows.push_back(RowCells(*block, row, numberOf));
  }
  return Tagged("rows", std::move(rows));
}

// A block that was read from a recording.
class RecordedBlock final : public CellBlock {
 public:
  explicit RecordedBlock(std::vector<std::vector<Value>> rows) : rows_(std::move(rows)) {}

  std::size_t ColumnCount() const override { return rows_.empty() ? 0 : rows_.front().size(); }
  std::size_t RowCount() const override { return rows_.size(); }
  CellView Cell(std::size_t column, std::size_t row) const override {
    return pricedown::ViewOf(rows_[row][column]);
  }
  Value CellValue(std::size_t column, std::size_t row) const override { return rows_[row][column]; }

 private:
  std::vector<std::vector<Value>> rows_;  // all of the same length
};

[[noreturn]] void ThrowNoValue(const Json& json) {
  throw pricedown::AutomationError(
      pricedown::ErrorNumber::InvalidArgument,
      pricedown::Concatenate({u"记录中的值无法识别: ", pricedown::FromUtf8(LineOf(json))}));
}

std::vector<Value> ListOf(const Json& cells, const ObjectOf& objectOf) {
  std::vector<Value> list;
  for (const Json& cell : cells) list.push_back(FromJson(cell, objectOf));
  return list;
}

Value BlockOf(const Json& rows, const ObjectOf& objectOf) {
  std::vector<std::vector<Value>> cells;
  for (const Json& row : rows) {
    if (!row.is_array() || row.size() != rows.front().size()) ThrowNoValue(row);
    cells.push_back(ListOf(row, objectOf));
  }
  return CellBlockPtr(std::make_shared<const RecordedBlock>(std::move(cells)));
}

Value TaggedValue(const Json& json, const ObjectOf& objectOf) {
  const std::string& kind = json.begin().key();
  const Json& content = json.begin().value();
  if (kind == "empty") return {};
  if (kind == "missing") return pricedown::Missing{};
  if (kind == "other") return CellBlockPtr();
  if (kind == "int16") return content.get<std::int16_t>();
  if (kind == "date") return pricedown::Date{content.get<double>()};
  if (kind == "double") {
    constexpr double infinity = std::numeric_limits<double>::infinity();
    if (content == "nan") return std::numeric_limits<double>::quiet_NaN();
    return content == "inf" ? infinity : -infinity;
  }
  if (kind == "units") {
    const auto units = content.get<std::vector<std::uint16_t>>();
    return std::u16string(units.begin(), units.end());
  }
  if (kind == "object") {
    const auto number = content.get<ObjectNumber>();
    return number == 0 ? ObjectPtr() : objectOf(number);
  }
  if (kind == "list" && content.is_array()) return ListOf(content, objectOf);
  if (kind == "rows" && content.is_array()) return BlockOf(content, objectOf);
  ThrowNoValue(json);
}

}  // namespace

Json ToJson(const Value& value, const NumberOf& numberOf) {
  switch (value.GetKind()) {
    case Value::Kind::Empty:
      return Tagged("empty", true);
    case Value::Kind::Null:
      return nullptr;
    case Value::Kind::Missing:
      return Tagged("missing", true);
    case Value::Kind::Boolean:
      return value.Boolean();
    case Value::Kind::Int16:
      return Tagged("int16", value.Int16());
    case Value::Kind::Int32:
      return value.Int32();
    case Value::Kind::Double:
      return DoubleToJson(value.Double());
    case Value::Kind::Date:
      return Tagged("date", value.DateValue().days);
    case Value::Kind::Text:
      return TextToJson(value.Text());
    case Value::Kind::Object:
      return Tagged("object", value.Object() == nullptr ? 0 : numberOf(value.Object()));
    case Value::Kind::Block:
      return BlockToJson(value.Block(), numberOf);
    case Value::Kind::List:
      return ListToJson(value.List(), numberOf);
    case Value::Kind::Row:
      return Tagged("list", RowCells(*value.Row().block, value.Row().row, numberOf));
    case Value::Kind::Reference:
      return ToJson(value.Resolved(), numberOf);
  }
  return nullptr;
}

Value FromJson(const Json& json, const ObjectOf& objectOf) {
  try {
    if (json.is_null()) return pricedown::Null{};
    if (json.is_boolean()) return json.get<bool>();
    if (json.is_number_integer()) return json.get<std::int32_t>();
    if (json.is_number_float()) return json.get<double>();
    if (json.is_string()) return pricedown::FromUtf8(json.get<std::string>());
    if (json.is_object() && json.size() == 1) return TaggedValue(json, objectOf);
  } catch (const Json::exception&) {
    // A kind with content that does not fit it.
  }
  ThrowNoValue(json);
}

std::string LineOf(const Json& json) {
  return json.dump(-1, ' ', false, Json::error_handler_t::replace);
}

}  // namespace workbench
