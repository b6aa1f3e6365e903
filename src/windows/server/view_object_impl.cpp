// Drawing into a container's device context or a metafile, and queries about the picture.
#include "windows/server/view_object_impl.h"

#include <algorithm>

#include "windows/base/gdi.h"
#include "windows/base/rectangles.h"
#include "windows/com/system_error.h"

namespace pricedown::windows {
namespace {

// Bounds come in the device's logical units, and the window draws in pixels. A metafile has no
// pixels; the window draws in its units.
RECT ToPixels(HDC context, const RECTL& bounds) {
  POINT corners[] = {{bounds.left, bounds.top}, {bounds.right, bounds.bottom}};
  if (GetDeviceCaps(context, TECHNOLOGY) != DT_METAFILE) {
    LPtoDP(context, corners, 2);
    ModifyWorldTransform(context, nullptr, MWT_IDENTITY);
    SetMapMode(context, MM_TEXT);
    SetWindowOrgEx(context, 0, 0, nullptr);
    SetViewportOrgEx(context, 0, 0, nullptr);
  }
  return {std::min(corners[0].x, corners[1].x), std::min(corners[0].y, corners[1].y),
          std::max(corners[0].x, corners[1].x), std::max(corners[0].y, corners[1].y)};
}

// A metafile of the old kind can neither measure nor clip: the picture goes in as a bitmap.
void DrawAsBitmap(ControlWindow& window, HDC metafile, const RECT& bounds) {
  RECT client{};
  if (GetClientRect(window.Handle(), &client) == FALSE || IsRectEmpty(&client) != FALSE) return;
  const WindowContext screen(window.Handle());
  const MemoryDc memory(screen.Get(), WidthOf(client), HeightOf(client));
  if (memory.Get() == nullptr) ThrowIfFailed(E_OUTOFMEMORY);
  window.Draw(memory.Get(), client);
  StretchBlt(metafile, bounds.left, bounds.top, WidthOf(bounds), HeightOf(bounds), memory.Get(), 0,
             0, WidthOf(client), HeightOf(client), SRCCOPY);
}

}  // namespace

STDMETHODIMP ViewObjectImpl::Draw(DWORD aspect, LONG, void*, DVTARGETDEVICE*, HDC, HDC context,
                                  LPCRECTL bounds, LPCRECTL, BOOL(STDMETHODCALLTYPE*)(ULONG_PTR),
                                  ULONG_PTR) noexcept {
  if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
  if (context == nullptr) return E_INVALIDARG;
  if (bounds == nullptr) return E_POINTER;
  return Hosted().Run([&] {
    const SavedDc saved(context);
    const RECT pixels = ToPixels(context, *bounds);
    if (IsRectEmpty(&pixels) != FALSE) return;
    if (GetObjectType(context) == OBJ_METADC) {
      DrawAsBitmap(Hosted().Window(), context, pixels);
    } else {
      Hosted().Window().Draw(context, pixels);
    }
  });
}

STDMETHODIMP ViewObjectImpl::GetColorSet(DWORD, LONG, void*, DVTARGETDEVICE*, HDC,
                                         LOGPALETTE** palette) noexcept {
  if (palette != nullptr) *palette = nullptr;
  return S_FALSE;
}

STDMETHODIMP ViewObjectImpl::Freeze(DWORD, LONG, void*, DWORD*) noexcept { return E_NOTIMPL; }

STDMETHODIMP ViewObjectImpl::Unfreeze(DWORD) noexcept { return E_NOTIMPL; }

STDMETHODIMP ViewObjectImpl::SetAdvise(DWORD aspects, DWORD flags, IAdviseSink* sink) noexcept {
  return Hosted().Run([&] {
    sink_ = ComPtr<IAdviseSink>::Share(sink);
    sinkAspects_ = aspects;
    sinkFlags_ = flags;
    if (sink_ && (flags & ADVF_PRIMEFIRST) != 0) sink->OnViewChange(DVASPECT_CONTENT, -1);
  });
}

STDMETHODIMP ViewObjectImpl::GetAdvise(DWORD* aspects, DWORD* flags, IAdviseSink** sink) noexcept {
  if (sink != nullptr) *sink = nullptr;
  return Hosted().Run([&] {
    if (aspects != nullptr) *aspects = sinkAspects_;
    if (flags != nullptr) *flags = sinkFlags_;
    if (sink != nullptr) *sink = sink_.Copy().release();
  });
}

STDMETHODIMP ViewObjectImpl::GetExtent(DWORD aspect, LONG, DVTARGETDEVICE*, LPSIZEL size) noexcept {
  if (size == nullptr) return E_POINTER;
  if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
  return Hosted().CopyExtent(*size);
}

STDMETHODIMP ViewObjectImpl::GetRect(DWORD aspect, LPRECTL rectangle) noexcept {
  if (rectangle == nullptr) return E_POINTER;
  if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
  SIZEL extent{};
  const HRESULT code = Hosted().CopyExtent(extent);
  *rectangle = {0, 0, extent.cx, extent.cy};
  return code;
}

STDMETHODIMP ViewObjectImpl::GetViewStatus(DWORD* status) noexcept {
  if (status == nullptr) return E_POINTER;
  *status = VIEWSTATUS_OPAQUE | VIEWSTATUS_SOLIDBKGND;
  return S_OK;
}

STDMETHODIMP ViewObjectImpl::QueryHitPoint(DWORD aspect, LPCRECT bounds, POINT point, LONG,
                                           DWORD* result) noexcept {
  if (bounds == nullptr || result == nullptr) return E_POINTER;
  if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
  *result = PtInRect(bounds, point) != FALSE ? HITRESULT_HIT : HITRESULT_OUTSIDE;
  return S_OK;
}

STDMETHODIMP ViewObjectImpl::QueryHitRect(DWORD aspect, LPCRECT bounds, LPCRECT rectangle, LONG,
                                          DWORD* result) noexcept {
  if (bounds == nullptr || rectangle == nullptr || result == nullptr) return E_POINTER;
  if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
  RECT common{};
  *result = IntersectRect(&common, bounds, rectangle) != FALSE ? HITRESULT_HIT : HITRESULT_OUTSIDE;
  return S_OK;
}

STDMETHODIMP ViewObjectImpl::GetNaturalExtent(DWORD aspect, LONG, DVTARGETDEVICE*, HDC,
                                              DVEXTENTINFO*, LPSIZEL size) noexcept {
  if (size == nullptr) return E_POINTER;
  // The control has no natural size.
  *size = {};
  return aspect == DVASPECT_CONTENT ? E_NOTIMPL : DV_E_DVASPECT;
}

STDMETHODIMP ViewObjectImpl::GetData(FORMATETC* format, STGMEDIUM* medium) noexcept {
  if (medium == nullptr) return E_POINTER;
  *medium = {};
  const HRESULT known = QueryGetData(format);
  if (FAILED(known)) return known;
  if (!Hosted().IsOnItsThread()) return RefuseThread();
  // The metafile's numbers have 16 bits: pixels fit, units of 0.01 mm do not.
  RECT client{};
  GetClientRect(Hosted().Window().Handle(), &client);
  const HDC context = CreateMetaFileW(nullptr);
  if (context == nullptr) return E_OUTOFMEMORY;
  SetWindowOrgEx(context, 0, 0, nullptr);
  SetWindowExtEx(context, client.right, client.bottom, nullptr);
  const RECTL bounds{0, 0, client.right, client.bottom};
  const HRESULT drawn =
      Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, context, &bounds, nullptr, nullptr, 0);
  const HMETAFILE metafile = CloseMetaFile(context);
  void* const memory = SUCCEEDED(drawn) && metafile != nullptr
                           ? GlobalAlloc(GMEM_MOVEABLE, sizeof(METAFILEPICT))
                           : nullptr;
  if (memory == nullptr) {
    DeleteMetaFile(metafile);
    return FAILED(drawn) ? drawn : E_OUTOFMEMORY;
  }
  const SIZEL& extent = Hosted().Extent();
  *static_cast<METAFILEPICT*>(GlobalLock(memory)) = {MM_ANISOTROPIC, extent.cx, extent.cy,
                                                     metafile};
  GlobalUnlock(memory);
  medium->tymed = TYMED_MFPICT;
  medium->hMetaFilePict = memory;
  return S_OK;
}

