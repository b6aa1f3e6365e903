// Memory as drivers allocate it.
#include "tests/windows/print/fake_printer.h"

#include <cstring>

#include "windows/base/global_memory.h"

namespace pricedown::testing {

HGLOBAL NewMode(short orientation, short copies) {
  DriversMode value;
  value.mode.dmSize = sizeof value.mode;
  value.mode.dmDriverExtra = sizeof value.own;
  value.mode.dmFields = DM_ORIENTATION | DM_COPIES;
  value.mode.dmOrientation = orientation;
  value.mode.dmCopies = copies;
  return windows::CopyToGlobal(std::as_bytes(std::span(&value, 1)));
}

HGLOBAL NewNames(const std::wstring& device) {
  DEVNAMES head{};
  std::wstring text = L"winspool";
  head.wDriverOffset = sizeof head / sizeof(wchar_t);
  text += L'\0';
  head.wDeviceOffset = static_cast<WORD>(head.wDriverOffset + text.size());
  text += device;
  text += L'\0';
  head.wOutputOffset = static_cast<WORD>(head.wDriverOffset + text.size());
  text += L"port:";
  text += L'\0';
  std::vector<std::byte> bytes(sizeof head + text.size() * sizeof(wchar_t));
  std::memcpy(bytes.data(), &head, sizeof head);
  std::memcpy(bytes.data() + sizeof head, text.data(), text.size() * sizeof(wchar_t));
  return windows::CopyToGlobal(bytes);
}

}  // namespace pricedown::testing
