// The wrapper of every COM method: only an HRESULT leaves it.
#pragma once

#include <windows.h>

#include <oleauto.h>

#include <string_view>
#include <type_traits>
#include <utility>

#include "platform/failure.h"

namespace pricedown::windows {

// Sets the failure as the thread's error info for `interfaceId` and returns its code. Without
// memory the error info is cleared.
HRESULT PublishFailure(const Failure& failure, const IID& interfaceId) noexcept;

// The answer to a call on a thread that is not the object's; leaves no error info of another call.
HRESULT RefuseThread() noexcept;

// What failures name as their source when they leave this module without one; empty until it is
// set. One per module.
std::u16string_view& ModuleSource() noexcept;
std::u16string_view SourceOf(const Failure& failure) noexcept;

// Runs `body`, which returns an HRESULT or nothing. An exception is converted to its code and the
// thread's error info; a failure code that `body` returns clears the error info.
template <typename Body>
HRESULT AtBoundary(Body&& body, const IID& interfaceId = IID{}) noexcept {
  try {
    if constexpr (std::is_void_v<decltype(body())>) {
      std::forward<Body>(body)();
      return S_OK;
    } else {
      const HRESULT code = std::forward<Body>(body)();
      if (FAILED(code)) SetErrorInfo(0, nullptr);
      return code;
    }
  } catch (...) {
    return PublishFailure(CurrentFailure(), interfaceId);
  }
}

}  // namespace pricedown::windows
