// The arguments of an incoming call: from DISPPARAMS to values in the order of the parameters.
#pragma once

#include <oaidl.h>

#include <functional>
#include <span>
#include <vector>

#include "platform/value.h"

namespace pricedown::windows {

class IncomingArguments {
 public:
  // With `put` the last value is the property's new one, whether its argument is named or not.
  // Other named arguments are positions, 0 for the first parameter; parameters skipped by them are
  // Missing. `badArgument` is set to the index of an argument that cannot be converted; it may be
  // null. `convert` is called with each argument and its position. Throws AutomationError.
  using Converter = std::function<Value(std::size_t position, const VARIANT& argument)>;
  IncomingArguments(const DISPPARAMS& parameters, bool put, UINT* badArgument,
                    const Converter& convert);
  IncomingArguments(const IncomingArguments&) = delete;
  IncomingArguments& operator=(const IncomingArguments&) = delete;

  // By-reference arguments are references.
  std::span<Value> Values() { return values_; }

  // The index in rgvarg of the argument for a parameter; the parameter's own number for one that
  // was skipped.
  UINT IndexOf(std::size_t parameter) const { return indexes_[parameter]; }

  // Stores changed by-reference arguments in the caller's variables, converted to their types.
  // Throws AutomationError.
  void WriteBack();

 private:
  struct Reference {
    const VARIANT* argument = nullptr;
    Value before;
    Value now;
  };

  void Place(std::size_t position, UINT index, const Converter& convert);

  const DISPPARAMS& parameters_;
  std::vector<Value> values_;
  std::vector<UINT> indexes_;
  std::vector<Reference> references_;  // never grows beyond its reserve: values point into it
};

}  // namespace pricedown::windows
