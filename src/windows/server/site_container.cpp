// The look-up of the container's caption and window.
#include "windows/server/site_container.h"

#include <algorithm>
#include <iterator>
#include <string_view>

#include "platform/convert.h"
#include "platform/error.h"
#include "platform/skip.h"
#include "windows/base/plain_control.h"
#include "windows/com/variant_value.h"

namespace pricedown::windows {
namespace {

ObjectPtr ParentOf(IDispatch* extender) {
  ObjectPtr parent;
  if (extender == nullptr) return parent;
  SkipFailing([&] { parent = RequireObject(FromDispatch(extender)->Get(u"Parent"), u"Parent"); });
  return parent;
}

// The text of these names the control, not the document.
bool IsSystemContainer(HWND window) {
  constexpr std::wstring_view kClass = L"AtlAxWin";
  wchar_t name[64];
  const int length = GetClassNameW(window, name, static_cast<int>(std::size(name)));
  return std::wstring_view(name, static_cast<std::size_t>(std::max(length, 0))).starts_with(kClass);
}

[[noreturn]] void ThrowNoContainer() {
  throw AutomationError(ErrorNumber::ObjectNotSet, u"控件不在容器窗口中");
}

}  // namespace

HWND DocumentWindow(HWND window) {
  for (;;) {
    const LONG_PTR style = GetWindowLongPtrW(window, GWL_STYLE);
    if ((style & WS_CAPTION) == WS_CAPTION || (style & WS_CHILD) == 0) return window;
    if (GetWindowTextLengthW(window) > 0 && !IsSystemContainer(window)) return window;
    const HWND parent = GetAncestor(window, GA_PARENT);
    if (parent == nullptr || parent == GetDesktopWindow()) return window;
    window = parent;
  }
}

ObjectPtr SiteContainer::Parent() const {
  if (const auto control = site_.As<IOleControlSite>()) {
    ComPtr<IDispatch> extender;
    if (SUCCEEDED(control->GetExtendedControl(extender.put()))) {
      if (ObjectPtr parent = ParentOf(extender.get())) return parent;
    }
  }
  return ParentOf(site_.As<IDispatch>().get());
}

HWND SiteContainer::ParentWindow() const {
  const auto inPlace = site_.As<IOleInPlaceSite>();
  HWND window = nullptr;
  if (!inPlace || FAILED(inPlace->GetWindow(&window)) || !IsWindow(window)) return nullptr;
  return DocumentWindow(window);
}

std::u16string SiteContainer::Caption() const {
  std::u16string caption;
  const ObjectPtr parent = Parent();
  if (parent != nullptr && SkipFailing([&] { caption = ToText(parent->Get(u"Caption")); })) {
    return caption;
  }
  const HWND window = ParentWindow();
  if (window == nullptr) ThrowNoContainer();
  return TextOf(window);
}

void SiteContainer::Close() {
  HWND window = nullptr;
  if (const ObjectPtr parent = Parent()) {
    // A window's handle has 32 significant bits everywhere.
    SkipFailing([&] { window = static_cast<HWND>(LongToHandle(ToInt32(parent->Get(u"hWnd")))); });
  }
  if (window == nullptr || !IsWindow(window)) window = ParentWindow();
  if (window == nullptr) ThrowNoContainer();
  SendMessageW(window, WM_CLOSE, 0, 0);
}

}  // namespace pricedown::windows
