// Tests of drawing the control without its window on screen, and of containers' queries about it.
#include <gtest/gtest.h>
#include <olectl.h>

#include "tests/windows/server/control_host.h"
#include "tests/windows/server/memory_picture.h"

namespace pricedown::testing {
namespace {

using windows::ComPtr;

constexpr RECT kAll = MemoryPicture::kAll;
constexpr int kPixels = MemoryPicture::kPixels;

HRESULT Draw(const ControlHost& host, HDC context, RECTL bounds, DWORD aspect = DVASPECT_CONTENT) {
  return host.As<IViewObject>()->Draw(aspect, -1, nullptr, nullptr, nullptr, context, &bounds,
                                      nullptr, nullptr, 0);
}

TEST(Drawing, FillsItsBoundsWhileInactive) {
  const ControlHost host;
  const MemoryPicture picture;
  EXPECT_EQ(Draw(host, picture.Context(), {0, 0, MemoryPicture::kWidth, MemoryPicture::kHeight}),
            S_OK);
  EXPECT_GT(picture.Drawn(kAll), kPixels * 99 / 100);
}

TEST(Drawing, FillsItsBoundsWhileActive) {
  ControlHost host;
  host.Open();
  const MemoryPicture picture;
  EXPECT_EQ(Draw(host, picture.Context(), {0, 0, MemoryPicture::kWidth, MemoryPicture::kHeight}),
            S_OK);
  EXPECT_GT(picture.Drawn(kAll), kPixels * 99 / 100);
}

TEST(Drawing, StaysInsideItsBounds) {
  const ControlHost host;
  const MemoryPicture picture;
  EXPECT_EQ(Draw(host, picture.Context(), {50, 40, 150, 120}), S_OK);
  EXPECT_EQ(picture.Drawn(kAll), picture.Drawn({50, 40, 150, 120}));
  EXPECT_GT(picture.Drawn(kAll), 0);
}

TEST(Drawing, UnderstandsTheContextsOwnUnits) {
  const ControlHost host;
  const MemoryPicture picture;
  SetMapMode(picture.Context(), MM_ANISOTROPIC);
  SetWindowExtEx(picture.Context(), 3000, 2000, nullptr);
  SetViewportExtEx(picture.Context(), MemoryPicture::kWidth, MemoryPicture::kHeight, nullptr);
  EXPECT_EQ(Draw(host, picture.Context(), {500, 400, 1500, 1200}), S_OK);
  EXPECT_EQ(GetMapMode(picture.Context()), MM_ANISOTROPIC);
  EXPECT_EQ(picture.Drawn(kAll), picture.Drawn({50, 40, 150, 120}));
  EXPECT_GT(picture.Drawn(kAll), 100 * 80 * 9 / 10);
}

TEST(Drawing, CountsAWorldTransformOnce) {
  const ControlHost host;
  const MemoryPicture picture;
  ASSERT_NE(SetGraphicsMode(picture.Context(), GM_ADVANCED), 0);
  XFORM twice{};
  twice.eM11 = 2;
  twice.eM22 = 2;
  ASSERT_NE(SetWorldTransform(picture.Context(), &twice), FALSE);
  EXPECT_EQ(Draw(host, picture.Context(), {25, 20, 75, 60}), S_OK);
  EXPECT_EQ(picture.Drawn(kAll), picture.Drawn({50, 40, 150, 120}));
  EXPECT_GT(picture.Drawn(kAll), 100 * 80 * 9 / 10);
  XFORM left{};
  ASSERT_NE(GetWorldTransform(picture.Context(), &left), FALSE);
  EXPECT_EQ(left.eM11, twice.eM11);
  EXPECT_EQ(left.eM22, twice.eM22);
}

// The upper edge has the greater number, as in the system's metric units.
TEST(Drawing, UnderstandsUnitsThatCountUpwards) {
  const ControlHost host;
  const MemoryPicture picture;
  SetMapMode(picture.Context(), MM_ANISOTROPIC);
  SetWindowExtEx(picture.Context(), 3000, 2000, nullptr);
  SetViewportExtEx(picture.Context(), MemoryPicture::kWidth, -MemoryPicture::kHeight, nullptr);
  SetViewportOrgEx(picture.Context(), 0, MemoryPicture::kHeight, nullptr);
  EXPECT_EQ(Draw(host, picture.Context(), {500, 1600, 1500, 800}), S_OK);
  EXPECT_EQ(picture.Drawn(kAll), picture.Drawn({50, 40, 150, 120}));
  EXPECT_GT(picture.Drawn(kAll), 100 * 80 * 9 / 10);
}

TEST(Drawing, WorksInAMetafile) {
  const ControlHost host;
  const HDC context = CreateEnhMetaFileW(nullptr, nullptr, nullptr, nullptr);
  EXPECT_EQ(Draw(host, context, {0, 0, MemoryPicture::kWidth, MemoryPicture::kHeight}), S_OK);
  const HENHMETAFILE metafile = CloseEnhMetaFile(context);
  ENHMETAHEADER header{};
  ASSERT_NE(GetEnhMetaFileHeader(metafile, sizeof header, &header), 0U);
  EXPECT_GT(header.nRecords, 3U);
  DeleteEnhMetaFile(metafile);
}

TEST(Drawing, RefusesWhatItCannotDraw) {
  const ControlHost host;
  const MemoryPicture picture;
  EXPECT_EQ(Draw(host, picture.Context(), {0, 0, 10, 10}, DVASPECT_ICON), DV_E_DVASPECT);
  EXPECT_EQ(Draw(host, nullptr, {0, 0, 10, 10}), E_INVALIDARG);
  EXPECT_EQ(Draw(host, picture.Context(), {5, 5, 5, 5}), S_OK);
  EXPECT_EQ(picture.Drawn(kAll), 0);
}

TEST(Drawing, OfADeadWindowDoesNothing) {
  ControlHost host;
  host.Open();
  host.frame.Destroy();
  const MemoryPicture picture;
  EXPECT_EQ(Draw(host, picture.Context(), {0, 0, 100, 100}), S_OK);
}

TEST(TheView, IsOpaqueAndHitInsideItsBounds) {
  const ControlHost host;
  const auto view = host.As<IViewObjectEx>();
  ASSERT_TRUE(view);
  EXPECT_TRUE(host.As<IViewObject2>());
  DWORD status = 0;
  EXPECT_EQ(view->GetViewStatus(&status), S_OK);
  EXPECT_EQ(status, static_cast<DWORD>(VIEWSTATUS_OPAQUE | VIEWSTATUS_SOLIDBKGND));
  const RECT bounds{10, 10, 20, 20};
  DWORD hit = 99;
  EXPECT_EQ(view->QueryHitPoint(DVASPECT_CONTENT, &bounds, POINT{15, 15}, 0, &hit), S_OK);
  EXPECT_EQ(hit, static_cast<DWORD>(HITRESULT_HIT));
  EXPECT_EQ(view->QueryHitPoint(DVASPECT_CONTENT, &bounds, POINT{25, 15}, 0, &hit), S_OK);
  EXPECT_EQ(hit, static_cast<DWORD>(HITRESULT_OUTSIDE));
  const RECT remote{100, 100, 110, 110};
  EXPECT_EQ(view->QueryHitRect(DVASPECT_CONTENT, &bounds, &remote, 0, &hit), S_OK);
  EXPECT_EQ(hit, static_cast<DWORD>(HITRESULT_OUTSIDE));
}

// Logs its release.
class Sink final : public windows::ComClass<IAdviseSink> {
 public:
  int viewChanges = 0;
  int closes = 0;
  STDMETHODIMP_(void) OnDataChange(FORMATETC*, STGMEDIUM*) noexcept override {}
  STDMETHODIMP_(void) OnViewChange(DWORD, LONG) noexcept override { ++viewChanges; }
  STDMETHODIMP_(void) OnRename(IMoniker*) noexcept override {}
  STDMETHODIMP_(void) OnSave() noexcept override {}
  STDMETHODIMP_(void) OnClose() noexcept override { ++closes; }
};

TEST(TheView, KeepsOneAdviseSink) {
  const ControlHost host;
  const auto sink = windows::MakeCom<Sink>();
  const auto view = host.As<IViewObject>();
  EXPECT_EQ(view->SetAdvise(DVASPECT_CONTENT, ADVF_PRIMEFIRST, sink.get()), S_OK);
  EXPECT_EQ(sink->viewChanges, 1);
  DWORD aspects = 0;
  DWORD flags = 0;
  ComPtr<IAdviseSink> found;
  EXPECT_EQ(view->GetAdvise(&aspects, &flags, found.put()), S_OK);
  EXPECT_EQ(found.get(), sink.get());
  EXPECT_EQ(aspects, static_cast<DWORD>(DVASPECT_CONTENT));
  EXPECT_EQ(view->SetAdvise(0, 0, nullptr), S_OK);
  EXPECT_EQ(view->GetAdvise(nullptr, nullptr, found.put()), S_OK);
  EXPECT_FALSE(found);
}

TEST(TheObject, NotifiesItsConnectionsThatItClosed) {
  ControlHost host;
  host.Open();
  const auto sink = windows::MakeCom<Sink>();
  const auto object = host.As<IOleObject>();
  DWORD connection = 0;
  EXPECT_EQ(object->Unadvise(5), OLE_E_NOCONNECTION);
  EXPECT_EQ(object->Advise(sink.get(), &connection), S_OK);
  EXPECT_EQ(host.Close(), S_OK);
  EXPECT_EQ(sink->closes, 1);
  EXPECT_EQ(object->Unadvise(connection), S_OK);
}

TEST(TheObject, DescribesItself) {
  const ControlHost host;
  const auto object = host.As<IOleObject>();
  CLSID id{};
  LPOLESTR type = nullptr;
  DWORD status = 0;
  IEnumOLEVERB* verbs = nullptr;
  EXPECT_EQ(object->GetUserClassID(&id), S_OK);
  EXPECT_TRUE(IsEqualGUID(id, CLSID_PriceDown));
  EXPECT_EQ(object->GetUserType(USERCLASSTYPE_FULL, &type), S_OK);
  EXPECT_STREQ(type, L"PriceDown");
  CoTaskMemFree(type);
  EXPECT_EQ(object->GetMiscStatus(DVASPECT_CONTENT, &status), S_OK);
  EXPECT_NE(status & OLEMISC_SETCLIENTSITEFIRST, 0U);
  EXPECT_NE(status & OLEMISC_INSIDEOUT, 0U);
  EXPECT_EQ(object->EnumVerbs(&verbs), OLEOBJ_E_NOVERBS);
  EXPECT_EQ(object->IsUpToDate(), S_OK);
}

TEST(TheObject, KeepsEnterFromTheContainersDefaultButton) {
  const ControlHost host;
  CONTROLINFO info{};
  info.cb = sizeof info;
  EXPECT_EQ(host.As<IOleControl>()->GetControlInfo(&info), S_OK);
  EXPECT_EQ(info.cAccel, 0);
  EXPECT_EQ(info.dwFlags, static_cast<DWORD>(CTRLINFO_EATS_RETURN));
}

}  // namespace
}  // namespace pricedown::testing
