// IPersistStreamInit, IPersistPropertyBag and IPersistStorage: a control's size in a document.
#pragma once

#include <ocidl.h>
#include <ole2.h>

#include "windows/com/com_class.h"
#include "windows/server/hosted_control.h"

namespace pricedown::windows {

template <>
struct BasesOf<IPersistStreamInit> : InterfaceList<IPersist> {};

class PersistImpl : public Implements<IPersistStreamInit, IPersistPropertyBag, IPersistStorage> {
 public:
  STDMETHODIMP GetClassID(CLSID* id) noexcept override;
  STDMETHODIMP IsDirty() noexcept override;
  STDMETHODIMP InitNew() noexcept override;

  STDMETHODIMP Load(IStream* stream) noexcept override;
  STDMETHODIMP Save(IStream* stream, BOOL clearDirty) noexcept override;
  STDMETHODIMP GetSizeMax(ULARGE_INTEGER* size) noexcept override;

  STDMETHODIMP Load(IPropertyBag* bag, IErrorLog* log) noexcept override;
  STDMETHODIMP Save(IPropertyBag* bag, BOOL clearDirty, BOOL all) noexcept override;

  STDMETHODIMP InitNew(IStorage* storage) noexcept override;
  STDMETHODIMP Load(IStorage* storage) noexcept override;
  STDMETHODIMP Save(IStorage* storage, BOOL sameAsLoad) noexcept override;
  STDMETHODIMP SaveCompleted(IStorage* storage) noexcept override;
  STDMETHODIMP HandsOffStorage() noexcept override;

 protected:
  virtual HostedControl& Hosted() noexcept = 0;
  ~PersistImpl() = default;

 private:
  void LoadFrom(IStream& stream);
  void SaveTo(IStream& stream);
};

}  // namespace pricedown::windows
