// The lookups, and the reading and writing by the id of the field's value.
#include "platform/bound_fields.h"

namespace pricedown {

BoundFields::BoundFields(const Recordset& recordset,
                         const std::vector<std::u16string_view>& names) {
  const ObjectPtr fields =
      RequireObject(RequireObject(recordset.Object(), u"记录集")->Get(u"Fields"), u"Fields");
  for (std::u16string_view name : names) {
    ObjectPtr field = RequireObject(fields->Call(u"", {name}), name);
    const MemberId value = field->Find(u"Value");
    fields_.push_back({std::move(field), value});
  }
}

Value BoundFields::Get(std::size_t position) const {
  const Field& field = fields_[position];
  return field.object->Invoke(field.value, Access::Call, {});
}

void BoundFields::Set(std::size_t position, Value value) const {
  const Field& field = fields_[position];
  field.object->Invoke(field.value, Access::Put, std::span(&value, 1));
}

}  // namespace pricedown
