// The named wrappers over a recordset's members.
#include "platform/recordset.h"

#include <utility>

#include "platform/convert.h"
#include "platform/error.h"

namespace pricedown {
namespace {

ObjectPtr FieldsOf(AutomationObject& recordset) {
  return RequireObject(recordset.Get(u"Fields"), u"Fields");
}

ObjectPtr FieldOf(AutomationObject& recordset, std::u16string_view name) {
  // The empty name is the collection's default member, its item.
  return RequireObject(FieldsOf(recordset)->Call(u"", {name}), name);
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
void Recordset::MoveFirst() const { Required().Call(u"MoveFirst"); }
void Recordset::MoveNext() const { Required().Call(u"MoveNext"); }

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
    const ObjectPtr field = RequireObject(fields->Call(u"", {index}), u"Fields");
    FieldDefinition definition;
    definition.name = ToText(field->Get(u"Name"));
    definition.type = ToInt32(field->Get(u"Type"));
    definition.definedSize = ToInt32(field->Get(u"DefinedSize"));
    definition.attributes = ToInt32(field->Get(u"Attributes"));
    if (definition.type == ado::kNumeric) {
      definition.precision = ToInt32(field->Get(u"Precision"));
      definition.scale = ToInt32(field->Get(u"NumericScale"));
    }
    definitions.push_back(std::move(definition));
  }
  return definitions;
}

void Recordset::AppendField(const FieldDefinition& field) const {
  const ObjectPtr fields = FieldsOf(Required());
  fields->Call(u"Append", {field.name, field.type, field.definedSize, field.attributes});
  if (field.type != ado::kNumeric) return;
  const ObjectPtr appended = RequireObject(fields->Call(u"", {field.name}), field.name);
  appended->Put(u"Precision", field.precision);
  appended->Put(u"NumericScale", field.scale);
}

void Recordset::Open() const { Required().Call(u"Open"); }
void Recordset::Close() const { Required().Call(u"Close"); }
void Recordset::AddNew() const { Required().Call(u"AddNew"); }
void Recordset::Update() const { Required().Call(u"Update"); }
void Recordset::CancelUpdate() const { Required().Call(u"CancelUpdate"); }
void Recordset::UpdateBatch() const { Required().Call(u"UpdateBatch"); }
void Recordset::Delete() const { Required().Call(u"Delete"); }
void Recordset::SetFilter(std::u16string_view filter) const { Required().Put(u"Filter", filter); }

}  // namespace pricedown
