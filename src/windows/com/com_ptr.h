// The owner of one reference to a COM object. No implicit AddRef or Release; each function states
// its effect.
#pragma once

#include <unknwn.h>

#include <utility>

namespace pricedown::windows {

template <typename T>
class ComPtr {
 public:
  ComPtr() = default;
  ComPtr(ComPtr&& other) noexcept : pointer_(other.release()) {}
  ComPtr& operator=(ComPtr&& other) noexcept {
    attach(other.release());
    return *this;
  }
  ~ComPtr() { attach(nullptr); }

  // Adds a reference; `pointer` may be null.
  static ComPtr Share(T* pointer) {
    if (pointer != nullptr) pointer->AddRef();
    return Adopt(pointer);
  }
  // Takes over the caller's reference.
  static ComPtr Adopt(T* pointer) {
    ComPtr owner;
    owner.pointer_ = pointer;
    return owner;
  }

  // Borrowed.
  T* get() const { return pointer_; }
  // For a function that sets it; releases the present reference first.
  T** put() {
    attach(nullptr);
    return &pointer_;
  }
  void** putVoid() { return reinterpret_cast<void**>(put()); }
  // Takes over the caller's reference, then releases the present one, which may call back.
  void attach(T* pointer) {
    T* old = std::exchange(pointer_, pointer);
    if (old != nullptr) old->Release();
  }
  // Passes the reference to the caller.
  T* release() { return std::exchange(pointer_, nullptr); }

  T* operator->() const { return pointer_; }
  explicit operator bool() const { return pointer_ != nullptr; }

  ComPtr Copy() const { return Share(pointer_); }
  // Another interface of the object; null when it has none or this is null.
  template <typename Other>
  ComPtr<Other> As() const {
    ComPtr<Other> other;
    if (pointer_ == nullptr || FAILED(pointer_->QueryInterface(__uuidof(Other), other.putVoid()))) {
      return {};
    }
    return other;
  }

 private:
  T* pointer_ = nullptr;
};

}  // namespace pricedown::windows
