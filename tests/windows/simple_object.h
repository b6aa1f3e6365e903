// The smallest local object with members of every kind, for tests of calls in both directions.
// It returns the values that were set.
#pragma once

#include <array>

#include "platform/error.h"
#include "platform/local_object.h"

namespace pricedown::testing {

// Members: Value (get, put, default), Item(index) (get, put), Swap(x) (writes "out" to x and
// returns the old x), Join(a, [b]) (returns both as a list), Fail (throws), Self.
class SimpleObject : public LocalObject<SimpleObject> {
 public:
  static std::span<const Member<SimpleObject>> Members() {
    using Arguments = std::span<Value>;
    static const std::array members{
        Member<SimpleObject>{u"Value", MemberKind::GetPut,
                             [](SimpleObject& object, Access access, Arguments arguments) {
                               if (access == Access::Call) return object.value;
                               object.lastAccess = access;
                               object.value = arguments[0].Resolved();
                               return Value();
                             },
                             0, 0, true},
        Member<SimpleObject>{u"Item", MemberKind::GetPut,
                             [](SimpleObject& object, Access access, Arguments arguments) {
                               object.lastIndex = arguments[0].Resolved();
                               if (access != Access::Call) object.value = arguments[1].Resolved();
                               return access == Access::Call ? object.value : Value();
                             },
                             1, 1},
        Member<SimpleObject>{u"Swap", MemberKind::Method,
                             [](SimpleObject& object, Access, Arguments arguments) {
                               const Value before = arguments[0].Resolved();
                               if (arguments[0].Is(Value::Kind::Reference)) {
                                 arguments[0].Target() = object.value;
                               }
                               return before;
                             },
                             1, 1},
        Member<SimpleObject>{u"Join", MemberKind::Method,
                             [](SimpleObject&, Access, Arguments arguments) {
                               std::vector<Value> list;
                               for (const Value& one : arguments) list.push_back(one.Resolved());
                               return Value(std::move(list));
                             },
                             1, 2},
        Member<SimpleObject>{u"Fail", MemberKind::Method,
                             [](SimpleObject&, Access, Arguments) -> Value {
                               throw AutomationError(static_cast<std::int32_t>(0x80040123), u"坏了",
                                                     u"simple");
                             }},
        Member<SimpleObject>{u"Self", MemberKind::Get,
                             [](SimpleObject& object, Access, Arguments) {
                               return Value(ObjectPtr(object.shared_from_this()));
                             }},
    };
    return members;
  }

  Value value = u"out";
  Value lastIndex;
  Access lastAccess = Access::Call;
};

}  // namespace pricedown::testing
