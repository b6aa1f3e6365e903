// The control's size as bytes of a stream and as two properties of a bag. A document that cannot
// be read leaves the size as it was.
#include "windows/server/persist_impl.h"

#include "platform/convert.h"
#include "platform/error.h"
#include "windows/com/system_error.h"
#include "windows/com/variant_value.h"
#include "windows/server/idl/ZEPPriceDownPrepare.h"

namespace pricedown::windows {
namespace {

constexpr wchar_t kStreamName[] = L"Contents";
constexpr wchar_t kWidthProperty[] = L"_ExtentX";
constexpr wchar_t kHeightProperty[] = L"_ExtentY";
constexpr std::int32_t kFormat = 1;

struct SavedControl {
  std::int32_t format = kFormat;
  std::int32_t width = 0;   // 0.01 mm
  std::int32_t height = 0;  // 0.01 mm
};

std::int32_t ReadProperty(IPropertyBag& bag, const wchar_t* name, LONG fallback) {
  Variant value;
  if (FAILED(bag.Read(name, value.put(), nullptr))) return fallback;
  return ToInt32(ConsumeVariant(std::move(value)));
}

void WriteProperty(IPropertyBag& bag, const wchar_t* name, LONG number) {
  Variant value = ToVariant(static_cast<std::int32_t>(number));
  ThrowIfFailed(bag.Write(name, value.share()));
}

ComPtr<IStream> Contents(IStorage& storage, bool create) {
  constexpr DWORD mode = STGM_SHARE_EXCLUSIVE;
  ComPtr<IStream> stream;
  ThrowIfFailed(
      create
          ? storage.CreateStream(kStreamName, mode | STGM_CREATE | STGM_WRITE, 0, 0, stream.put())
          : storage.OpenStream(kStreamName, nullptr, mode | STGM_READ, 0, stream.put()));
  return stream;
}

}  // namespace

void PersistImpl::LoadFrom(IStream& stream) {
  SavedControl saved;
  ULONG read = 0;
  ThrowIfFailed(stream.Read(&saved, sizeof saved, &read));
  if (read != sizeof saved || saved.format != kFormat) {
    throw AutomationError(STG_E_READFAULT, u"不是控件的数据");
  }
  Hosted().SetExtent({saved.width, saved.height});
}

void PersistImpl::SaveTo(IStream& stream) {
  const SIZEL& extent = Hosted().Extent();
  const SavedControl saved{kFormat, static_cast<std::int32_t>(extent.cx),
                           static_cast<std::int32_t>(extent.cy)};
  ULONG written = 0;
  ThrowIfFailed(stream.Write(&saved, sizeof saved, &written));
  if (written != sizeof saved) ThrowIfFailed(STG_E_WRITEFAULT);
}

STDMETHODIMP PersistImpl::GetClassID(CLSID* id) noexcept {
  if (id == nullptr) return E_POINTER;
  *id = CLSID_PriceDown;
  return S_OK;
}

STDMETHODIMP PersistImpl::IsDirty() noexcept { return S_FALSE; }

STDMETHODIMP PersistImpl::InitNew() noexcept { return S_OK; }

STDMETHODIMP PersistImpl::Load(IStream* stream) noexcept {
  if (stream == nullptr) return E_POINTER;
  return Hosted().Run([&] { LoadFrom(*stream); });
}

STDMETHODIMP PersistImpl::Save(IStream* stream, BOOL) noexcept {
  if (stream == nullptr) return E_POINTER;
  return Hosted().Run([&] { SaveTo(*stream); });
}

STDMETHODIMP PersistImpl::GetSizeMax(ULARGE_INTEGER* size) noexcept {
  if (size == nullptr) return E_POINTER;
  size->QuadPart = sizeof(SavedControl);
  return S_OK;
}

STDMETHODIMP PersistImpl::Load(IPropertyBag* bag, IErrorLog*) noexcept {
  if (bag == nullptr) return E_POINTER;
  return Hosted().Run([&] {
    const SIZEL& now = Hosted().Extent();
    const LONG width = ReadProperty(*bag, kWidthProperty, now.cx);
    Hosted().SetExtent({width, ReadProperty(*bag, kHeightProperty, now.cy)});
  });
}

STDMETHODIMP PersistImpl::Save(IPropertyBag* bag, BOOL, BOOL) noexcept {
  if (bag == nullptr) return E_POINTER;
  return Hosted().Run([&] {
    WriteProperty(*bag, kWidthProperty, Hosted().Extent().cx);
    WriteProperty(*bag, kHeightProperty, Hosted().Extent().cy);
  });
}

STDMETHODIMP PersistImpl::InitNew(IStorage* storage) noexcept {
  return storage == nullptr ? E_POINTER : S_OK;
}

STDMETHODIMP PersistImpl::Load(IStorage* storage) noexcept {
  if (storage == nullptr) return E_POINTER;
  return Hosted().Run([&] { LoadFrom(*Contents(*storage, false).get()); });
}

STDMETHODIMP PersistImpl::Save(IStorage* storage, BOOL) noexcept {
  if (storage == nullptr) return E_POINTER;
  return Hosted().Run([&] { SaveTo(*Contents(*storage, true).get()); });
}

// Storages are not kept between calls.
STDMETHODIMP PersistImpl::SaveCompleted(IStorage*) noexcept { return S_OK; }

STDMETHODIMP PersistImpl::HandsOffStorage() noexcept { return S_OK; }

}  // namespace pricedown::windows
