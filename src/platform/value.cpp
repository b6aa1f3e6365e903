// The access to the alternatives of a value.
#include "platform/value.h"

#include "platform/error.h"

namespace pricedown {

template <typename T>
const T& Value::As() const {
  if (const T* content = std::get_if<T>(&storage_)) return *content;
  throw AutomationError(ErrorNumber::TypeMismatch, u"类型不匹配");
}

Value Value::ByReference(Value& target) {
  Value reference;
  reference.storage_ = &target;
  return reference;
}

bool Value::Boolean() const { return As<bool>(); }
std::int16_t Value::Int16() const { return As<std::int16_t>(); }
std::int32_t Value::Int32() const { return As<std::int32_t>(); }
double Value::Double() const { return As<double>(); }
Date Value::DateValue() const { return As<Date>(); }
const std::u16string& Value::Text() const { return As<StoredText>().text; }
const ObjectPtr& Value::Object() const { return As<ObjectPtr>(); }
const CellBlockPtr& Value::Block() const { return As<CellBlockPtr>(); }
const std::vector<Value>& Value::List() const { return *As<ValueListPtr>(); }
const BlockRow& Value::Row() const { return As<BlockRow>(); }
Value& Value::Target() const { return *As<Value*>(); }

const Value& Value::Resolved() const {
  const Value* value = this;
  while (value->Is(Kind::Reference)) value = &value->Target();
  return *value;
}

}  // namespace pricedown
