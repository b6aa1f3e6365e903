// The named wrappers over a recordset's members.
#include "platform/recordset.h"

#include <utility>

#include "platform/convert.h"
#include "platform/error.h"
#include "platform/skip.h"

namespace pricedown {
namespace {

ObjectPtr FieldsOf(AutomationObject& recordset) {
  return RequireObject(recordset.Get(u"Fields"), u"Fields");
}

ObjectPtr FieldOf(AutomationObject& recordset, std::u16string_view name) {
  // The empty name is the collection's default member, its item.
  return RequireObject(FieldsOf(recordset)->Call(u"", {name}), name);
}

// Throws AutomationError when the name fails.
FieldDefinition DefinitionOf(AutomationObject& field) {
  FieldDefinition definition;
  definition.name = ToText(field.Get(u"Name"));
  const auto read = [&field](std::u16string_view property, std::int32_t& value) {
    SkipFailing([&] { value = ToInt32(field.Get(property)); });
  };
  read(u"Type", definition.type);
  read(u"DefinedSize", definition.definedSize);
  read(u"Attributes", definition.attributes);
  if (definition.type == ado::kNumeric) {
    read(u"Precision", definition.precision);
    read(u"NumericScale", definition.scale);
  }
  return definition;
}

}  // namespace

Recordset Recordset::Create(ObjectFactory& factory) {
  ObjectPtr object = factory.Create(u"ADODB.Recordset");
  object->Put(u"CursorLocation", ado::kUseClient);
  return Recordset(std::move(object));
}

AutomationObject& Recordset::Required() const {
  if (object_ == nullptr) {
    throw AutomationError(ErrorNumber::ObjectNotSet, u"未设置对象: 记录集");
  }
  return *object_;
}

std::int32_t Recordset::RecordCount() const { return ToInt32(Required().Get(u"RecordCount")); }
bool Recordset::AtEnd() const { return ToBoolean(Required().Get(u"EOF")); }
void Recordset::MoveFirst() const { Required().CallForEffect(u"MoveFirst"); }
void Recordset::MoveNext() const { Required().CallForEffect(u"MoveNext"); }

Value Recordset::Field(std::u16string_view name) const {
  return FieldOf(Required(), name)->Get(u"Value");
}

void Recordset::SetField(std::u16string_view name, const Value& value) const {
  FieldOf(Required(), name)->Put(u"Value", value);
}

std::vector<FieldDefinition> Recordset::Fields() const {
  const ObjectPtr fields = FieldsOf(Required());
  const std::int32_t count = ToInt32(fields->Get(u"Count"));
  std::vector<FieldDefinition> definitions;
  for (std::int32_t index = 0; index < count; ++index) {
    SkipFailing([&] {
      definitions.push_back(DefinitionOf(*RequireObject(fields->Call(u"", {index}), u"Fields")));
    });
  }
  return definitions;
}

void Recordset::AppendField(const FieldDefinition& field) const {
  const ObjectPtr fields = FieldsOf(Required());
  fields->CallForEffect(u"Append", {field.name, field.type, field.definedSize, field.attributes});
  if (field.type != ado::kNumeric) return;
  SkipFailing([&] {
    const ObjectPtr appended = RequireObject(fields->Call(u"", {field.name}), field.name);
    SkipFailing([&] { appended->Put(u"Precision", field.precision); });
    appended->Put(u"NumericScale", field.scale);
  });
}

CellBlockPtr Recordset::GetRows(std::int32_t count,
                                const std::vector<std::u16string_view>& fields) const {
  std::vector<Value> names(fields.begin(), fields.end());
  const Value answer = Required().Call(u"GetRows", {count, Missing{}, Value(std::move(names))});
  CellBlockPtr block = answer.Block();
  if (block == nullptr || block->ColumnCount() < fields.size()) {
    throw AutomationError(ErrorNumber::TypeMismatch, u"GetRows 没有返回所要求的列");
  }
  return block;
}

void Recordset::AddNew(const Value& fields, const Value& values) const {
  Required().CallForEffect(u"AddNew", {fields, values});
}

void Recordset::Open() const { Required().CallForEffect(u"Open"); }
void Recordset::Close() const { Required().CallForEffect(u"Close"); }
void Recordset::AddNew() const { Required().CallForEffect(u"AddNew"); }
void Recordset::Update() const { Required().CallForEffect(u"Update"); }
void Recordset::CancelUpdate() const { Required().CallForEffect(u"CancelUpdate"); }
void Recordset::UpdateBatch() const { Required().CallForEffect(u"UpdateBatch"); }
void Recordset::Delete() const { Required().CallForEffect(u"Delete"); }
void Recordset::SetFilter(std::u16string_view filter) const { Required().Put(u"Filter", filter); }

}  // namespace pricedown
