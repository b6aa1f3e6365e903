// Tests of persistence: the control's size, in three formats.
#include <gtest/gtest.h>

#include <map>

#include "tests/windows/server/control_host.h"
#include "windows/com/variant_value.h"

namespace pricedown::testing {
namespace {

using windows::ComPtr;

void Resize(const ControlHost& host, LONG width, LONG height) {
  SIZEL size{width, height};
  ASSERT_EQ(host.As<IOleObject>()->SetExtent(DVASPECT_CONTENT, &size), S_OK);
}

std::string SizeOf(const ControlHost& host) {
  SIZEL size{};
  host.As<IOleObject>()->GetExtent(DVASPECT_CONTENT, &size);
  return std::to_string(size.cx) + "x" + std::to_string(size.cy);
}

ComPtr<IStream> NewStream() {
  ComPtr<IStream> stream;
  CreateStreamOnHGlobal(nullptr, TRUE, stream.put());
  return stream;
}

void Rewind(const ComPtr<IStream>& stream) {
  stream->Seek(LARGE_INTEGER{}, STREAM_SEEK_SET, nullptr);
}

// A property bag in memory.
class Bag final : public windows::ComClass<IPropertyBag> {
 public:
  STDMETHODIMP Read(LPCOLESTR name, VARIANT* value, IErrorLog*) noexcept override {
    const auto found = values.find(name);
    if (found == values.end()) return E_INVALIDARG;
    *value = windows::ToVariant(found->second).release();
    return S_OK;
  }
  STDMETHODIMP Write(LPCOLESTR name, VARIANT* value) noexcept override {
    values[name] = windows::FromVariant(*value);
    return S_OK;
  }

  std::map<std::wstring, Value> values;
};

TEST(SavedControl, IsNeverDirty) {
  const ControlHost host;
  EXPECT_EQ(host.As<IPersistStreamInit>()->IsDirty(), S_FALSE);
  EXPECT_EQ(host.As<IPersistStreamInit>()->InitNew(), S_OK);
}

TEST(SavedControl, KnowsItsClass) {
  const ControlHost host;
  CLSID id{};
  EXPECT_EQ(host.As<IPersist>()->GetClassID(&id), S_OK);
  EXPECT_TRUE(IsEqualGUID(id, CLSID_PriceDown));
}

TEST(SavedControl, IsRestoredFromAStream) {
  const auto stream = NewStream();
  {
    const ControlHost host;
    Resize(host, 7000, 3000);
    ULARGE_INTEGER most{};
    EXPECT_EQ(host.As<IPersistStreamInit>()->GetSizeMax(&most), S_OK);
    EXPECT_EQ(host.As<IPersistStreamInit>()->Save(stream.get(), TRUE), S_OK);
    STATSTG state{};
    stream->Stat(&state, STATFLAG_NONAME);
    EXPECT_EQ(state.cbSize.QuadPart, most.QuadPart);
  }
  Rewind(stream);
  const ControlHost host;
  EXPECT_EQ(host.As<IPersistStreamInit>()->Load(stream.get()), S_OK);
  EXPECT_EQ(SizeOf(host), "7000x3000");
}

TEST(SavedControl, KeepsItsSizeWhenTheStreamIsForeign) {
  const ControlHost host;
  const std::string before = SizeOf(host);
  const auto empty = NewStream();
  EXPECT_EQ(host.As<IPersistStreamInit>()->Load(empty.get()), STG_E_READFAULT);
  const auto foreign = NewStream();
  foreign->Write("something else entirely", 23, nullptr);
  Rewind(foreign);
  EXPECT_EQ(host.As<IPersistStreamInit>()->Load(foreign.get()), STG_E_READFAULT);
  EXPECT_EQ(host.As<IPersistStreamInit>()->Load(nullptr), E_POINTER);
  EXPECT_EQ(SizeOf(host), before);
}

TEST(SavedControl, IsRestoredFromAPropertyBag) {
  const auto bag = windows::MakeCom<Bag>();
  {
    const ControlHost host;
    Resize(host, 7000, 3000);
    EXPECT_EQ(host.As<IPersistPropertyBag>()->Save(bag.get(), TRUE, TRUE), S_OK);
  }
  EXPECT_EQ(bag->values.size(), 2U);
  const ControlHost host;
  EXPECT_EQ(host.As<IPersistPropertyBag>()->Load(bag.get(), nullptr), S_OK);
  EXPECT_EQ(SizeOf(host), "7000x3000");
}

TEST(SavedControl, AcceptsAnEmptyPropertyBag) {
  const auto bag = windows::MakeCom<Bag>();
  const ControlHost host;
  Resize(host, 7000, 3000);
  EXPECT_EQ(host.As<IPersistPropertyBag>()->Load(bag.get(), nullptr), S_OK);
  EXPECT_EQ(SizeOf(host), "7000x3000");
  bag->values[L"_ExtentX"] = u"not a number";
  EXPECT_EQ(host.As<IPersistPropertyBag>()->Load(bag.get(), nullptr), DISP_E_TYPEMISMATCH);
  EXPECT_EQ(SizeOf(host), "7000x3000");
}

TEST(SavedControl, IsRestoredFromAStorage) {
  ComPtr<ILockBytes> bytes;
  ComPtr<IStorage> storage;
  ASSERT_EQ(CreateILockBytesOnHGlobal(nullptr, TRUE, bytes.put()), S_OK);
  ASSERT_EQ(StgCreateDocfileOnILockBytes(
                bytes.get(), STGM_CREATE | STGM_READWRITE | STGM_SHARE_EXCLUSIVE, 0, storage.put()),
            S_OK);
  {
    const ControlHost host;
    const auto persist = host.As<IPersistStorage>();
    EXPECT_EQ(persist->InitNew(storage.get()), S_OK);
    Resize(host, 7000, 3000);
    EXPECT_EQ(persist->Save(storage.get(), TRUE), S_OK);
    EXPECT_EQ(persist->SaveCompleted(nullptr), S_OK);
    EXPECT_EQ(persist->HandsOffStorage(), S_OK);
  }
  const ControlHost host;
  EXPECT_EQ(host.As<IPersistStorage>()->Load(storage.get()), S_OK);
  EXPECT_EQ(SizeOf(host), "7000x3000");
}

}  // namespace
}  // namespace pricedown::testing
