// The container's calls. Linking, clipboard and verbs of the control's own are E_NOTIMPL.
#include "windows/server/ole_object_impl.h"

#include <cstring>

#include "windows/com/system_error.h"
#include "windows/server/idl/ZEPPriceDownPrepare.h"

namespace pricedown::windows {
namespace {

constexpr wchar_t kUserType[] = L"PriceDown";

LPOLESTR TaskCopy(const wchar_t* text) {
  const std::size_t bytes = (std::wcslen(text) + 1) * sizeof(wchar_t);
  void* copy = CoTaskMemAlloc(bytes);
  if (copy != nullptr) std::memcpy(copy, text, bytes);
  return static_cast<LPOLESTR>(copy);
}

// Shift+Tab enters the control at its end.
bool ComesBackwards(const MSG* message) {
  return message != nullptr && message->message == WM_KEYDOWN && message->wParam == VK_TAB &&
         GetKeyState(VK_SHIFT) < 0;
}

}  // namespace

STDMETHODIMP OleObjectImpl::SetClientSite(IOleClientSite* site) noexcept {
  return Hosted().Run([&] { Hosted().SetSite(site); }, IID_IOleObject);
}

STDMETHODIMP OleObjectImpl::GetClientSite(IOleClientSite** site) noexcept {
  if (site == nullptr) return E_POINTER;
  *site = nullptr;
  return Hosted().Run([&] { *site = Hosted().Site().release(); });
}

STDMETHODIMP OleObjectImpl::SetHostNames(LPCOLESTR, LPCOLESTR) noexcept { return S_OK; }

// The control has nothing to save, so the option is ignored.
STDMETHODIMP OleObjectImpl::Close(DWORD) noexcept {
  return Hosted().Run([&] {
    Hosted().Close();
    if (connections_) connections_->SendOnClose();
  });
}

STDMETHODIMP OleObjectImpl::SetMoniker(DWORD, IMoniker*) noexcept { return E_NOTIMPL; }

STDMETHODIMP OleObjectImpl::GetMoniker(DWORD, DWORD, IMoniker** moniker) noexcept {
  if (moniker != nullptr) *moniker = nullptr;
  return E_NOTIMPL;
}

STDMETHODIMP OleObjectImpl::InitFromData(IDataObject*, BOOL, DWORD) noexcept { return E_NOTIMPL; }

STDMETHODIMP OleObjectImpl::GetClipboardData(DWORD, IDataObject** data) noexcept {
  if (data != nullptr) *data = nullptr;
  return E_NOTIMPL;
}

STDMETHODIMP OleObjectImpl::DoVerb(LONG verb, LPMSG message, IOleClientSite*, LONG, HWND,
                                   LPCRECT) noexcept {
  return Hosted().Run([&]() -> HRESULT {
    switch (verb) {
      case OLEIVERB_SHOW:
      case OLEIVERB_INPLACEACTIVATE:
        Hosted().Activate(false);
        return S_OK;
      case OLEIVERB_PRIMARY:
      case OLEIVERB_UIACTIVATE:
        Hosted().Activate(true, ComesBackwards(message));
        return S_OK;
      case OLEIVERB_HIDE:
        Hosted().Hide();
        return S_OK;
      case OLEIVERB_DISCARDUNDOSTATE:
        return S_OK;
      default:
        break;
    }
    // An unknown verb of the object means its first one, which shows it.
    if (verb < 0) return E_NOTIMPL;
    Hosted().Activate(true);
    return OLEOBJ_S_INVALIDVERB;
  });
}

STDMETHODIMP OleObjectImpl::EnumVerbs(IEnumOLEVERB** verbs) noexcept {
  if (verbs != nullptr) *verbs = nullptr;
  return OLEOBJ_E_NOVERBS;
}

STDMETHODIMP OleObjectImpl::Update() noexcept { return S_OK; }

STDMETHODIMP OleObjectImpl::IsUpToDate() noexcept { return S_OK; }

STDMETHODIMP OleObjectImpl::GetUserClassID(CLSID* id) noexcept {
  if (id == nullptr) return E_POINTER;
  *id = CLSID_PriceDown;
  return S_OK;
}

STDMETHODIMP OleObjectImpl::GetUserType(DWORD, LPOLESTR* type) noexcept {
  if (type == nullptr) return E_POINTER;
  *type = TaskCopy(kUserType);
  return *type == nullptr ? E_OUTOFMEMORY : S_OK;
}

STDMETHODIMP OleObjectImpl::SetExtent(DWORD aspect, SIZEL* size) noexcept {
  if (size == nullptr) return E_POINTER;
  if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
  return Hosted().Run([&] { Hosted().SetExtent(*size); });
}

STDMETHODIMP OleObjectImpl::GetExtent(DWORD aspect, SIZEL* size) noexcept {
  if (size == nullptr) return E_POINTER;
  if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
  return Hosted().CopyExtent(*size);
}

STDMETHODIMP OleObjectImpl::Advise(IAdviseSink* sink, DWORD* connection) noexcept {
  return Hosted().Run([&] {
    if (!connections_) ThrowIfFailed(CreateOleAdviseHolder(connections_.put()));
    return connections_->Advise(sink, connection);
  });
}

STDMETHODIMP OleObjectImpl::Unadvise(DWORD connection) noexcept {
  return Hosted().Run(
      [&] { return connections_ ? connections_->Unadvise(connection) : OLE_E_NOCONNECTION; });
}

STDMETHODIMP OleObjectImpl::EnumAdvise(IEnumSTATDATA** connections) noexcept {
  if (connections == nullptr) return E_POINTER;
  *connections = nullptr;
  return Hosted().Run([&] { return connections_ ? connections_->EnumAdvise(connections) : S_OK; });
}

STDMETHODIMP OleObjectImpl::GetMiscStatus(DWORD aspect, DWORD* status) noexcept {
  if (status == nullptr) return E_POINTER;
  *status = aspect == DVASPECT_CONTENT ? kControlStatus : 0;
  return aspect == DVASPECT_CONTENT ? S_OK : DV_E_DVASPECT;
}

STDMETHODIMP OleObjectImpl::SetColorScheme(LOGPALETTE*) noexcept { return E_NOTIMPL; }

STDMETHODIMP OleObjectImpl::GetControlInfo(CONTROLINFO* info) noexcept {
  if (info == nullptr || info->cb < sizeof *info) return E_POINTER;
  // No accelerators. Inside, Enter edits.
  info->hAccel = nullptr;
  info->cAccel = 0;
  info->dwFlags = CTRLINFO_EATS_RETURN;
  return S_OK;
}

STDMETHODIMP OleObjectImpl::OnMnemonic(MSG*) noexcept { return S_OK; }

STDMETHODIMP OleObjectImpl::OnAmbientPropertyChange(DISPID property) noexcept {
  return Hosted().Run([&] { Hosted().AmbientChanged(property); });
}

STDMETHODIMP OleObjectImpl::FreezeEvents(BOOL freeze) noexcept {
  return Hosted().Run([&] { Hosted().Events().Freeze(freeze != FALSE); });
}

}  // namespace pricedown::windows
