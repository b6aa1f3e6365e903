// Tests of an inactive control in a document: sizes, pictures in metafiles that are
// played back, damaged files.
#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <utility>

#include "tests/windows/server/control_host.h"
#include "tests/windows/server/memory_picture.h"

namespace pricedown::testing {
namespace {

using windows::ComPtr;

// Where each metafile is played back.
constexpr RECT kPlace{50, 40, 150, 120};
constexpr int kPixelsOfPlace = 100 * 80;

HRESULT Draw(const ControlHost& host, HDC context, RECTL bounds, const RECTL* metafile) {
  return host.As<IViewObject2>()->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, context,
                                       &bounds, metafile, nullptr, 0);
}

void ExpectItFills(const MemoryPicture& picture) {
  EXPECT_EQ(picture.Drawn(MemoryPicture::kAll), picture.Drawn(kPlace));
  EXPECT_GT(picture.Drawn(kPlace), kPixelsOfPlace * 9 / 10);
}

// Pixels of the screen in 0.01 mm.
RECT FrameOf(LONG width, LONG height) {
  const HDC screen = GetDC(nullptr);
  const RECT frame{
      0, 0, MulDiv(width, 100 * GetDeviceCaps(screen, HORZSIZE), GetDeviceCaps(screen, HORZRES)),
      MulDiv(height, 100 * GetDeviceCaps(screen, VERTSIZE), GetDeviceCaps(screen, VERTRES))};
  ReleaseDC(nullptr, screen);
  return frame;
}

// As containers make them: they know the frame before they draw.
TEST(PictureInADocument, OfAnEnhancedMetafileFillsItsPlace) {
  ControlHost host;
  host.Open();
  host.As<IOleInPlaceObject>()->InPlaceDeactivate();
  const RECT frame = FrameOf(600, 400);
  const HDC context = CreateEnhMetaFileW(nullptr, nullptr, &frame, nullptr);
  EXPECT_EQ(Draw(host, context, {0, 0, 600, 400}, nullptr), S_OK);
  const HENHMETAFILE metafile = CloseEnhMetaFile(context);
  const MemoryPicture picture;
  EXPECT_NE(PlayEnhMetaFile(picture.Context(), metafile, &kPlace), FALSE);
  DeleteEnhMetaFile(metafile);
  ExpectItFills(picture);
}

// As containers keep pictures of inactive controls: they set the metafile's units when they draw,
// and the place on paper or screen only when they play it.
TEST(PictureInADocument, OfAMetafileFillsAnyPlaceItIsPlayedIn) {
  ControlHost host;
  host.Open();
  host.As<IOleInPlaceObject>()->InPlaceDeactivate();
  const HDC context = CreateMetaFileW(nullptr);
  SetWindowOrgEx(context, 0, 0, nullptr);
  SetWindowExtEx(context, 600, 400, nullptr);
  const RECTL units{0, 0, 600, 400};
  EXPECT_EQ(Draw(host, context, units, &units), S_OK);
  const HMETAFILE metafile = CloseMetaFile(context);
  ASSERT_NE(metafile, nullptr);
  const MemoryPicture picture;
  SetMapMode(picture.Context(), MM_ANISOTROPIC);
  SetViewportOrgEx(picture.Context(), kPlace.left, kPlace.top, nullptr);
  SetViewportExtEx(picture.Context(), kPlace.right - kPlace.left, kPlace.bottom - kPlace.top,
                   nullptr);
  EXPECT_NE(PlayMetaFile(picture.Context(), metafile), FALSE);
  DeleteMetaFile(metafile);
  ExpectItFills(picture);
}

FORMATETC MetafileFormat() {
  return {CF_METAFILEPICT, nullptr, DVASPECT_CONTENT, -1, TYMED_MFPICT};
}

// As caches of document containers ask, also for a control that was never active.
TEST(PictureInADocument, AskedAsDataFillsAnyPlaceItIsPlayedIn) {
  ControlHost host;
  SIZEL size{40000, 20000};
  EXPECT_EQ(host.As<IOleObject>()->SetExtent(DVASPECT_CONTENT, &size), S_OK);
  for (const bool active : {false, true}) {
    if (active) host.Open();
    FORMATETC format = MetafileFormat();
    STGMEDIUM medium{};
    ASSERT_EQ(host.As<IDataObject>()->GetData(&format, &medium), S_OK);
    ASSERT_EQ(medium.tymed, static_cast<DWORD>(TYMED_MFPICT));
    EXPECT_EQ(medium.pUnkForRelease, nullptr);
    const auto& data = *static_cast<METAFILEPICT*>(GlobalLock(medium.hMetaFilePict));
    EXPECT_EQ(data.mm, MM_ANISOTROPIC);
    EXPECT_EQ(data.xExt, 40000);
    EXPECT_EQ(data.yExt, 20000);
    const MemoryPicture picture;
    SetMapMode(picture.Context(), data.mm);
    SetViewportOrgEx(picture.Context(), kPlace.left, kPlace.top, nullptr);
    SetViewportExtEx(picture.Context(), kPlace.right - kPlace.left, kPlace.bottom - kPlace.top,
                     nullptr);
    EXPECT_NE(PlayMetaFile(picture.Context(), data.hMF), FALSE);
    ExpectItFills(picture);
    GlobalUnlock(medium.hMetaFilePict);
    ReleaseStgMedium(&medium);
  }
}

TEST(DataOfTheControl, IsAMetafileOnly) {
  const ControlHost host;
  const auto data = host.As<IDataObject>();
  FORMATETC known = MetafileFormat();
  EXPECT_EQ(data->QueryGetData(&known), S_OK);
  FORMATETC text = known;
  text.cfFormat = CF_UNICODETEXT;
  FORMATETC icon = known;
  icon.dwAspect = DVASPECT_ICON;
  FORMATETC file = known;
  file.tymed = TYMED_FILE;
  for (const auto& [format, code] :
       {std::pair{&text, DV_E_FORMATETC}, {&icon, DV_E_DVASPECT}, {&file, DV_E_TYMED}}) {
    STGMEDIUM medium{};
    medium.tymed = TYMED_GDI;
    EXPECT_EQ(data->QueryGetData(format), code);
    EXPECT_EQ(data->GetData(format, &medium), code);
    EXPECT_EQ(medium.tymed, static_cast<DWORD>(TYMED_NULL));
  }
  STGMEDIUM medium{};
  EXPECT_EQ(data->GetData(nullptr, &medium), E_POINTER);
  EXPECT_EQ(data->GetData(&known, nullptr), E_POINTER);
  EXPECT_EQ(data->GetDataHere(&known, &medium), E_NOTIMPL);
  EXPECT_EQ(data->SetData(&known, &medium, FALSE), E_NOTIMPL);
  ComPtr<IEnumFORMATETC> formats;
  EXPECT_EQ(data->EnumFormatEtc(DATADIR_GET, formats.put()), E_NOTIMPL);
  DWORD connection = 7;
  EXPECT_EQ(data->DAdvise(&known, 0, nullptr, &connection), OLE_E_ADVISENOTSUPPORTED);
  EXPECT_EQ(connection, 0U);
  EXPECT_EQ(data->DUnadvise(1), OLE_E_ADVISENOTSUPPORTED);
}

std::string ExtentOf(const ControlHost& host) {
  SIZEL size{};
  EXPECT_EQ(host.As<IOleObject>()->GetExtent(DVASPECT_CONTENT, &size), S_OK);
  SIZEL viewed{};
  EXPECT_EQ(host.As<IViewObject2>()->GetExtent(DVASPECT_CONTENT, -1, nullptr, &viewed), S_OK);
  EXPECT_EQ(viewed.cx, size.cx);
  EXPECT_EQ(viewed.cy, size.cy);
  return std::to_string(size.cx) + "x" + std::to_string(size.cy);
}

TEST(Extents, OfAnySizeAreAccepted) {
  constexpr LONG kMaximum = std::numeric_limits<LONG>::max();
  ControlHost host;
  const auto object = host.As<IOleObject>();
  for (SIZEL size : {SIZEL{0, 0}, SIZEL{1, 1}, SIZEL{0, 5000}, SIZEL{kMaximum, kMaximum},
                     SIZEL{kMaximum, 0}, SIZEL{9000, 6000}}) {
    EXPECT_EQ(object->SetExtent(DVASPECT_CONTENT, &size), S_OK);
    EXPECT_EQ(ExtentOf(host), std::to_string(size.cx) + "x" + std::to_string(size.cy));
  }
  const MemoryPicture picture;
  EXPECT_EQ(Draw(host, picture.Context(), {50, 40, 150, 120}, nullptr), S_OK);
  ExpectItFills(picture);
}

TEST(Extents, LeaveAnActiveWindowWhereItsContainerPutIt) {
  ControlHost host;
  host.Open();
  SIZEL size{1000, 1000};
  EXPECT_EQ(host.As<IOleObject>()->SetExtent(DVASPECT_CONTENT, &size), S_OK);
  RECT client{};
  GetClientRect(host.Window(), &client);
  EXPECT_EQ(client.right, 700);
  EXPECT_EQ(client.bottom, 500);
}

ComPtr<IStream> StreamOf(const void* bytes, ULONG count) {
  ComPtr<IStream> stream;
  CreateStreamOnHGlobal(nullptr, TRUE, stream.put());
  stream->Write(bytes, count, nullptr);
  stream->Seek(LARGE_INTEGER{}, STREAM_SEEK_SET, nullptr);
  return stream;
}

TEST(DamagedDocuments, CutOffAnywhereChangeNothing) {
  const ControlHost host;
  const std::string before = ExtentOf(host);
  const std::int32_t saved[] = {1, 7000, 3000};
  for (ULONG length = 0; length < sizeof saved; ++length) {
    const auto stream = StreamOf(saved, length);
    EXPECT_EQ(host.As<IPersistStreamInit>()->Load(stream.get()), STG_E_READFAULT) << length;
    EXPECT_EQ(ExtentOf(host), before) << length;
  }
  const auto whole = StreamOf(saved, sizeof saved);
  EXPECT_EQ(host.As<IPersistStreamInit>()->Load(whole.get()), S_OK);
  EXPECT_EQ(ExtentOf(host), "7000x3000");
}

TEST(DamagedDocuments, WithImpossibleSizesChangeNothing) {
  const ControlHost host;
  const std::string before = ExtentOf(host);
  const std::int32_t negative[] = {1, -7000, 3000};
  EXPECT_EQ(host.As<IPersistStreamInit>()->Load(StreamOf(negative, sizeof negative).get()),
            E_INVALIDARG);
  const std::int32_t later[] = {2, 7000, 3000};
  EXPECT_EQ(host.As<IPersistStreamInit>()->Load(StreamOf(later, sizeof later).get()),
            STG_E_READFAULT);
  EXPECT_EQ(ExtentOf(host), before);
}

TEST(DamagedDocuments, ThatCannotBeWrittenAreReported) {
  ComPtr<ILockBytes> bytes;
  ComPtr<IStorage> storage;
  ASSERT_EQ(CreateILockBytesOnHGlobal(nullptr, TRUE, bytes.put()), S_OK);
  constexpr DWORD kOpen = STGM_READWRITE | STGM_SHARE_EXCLUSIVE;
  ASSERT_EQ(StgCreateDocfileOnILockBytes(bytes.get(), STGM_CREATE | kOpen, 0, storage.put()), S_OK);
  const ControlHost host;
  EXPECT_EQ(host.As<IPersistStorage>()->Load(storage.get()), STG_E_FILENOTFOUND);
  ASSERT_EQ(host.As<IPersistStorage>()->Save(storage.get(), TRUE), S_OK);
  ComPtr<IStream> stream;
  ASSERT_EQ(
      storage->OpenStream(L"Contents", nullptr, STGM_READ | STGM_SHARE_EXCLUSIVE, 0, stream.put()),
      S_OK);
  EXPECT_EQ(host.As<IPersistStreamInit>()->Save(stream.get(), TRUE), STG_E_ACCESSDENIED);
}

}  // namespace
}  // namespace pricedown::testing
