// One random argument of any type that a VARIANT can hold, by value or by reference.
#pragma once

#include <oaidl.h>

#include <memory>
#include <random>

#include "windows/com/variant.h"

namespace pricedown::testing {

class RandomArgument {
 public:
  // `object` may become part of it.
  RandomArgument(std::mt19937& random, IDispatch* object);
  RandomArgument(RandomArgument&&) = delete;

  // Borrowed; may point into this object.
  const VARIANT& Sent() const { return sent_; }

 private:
  void ByReference(std::mt19937& random);
  void Nonsense(std::mt19937& random);

  windows::Variant owned_;
  VARIANT inner_{};  // a reference that is itself passed by reference
  VARIANT sent_{};
};

}  // namespace pricedown::testing
