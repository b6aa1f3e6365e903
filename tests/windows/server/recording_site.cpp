// The recording container's replies.
#include "tests/windows/server/recording_site.h"

#include <olectl.h>

#include "windows/com/variant_value.h"

namespace pricedown::testing {

STDMETHODIMP RecordingSite::GetWindow(HWND* window) noexcept {
  *window = refusedCall == "GetWindow" ? nullptr : window_;
  return IsWindow(*window) != FALSE ? S_OK : E_FAIL;
}

STDMETHODIMP RecordingSite::OnInPlaceActivate() noexcept {
  const HRESULT code = Logged("OnInPlaceActivate");
  if (onActivate) onActivate();
  return code;
}

STDMETHODIMP RecordingSite::GetWindowContext(IOleInPlaceFrame** frame,
                                             IOleInPlaceUIWindow** document, LPRECT position,
                                             LPRECT clip, LPOLEINPLACEFRAMEINFO info) noexcept {
  EXPECT_EQ(info->cb, sizeof(OLEINPLACEFRAMEINFO));
  if (refusedCall == "GetWindowContext") return E_FAIL;
  AddRef();
  *frame = this;
  *document = documentWindow.Copy().release();
  *position = position_;
  *clip = position_;
  return S_OK;
}

STDMETHODIMP RecordingSite::GetExtendedControl(IDispatch** control) noexcept {
  *control = nullptr;
  if (extender == nullptr) return E_NOTIMPL;
  *control = windows::ToDispatch(extender).release();
  return S_OK;
}

STDMETHODIMP RecordingSite::TranslateAccelerator(MSG* message, DWORD modifiers) noexcept {
  log_.Add("site TranslateAccelerator " + std::to_string(message->wParam) + " modifiers " +
           std::to_string(modifiers));
  return translates;
}

STDMETHODIMP RecordingSite::SetBorderSpace(LPCBORDERWIDTHS widths) noexcept {
  EXPECT_EQ(widths, nullptr);
  return S_OK;
}

STDMETHODIMP RecordingSite::Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS*,
                                   VARIANT* result, EXCEPINFO*, UINT*) noexcept {
  EXPECT_EQ(flags, DISPATCH_PROPERTYGET);
  if (id != DISPID_AMBIENT_USERMODE) ADD_FAILURE() << "unexpected ambient property " << id;
  if (id != DISPID_AMBIENT_USERMODE || !userMode) return DISP_E_MEMBERNOTFOUND;
  *result = windows::ToVariant(*userMode).release();
  return S_OK;
}

}  // namespace pricedown::testing
