// The owner of one reference to a COM object.
// It never adds or drops a reference behind the reader's back: every way in says what it does.
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
    return Take(pointer);
  }
  // Takes over the caller's reference.
  static ComPtr Take(T* pointer) {
    ComPtr owner;
    owner.pointer_ = pointer;
    return owner;
  }

  // Borrowed.
  T* get() const { return pointer_; }
  // For a function that fills it; drops the present reference first.
  T** put() {
    attach(nullptr);
    return &pointer_;
  }
  void** putVoid() { return reinterpret_cast<void**>(put()); }
  // Takes over the caller's reference and drops the present one, in an order that is safe when
  // the dropped object reaches back.
  void attach(T* pointer) {
    T* old = std::exchange(pointer_, pointer);
    if (old != nullptr) old->Release();
  }
  // Hands the reference to the caller.
  T* release() { return std::exchange(pointer_, nullptr); }

  T* operator->() const { return pointer_; }
  explicit operator bool() const { return pointer_ != nullptr; }

  ComPtr Copy() const { return Share(pointer_); }
  // Another interface of the object; null when it has none or there is no object.
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
