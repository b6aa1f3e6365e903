// A late-bound object of others, called through IDispatch.
// Our own objects, called by others, are dispatch_object.h.
#pragma once

#include <dispex.h>
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
  HRESULT FindId(std::u16string_view name, DISPID& id);
  HRESULT Send(DISPID member, WORD flags, DISPPARAMS& parameters, VARIANT* result,
               EXCEPINFO& record);

  ComPtr<IDispatch> object_;
  // Set for objects that answer names and calls through this interface alone.
  ComPtr<IDispatchEx> extended_;
  // By the spelling that was asked for; the library asks for few names.
  std::unordered_map<std::u16string, MemberId> members_;
};

}  // namespace pricedown::windows
