// What containers may ask of any object and this one has no use for: each call answers as COM says
// and changes nothing.
#include <gtest/gtest.h>
#include <olectl.h>

#include "tests/windows/server/control_host.h"

namespace pricedown::testing {
namespace {

using windows::ComPtr;

class DeclinedCalls : public ::testing::Test {
 protected:
  DeclinedCalls() {
    host.Open();
    host.world.log.Clear();
  }
  ~DeclinedCalls() override {
    EXPECT_EQ(host.world.log.Text(), "");
    EXPECT_NE(IsWindowVisible(host.Window()), FALSE);
  }

  ControlHost host;
};

TEST_F(DeclinedCalls, OfAnOleObjectClearTheirResults) {
  const auto object = host.As<IOleObject>();
  ComPtr<IUnknown> other = host.As<IUnknown>();
  auto* moniker = reinterpret_cast<IMoniker*>(other.get());
  EXPECT_EQ(object->SetMoniker(OLEWHICHMK_CONTAINER, nullptr), E_NOTIMPL);
  EXPECT_EQ(object->GetMoniker(OLEGETMONIKER_ONLYIFTHERE, OLEWHICHMK_OBJFULL, &moniker), E_NOTIMPL);
  EXPECT_EQ(moniker, nullptr);
  EXPECT_EQ(object->GetMoniker(OLEGETMONIKER_ONLYIFTHERE, OLEWHICHMK_OBJFULL, nullptr), E_NOTIMPL);
  EXPECT_EQ(object->InitFromData(nullptr, FALSE, 0), E_NOTIMPL);
  auto* data = reinterpret_cast<IDataObject*>(other.get());
  EXPECT_EQ(object->GetClipboardData(0, &data), E_NOTIMPL);
  EXPECT_EQ(data, nullptr);
  EXPECT_EQ(object->SetColorScheme(nullptr), E_NOTIMPL);
  EXPECT_EQ(object->Update(), S_OK);
}

TEST_F(DeclinedCalls, OfAnInPlaceObjectDoNothing) {
  const auto object = host.As<IOleInPlaceObject>();
  EXPECT_EQ(object->ContextSensitiveHelp(TRUE), E_NOTIMPL);
  EXPECT_EQ(object->ReactivateAndUndo(), INPLACE_E_NOTUNDOABLE);
  const auto active = host.As<IOleInPlaceActiveObject>();
  EXPECT_EQ(active->ResizeBorder(nullptr, nullptr, TRUE), S_OK);
  EXPECT_EQ(active->EnableModeless(FALSE), S_OK);
}

TEST_F(DeclinedCalls, OfAViewHaveNeitherPaletteNorNaturalSize) {
  const auto view = host.As<IViewObjectEx>();
  auto* palette = reinterpret_cast<LOGPALETTE*>(this);
  EXPECT_EQ(view->GetColorSet(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, &palette), S_FALSE);
  EXPECT_EQ(palette, nullptr);
  DWORD freeze = 0;
  EXPECT_EQ(view->Freeze(DVASPECT_CONTENT, -1, nullptr, &freeze), E_NOTIMPL);
  EXPECT_EQ(view->Unfreeze(0), E_NOTIMPL);
  SIZEL size{1, 1};
  EXPECT_EQ(view->GetNaturalExtent(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, &size),
            E_NOTIMPL);
  EXPECT_EQ(size.cx + size.cy, 0);
  EXPECT_EQ(view->GetNaturalExtent(DVASPECT_ICON, -1, nullptr, nullptr, nullptr, &size),
            DV_E_DVASPECT);
  EXPECT_EQ(view->GetNaturalExtent(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, nullptr),
            E_POINTER);
}

// The whole control, in the units of its extent.
TEST_F(DeclinedCalls, OfAViewReportTheWholeRectangleOfItsContentOnly) {
  const auto view = host.As<IViewObjectEx>();
  SIZEL extent{};
  EXPECT_EQ(view->GetExtent(DVASPECT_CONTENT, -1, nullptr, &extent), S_OK);
  RECTL area{9, 9, 9, 9};
  EXPECT_EQ(view->GetRect(DVASPECT_CONTENT, &area), S_OK);
  EXPECT_EQ(area.left, 0);
  EXPECT_EQ(area.top, 0);
  EXPECT_EQ(area.right, extent.cx);
  EXPECT_EQ(area.bottom, extent.cy);
  EXPECT_EQ(view->GetRect(DVASPECT_ICON, &area), DV_E_DVASPECT);
  EXPECT_EQ(view->GetRect(DVASPECT_CONTENT, nullptr), E_POINTER);
}

TEST_F(DeclinedCalls, OfAnAdviseEnumerationSucceedWithoutSinks) {
  ComPtr<IEnumSTATDATA> sinks;
  EXPECT_EQ(host.As<IOleObject>()->EnumAdvise(nullptr), E_POINTER);
  EXPECT_EQ(host.As<IOleObject>()->EnumAdvise(sinks.put()), S_OK);
}

}  // namespace
}  // namespace pricedown::testing
