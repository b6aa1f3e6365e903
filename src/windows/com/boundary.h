// The wrapper of every COM method: nothing but an HRESULT leaves it.
// Window procedures and callbacks use CurrentFailure of failure.h in the same way.
#pragma once

#include <windows.h>

#include <oleauto.h>

#include <type_traits>
#include <utility>

#include "windows/com/failure.h"

namespace pricedown::windows {

// Makes the failure the thread's error info for `interfaceId` and answers its code. Without
// memory the error info is cleared.
HRESULT PublishFailure(const Failure& failure, const IID& interfaceId) noexcept;

// Runs `body`, which answers an HRESULT or nothing. An exception becomes its code and the
// thread's error info; a code answered without an exception leaves no stale error info behind.
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
