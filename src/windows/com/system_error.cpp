// Texts of the system's codes, and the exceptions made from codes.
#include "windows/com/system_error.h"

#include <algorithm>
#include <array>
#include <cstdint>

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

// Refusals of automation, which not every system has a text for.
struct CodeText {
  HRESULT code;
  std::u16string_view text;
};

constexpr std::array kTexts{
    CodeText{DISP_E_MEMBERNOTFOUND, u"找不到成员，或成员不能这样使用"},
    CodeText{DISP_E_PARAMNOTFOUND, u"找不到参数"},
    CodeText{DISP_E_TYPEMISMATCH, u"类型不匹配"},
    CodeText{DISP_E_UNKNOWNNAME, u"未知名称"},
    CodeText{DISP_E_NONAMEDARGS, u"不支持命名参数"},
    CodeText{DISP_E_EXCEPTION, u"发生意外"},
    CodeText{DISP_E_OVERFLOW, u"溢出"},
    CodeText{DISP_E_BADINDEX, u"无效索引"},
    CodeText{DISP_E_ARRAYISLOCKED, u"数组已锁定"},
    CodeText{DISP_E_BADPARAMCOUNT, u"参数个数无效"},
    CodeText{DISP_E_PARAMNOTOPTIONAL, u"缺少必需的参数"},
    CodeText{DISP_E_BADVARTYPE, u"变量类型无效"},
    CodeText{CO_E_CLASSSTRING, u"类名无效，或该类没有注册"},
    CodeText{REGDB_E_CLASSNOTREG, u"没有注册该类"},
    CodeText{RPC_E_WRONG_THREAD, u"从另一个线程调用"},
    CodeText{RPC_E_DISCONNECTED, u"对象已与其客户断开"},
};

}  // namespace

std::u16string SystemText(HRESULT code) {
  std::array<wchar_t, 512> buffer{};
  constexpr DWORD flags = FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS;
  DWORD length = FormatMessageW(flags, nullptr, static_cast<DWORD>(code), 0, buffer.data(),
                                static_cast<DWORD>(buffer.size()), nullptr);
  while (length > 0 && buffer[length - 1] <= L' ') --length;
  if (length == 0) {
    const auto known = std::find_if(kTexts.begin(), kTexts.end(),
                                    [code](const CodeText& one) { return one.code == code; });
    const std::u16string_view text = known != kTexts.end() ? known->text : u"未知错误";
    return Concatenate({text, u" (", Hexadecimal(code), u")"});
  }
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
