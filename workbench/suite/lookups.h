// `ZEPEBCGLView.GLView`: the suite's account and item lookups and their results, on the open
// company.
#pragma once

#include "workbench/suite/services.h"

namespace workbench {

// Members: AccountLookup(text), ItemLookUp(type, omitted, condition, parameters). Both return a
// result with ReturnOK, ReturnValue and ReturnObject.
class GLView : public pricedown::LocalObject<GLView> {
 public:
  explicit GLView(SuiteStatePtr suite) : suite_(std::move(suite)) {}

  // ReturnObject is empty when cancelled, else it has Number and Name.
  pricedown::Value AccountLookup(std::u16string_view text);
  // ReturnObject is one item with Properties(name). For several items it is a collection with Size
  // and items by number from 1, and ReturnValue is empty. Throws AutomationError for a type other
  // than items and for a bad condition.
  pricedown::Value ItemLookUp(std::int32_t type, std::u16string_view condition,
                              const pricedown::Value& parameters);

  static std::span<const pricedown::Member<GLView>> Members();

 private:
  SuiteStatePtr suite_;
};

}  // namespace workbench
