// A base for our own late-bound objects: a table of members per class.
#pragma once

#include <span>
#include <string_view>

#include "platform/automation.h"

namespace pricedown {

// What a member allows; a member may allow several.
enum class MemberKind : unsigned { Method = 1, Get = 2, Put = 4, GetPut = 6 };

// One row of a class's table; ids are positions + 1, the row named by `isDefault` is also the
// default member. `run` is passed the object, the access and the arguments (a put's value last).
template <typename T>
struct Member {
  std::u16string_view name;
  MemberKind kind = MemberKind::Method;
  Value (*run)(T& object, Access access, std::span<Value> arguments) = nullptr;
  std::size_t least = 0;  // fewest arguments, a put's value not counted
  std::size_t most = 0;   // most arguments, a put's value not counted
  bool isDefault = false;
};

// T derives from LocalObject<T> and has a static `std::span<const Member<T>> Members()`.
template <typename T>
class LocalObject : public AutomationObject, public std::enable_shared_from_this<T> {
 public:
  MemberId Find(std::u16string_view name) override;
  Value Invoke(MemberId id, Access access, std::span<Value> arguments) override;
};

// Shared by all tables; throw AutomationError.
[[noreturn]] void ThrowUnknownName(std::u16string_view name);
[[noreturn]] void ThrowMemberNotFound(std::u16string_view name);
void CheckArgumentCount(std::u16string_view name, std::size_t given, std::size_t least,
                        std::size_t most);
bool NamesEqual(std::u16string_view left, std::u16string_view right);

template <typename T>
MemberId LocalObject<T>::Find(std::u16string_view name) {
  MemberId id = 0;
  for (const Member<T>& member : T::Members()) {
    ++id;
    if (name.empty() ? member.isDefault : NamesEqual(member.name, name)) return id;
  }
  ThrowUnknownName(name);
}

template <typename T>
Value LocalObject<T>::Invoke(MemberId id, Access access, std::span<Value> arguments) {
  const auto members = T::Members();
  if (id == kDefaultMember) id = Find({});
  if (id < 1 || static_cast<std::size_t>(id) > members.size()) ThrowMemberNotFound({});
  const Member<T>& member = members[static_cast<std::size_t>(id) - 1];
  const bool put = access != Access::Call;
  const auto kind = static_cast<unsigned>(member.kind);
  const auto allowed =
      put ? static_cast<unsigned>(MemberKind::Put)
          : static_cast<unsigned>(MemberKind::Method) | static_cast<unsigned>(MemberKind::Get);
  if ((kind & allowed) == 0) ThrowMemberNotFound(member.name);
  const std::size_t values = put ? 1 : 0;
  CheckArgumentCount(member.name, arguments.size(), member.least + values, member.most + values);
  return member.run(static_cast<T&>(*this), access, arguments);
}

}  // namespace pricedown
