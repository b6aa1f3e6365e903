// IOleObject and IOleControl: what a container requires of any embedded control.
#pragma once

#include <ocidl.h>
#include <ole2.h>

#include "windows/com/com_class.h"
#include "windows/server/hosted_control.h"

namespace pricedown::windows {

// How containers treat the control: it lives inside its container's window, wants its site before
// anything else, and is laid out again for each size.
inline constexpr DWORD kControlStatus = OLEMISC_RECOMPOSEONRESIZE | OLEMISC_CANTLINKINSIDE |
                                        OLEMISC_INSIDEOUT | OLEMISC_ACTIVATEWHENVISIBLE |
                                        OLEMISC_SETCLIENTSITEFIRST;

class OleObjectImpl : public Implements<IOleObject, IOleControl> {
 public:
  STDMETHODIMP SetClientSite(IOleClientSite* site) noexcept override;
  STDMETHODIMP GetClientSite(IOleClientSite** site) noexcept override;
  STDMETHODIMP SetHostNames(LPCOLESTR application, LPCOLESTR document) noexcept override;
  STDMETHODIMP Close(DWORD saveOption) noexcept override;
  STDMETHODIMP SetMoniker(DWORD which, IMoniker* moniker) noexcept override;
  STDMETHODIMP GetMoniker(DWORD assign, DWORD which, IMoniker** moniker) noexcept override;
  STDMETHODIMP InitFromData(IDataObject* data, BOOL creation, DWORD reserved) noexcept override;
  STDMETHODIMP GetClipboardData(DWORD reserved, IDataObject** data) noexcept override;
  STDMETHODIMP DoVerb(LONG verb, LPMSG message, IOleClientSite* site, LONG index, HWND parent,
                      LPCRECT position) noexcept override;
  STDMETHODIMP EnumVerbs(IEnumOLEVERB** verbs) noexcept override;
  STDMETHODIMP Update() noexcept override;
  STDMETHODIMP IsUpToDate() noexcept override;
  STDMETHODIMP GetUserClassID(CLSID* id) noexcept override;
  STDMETHODIMP GetUserType(DWORD form, LPOLESTR* type) noexcept override;
  STDMETHODIMP SetExtent(DWORD aspect, SIZEL* size) noexcept override;
  STDMETHODIMP GetExtent(DWORD aspect, SIZEL* size) noexcept override;
  STDMETHODIMP Advise(IAdviseSink* sink, DWORD* connection) noexcept override;
  STDMETHODIMP Unadvise(DWORD connection) noexcept override;
  STDMETHODIMP EnumAdvise(IEnumSTATDATA** connections) noexcept override;
  STDMETHODIMP GetMiscStatus(DWORD aspect, DWORD* status) noexcept override;
  STDMETHODIMP SetColorScheme(LOGPALETTE* palette) noexcept override;

  STDMETHODIMP GetControlInfo(CONTROLINFO* info) noexcept override;
  STDMETHODIMP OnMnemonic(MSG* message) noexcept override;
  STDMETHODIMP OnAmbientPropertyChange(DISPID property) noexcept override;
  STDMETHODIMP FreezeEvents(BOOL freeze) noexcept override;

 protected:
  virtual HostedControl& Hosted() noexcept = 0;
  ~OleObjectImpl() = default;

 private:
  ComPtr<IOleAdviseHolder> connections_;
};

}  // namespace pricedown::windows
