// The making of values, and the access to their alternatives.
#include "platform/value.h"

#include "platform/error.h"

namespace pricedown {

template <typename T>
const T& Value::As() const {
  if (const T* content = std::get_if<T>(&storage_)) return *content;
  throw AutomationError(ErrorNumber::TypeMismatch, u"类型不匹配");
}

Value::Value(std::u16string text) : storage_(StoredText{std::move(text)}) {}
Value::Value(std::u16string_view text) : storage_(StoredText{std::u16string(text)}) {}
Value::Value(const char16_t* text) : storage_(StoredText{std::u16string(text)}) {}
Value::Value(std::vector<Value> list)
    : storage_(ValueListPtr(std::make_shared<const std::vector<Value>>(std::move(list)))) {}

Value::Value(const Value& other) = default;
Value::Value(Value&& other) noexcept = default;
Value& Value::operator=(const Value& other) = default;
Value& Value::operator=(Value&& other) noexcept = default;
Value::~Value() = default;
bool Value::operator==(const Value& other) const = default;

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
