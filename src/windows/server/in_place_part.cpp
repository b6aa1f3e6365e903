// The in-place interfaces, forwarded; keys go to the window first and to the site then.
// The window's own keys are windows/ui.
#include "windows/server/in_place_part.h"

namespace pricedown::windows {
namespace {

DWORD PressedModifiers() {
  const auto pressed = [](int key, DWORD flag) { return GetKeyState(key) < 0 ? flag : 0; };
  // KEYMOD_SHIFT, KEYMOD_CONTROL and KEYMOD_ALT.
  return pressed(VK_SHIFT, 1) | pressed(VK_CONTROL, 2) | pressed(VK_MENU, 4);
}

}  // namespace

STDMETHODIMP InPlacePart::GetWindow(HWND* window) noexcept {
  if (window == nullptr) return E_POINTER;
  *window = Hosted().Activation().IsActive() ? Hosted().Window().Handle() : nullptr;
  return *window != nullptr ? S_OK : E_FAIL;
}

STDMETHODIMP InPlacePart::ContextSensitiveHelp(BOOL) noexcept { return E_NOTIMPL; }

STDMETHODIMP InPlacePart::InPlaceDeactivate() noexcept {
  return Hosted().Run([&] { Hosted().Deactivate(); });
}

STDMETHODIMP InPlacePart::UIDeactivate() noexcept {
  return Hosted().Run([&] { Hosted().DeactivateUi(); });
}

STDMETHODIMP InPlacePart::SetObjectRects(LPCRECT position, LPCRECT clip) noexcept {
  if (position == nullptr) return E_POINTER;
  return Hosted().Run([&] { Hosted().SetRects(*position, clip != nullptr ? *clip : *position); });
}

STDMETHODIMP InPlacePart::ReactivateAndUndo() noexcept { return INPLACE_E_NOTUNDOABLE; }

STDMETHODIMP InPlacePart::TranslateAccelerator(LPMSG message) noexcept {
  if (message == nullptr) return E_POINTER;
  if (message->message < WM_KEYFIRST || message->message > WM_KEYLAST) return S_FALSE;
  return Hosted().Run([&]() -> HRESULT {
    if (Hosted().TakesInput() && Hosted().Window().TranslateKey(*message)) return S_OK;
    const auto site = Hosted().Site().As<IOleControlSite>();
    return site ? site->TranslateAccelerator(message, PressedModifiers()) : S_FALSE;
  });
}

STDMETHODIMP InPlacePart::OnFrameWindowActivate(BOOL) noexcept { return S_OK; }

STDMETHODIMP InPlacePart::OnDocWindowActivate(BOOL activate) noexcept {
  if (activate == FALSE) return S_OK;
  return Hosted().Run([&] {
    if (Hosted().Activation().IsActive()) Hosted().Activate(true);
  });
}

STDMETHODIMP InPlacePart::ResizeBorder(LPCRECT, IOleInPlaceUIWindow*, BOOL) noexcept {
  return S_OK;
}

STDMETHODIMP InPlacePart::EnableModeless(BOOL) noexcept { return S_OK; }

}  // namespace pricedown::windows
