// Another module's object, called late-bound through IDispatch.
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

  // Adds a reference for the caller.
  ComPtr<IDispatch> Dispatch() const { return object_.Copy(); }

 private:
  HRESULT FindId(std::u16string_view name, DISPID& id);
  HRESULT Send(DISPID member, WORD flags, DISPPARAMS& parameters, VARIANT* result,
               EXCEPINFO& record);

  ComPtr<IDispatch> object_;
  // Set for objects that implement names and calls in this interface alone.
  ComPtr<IDispatchEx> extended_;
  // By the spelling of the caller.
  std::unordered_map<std::u16string, MemberId> members_;
};

}  // namespace pricedown::windows
