// The arguments of an outgoing call: reversed, converted, with room for by-reference results.
#pragma once

#include <span>
#include <vector>

#include "platform/value.h"
#include "windows/com/variant.h"

namespace pricedown::windows {

class OutgoingArguments {
 public:
  // `values` must outlive the object. Throws AutomationError or std::bad_alloc.
  explicit OutgoingArguments(std::span<Value> values);
  OutgoingArguments(const OutgoingArguments&) = delete;
  OutgoingArguments& operator=(const OutgoingArguments&) = delete;

  // In the order of IDispatch, the last argument first. Valid as long as this object.
  std::span<VARIANT> Reversed() { return reversed_; }

  // Stores what the callee has set in the targets of by-reference values. Throws AutomationError.
  void WriteBack();

 private:
  std::span<Value> values_;
  std::vector<Variant> contents_;  // in the order of `values_`
  std::vector<VARIANT> reversed_;  // own nothing
};

}  // namespace pricedown::windows
