// The rows and their cursor.
// Changes apply at once; only an added row can be cancelled.
#include "tests/support/record_table.h"

#include <algorithm>
#include <utility>

#include "platform/convert.h"
#include "platform/error.h"
#include "platform/number_scan.h"
#include "platform/text.h"

namespace pricedown::testing {
namespace {

constexpr std::int32_t kObjectOpen = static_cast<std::int32_t>(0x800A0E79);
constexpr std::int32_t kValueDoesNotFit = static_cast<std::int32_t>(0x80040E21);

std::int32_t TypeOf(const std::vector<std::vector<Value>>& rows, std::size_t column) {
  for (const std::vector<Value>& row : rows) {
    switch (row.at(column).GetKind()) {
      case Value::Kind::Int16:
      case Value::Kind::Int32:
        return ado::kInteger;
      case Value::Kind::Double:
        return ado::kDouble;
      case Value::Kind::Text:
        return ado::kVarWChar;
      default:
        break;
    }
  }
  return ado::kVarWChar;
}

Value Converted(const Value& value, const FieldDefinition& column) {
  const Value& resolved = value.Resolved();
  if (resolved.IsNothing()) return Null{};
  switch (column.type) {
    case ado::kInteger:
      return ToInt32(resolved);
    case ado::kDouble:
    case ado::kNumeric:
      return ToDouble(resolved);
    case ado::kVarWChar: {
      std::u16string text = ToText(resolved);
      if (text.size() > static_cast<std::size_t>(column.definedSize)) {
        throw AutomationError(kValueDoesNotFit, Concatenate({u"字段 ", column.name, u" 的值过长"}));
      }
      return text;
    }
    default:
      return resolved;
  }
}

struct Condition {
  std::u16string column;
  Value value;
};

Condition ConditionOf(std::u16string_view filter) {
  const std::size_t sign = filter.find(u'=');
  const std::u16string_view value =
      sign == std::u16string_view::npos ? u"" : Trim(filter.substr(sign + 1));
  const bool quoted = value.size() >= 2 && value.starts_with(u'\'') && value.ends_with(u'\'');
  const std::u16string_view content = quoted ? value.substr(1, value.size() - 2) : value;
  if (quoted ? content.find(u'\'') != std::u16string_view::npos
             : ScanWholeNumber(content).outcome != ScannedNumber::Outcome::Number) {
    throw AutomationError(ErrorNumber::InvalidArgument,
                          Concatenate({u"不支持的筛选条件: ", filter}));
  }
  return {std::u16string(Trim(filter.substr(0, sign))),
          quoted ? Value(content) : Value(LeadingNumber(content))};
}

bool Passes(const Value& value, const Value& wanted) {
  if (value.IsNothing()) return false;
  if (wanted.Is(Value::Kind::Text)) return EqualsIgnoringCase(ToText(value), wanted.Text());
  return ToDouble(value) == wanted.Double();
}

}  // namespace

RecordTable::RecordTable(std::vector<FieldDefinition> columns, std::vector<Row> rows)
    : columns_(std::move(columns)), rows_(std::move(rows)), open_(true) {
  for (std::size_t index = 0; index < columns_.size(); ++index) {
    FieldDefinition& column = columns_[index];
    if (column.type == 0) column.type = TypeOf(rows_, index);
    if (column.type == ado::kVarWChar && column.definedSize == 0) column.definedSize = 255;
  }
  ShowRows();
}

void RecordTable::AppendColumn(FieldDefinition column) {
  if (open_) throw AutomationError(kObjectOpen, u"对象打开时不允许操作");
  for (const FieldDefinition& other : columns_) {
    if (EqualsIgnoringCase(other.name, column.name)) {
      throw AutomationError(ErrorNumber::InvalidArgument,
                            Concatenate({u"字段已存在: ", column.name}));
    }
  }
  columns_.push_back(std::move(column));
}

FieldDefinition& RecordTable::ColumnAt(std::size_t column) {
  if (column < columns_.size()) return columns_[column];
  throw AutomationError(ErrorNumber::ItemNotFound, u"在对应所需名称或序数的集合中，未找到项目");
}

std::size_t RecordTable::ColumnNamed(std::u16string_view name) const {
  for (std::size_t index = 0; index < columns_.size(); ++index) {
    if (EqualsIgnoringCase(columns_[index].name, name)) return index;
  }
  throw AutomationError(ErrorNumber::ItemNotFound,
                        Concatenate({u"在对应所需名称或序数的集合中，未找到项目: ", name}));
}

void RecordTable::Open() {
  if (open_) throw AutomationError(kObjectOpen, u"对象打开时不允许操作");
  if (columns_.empty()) throw AutomationError(ErrorNumber::ObjectClosed, u"记录集没有字段");
  open_ = true;
  ShowRows();
}

void RecordTable::Close() {
  RequireOpen();
  open_ = false;
  rows_.clear();
  filter_.clear();
  ShowRows();
}

void RecordTable::RequireOpen() const {
  if (!open_) throw AutomationError(ErrorNumber::ObjectClosed, u"对象关闭时，不允许操作");
}

void RecordTable::RequireCurrent() const {
  RequireOpen();
  if (currentDeleted_ || position_ >= visible_.size()) {
    throw AutomationError(ErrorNumber::NoCurrentRecord,
                          u"BOF 或 EOF 中有一个是“真”，或者当前的记录已被删除");
  }
}

void RecordTable::ShowRows() {
  visible_.clear();
  previous_.reset();
  position_ = 0;
  currentDeleted_ = false;
  if (filter_.empty()) {
    for (std::size_t index = 0; index < rows_.size(); ++index) visible_.push_back(index);
    return;
  }
  const Condition condition = ConditionOf(filter_);
  const std::size_t column = ColumnNamed(condition.column);
  for (std::size_t index = 0; index < rows_.size(); ++index) {
    if (Passes(rows_[index][column], condition.value)) visible_.push_back(index);
  }
}

std::size_t RecordTable::RowCount() const {
  RequireOpen();
  return visible_.size();
}

bool RecordTable::AtBegin() const {
  RequireOpen();
  return visible_.empty() && !currentDeleted_;
}

bool RecordTable::AtEnd() const {
  RequireOpen();
  return position_ >= visible_.size() && !currentDeleted_;
}

void RecordTable::MoveFirst() {
  RequireOpen();
  previous_.reset();
  position_ = 0;
  currentDeleted_ = false;
  RequireCurrent();
}

void RecordTable::MoveLast() {
  RequireOpen();
  previous_.reset();
  position_ = visible_.empty() ? 0 : visible_.size() - 1;
  currentDeleted_ = false;
  RequireCurrent();
}

void RecordTable::MoveNext() {
  RequireOpen();
  previous_.reset();
  if (currentDeleted_) {
    currentDeleted_ = false;
    return;
  }
  RequireCurrent();
  ++position_;
}

std::int32_t RecordTable::Place() const {
  RequireOpen();
  if (visible_.empty()) return -1;
  return AtEnd() ? -3 : static_cast<std::int32_t>(position_) + 1;
}

void RecordTable::MoveTo(std::int32_t place) {
  RequireOpen();
  if (place < 1) throw AutomationError(ErrorNumber::InvalidArgument, u"参数类型不正确");
  previous_.reset();
  currentDeleted_ = false;
  position_ = std::min(static_cast<std::size_t>(place) - 1, visible_.size());
}

const Value& RecordTable::ValueAt(std::size_t column) const {
  RequireCurrent();
  return rows_[visible_[position_]].at(column);
}

void RecordTable::SetValue(std::size_t column, const Value& value) {
  RequireCurrent();
  rows_[visible_[position_]].at(column) = Converted(value, columns_.at(column));
}

void RecordTable::AddRow() {
  RequireOpen();
  previous_ = position_;
  rows_.emplace_back(columns_.size(), Value(Null{}));
  visible_.push_back(rows_.size() - 1);
  position_ = visible_.size() - 1;
  currentDeleted_ = false;
}

void RecordTable::CommitRow() {
  RequireOpen();
  previous_.reset();
}

void RecordTable::CancelRow() {
  RequireOpen();
  if (!previous_) return;
  // The added row is the current and the last one: moving would have committed it.
  rows_.pop_back();
  visible_.pop_back();
  position_ = *std::exchange(previous_, std::nullopt);
}

void RecordTable::DeleteRow() {
  RequireCurrent();
  previous_.reset();
  const std::size_t row = visible_[position_];
  rows_.erase(rows_.begin() + static_cast<std::ptrdiff_t>(row));
  visible_.erase(visible_.begin() + static_cast<std::ptrdiff_t>(position_));
  for (std::size_t& index : visible_) {
    if (index > row) --index;
  }
  currentDeleted_ = true;
}

void RecordTable::SetFilter(std::u16string_view filter) {
  RequireOpen();
  std::u16string previous = std::exchange(filter_, std::u16string(filter));
  try {
    ShowRows();
  } catch (const AutomationError&) {
    filter_ = std::move(previous);
    ShowRows();
    throw;
  }
}

}  // namespace pricedown::testing
