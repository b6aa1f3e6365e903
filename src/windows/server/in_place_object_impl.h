// IOleInPlaceObject and IOleInPlaceActiveObject: the control's window for its container.
#pragma once

#include <ole2.h>

#include "windows/com/com_class.h"
#include "windows/server/hosted_control.h"

namespace pricedown::windows {

template <>
struct BasesOf<IOleInPlaceObject> : InterfaceList<IOleWindow> {};

class InPlaceObjectImpl : public Implements<IOleInPlaceObject, IOleInPlaceActiveObject> {
 public:
  STDMETHODIMP GetWindow(HWND* window) noexcept override;
  STDMETHODIMP ContextSensitiveHelp(BOOL enter) noexcept override;

  STDMETHODIMP InPlaceDeactivate() noexcept override;
  STDMETHODIMP UIDeactivate() noexcept override;
  STDMETHODIMP SetObjectRects(LPCRECT position, LPCRECT clip) noexcept override;
  STDMETHODIMP ReactivateAndUndo() noexcept override;

  STDMETHODIMP TranslateAccelerator(LPMSG message) noexcept override;
  STDMETHODIMP OnFrameWindowActivate(BOOL activate) noexcept override;
  STDMETHODIMP OnDocWindowActivate(BOOL activate) noexcept override;
  STDMETHODIMP ResizeBorder(LPCRECT border, IOleInPlaceUIWindow* window,
                            BOOL frame) noexcept override;
  STDMETHODIMP EnableModeless(BOOL enable) noexcept override;

 protected:
  virtual HostedControl& Hosted() noexcept = 0;
  ~InPlaceObjectImpl() = default;
};

}  // namespace pricedown::windows
