// The scripted recordset as an automation object: member tables over a record table.
#include "tests/support/scripted_recordset.h"

#include <array>
#include <utility>

#include "platform/convert.h"
#include "platform/error.h"
#include "platform/local_object.h"
#include "platform/text.h"
#include "tests/support/memory_block.h"
#include "tests/support/record_table.h"
#include "tests/support/utf8.h"

namespace pricedown::testing {
namespace {

constexpr std::u16string_view kConnection = u"ZEPConnection.AppConnection";

class ScriptedRecordset : public LocalObject<ScriptedRecordset>, public NamedObject {
 public:
  ScriptedRecordset(RecorderPtr recorder, std::u16string_view name, RecordTable table,
                    bool hasGetRows)
      : recorder_(std::move(recorder)),
        name_(name),
        table_(std::move(table)),
        hasGetRows_(hasGetRows) {
    recorder_->ObjectMade();
  }
  ScriptedRecordset(const ScriptedRecordset&) = delete;
  ScriptedRecordset& operator=(const ScriptedRecordset&) = delete;
  ~ScriptedRecordset() override {
    recorder_->ObjectGone();
    recorder_->Add("release " + ObjectName());
  }

  static std::span<const Member<ScriptedRecordset>> Members();
  std::string ObjectName() const override { return Utf8(name_); }
  RecordTable& Table() { return table_; }

  MemberId Find(std::u16string_view name) override {
    if (!hasGetRows_ && NamesEqual(name, u"GetRows")) ThrowUnknownName(name);
    return LocalObject::Find(name);
  }
  Value Invoke(MemberId member, Access access, std::span<Value> arguments) override {
    Record(Utf8(NameOf(Members(), member)), access, arguments);
    return LocalObject::Invoke(member, access, arguments);
  }

  void Record(const std::string& member, Access access, std::span<Value> arguments) {
    const bool put = access != Access::Call;
    const std::string path = ObjectName() + "." + member;
    recorder_->QuietCall(put ? "put " + path + " = " + Arguments(arguments)
                             : path + "(" + Arguments(arguments) + ")",
                         name_);
  }

  template <typename T>
  static std::u16string_view NameOf(std::span<const Member<T>> members, MemberId id) {
    for (const Member<T>& member : members) {
      if (id == kDefaultMember ? member.isDefault : id-- == 1) return member.name;
    }
    return u"?";
  }

  std::int32_t cursorLocation = 2;  // the server's by default

 private:
  RecorderPtr recorder_;
  std::u16string name_;
  RecordTable table_;
  bool hasGetRows_;
};

using RecordsetPtr = std::shared_ptr<ScriptedRecordset>;

class ScriptedField : public LocalObject<ScriptedField> {
 public:
  ScriptedField(RecordsetPtr recordset, std::size_t column)
      : recordset_(std::move(recordset)), column_(column) {}

  static std::span<const Member<ScriptedField>> Members();
  Value Invoke(MemberId member, Access access, std::span<Value> arguments) override {
    const auto name = ScriptedRecordset::NameOf(Members(), member);
    recordset_->Record("Fields(" + Quoted(Definition().name) + ")." + Utf8(name), access,
                       arguments);
    return LocalObject::Invoke(member, access, arguments);
  }
  FieldDefinition& Definition() const { return recordset_->Table().ColumnAt(column_); }
  Value UseValue(Access access, std::span<Value> arguments) const {
    if (access == Access::Call) return recordset_->Table().ValueAt(column_);
    recordset_->Table().SetValue(column_, arguments.back());
    return {};
  }

 private:
  RecordsetPtr recordset_;
  std::size_t column_;
};

class ScriptedFields : public LocalObject<ScriptedFields> {
 public:
  explicit ScriptedFields(RecordsetPtr recordset) : recordset_(std::move(recordset)) {}

  static std::span<const Member<ScriptedFields>> Members();
  Value Invoke(MemberId member, Access access, std::span<Value> arguments) override {
    const auto name = ScriptedRecordset::NameOf(Members(), member);
    recordset_->Record("Fields." + Utf8(name), access, arguments);
    return LocalObject::Invoke(member, access, arguments);
  }
  Value Item(const Value& key) const;
  RecordTable& Table() const { return recordset_->Table(); }

