// The automation members of the in-memory recordset, its fields collection and its fields.
#include "platform/convert.h"
#include "platform/error.h"
#include "platform/text.h"
#include "workbench/suite/recordset.h"

namespace workbench {

using pricedown::Access;
using pricedown::FieldDefinition;
using pricedown::LocalObject;
using pricedown::Member;
using pricedown::MemberKind;
using pricedown::ObjectPtr;
using pricedown::Value;

namespace {

// One column of a recordset; Value is the cell in the current row.
class Field : public LocalObject<Field> {
 public:
  Field(std::shared_ptr<Recordset> owner, std::size_t column)
      : owner_(std::move(owner)), column_(column) {}

  const FieldDefinition& Definition() const { return owner_->Rows().Fields()[column_]; }

  Value GetOrSetValue(Access access, std::span<Value> arguments) {
    const std::size_t row = owner_->CurrentRow();
    if (access == Access::Call) return owner_->Rows().Get(row, column_);
    owner_->Rows().Set(row, column_, arguments[0]);
    owner_->NoteWritten(column_);
    return {};
  }

  Value GetOrSetPrecision(Access access, std::span<Value> arguments) {
    if (access == Access::Call) return Definition().precision;
    owner_->Rows().DescribeNumeric(column_, pricedown::ToInt32(arguments[0].Resolved()),
                                   Definition().scale);
    return {};
  }

  Value GetOrSetScale(Access access, std::span<Value> arguments) {
    if (access == Access::Call) return Definition().scale;
    owner_->Rows().DescribeNumeric(column_, Definition().precision,
                                   pricedown::ToInt32(arguments[0].Resolved()));
    return {};
  }

  static std::span<const Member<Field>> Members() {
    static constexpr Member<Field> kMembers[] = {
        {u"Value", MemberKind::GetPut,
         [](Field& field, Access access, std::span<Value> arguments) {
           return field.GetOrSetValue(access, arguments);
         },
         0, 0, true},
        {u"Name", MemberKind::Get,
         [](Field& field, Access, std::span<Value>) { return Value(field.Definition().name); }},
        {u"Type", MemberKind::Get,
         [](Field& field, Access, std::span<Value>) { return Value(field.Definition().type); }},
        {u"DefinedSize", MemberKind::Get,
         [](Field& field, Access, std::span<Value>) {
           return Value(field.Definition().definedSize);
         }},
        {u"Attributes", MemberKind::Get,
         [](Field& field, Access, std::span<Value>) {
           return Value(field.Definition().attributes);
         }},
        {u"Precision", MemberKind::GetPut,
         [](Field& field, Access access, std::span<Value> arguments) {
           return field.GetOrSetPrecision(access, arguments);
         }},
        {u"NumericScale", MemberKind::GetPut,
         [](Field& field, Access access, std::span<Value> arguments) {
           return field.GetOrSetScale(access, arguments);
         }},
    };
    return kMembers;
  }

 private:
  std::shared_ptr<Recordset> owner_;
  std::size_t column_;
};

class Fields : public LocalObject<Fields> {
 public:
  explicit Fields(std::shared_ptr<Recordset> owner) : owner_(std::move(owner)) {}

  Value Item(const Value& nameOrNumber) const {
    return ObjectPtr(std::make_shared<Field>(owner_, owner_->ColumnOf(nameOrNumber)));
  }

  void Append(std::span<Value> arguments) {
    if (owner_->IsOpen()) {
      throw pricedown::AutomationError(static_cast<std::int32_t>(0x800A0C93),
                                       u"在此环境中不允许操作。", u"ADODB.Fields");
    }
    FieldDefinition field;
    field.name = pricedown::ToText(arguments[0]);
    if (owner_->HasColumn(field.name)) {
      throw pricedown::AutomationError(
          static_cast<std::int32_t>(0x800A0D27),
          pricedown::Concatenate({u"集合中已有对象“", field.name, u"”，不能追加。"}),
          u"ADODB.Fields");
    }
    field.type = pricedown::ToInt32(arguments[1]);
    if (arguments.size() > 2 && !arguments[2].Resolved().IsNothing()) {
      field.definedSize = pricedown::ToInt32(arguments[2].Resolved());
    }
    if (arguments.size() > 3 && !arguments[3].Resolved().IsNothing()) {
      field.attributes = pricedown::ToInt32(arguments[3].Resolved());
    }
    owner_->Rows().AppendField(field);
  }

  static std::span<const Member<Fields>> Members() {
    static constexpr Member<Fields> kMembers[] = {
        {u"Item", MemberKind::Get,
         [](Fields& fields, Access, std::span<Value> arguments) {
           return fields.Item(arguments[0]);
         },
         1, 1, true},
        {u"Count", MemberKind::Get,
         [](Fields& fields, Access, std::span<Value>) {
           return Value(static_cast<std::int32_t>(fields.owner_->Rows().Fields().size()));
         }},
        {u"Append", MemberKind::Method,
         [](Fields& fields, Access, std::span<Value> arguments) {
           fields.Append(arguments);
           return Value();
         },
         2, 5},
    };
    return kMembers;
  }

