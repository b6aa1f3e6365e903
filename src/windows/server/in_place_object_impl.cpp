// The in-place interfaces; keys go to the window first, then to the site.
#include "windows/server/in_place_object_impl.h"

namespace pricedown::windows {
namespace {

DWORD PressedModifiers() {
  const auto pressed = [](int key, DWORD flag) { return GetKeyState(key) < 0 ? flag : 0; };
  // KEYMOD_SHIFT, KEYMOD_CONTROL and KEYMOD_ALT.
  return pressed(VK_SHIFT, 1) | pressed(VK_CONTROL, 2) | pressed(VK_MENU, 4);
}

}  // namespace

STDMETHODIMP InPlaceObjectImpl::GetWindow(HWND* window) noexcept {
  if (window == nullptr) return E_POINTER;
  *window = nullptr;
  return Hosted().Run([&] {
    if (Hosted().Activation().IsActive()) *window = Hosted().Window().Handle();
    return *window != nullptr ? S_OK : E_FAIL;
  });
}

STDMETHODIMP InPlaceObjectImpl::ContextSensitiveHelp(BOOL) noexcept { return E_NOTIMPL; }

STDMETHODIMP InPlaceObjectImpl::InPlaceDeactivate() noexcept {
  return Hosted().Run([&] { Hosted().Deactivate(); });
}

STDMETHODIMP InPlaceObjectImpl::UIDeactivate() noexcept {
  return Hosted().Run([&] { Hosted().DeactivateUi(); });
}

STDMETHODIMP InPlaceObjectImpl::SetObjectRects(LPCRECT position, LPCRECT clip) noexcept {
  if (position == nullptr) return E_POINTER;
  return Hosted().Run([&] { Hosted().SetRects(*position, clip != nullptr ? *clip : *position); });
}

STDMETHODIMP InPlaceObjectImpl::ReactivateAndUndo() noexcept { return INPLACE_E_NOTUNDOABLE; }

STDMETHODIMP InPlaceObjectImpl::TranslateAccelerator(LPMSG message) noexcept {
  if (message == nullptr) return E_POINTER;
  if (message->message < WM_KEYFIRST || message->message > WM_KEYLAST) return S_FALSE;
  return Hosted().Run([&]() -> HRESULT {
    if (Hosted().AcceptsInput() && Hosted().Window().TranslateKey(*message)) return S_OK;
    const auto site = Hosted().Site().As<IOleControlSite>();
    return site ? site->TranslateAccelerator(message, PressedModifiers()) : S_FALSE;
  });
}

STDMETHODIMP InPlaceObjectImpl::OnFrameWindowActivate(BOOL) noexcept { return S_OK; }

STDMETHODIMP InPlaceObjectImpl::OnDocWindowActivate(BOOL activate) noexcept {
  if (activate == FALSE) return S_OK;
  return Hosted().Run([&] {
    if (Hosted().Activation().IsActive() && Hosted().Window().IsShown()) Hosted().Activate(true);
  });
}

STDMETHODIMP InPlaceObjectImpl::ResizeBorder(LPCRECT, IOleInPlaceUIWindow*, BOOL) noexcept {
  return S_OK;
}

STDMETHODIMP InPlaceObjectImpl::EnableModeless(BOOL) noexcept { return S_OK; }

}  // namespace pricedown::windows
