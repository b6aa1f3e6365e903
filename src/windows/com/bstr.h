// The owner of one BSTR.
#pragma once

#include <windows.h>

#include <oleauto.h>

#include <limits>
#include <new>
#include <string>
#include <string_view>
#include <utility>

#include "windows/com/wide_text.h"

namespace pricedown::windows {

// Borrowed or owned, a null BSTR is the empty text.
inline std::u16string FromBstr(BSTR text) { return FromWide({text, SysStringLen(text)}); }

class Bstr {
 public:
  Bstr() = default;
  // Copies; throws std::bad_alloc.
  explicit Bstr(std::u16string_view text) {
    // The length in bytes must fit the block's 32-bit prefix.
    if (text.size() > std::numeric_limits<INT>::max() / sizeof(OLECHAR)) throw std::bad_alloc();
    text_ = SysAllocStringLen(nullptr, static_cast<UINT>(text.size()));
    if (text_ == nullptr) throw std::bad_alloc();
    CopyWide(text, text_);
  }
  Bstr(Bstr&& other) noexcept : text_(other.release()) {}
  Bstr& operator=(Bstr&& other) noexcept {
    attach(other.release());
    return *this;
  }
  ~Bstr() { attach(nullptr); }

  // Borrowed.
  BSTR get() const { return text_; }
  // For a function that sets it; frees the present text first.
  BSTR* put() {
    attach(nullptr);
    return &text_;
  }
  // Takes over the caller's text.
  void attach(BSTR text) { SysFreeString(std::exchange(text_, text)); }
  // Passes the text to the caller.
  BSTR release() { return std::exchange(text_, nullptr); }

  // A copy.
  std::u16string Text() const { return FromBstr(text_); }

 private:
  BSTR text_ = nullptr;
};

}  // namespace pricedown::windows
