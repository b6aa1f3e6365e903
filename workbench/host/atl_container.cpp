// atl.dll is loaded once and stays loaded, because it owns the window class.
#include "workbench/host/atl_container.h"

#include "platform/error.h"
#include "platform/text.h"
#include "windows/com/wide_text.h"

namespace workbench {

namespace {

struct Atl {
  HMODULE library = LoadLibraryW(L"atl.dll");
  bool ready = false;
  HRESULT(WINAPI* getControl)(HWND, IUnknown**) = nullptr;

  Atl() {
    if (library == nullptr) return;
    // GetProcAddress returns one function type for all.
    const auto initialise = reinterpret_cast<BOOL(WINAPI*)()>(
        reinterpret_cast<void*>(GetProcAddress(library, "AtlAxWinInit")));
    getControl = reinterpret_cast<decltype(getControl)>(
        reinterpret_cast<void*>(GetProcAddress(library, "AtlAxGetControl")));
    // A second call would fail: the window class is registered already.
    ready = initialise != nullptr && getControl != nullptr && initialise();
  }
};

const Atl& LoadedAtl() {
  static const Atl atl;
  if (!atl.ready) {
    throw pricedown::AutomationError(pricedown::ErrorNumber::Unspecified,
                                     u"系统缺少控件容器 (atl.dll)。", u"WorkbenchHost");
  }
  return atl;
}

}  // namespace

HWND CreateAtlContainer(HINSTANCE module, HWND parent, const wchar_t* progId) {
  LoadedAtl();
  const HWND container = CreateWindowExW(WS_EX_CONTROLPARENT, L"AtlAxWin", progId,
                                         WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN | WS_CLIPSIBLINGS,
                                         0, 0, 0, 0, parent, nullptr, module, nullptr);
  if (container == nullptr || !ControlOf(container)) {
    if (container != nullptr) DestroyWindow(container);
    throw pricedown::AutomationError(
        pricedown::ErrorNumber::CannotCreateObject,
        pricedown::Concatenate({u"无法创建控件“", pricedown::windows::FromWide(progId), u"”。"}),
        u"WorkbenchHost");
  }
  return container;
}

pricedown::windows::ComPtr<IUnknown> ControlOf(HWND container) {
  pricedown::windows::ComPtr<IUnknown> control;
  LoadedAtl().getControl(container, control.put());
  return control;
}

}  // namespace workbench
