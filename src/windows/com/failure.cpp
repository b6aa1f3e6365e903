// Texts of the system's codes, and the exceptions made from codes.
#include "windows/com/failure.h"

#include <array>
#include <cstdint>

#include "platform/error.h"
#include "windows/com/wide_text.h"

namespace pricedown::windows {
namespace {

std::u16string Hexadecimal(HRESULT code) {
  std::u16string text = u"0x";
  for (int shift = 28; shift >= 0; shift -= 4) {
    text += u"0123456789ABCDEF"[(static_cast<std::uint32_t>(code) >> shift) & 0xF];
  }
  return text;
}

}  // namespace

std::u16string SystemText(HRESULT code) {
  std::array<wchar_t, 512> buffer{};
  constexpr DWORD flags = FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS;
  DWORD length = FormatMessageW(flags, nullptr, static_cast<DWORD>(code), 0, buffer.data(),
                                static_cast<DWORD>(buffer.size()), nullptr);
  while (length > 0 && buffer[length - 1] <= L' ') --length;
  if (length == 0) return Hexadecimal(code);
  return FromWide({buffer.data(), length});
}

void ThrowIfFailed(HRESULT code) {
  if (FAILED(code)) throw AutomationError(code, SystemText(code));
}

void ThrowLastError() {
  const DWORD error = GetLastError();
  const HRESULT code = error == ERROR_SUCCESS ? E_FAIL : HRESULT_FROM_WIN32(error);
  throw AutomationError(code, SystemText(code));
}

}  // namespace pricedown::windows
