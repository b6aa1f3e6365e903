// The port to late-bound objects: the suite's, the host's, and our own ones.
#pragma once

#include <initializer_list>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "platform/value.h"

namespace pricedown {

// Identifies a member of one object after its name has been looked up.
using MemberId = std::int32_t;
inline constexpr MemberId kDefaultMember = 0;

// How a member is used. `Call` is a method call or a property read, which late-bound clients do not
// distinguish.
enum class Access { Call, Put, PutReference };

class AutomationObject {
 public:
  virtual ~AutomationObject() = default;

  // The id of a member, looked up without regard to case; the empty name is the default member.
  // Throws AutomationError (UnknownName) when there is none.
  virtual MemberId Find(std::u16string_view name) = 0;

  // Runs a member. For a put the new value is the last argument. Arguments made by
  // Value::ByReference are written back. Throws AutomationError when the object fails.
  virtual Value Invoke(MemberId member, Access access, std::span<Value> arguments) = 0;

  // Runs a method and drops its result of any kind. Throws as Invoke does.
  virtual void Perform(MemberId member, std::span<Value> arguments);

  // The argument in a form that is quickest to pass to this object many times. Throws
  // AutomationError.
  virtual Value Prepared(Value argument) { return argument; }

  // The elements of a collection in their order; empty for an object that is none.
  virtual std::optional<std::vector<Value>> Elements() { return std::nullopt; }

  // Name look-up and call in one step.
  Value Call(std::u16string_view name, std::initializer_list<Value> arguments = {});
  Value Get(std::u16string_view name) { return Call(name); }
  // Calls a method whose result nothing reads: one of any kind is no failure.
  void CallForEffect(std::u16string_view name, std::initializer_list<Value> arguments = {});
  void Put(std::u16string_view name, Value value);
  // obj.name(index) = value; the empty name is the default member.
  void PutIndexed(std::u16string_view name, Value index, Value value);
  // Set obj.name = object.
  void PutReference(std::u16string_view name, ObjectPtr object);
};

// Creates objects by ProgID.
class ObjectFactory {
 public:
  virtual ~ObjectFactory() = default;
  // Never null. Throws AutomationError (CannotCreateObject) naming the ProgID.
  virtual ObjectPtr Create(std::u16string_view progId) = 0;
};

// The object in `value`; null when there is none.
ObjectPtr ObjectIn(const Value& value);
// The object in `value`. Throws AutomationError (ObjectNotSet) naming `what` when there is none.
ObjectPtr RequireObject(const Value& value, std::u16string_view what);

}  // namespace pricedown
