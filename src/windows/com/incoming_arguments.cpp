// The order, names and references of a call's arguments.
#include "windows/com/incoming_arguments.h"

#include "platform/error.h"
#include "windows/com/by_reference.h"
#include "windows/com/variant_value.h"

namespace pricedown::windows {
namespace {

// More positions than any member has parameters.
constexpr DISPID kMaximumPositions = 64;

}  // namespace

IncomingArguments::IncomingArguments(const DISPPARAMS& parameters, bool put, UINT* badArgument,
                                     const Converter& convert)
    : parameters_(parameters) {
  const UINT count = parameters.cArgs;
  UINT named = parameters.cNamedArgs;
  if (named > count) {
    throw AutomationError(ErrorNumber::BadParameterCount, u"命名参数多于参数");
  }
  values_.reserve(count);
  indexes_.reserve(count);
  UINT index = count;
  try {
    // Positional arguments follow the named ones, the first one last.
    const bool namedValue =
        put && named > 0 && parameters.rgdispidNamedArgs[0] == DISPID_PROPERTYPUT;
    while (index > named) {
      --index;
      Place(values_.size(), index, convert);
    }
    for (UINT name = namedValue ? 1 : 0; name < named; ++name) {
      const DISPID position = parameters.rgdispidNamedArgs[name];
      if (position < 0 || position >= kMaximumPositions) {
        throw AutomationError(DISP_E_PARAMNOTFOUND, u"没有此名称的参数");
      }
      index = name;
      Place(static_cast<std::size_t>(position), index, convert);
    }
    if (namedValue) {
      index = 0;
      Place(values_.size(), index, convert);
    }
  } catch (...) {
    if (badArgument != nullptr) *badArgument = index;
    throw;
  }
}

void IncomingArguments::Place(std::size_t position, UINT index, const Converter& convert) {
  while (values_.size() <= position) {
    indexes_.push_back(static_cast<UINT>(values_.size()));
    values_.emplace_back(Missing{});
  }
  indexes_[position] = index;
  const VARIANT& argument = parameters_.rgvarg[index];
  Value value = convert(position, argument);
  if ((argument.vt & VT_BYREF) == 0) {
    values_[position] = std::move(value);
    return;
  }
  if (references_.empty()) references_.reserve(parameters_.cArgs);
  references_.push_back({&argument, value, std::move(value)});
  values_[position] = Value::ByReference(references_.back().now);
}

void IncomingArguments::WriteBack() {
  for (const Reference& reference : references_) {
    if (reference.now != reference.before) {
      StoreByReference(*reference.argument, ToVariant(reference.now));
    }
  }
}

}  // namespace pricedown::windows
