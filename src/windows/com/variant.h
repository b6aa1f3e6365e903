// The owner of one VARIANT.
#pragma once

#include <windows.h>

#include <oleauto.h>

#include <utility>

namespace pricedown::windows {

class Variant {
 public:
  Variant() = default;
  Variant(Variant&& other) noexcept : variant_(other.release()) {}
  Variant& operator=(Variant&& other) noexcept {
    attach(other.release());
    return *this;
  }
  ~Variant() { VariantClear(&variant_); }

  // Borrowed.
  const VARIANT& get() const { return variant_; }
  // For a function that sets it; clears first.
  VARIANT* put() {
    VariantClear(&variant_);
    return &variant_;
  }
  // For a function that may replace the content in place.
  VARIANT* share() { return &variant_; }
  // Takes over the content of `variant` and clears the present one.
  void attach(const VARIANT& variant) {
    VARIANT old = std::exchange(variant_, variant);
    VariantClear(&old);
  }
  // Passes the content to the caller.
  VARIANT release() { return std::exchange(variant_, VARIANT{}); }

 private:
  VARIANT variant_{};  // VT_EMPTY
};

}  // namespace pricedown::windows
