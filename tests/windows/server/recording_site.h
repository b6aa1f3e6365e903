// A container in one object: client site, in-place site, control site, frame, ambient properties.
// Logs the control's calls; an unexpected call fails the test.
#pragma once

#include <gtest/gtest.h>
#include <ocidl.h>
#include <ole2.h>

#include <functional>
#include <optional>
#include <string>

#include "platform/automation.h"
#include "tests/support/call_log.h"
#include "windows/com/com_class.h"

namespace pricedown::windows {

template <>
struct BasesOf<IOleInPlaceSite> : InterfaceList<IOleWindow> {};
template <>
struct BasesOf<IOleInPlaceFrame> : InterfaceList<IOleInPlaceUIWindow> {};

}  // namespace pricedown::windows

namespace pricedown::testing {

class RecordingSite final : public windows::ComClass<IOleClientSite, IOleInPlaceSite,
                                                     IOleControlSite, IOleInPlaceFrame, IDispatch> {
 public:
  // `window` contains the control at `position`.
  RecordingSite(CallLog log, HWND window, RECT position)
      : log_(std::move(log)), window_(window), position_(position) {}

  // The host goes on in another window.
  void MoveInto(HWND window) { window_ = window; }

  // The host's replies.
  std::optional<Value> userMode;  // none: no such ambient property
  ObjectPtr extender;             // none: no extended control
  // The control's document within the frame; none where the frame is the document.
  windows::ComPtr<IOleInPlaceUIWindow> documentWindow;
  HRESULT canActivate = S_OK;
  HRESULT translates = S_FALSE;
  // The call that fails: as it is logged, or GetWindow or GetWindowContext.
  std::string refusedCall;
  // Runs while the host is notified of the activation.
  std::function<void()> onActivate;
  // Runs while the host is notified that the focus was lost.
  std::function<void()> onFocusLost;

  // Any site's window as a document of another one.
  static windows::ComPtr<IOleInPlaceUIWindow> AsDocument(
      const windows::ComPtr<RecordingSite>& window) {
    return windows::ComPtr<IOleInPlaceUIWindow>::Share(
        static_cast<IOleInPlaceFrame*>(window.get()));
  }

  // IOleClientSite
  STDMETHODIMP SaveObject() noexcept override { return Unexpected("SaveObject"); }
  STDMETHODIMP GetMoniker(DWORD, DWORD, IMoniker**) noexcept override {
    return Unexpected("GetMoniker");
  }
  STDMETHODIMP GetContainer(IOleContainer**) noexcept override {
    return Unexpected("GetContainer");
  }
  STDMETHODIMP ShowObject() noexcept override { return Logged("ShowObject"); }
  STDMETHODIMP OnShowWindow(BOOL) noexcept override { return Unexpected("OnShowWindow"); }
  STDMETHODIMP RequestNewObjectLayout() noexcept override {
    return Unexpected("RequestNewObjectLayout");
  }

  // IOleWindow, for site and frame
  STDMETHODIMP GetWindow(HWND* window) noexcept override;
  STDMETHODIMP ContextSensitiveHelp(BOOL) noexcept override {
    return Unexpected("ContextSensitiveHelp");
  }

  // IOleInPlaceSite
  STDMETHODIMP CanInPlaceActivate() noexcept override { return canActivate; }
  STDMETHODIMP OnInPlaceActivate() noexcept override;
  STDMETHODIMP OnUIActivate() noexcept override { return Logged("OnUIActivate"); }
  STDMETHODIMP GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document,
                                LPRECT position, LPRECT clip,
                                LPOLEINPLACEFRAMEINFO info) noexcept override;
  STDMETHODIMP Scroll(SIZE) noexcept override { return Unexpected("Scroll"); }
  STDMETHODIMP OnUIDeactivate(BOOL) noexcept override { return Logged("OnUIDeactivate"); }
  STDMETHODIMP OnInPlaceDeactivate() noexcept override { return Logged("OnInPlaceDeactivate"); }
  STDMETHODIMP DiscardUndoState() noexcept override { return Unexpected("DiscardUndoState"); }
  STDMETHODIMP DeactivateAndUndo() noexcept override { return Unexpected("DeactivateAndUndo"); }
  STDMETHODIMP OnPosRectChange(LPCRECT) noexcept override { return Unexpected("OnPosRectChange"); }

  // IOleControlSite
  STDMETHODIMP OnControlInfoChanged() noexcept override {
    return Unexpected("OnControlInfoChanged");
  }
  STDMETHODIMP LockInPlaceActive(BOOL) noexcept override { return Unexpected("LockInPlaceActive"); }
  STDMETHODIMP GetExtendedControl(IDispatch** control) noexcept override;
  STDMETHODIMP TransformCoords(POINTL*, POINTF*, DWORD) noexcept override {
    return Unexpected("TransformCoords");
  }
  STDMETHODIMP TranslateAccelerator(MSG* message, DWORD modifiers) noexcept override;
  STDMETHODIMP OnFocus(BOOL focused) noexcept override {
    const HRESULT code = Logged(focused != FALSE ? "OnFocus" : "OnFocus lost");
    if (focused == FALSE && onFocusLost) onFocusLost();
    return code;
  }
  STDMETHODIMP ShowPropertyFrame() noexcept override { return Unexpected("ShowPropertyFrame"); }

  // IOleInPlaceFrame
  STDMETHODIMP GetBorder(LPRECT) noexcept override { return Unexpected("GetBorder"); }
  STDMETHODIMP RequestBorderSpace(LPCBORDERWIDTHS) noexcept override {
    return Unexpected("RequestBorderSpace");
  }
  STDMETHODIMP SetBorderSpace(LPCBORDERWIDTHS widths) noexcept override;
  STDMETHODIMP SetActiveObject(IOleInPlaceActiveObject* object, LPCOLESTR) noexcept override {
    return Logged(object != nullptr ? "SetActiveObject" : "SetActiveObject none");
  }
  STDMETHODIMP InsertMenus(HMENU, LPOLEMENUGROUPWIDTHS) noexcept override {
    return Unexpected("InsertMenus");
  }
  STDMETHODIMP SetMenu(HMENU, HOLEMENU, HWND) noexcept override { return Unexpected("SetMenu"); }
  STDMETHODIMP RemoveMenus(HMENU) noexcept override { return Unexpected("RemoveMenus"); }
  STDMETHODIMP SetStatusText(LPCOLESTR) noexcept override { return Unexpected("SetStatusText"); }
  STDMETHODIMP EnableModeless(BOOL) noexcept override { return Unexpected("EnableModeless"); }
  STDMETHODIMP TranslateAccelerator(LPMSG, WORD) noexcept override {
    return Unexpected("frame TranslateAccelerator");
  }

  // IDispatch: ambient properties
  STDMETHODIMP GetTypeInfoCount(UINT*) noexcept override { return E_NOTIMPL; }
  STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) noexcept override { return E_NOTIMPL; }
  // Without an extender the control reads Parent from the site itself.
  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) noexcept override {
    return DISP_E_UNKNOWNNAME;
  }
  STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS*, VARIANT* result, EXCEPINFO*,
                      UINT*) noexcept override;

 private:
  HRESULT Logged(const char* line) noexcept {
    log_.Add(std::string("site ") + line);
    return refusedCall == line ? E_FAIL : S_OK;
  }
  HRESULT Unexpected(const char* call) noexcept {
    ADD_FAILURE() << "unexpected call of the container: " << call;
    return E_NOTIMPL;
  }

  CallLog log_;
  HWND window_;
  RECT position_;
};

}  // namespace pricedown::testing
