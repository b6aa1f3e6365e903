// Calls by member name in terms of look-up and invocation.
#include "platform/automation.h"

#include <array>
#include <utility>
#include <vector>

#include "platform/error.h"
#include "platform/text.h"

namespace pricedown {

Value AutomationObject::Call(std::u16string_view name, std::initializer_list<Value> arguments) {
  std::vector<Value> copies(arguments);
  return Invoke(Find(name), Access::Call, copies);
}

void AutomationObject::CallForEffect(std::u16string_view name,
                                     std::initializer_list<Value> arguments) {
  std::vector<Value> copies(arguments);
  Perform(Find(name), copies);
}

void AutomationObject::Put(std::u16string_view name, Value value) {
  std::array<Value, 1> arguments{std::move(value)};
  Invoke(Find(name), Access::Put, arguments);
}

void AutomationObject::PutIndexed(std::u16string_view name, Value index, Value value) {
  std::array<Value, 2> arguments{std::move(index), std::move(value)};
  Invoke(Find(name), Access::Put, arguments);
}

void AutomationObject::PutReference(std::u16string_view name, ObjectPtr object) {
  std::array<Value, 1> arguments{Value(std::move(object))};
  Invoke(Find(name), Access::PutReference, arguments);
}

void AutomationObject::Perform(MemberId member, std::span<Value> arguments) {
  Invoke(member, Access::Call, arguments);
}

ObjectPtr ObjectIn(const Value& value) {
  const Value& resolved = value.Resolved();
  return resolved.Is(Value::Kind::Object) ? resolved.Object() : nullptr;
}

ObjectPtr RequireObject(const Value& value, std::u16string_view what) {
  if (ObjectPtr object = ObjectIn(value)) return object;
  throw AutomationError(ErrorNumber::ObjectNotSet, Concatenate({u"未设置对象: ", what}));
}

}  // namespace pricedown
