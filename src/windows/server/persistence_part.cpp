// The control's size as bytes of a stream and as two properties of a bag.
// A document that cannot be read leaves the size as it was.
#include "windows/server/persistence_part.h"

#include "platform/convert.h"
#include "platform/error.h"
#include "windows/com/variant_value.h"
#include "windows/idl/ZEPPriceDownPrepare.h"

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
  return ToInt32(TakeVariant(std::move(value)));
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

void PersistencePart::LoadFrom(IStream& stream) {
  SavedControl saved;
  ULONG read = 0;
  ThrowIfFailed(stream.Read(&saved, sizeof saved, &read));
  if (read != sizeof saved || saved.format != kFormat) {
    throw AutomationError(STG_E_READFAULT, u"不是控件的数据");
  }
  Hosted().SetExtent({saved.width, saved.height});
}

void PersistencePart::SaveTo(IStream& stream) {
  const SIZEL& extent = Hosted().Extent();
  const SavedControl saved{kFormat, static_cast<std::int32_t>(extent.cx),
                           static_cast<std::int32_t>(extent.cy)};
  ULONG written = 0;
  ThrowIfFailed(stream.Write(&saved, sizeof saved, &written));
  if (written != sizeof saved) ThrowIfFailed(STG_E_WRITEFAULT);
}

STDMETHODIMP PersistencePart::GetClassID(CLSID* id) noexcept {
  if (id == nullptr) return E_POINTER;
  *id = CLSID_PriceDown;
  return S_OK;
}

STDMETHODIMP PersistencePart::IsDirty() noexcept { return S_FALSE; }

STDMETHODIMP PersistencePart::InitNew() noexcept { return S_OK; }

STDMETHODIMP PersistencePart::Load(IStream* stream) noexcept {
  if (stream == nullptr) return E_POINTER;
  return Hosted().Run([&] { LoadFrom(*stream); });
}

STDMETHODIMP PersistencePart::Save(IStream* stream, BOOL) noexcept {
  if (stream == nullptr) return E_POINTER;
  return Hosted().Run([&] { SaveTo(*stream); });
}

STDMETHODIMP PersistencePart::GetSizeMax(ULARGE_INTEGER* size) noexcept {
  if (size == nullptr) return E_POINTER;
  size->QuadPart = sizeof(SavedControl);
  return S_OK;
}

STDMETHODIMP PersistencePart::Load(IPropertyBag* bag, IErrorLog*) noexcept {
  if (bag == nullptr) return E_POINTER;
  return Hosted().Run([&] {
    const SIZEL& now = Hosted().Extent();
    const LONG width = ReadProperty(*bag, kWidthProperty, now.cx);
    Hosted().SetExtent({width, ReadProperty(*bag, kHeightProperty, now.cy)});
  });
}

STDMETHODIMP PersistencePart::Save(IPropertyBag* bag, BOOL, BOOL) noexcept {
  if (bag == nullptr) return E_POINTER;
  return Hosted().Run([&] {
    WriteProperty(*bag, kWidthProperty, Hosted().Extent().cx);
    WriteProperty(*bag, kHeightProperty, Hosted().Extent().cy);
  });
}

STDMETHODIMP PersistencePart::InitNew(IStorage* storage) noexcept {
  return storage == nullptr ? E_POINTER : S_OK;
}

STDMETHODIMP PersistencePart::Load(IStorage* storage) noexcept {
  if (storage == nullptr) return E_POINTER;
  return Hosted().Run([&] { LoadFrom(*Contents(*storage, false).get()); });
}

STDMETHODIMP PersistencePart::Save(IStorage* storage, BOOL) noexcept {
  if (storage == nullptr) return E_POINTER;
  return Hosted().Run([&] { SaveTo(*Contents(*storage, true).get()); });
}

// Storages are not kept between calls.
STDMETHODIMP PersistencePart::SaveCompleted(IStorage*) noexcept { return S_OK; }

STDMETHODIMP PersistencePart::HandsOffStorage() noexcept { return S_OK; }

}  // namespace pricedown::windows
