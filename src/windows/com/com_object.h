// A late-bound object of others, called through IDispatch.
// Our own objects, called by others, are dispatch_object.h.
#pragma once

#include <oaidl.h>

#include <string>
#include <unordered_map>

#include "platform/automation.h"
#include "windows/com/com_ptr.h"

namespace pricedown::windows {

class ComObject final : public AutomationObject {
 public:
  // Requires: `object` is not null.
  explicit ComObject(ComPtr<IDispatch> object) : object_(std::move(object)) {}

  MemberId Find(std::u16string_view name) override;
  Value Invoke(MemberId member, Access access, std::span<Value> arguments) override;

  // With a reference for the caller.
  ComPtr<IDispatch> Dispatch() const { return object_.Copy(); }

 private:
  ComPtr<IDispatch> object_;
  // By the spelling that was asked for; the library asks for few names.
  std::unordered_map<std::u16string, MemberId> members_;
};

}  // namespace pricedown::windows
