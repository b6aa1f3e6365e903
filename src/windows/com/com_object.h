// Another module's object, called late-bound through IDispatch.
#pragma once

#include <dispex.h>
#include <oaidl.h>

#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>

#include "platform/automation.h"
#include "windows/com/com_ptr.h"
#include "windows/com/variant.h"

namespace pricedown::windows {

class ComObject final : public AutomationObject {
 public:
  // `name` is what failures name as their source, in front of the member. Requires: `object` is not
  // null.
  explicit ComObject(ComPtr<IDispatch> object, std::u16string_view name = {})
      : object_(std::move(object)), names_(std::make_shared<Names>()) {
    names_->object = name;
  }

  MemberId Find(std::u16string_view name) override;
  Value Invoke(MemberId member, Access access, std::span<Value> arguments) override;
  void Perform(MemberId member, std::span<Value> arguments) override;
  Value Prepared(Value argument) override;

  // Adds a reference for the caller.
  ComPtr<IDispatch> Dispatch() const { return object_.Copy(); }

 private:
  struct Names {
    std::u16string object;
    std::unordered_map<std::u16string, MemberId> members;  // by the spelling of the caller

    // "object.member", or the one that is known.
    std::u16string SourceOf(MemberId member) const;
  };

  HRESULT FindId(std::u16string_view name, DISPID& id);
  Variant InvokeVariant(MemberId member, Access access, std::span<Value> arguments);
  HRESULT Send(DISPID member, WORD flags, DISPPARAMS& parameters, VARIANT* result,
               EXCEPINFO& record);

  ComPtr<IDispatch> object_;
  // Set for objects that implement names and calls in this interface alone.
  ComPtr<IDispatchEx> extended_;
  std::shared_ptr<Names> names_;
};

}  // namespace pricedown::windows
