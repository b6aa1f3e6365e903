// IViewObjectEx and IDataObject: the control drawn on any device while it has no window of its own
// on screen, and its picture in a metafile, as document containers keep it.
#pragma once

#include <ocidl.h>
#include <ole2.h>

#include "windows/com/com_class.h"
#include "windows/server/hosted_control.h"

namespace pricedown::windows {

template <>
struct BasesOf<IViewObjectEx> : InterfaceList<IViewObject2, IViewObject> {};

// Data: CF_METAFILEPICT in TYMED_MFPICT only; neither accepted nor announced.
class ViewObjectImpl : public Implements<IViewObjectEx, IDataObject> {
 public:
  STDMETHODIMP Draw(DWORD aspect, LONG index, void* info, DVTARGETDEVICE* device, HDC targetContext,
                    HDC context, LPCRECTL bounds, LPCRECTL metafileBounds,
                    BOOL(STDMETHODCALLTYPE* goOn)(ULONG_PTR),
                    ULONG_PTR goOnArgument) noexcept override;
  STDMETHODIMP GetColorSet(DWORD aspect, LONG index, void* info, DVTARGETDEVICE* device,
                           HDC targetContext, LOGPALETTE** palette) noexcept override;
  STDMETHODIMP Freeze(DWORD aspect, LONG index, void* info, DWORD* key) noexcept override;
  STDMETHODIMP Unfreeze(DWORD key) noexcept override;
  STDMETHODIMP SetAdvise(DWORD aspects, DWORD flags, IAdviseSink* sink) noexcept override;
  STDMETHODIMP GetAdvise(DWORD* aspects, DWORD* flags, IAdviseSink** sink) noexcept override;
  STDMETHODIMP GetExtent(DWORD aspect, LONG index, DVTARGETDEVICE* device,
                         LPSIZEL size) noexcept override;
  STDMETHODIMP GetRect(DWORD aspect, LPRECTL rectangle) noexcept override;
  STDMETHODIMP GetViewStatus(DWORD* status) noexcept override;
  STDMETHODIMP QueryHitPoint(DWORD aspect, LPCRECT bounds, POINT point, LONG closeHint,
                             DWORD* result) noexcept override;
  STDMETHODIMP QueryHitRect(DWORD aspect, LPCRECT bounds, LPCRECT rectangle, LONG closeHint,
                            DWORD* result) noexcept override;
  STDMETHODIMP GetNaturalExtent(DWORD aspect, LONG index, DVTARGETDEVICE* device, HDC targetContext,
                                DVEXTENTINFO* info, LPSIZEL size) noexcept override;

  STDMETHODIMP GetData(FORMATETC* format, STGMEDIUM* medium) noexcept override;
  STDMETHODIMP GetDataHere(FORMATETC* format, STGMEDIUM* medium) noexcept override;
  STDMETHODIMP QueryGetData(FORMATETC* format) noexcept override;
  STDMETHODIMP GetCanonicalFormatEtc(FORMATETC* format, FORMATETC* canonical) noexcept override;
  STDMETHODIMP SetData(FORMATETC* format, STGMEDIUM* medium, BOOL release) noexcept override;
  STDMETHODIMP EnumFormatEtc(DWORD direction, IEnumFORMATETC** formats) noexcept override;
  STDMETHODIMP DAdvise(FORMATETC* format, DWORD flags, IAdviseSink* sink,
                       DWORD* connection) noexcept override;
  STDMETHODIMP DUnadvise(DWORD connection) noexcept override;
  STDMETHODIMP EnumDAdvise(IEnumSTATDATA** connections) noexcept override;

 protected:
  virtual HostedControl& Hosted() noexcept = 0;
  ~ViewObjectImpl() = default;

 private:
  ComPtr<IAdviseSink> sink_;
  DWORD sinkAspects_ = 0;
  DWORD sinkFlags_ = 0;
};

}  // namespace pricedown::windows
