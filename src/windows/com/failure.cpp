// The ladder from exceptions to codes, and the way back from codes to exceptions.
// Every catch-all of the Windows layer ends here.
#include "windows/com/failure.h"

#include <array>
#include <exception>
#include <new>

#include "platform/error.h"
#include "platform/text.h"
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

void Describe(Failure& failure) {
  try {
    throw;
  } catch (const AutomationError& error) {
    if (FAILED(error.Number())) failure.code = error.Number();
    failure.description = error.Description();
    failure.source = error.Source();
  } catch (const std::bad_alloc&) {
    failure.code = E_OUTOFMEMORY;
    failure.description = u"内存不足";
  } catch (const std::exception& error) {
    failure.description = FromUtf8(error.what());
  } catch (...) {
    failure.code = E_UNEXPECTED;
    failure.description = u"意外错误";
  }
}

}  // namespace

Failure CurrentFailure() noexcept {
  Failure failure;
  failure.code = E_FAIL;
  try {
    Describe(failure);
  } catch (...) {
    // No memory for the texts; the code says enough.
  }
  return failure;
}

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
