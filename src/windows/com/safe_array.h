// The owner of one SAFEARRAY.
#pragma once

#include <windows.h>

#include <oleauto.h>

#include <utility>

namespace pricedown::windows {

class SafeArray {
 public:
  SafeArray() = default;
  SafeArray(SafeArray&& other) noexcept : array_(other.release()) {}
  SafeArray& operator=(SafeArray&& other) noexcept {
    attach(other.release());
    return *this;
  }
  ~SafeArray() { attach(nullptr); }

  // Borrowed.
  SAFEARRAY* get() const { return array_; }
  // For a function that sets it; destroys the present array first.
  SAFEARRAY** put() {
    attach(nullptr);
    return &array_;
  }
  // Takes over the caller's array.
  void attach(SAFEARRAY* array) {
    SAFEARRAY* old = std::exchange(array_, array);
    if (old != nullptr) SafeArrayDestroy(old);
  }
  // Passes the array to the caller.
  SAFEARRAY* release() { return std::exchange(array_, nullptr); }

  explicit operator bool() const { return array_ != nullptr; }

 private:
  SAFEARRAY* array_ = nullptr;
};

}  // namespace pricedown::windows
