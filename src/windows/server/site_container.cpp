// The look-up of the container's caption and window.
#include "windows/server/site_container.h"

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

// Windows whose text does not name the document: the system's container has the control's name,
// group boxes and labels a heading.
bool HasOtherText(HWND window) {
  wchar_t name[64] = {};
  GetClassNameW(window, name, static_cast<int>(std::size(name)));
  return std::wstring_view(name).starts_with(L"AtlAxWin") || lstrcmpiW(name, L"Button") == 0 ||
         lstrcmpiW(name, L"Static") == 0;
}

// The document's window within the container's frame; null where the container names none.
HWND NamedDocument(IOleInPlaceSite& site) {
  ComPtr<IOleInPlaceFrame> frame;
  ComPtr<IOleInPlaceUIWindow> document;
  RECT position{};
  RECT clip{};
  OLEINPLACEFRAMEINFO info{};
  info.cb = sizeof info;
  HWND window = nullptr;
  if (FAILED(site.GetWindowContext(frame.put(), document.put(), &position, &clip, &info)) ||
      !document || FAILED(document->GetWindow(&window)) || window == info.hwndFrame) {
    return nullptr;
  }
  return IsWindow(window) != FALSE && !HasOtherText(window) ? window : nullptr;
}

[[noreturn]] void ThrowNoContainer() {
  throw AutomationError(ErrorNumber::ObjectNotSet, u"控件不在容器窗口中");
}

}  // namespace

HWND DocumentWindow(HWND window) {
  for (;;) {
    const LONG_PTR style = GetWindowLongPtrW(window, GWL_STYLE);
    if ((style & WS_CAPTION) == WS_CAPTION || (style & WS_CHILD) == 0) return window;
    if (GetWindowTextLengthW(window) > 0 && !HasOtherText(window)) return window;
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
  if (!inPlace) return nullptr;
  if (const HWND document = NamedDocument(*inPlace.get())) return document;
  HWND window = nullptr;
  if (FAILED(inPlace->GetWindow(&window)) || !IsWindow(window)) return nullptr;
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
