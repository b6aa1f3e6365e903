// The owner of one VARIANT.
// What it means to the core is variant_value.h.
#pragma once

#include <windows.h>

#include <oleauto.h>

#include <utility>

namespace pricedown::windows {

class Variant {
 public:
  Variant() { VariantInit(&variant_); }
  Variant(Variant&& other) noexcept : variant_(other.release()) {}
  Variant& operator=(Variant&& other) noexcept {
    attach(other.release());
    return *this;
  }
  ~Variant() { VariantClear(&variant_); }

  // Borrowed.
  const VARIANT& get() const { return variant_; }
  // For a function that fills it; clears first.
  VARIANT* put() {
    VariantClear(&variant_);
    return &variant_;
  }
  // For a function that may replace the content in place.
  VARIANT* share() { return &variant_; }
  // Takes over what the caller's variant owns and clears the present content.
  void attach(const VARIANT& variant) {
    VARIANT old = std::exchange(variant_, variant);
    VariantClear(&old);
  }
  // Hands the content to the caller.
  VARIANT release() {
    VARIANT empty;
    VariantInit(&empty);
    return std::exchange(variant_, empty);
  }

 private:
  VARIANT variant_;
};

}  // namespace pricedown::windows
