// The services of the script host. The container is atl.dll's, a foreign one.
#include "tests/windows/script_host/script_services.h"

#include <oaidl.h>

#include <array>
#include <cstdio>

#include "platform/convert.h"
#include "platform/error.h"
#include "platform/text.h"
#include "tests/windows/script_host/window_picture.h"
#include "windows/com/com_ptr.h"
#include "windows/com/system_error.h"
#include "windows/com/variant_value.h"
#include "windows/com/wide_text.h"

namespace pricedown::testing {
namespace {

using windows::ComPtr;
using windows::ThrowLastError;
using windows::ToWide;

using GetControl = HRESULT(WINAPI*)(HWND, IUnknown**);
using Initialize = BOOL(WINAPI*)();

template <typename Function>
Function AtlFunction(const char* name) {
  static const HMODULE atl = LoadLibraryW(L"atl.dll");
  if (atl == nullptr) ThrowLastError();
  return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(atl, name)));
}

std::u16string Readable(const Value& value) {
  return value.Is(Value::Kind::Object) ? std::u16string(u"[object]") : ToText(value);
}

}  // namespace

void ScriptServices::Print(std::u16string_view text) {
  std::printf("%s\n", ToUtf8(text).c_str());
  std::fflush(stdout);
}

void ScriptServices::Check(std::u16string_view name, bool holds) {
  if (!holds) ++failedChecks_;
  Print(Concatenate({holds ? u"ok      " : u"FAILED  ", name}));
}

Value ScriptServices::HostControl(std::u16string_view progId, std::u16string_view caption) {
  AtlFunction<Initialize>("AtlAxWinInit")();
  constexpr DWORD visible = WS_VISIBLE | WS_CLIPCHILDREN;
  const HWND frame =
      CreateWindowExW(0, L"#32770", ToWide(caption).c_str(), WS_OVERLAPPEDWINDOW | visible, 40, 40,
                      900, 600, nullptr, nullptr, nullptr, nullptr);
  if (frame == nullptr) ThrowLastError();
  windows_.push_back(frame);
  RECT inside{};
  GetClientRect(frame, &inside);
  const HWND container =
      CreateWindowExW(0, L"AtlAxWin", ToWide(progId).c_str(), WS_CHILD | visible, 0, 0,
                      inside.right, inside.bottom, frame, nullptr, nullptr, nullptr);
  if (container == nullptr) ThrowLastError();
  ComPtr<IUnknown> control;
  windows::ThrowIfFailed(AtlFunction<GetControl>("AtlAxGetControl")(container, control.put()));
  return windows::FromDispatch(control.As<IDispatch>().get());
}

std::u16string ScriptServices::Picture() const {
  std::u16string pictures;
  for (const HWND window : windows_) pictures += Concatenate({PictureOf(window), u" "});
  return pictures;
}

void ScriptServices::CloseWindows() {
  for (const HWND window : windows_) DestroyWindow(window);
  windows_.clear();
}

std::span<const Member<ScriptServices>> ScriptServices::Members() {
  using Services = ScriptServices;
  using Arguments = std::span<Value>;
  static const std::array members{
      Member<Services>{u"Print", MemberKind::Method,
                       [](Services& services, Access, Arguments arguments) {
                         services.Print(Readable(arguments[0].Resolved()));
                         return Value();
                       },
                       1, 1},
      Member<Services>{u"Check", MemberKind::Method,
                       [](Services& services, Access, Arguments arguments) {
                         services.Check(ToText(arguments[0]), ToBoolean(arguments[1]));
                         return Value();
                       },
                       2, 2},
      Member<Services>{
          u"CheckEqual", MemberKind::Method,
          [](Services& services, Access, Arguments arguments) {
            const std::u16string found = Readable(arguments[1].Resolved());
            const std::u16string expected = Readable(arguments[2].Resolved());
            services.Check(ToText(arguments[0]), found == expected);
            if (found != expected) {
              services.Print(Concatenate({u"        found ", found, u", expected ", expected}));
            }
            return Value();
          },
          3, 3},
      Member<Services>{u"HostControl", MemberKind::Method,
                       [](Services& services, Access, Arguments arguments) {
                         return services.HostControl(ToText(arguments[0]), ToText(arguments[1]));
                       },
                       2, 2},
      Member<Services>{
          u"Picture", MemberKind::Get,
          [](Services& services, Access, Arguments) -> Value { return services.Picture(); }},
      Member<Services>{u"CloseWindows", MemberKind::Method,
                       [](Services& services, Access, Arguments) {
                         services.CloseWindows();
                         return Value();
                       }},
      Member<Services>{u"Play", MemberKind::Method,
                       [](Services& services, Access, Arguments arguments) {
                         const Value& player = arguments[0].Resolved();
                         services.User().Play(player.IsNothing() ? nullptr : player.Object());
                         return Value();
                       },
                       1, 1},
      Member<Services>{u"WindowClass", MemberKind::Get,
                       [](Services& services, Access, Arguments) -> Value {
                         return services.User().WindowClass();
                       }},
      Member<Services>{u"TextIn", MemberKind::Method,
                       [](Services& services, Access, Arguments arguments) -> Value {
                         return services.User().Text(ToInt32(arguments[0]));
                       },
                       1, 1},
      Member<Services>{u"TypeInto", MemberKind::Method,
                       [](Services& services, Access, Arguments arguments) {
                         services.User().Type(ToInt32(arguments[0]), ToText(arguments[1]));
                         return Value();
                       },
                       2, 2},
      Member<Services>{u"PressKey", MemberKind::Method,
                       [](Services& services, Access, Arguments arguments) {
                         services.User().PressKey(ToInt32(arguments[0]), ToInt32(arguments[1]));
                         return Value();
                       },
                       2, 2},
      Member<Services>{u"PressTool", MemberKind::Method,
                       [](Services& services, Access, Arguments arguments) {
                         services.User().PressTool(ToInt32(arguments[0]), ToInt32(arguments[1]));
                         return Value();
                       },
                       2, 2},
      Member<Services>{u"PressButton", MemberKind::Method,
                       [](Services& services, Access, Arguments arguments) {
                         services.User().PressButton(ToInt32(arguments[0]));
                         return Value();
                       },
                       1, 1},
      Member<Services>{u"CloseForm", MemberKind::Method,
                       [](Services& services, Access, Arguments) {
                         services.User().CloseWindow();
                         return Value();
                       }},
  };
  return members;
}

}  // namespace pricedown::testing