 private:
  std::shared_ptr<Recordset> owner_;
};

template <void (Recordset::*Method)()>
Value Run(Recordset& recordset, Access, std::span<Value>) {
  (recordset.*Method)();
  return {};
}

template <bool (Recordset::*Test)()>
Value Ask(Recordset& recordset, Access, std::span<Value>) {
  return (recordset.*Test)();
}

template <std::int32_t Recordset::*Setting>
Value GetOrSet(Recordset& recordset, Access access, std::span<Value> arguments) {
  if (access == Access::Call) return recordset.*Setting;
  recordset.*Setting = pricedown::ToInt32(arguments[0].Resolved());
  return {};
}

Value FieldsOrItem(Recordset& recordset, Access, std::span<Value> arguments) {
  const auto fields = std::make_shared<Fields>(recordset.shared_from_this());
  return arguments.empty() ? Value(ObjectPtr(fields)) : fields->Item(arguments[0]);
}

Value GetOrSetFilter(Recordset& recordset, Access access, std::span<Value> arguments) {
  if (access == Access::Call) return recordset.Filter();
  const Value& filter = arguments[0].Resolved();
  // 0 is adFilterNone.
  recordset.SetFilter(filter.Is(Value::Kind::Text) ? std::u16string_view(filter.Text()) : u"");
  return {};
}

const Value& ArgumentAt(std::span<Value> arguments, std::size_t index) {
  static const Value kMissing(pricedown::Missing{});
  return index < arguments.size() ? arguments[index].Resolved() : kMissing;
}

// With a field, or fields, and their values a whole row.
Value AddRow(Recordset& recordset, Access, std::span<Value> arguments) {
  if (arguments.empty() || arguments[0].Resolved().IsNothing()) {
    recordset.AddNew();
    return {};
  }
  const std::vector<std::size_t>& columns = recordset.ColumnsOf(arguments[0].Resolved());
  const Value& values = ArgumentAt(arguments, 1);
  const bool isWhole = values.Is(Value::Kind::List) || values.Is(Value::Kind::Row);
  if (isWhole) {
    recordset.AddNew(columns, values);
  } else {
    recordset.AddNew(columns, std::vector<Value>{values});
  }
  return {};
}

// All rows unless a number is passed.
std::int32_t CountAt(std::span<Value> arguments, std::size_t index) {
  const Value& count = ArgumentAt(arguments, index);
  return count.IsNothing() ? -1 : pricedown::ToInt32(count);
}

Value ReadRows(Recordset& recordset, Access, std::span<Value> arguments) {
  return recordset.GetRows(CountAt(arguments, 0), recordset.ColumnsOf(ArgumentAt(arguments, 2)));
}

Value ReadText(Recordset& recordset, Access, std::span<Value> arguments) {
  constexpr std::int32_t kClipString = 2;
  const Value& form = ArgumentAt(arguments, 0);
  if (!form.IsNothing() && pricedown::ToInt32(form) != kClipString) {
    throw pricedown::AutomationError(pricedown::ErrorNumber::InvalidArgument,
                                     u"不支持此 StringFormat。", u"ADODB.Recordset");
  }
  Recordset::ClipFormat format;
  const auto take = [&](std::size_t index, std::u16string& text) {
    const Value& given = ArgumentAt(arguments, index);
    if (!given.IsNothing()) text = pricedown::ToText(given);
  };
  take(2, format.columnDelimiter);
  take(3, format.rowDelimiter);
  take(4, format.nullText);
  return recordset.GetString(CountAt(arguments, 1), format);
}

Value GetOrSetPosition(Recordset& recordset, Access access, std::span<Value> arguments) {
  if (access == Access::Call) return recordset.AbsolutePosition();
  recordset.SetAbsolutePosition(pricedown::ToInt32(arguments[0].Resolved()));
  return {};
}

}  // namespace

std::span<const Member<Recordset>> Recordset::Members() {
  static constexpr Member<Recordset> kMembers[] = {
      {u"Fields", MemberKind::Get, FieldsOrItem, 0, 1, true},
      {u"EOF", MemberKind::Get, Ask<&Recordset::AtEnd>},
      {u"BOF", MemberKind::Get, Ask<&Recordset::AtBeginning>},
      {u"RecordCount", MemberKind::Get,
       [](Recordset& recordset, Access, std::span<Value>) {
         return Value(recordset.RecordCount());
       }},
      {u"MoveFirst", MemberKind::Method, Run<&Recordset::MoveFirst>},
      {u"MoveNext", MemberKind::Method, Run<&Recordset::MoveNext>},
      {u"MoveLast", MemberKind::Method, Run<&Recordset::MoveLast>},
      {u"MovePrevious", MemberKind::Method, Run<&Recordset::MovePrevious>},
      {u"GetRows", MemberKind::Method, ReadRows, 0, 3},
      {u"GetString", MemberKind::Method, ReadText, 0, 5},
      {u"AbsolutePosition", MemberKind::GetPut, GetOrSetPosition},
      // Without connection and source: the fields have been appended.
      {u"Open", MemberKind::Method, Run<&Recordset::Open>},
      {u"Close", MemberKind::Method, Run<&Recordset::Close>},
      {u"AddNew", MemberKind::Method, AddRow, 0, 2},
      {u"Update", MemberKind::Method, Run<&Recordset::Update>},
      {u"UpdateBatch", MemberKind::Method, Run<&Recordset::Update>},
      {u"CancelUpdate", MemberKind::Method, Run<&Recordset::CancelUpdate>},
      {u"Delete", MemberKind::Method, Run<&Recordset::Delete>},
      {u"Filter", MemberKind::GetPut, GetOrSetFilter},
      {u"State", MemberKind::Get,
       [](Recordset& recordset, Access, std::span<Value>) {
         return Value(std::int32_t{recordset.IsOpen() ? 1 : 0});
       }},
      {u"CursorLocation", MemberKind::GetPut, GetOrSet<&Recordset::cursorLocation>},
      {u"CursorType", MemberKind::GetPut, GetOrSet<&Recordset::cursorType>},
      {u"LockType", MemberKind::GetPut, GetOrSet<&Recordset::lockType>},
  };
  return kMembers;
}

}  // namespace workbench