 private:
  RecordsetPtr recordset_;
};

std::size_t ColumnOf(RecordTable& table, const Value& key) {
  const Value& resolved = key.Resolved();
  if (resolved.Is(Value::Kind::Text)) return table.ColumnNamed(resolved.Text());
  const std::int32_t index = ToInt32(resolved);
  const std::size_t column = index < 0 ? table.Columns().size() : static_cast<std::size_t>(index);
  table.ColumnAt(column);
  return column;
}

Value ScriptedFields::Item(const Value& key) const {
  return Value(std::make_shared<ScriptedField>(recordset_, ColumnOf(Table(), key)));
}

bool IsPresent(std::span<Value> arguments, std::size_t index) {
  return index < arguments.size() && !arguments[index].Resolved().Is(Value::Kind::Missing);
}

// A list or the cells of a block's row.
std::vector<Value> ListOf(const Value& value) {
  if (value.Is(Value::Kind::List)) return value.List();
  const BlockRow& row = value.Row();
  std::vector<Value> list;
  for (std::size_t column = 0; column < row.block->ColumnCount(); ++column) {
    list.push_back(row.block->CellValue(column, row.row));
  }
  return list;
}

// Without arguments a row to be filled; with fields and values a whole one, or none if one value
// does not fit.
Value AddNew(RecordTable& table, std::span<Value> arguments) {
  table.AddRow();
  if (arguments.empty()) return {};
  try {
    const std::vector<Value> fields = ListOf(arguments[0]);
    const std::vector<Value> values = ListOf(arguments[1]);
    if (fields.size() != values.size()) {
      throw AutomationError(ErrorNumber::InvalidArgument, u"参数类型不正确");
    }
    for (std::size_t i = 0; i < fields.size(); ++i) {
      table.SetValue(ColumnOf(table, fields[i]), values[i]);
    }
    table.CommitRow();
  } catch (...) {
    table.CancelRow();
    throw;
  }
  return {};
}

Value GetRows(RecordTable& table, std::span<Value> arguments) {
  std::vector<std::size_t> columns;
  if (!IsPresent(arguments, 2)) {
    for (std::size_t index = 0; index < table.Columns().size(); ++index) columns.push_back(index);
  } else if (const Value& asked = arguments[2].Resolved(); asked.Is(Value::Kind::List)) {
    for (const Value& key : asked.List()) columns.push_back(ColumnOf(table, key));
  } else {
    columns.push_back(ColumnOf(table, asked));
  }
  const std::int32_t most = IsPresent(arguments, 0) ? ToInt32(arguments[0]) : -1;

  std::vector<std::vector<Value>> rows;
  do {
    std::vector<Value>& row = rows.emplace_back();
    for (std::size_t column : columns) row.push_back(table.ValueAt(column));
    table.MoveNext();
  } while (!table.AtEnd() && (most < 0 || rows.size() < static_cast<std::size_t>(most)));
  return Value(CellBlockPtr(std::make_shared<MemoryBlock>(columns.size(), std::move(rows))));
}

// All columns of the rows from the current one on.
Value GetString(RecordTable& table, std::span<Value> arguments) {
  if (IsPresent(arguments, 0) && ToInt32(arguments[0]) != 2) {
    throw AutomationError(ErrorNumber::InvalidArgument, u"StringFormat");
  }
  const std::int32_t most = IsPresent(arguments, 1) ? ToInt32(arguments[1]) : -1;
  const auto part = [&](std::size_t index, std::u16string_view usual) {
    return IsPresent(arguments, index) ? ToText(arguments[index]) : std::u16string(usual);
  };
  const std::u16string columnEnd = part(2, u"\t");
  const std::u16string rowEnd = part(3, u"\r");
  const std::u16string nullText = part(4, u"");
  std::u16string text;
  std::int32_t rows = 0;
  do {
    for (std::size_t column = 0; column < table.Columns().size(); ++column) {
      if (column > 0) text += columnEnd;
      const Value& cell = table.ValueAt(column);
      text += cell.IsNothing() ? nullText : ToText(cell);
    }
    text += rowEnd;
    ++rows;
    table.MoveNext();
  } while (!table.AtEnd() && (most < 0 || rows < most));
  return text;
}

template <typename Integer>
std::int32_t Count(Integer number) {
  return static_cast<std::int32_t>(number);
}

std::span<const Member<ScriptedField>> ScriptedField::Members() {
  using M = Member<ScriptedField>;
  using F = ScriptedField;
  static const std::array kMembers{
      M{u"Value", MemberKind::GetPut,
        [](F& f, Access access, std::span<Value> a) { return f.UseValue(access, a); }, 0, 0, true},
      M{u"Name", MemberKind::Get,
        [](F& f, Access, std::span<Value>) { return Value(f.Definition().name); }},
      M{u"Type", MemberKind::Get,
        [](F& f, Access, std::span<Value>) { return Value(f.Definition().type); }},
      M{u"DefinedSize", MemberKind::Get,
        [](F& f, Access, std::span<Value>) { return Value(f.Definition().definedSize); }},
      M{u"Attributes", MemberKind::Get,
        [](F& f, Access, std::span<Value>) { return Value(f.Definition().attributes); }},
      M{u"Precision", MemberKind::GetPut,
        [](F& f, Access access, std::span<Value> a) {
          if (access != Access::Call) f.Definition().precision = ToInt32(a[0]);
          return Value(f.Definition().precision);
        }},
      M{u"NumericScale", MemberKind::GetPut,
        [](F& f, Access access, std::span<Value> a) {
          if (access != Access::Call) f.Definition().scale = ToInt32(a[0]);
          return Value(f.Definition().scale);
        }},
  };
  return kMembers;
}

std::span<const Member<ScriptedFields>> ScriptedFields::Members() {
  using M = Member<ScriptedFields>;
  using F = ScriptedFields;
  static const std::array kMembers{
      M{u"Item", MemberKind::Get, [](F& f, Access, std::span<Value> a) { return f.Item(a[0]); }, 1,
        1, true},
      M{u"Count", MemberKind::Get,
        [](F& f, Access, std::span<Value>) { return Value(Count(f.Table().Columns().size())); }},
      M{u"Append", MemberKind::Method,
        [](F& f, Access, std::span<Value> a) {
          FieldDefinition column{ToText(a[0]), ToInt32(a[1])};
          if (IsPresent(a, 2)) column.definedSize = ToInt32(a[2]);
          if (IsPresent(a, 3)) column.attributes = ToInt32(a[3]);
          f.Table().AppendColumn(std::move(column));
          return Value();
        },
        2, 5},
  };
  return kMembers;
}

// A method without arguments and result.
template <void (RecordTable::*action)()>
Value Do(ScriptedRecordset& recordset, Access, std::span<Value>) {
  (recordset.Table().*action)();
  return {};
}

std::span<const Member<ScriptedRecordset>> ScriptedRecordset::Members() {
  using M = Member<ScriptedRecordset>;
  using R = ScriptedRecordset;
  static const std::array kMembers{
      M{u"Fields", MemberKind::Get,
        [](R& r, Access, std::span<Value> a) {
          const auto fields = std::make_shared<ScriptedFields>(r.shared_from_this());
          return a.empty() ? Value(ObjectPtr(fields)) : fields->Item(a[0]);
        },
        0, 1, true},
      M{u"RecordCount", MemberKind::Get,
        [](R& r, Access, std::span<Value>) { return Value(Count(r.Table().RowCount())); }},
      M{u"EOF", MemberKind::Get,
        [](R& r, Access, std::span<Value>) { return Value(r.Table().AtEnd()); }},
      M{u"BOF", MemberKind::Get,
        [](R& r, Access, std::span<Value>) { return Value(r.Table().AtBegin()); }},
      M{u"State", MemberKind::Get,
        [](R& r, Access, std::span<Value>) { return Value(r.Table().IsOpen() ? 1 : 0); }},
      M{u"MoveFirst", MemberKind::Method, Do<&RecordTable::MoveFirst>},
      M{u"MoveLast", MemberKind::Method, Do<&RecordTable::MoveLast>},
      M{u"MoveNext", MemberKind::Method, Do<&RecordTable::MoveNext>},
      M{u"GetRows", MemberKind::Method,
        [](R& r, Access, std::span<Value> a) { return GetRows(r.Table(), a); }, 0, 3},
      M{u"GetString", MemberKind::Method,
        [](R& r, Access, std::span<Value> a) { return GetString(r.Table(), a); }, 0, 5},
      M{u"AbsolutePosition", MemberKind::GetPut,
        [](R& r, Access access, std::span<Value> a) {
          if (access != Access::Call) r.Table().MoveTo(ToInt32(a[0]));
          return Value(r.Table().Place());
        }},
      M{u"Open", MemberKind::Method, Do<&RecordTable::Open>, 0, 5},
      M{u"Close", MemberKind::Method, Do<&RecordTable::Close>},
      M{u"AddNew", MemberKind::Method,
        [](R& r, Access, std::span<Value> a) { return AddNew(r.Table(), a); }, 0, 2},
      M{u"Update", MemberKind::Method, Do<&RecordTable::CommitRow>},
      M{u"CancelUpdate", MemberKind::Method, Do<&RecordTable::CancelRow>},
      M{u"UpdateBatch", MemberKind::Method, Do<&RecordTable::CommitRow>, 0, 1},
      M{u"Delete", MemberKind::Method, Do<&RecordTable::DeleteRow>, 0, 1},
      M{u"Filter", MemberKind::GetPut,
        [](R& r, Access access, std::span<Value> a) {
          if (access != Access::Call) r.Table().SetFilter(ToText(a[0]));
          return Value(r.Table().Filter());
        }},
      M{u"CursorLocation", MemberKind::GetPut,
        [](R& r, Access access, std::span<Value> a) {
          if (access != Access::Call) r.cursorLocation = ToInt32(a[0]);
          return Value(r.cursorLocation);
        }},
  };
  return kMembers;
}

}  // namespace

ScriptedRows ScriptedRows::WithoutGetRows() && {
  hasGetRows = false;
  return std::move(*this);
}

ScriptedRows Rows(std::vector<std::u16string> columns, std::vector<std::vector<Value>> rows) {
  ScriptedRows scripted;
  for (std::u16string& column : columns) {
    scripted.columns.emplace_back().name = std::move(column);
  }
  scripted.rows = std::move(rows);
  return scripted;
}

ObjectPtr NewScriptedRecordset(const RecorderPtr& recorder, ScriptedRows rows,
                               std::u16string_view name) {
  return std::make_shared<ScriptedRecordset>(
      recorder, name, RecordTable(std::move(rows.columns), std::move(rows.rows)), rows.hasGetRows);
}

void AllowRecordsets(RecordingFactory& factory) {
  factory.Makes(u"ADODB.Recordset", [](const RecorderPtr& recorder) {
    return std::make_shared<ScriptedRecordset>(recorder, u"ADODB.Recordset", RecordTable(), true);
  });
}

void AnswerStatement(RecordingFactory& factory, std::u16string_view statement, ScriptedRows rows) {
  const RecorderPtr recorder = factory.GetRecorder();
  factory.Object(kConnection)
      .On(u"Execute", Arguments({statement}), Reply::From([recorder, rows = std::move(rows)](auto) {
            return NewScriptedRecordset(recorder, rows);
          }));
}

void AnswerNothing(RecordingFactory& factory, std::u16string_view statement) {
  factory.Object(kConnection).On(u"Execute", Arguments({statement}), Reply(nullptr));
}

void FailStatement(RecordingFactory& factory, std::u16string_view statement, std::int32_t number,
                   std::u16string description) {
  factory.Object(kConnection)
      .On(u"Execute", Arguments({statement}), Reply::Failing(number, std::move(description)));
}

}  // namespace pricedown::testing