STDMETHODIMP ViewObjectImpl::GetDataHere(FORMATETC*, STGMEDIUM*) noexcept { return E_NOTIMPL; }

STDMETHODIMP ViewObjectImpl::QueryGetData(FORMATETC* format) noexcept {
  if (format == nullptr) return E_POINTER;
  if (format->cfFormat != CF_METAFILEPICT) return DV_E_FORMATETC;
  if (format->dwAspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
  return (format->tymed & TYMED_MFPICT) != 0 ? S_OK : DV_E_TYMED;
}

STDMETHODIMP ViewObjectImpl::GetCanonicalFormatEtc(FORMATETC*, FORMATETC* canonical) noexcept {
  if (canonical != nullptr) canonical->ptd = nullptr;
  return E_NOTIMPL;
}

STDMETHODIMP ViewObjectImpl::SetData(FORMATETC*, STGMEDIUM*, BOOL) noexcept { return E_NOTIMPL; }

STDMETHODIMP ViewObjectImpl::EnumFormatEtc(DWORD, IEnumFORMATETC** formats) noexcept {
  if (formats != nullptr) *formats = nullptr;
  return E_NOTIMPL;
}

STDMETHODIMP ViewObjectImpl::DAdvise(FORMATETC*, DWORD, IAdviseSink*, DWORD* connection) noexcept {
  if (connection != nullptr) *connection = 0;
  return OLE_E_ADVISENOTSUPPORTED;
}

STDMETHODIMP ViewObjectImpl::DUnadvise(DWORD) noexcept { return OLE_E_ADVISENOTSUPPORTED; }

STDMETHODIMP ViewObjectImpl::EnumDAdvise(IEnumSTATDATA** connections) noexcept {
  if (connections != nullptr) *connections = nullptr;
  return OLE_E_ADVISENOTSUPPORTED;
}

}  // namespace pricedown::windows
