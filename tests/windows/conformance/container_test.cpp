// Tests of unusual containers: repeated activation, another container, no container, refusals
// midway.
#include <gtest/gtest.h>

#include <string>

#include "tests/windows/raw_call.h"
#include "tests/windows/server/control_host.h"
#include "windows/base/control_ids.h"

namespace pricedown::testing {
namespace {

using windows::ComPtr;
using windows::MakeCom;

const char* const kCreation = "create ZEPCBSSystemData.AisInfo";

ULONG ReferencesTo(const ComPtr<RecordingSite>& site) {
  IOleClientSite* object = site.get();
  object->AddRef();
  return object->Release();
}

HWND WindowOf(const ComPtr<IDispatch>& control) {
  HWND window = nullptr;
  control.As<IOleInPlaceObject>()->GetWindow(&window);
  return window;
}

TEST(RoundTrips, OfActivationAreAllAlike) {
  ControlHost host;
  host.Open();
  const auto object = host.As<IOleInPlaceObject>();
  ASSERT_EQ(object->InPlaceDeactivate(), S_OK);
  const ULONG references = ReferencesTo(host.site);
  for (int round = 0; round < 20; ++round) {
    host.world.log.Clear();
    ASSERT_EQ(host.DoVerb(OLEIVERB_UIACTIVATE), S_OK);
    ASSERT_NE(IsChild(host.Window(), GetFocus()), FALSE);
    ASSERT_EQ(object->UIDeactivate(), S_OK);
    ASSERT_NE(IsWindowVisible(host.Window()), FALSE);
    ASSERT_EQ(object->InPlaceDeactivate(), S_OK);
    ASSERT_EQ(host.Window(), nullptr);
    // No call to the suite.
    ASSERT_EQ(host.world.log.Text(), Lines(R"(
        site OnInPlaceActivate
        site ShowObject
        site OnUIActivate
        site SetActiveObject
        site OnFocus
        site SetActiveObject none
        site OnUIDeactivate
        site OnFocus lost
        site OnInPlaceDeactivate
        )"));
    ASSERT_EQ(ReferencesTo(host.site), references);
  }
}

TEST(RoundTrips, OfTheDocumentsWindowActivateAgain) {
  ControlHost host;
  host.Open();
  host.DoVerb(OLEIVERB_UIACTIVATE);
  const auto object = host.As<IOleInPlaceObject>();
  const auto active = host.As<IOleInPlaceActiveObject>();
  EXPECT_EQ(active->OnDocWindowActivate(FALSE), S_OK);
  object->UIDeactivate();
  SetFocus(host.frame.Handle());
  host.world.log.Clear();
  EXPECT_EQ(active->OnDocWindowActivate(TRUE), S_OK);
  EXPECT_EQ(host.world.log.Count("site OnUIActivate"), 1U);
  EXPECT_NE(IsChild(host.Window(), GetFocus()), FALSE);
  object->InPlaceDeactivate();
  host.world.log.Clear();
  EXPECT_EQ(active->OnDocWindowActivate(TRUE), S_OK);
  EXPECT_EQ(active->OnFrameWindowActivate(TRUE), S_OK);
  EXPECT_EQ(host.world.log.Text(), "");
}

TEST(AnotherContainer, CanHostTheControlOnceTheFirstHasReleasedIt) {
  ControlHost host;
  host.Open();
  const HostFrame frame(host.world.log, u"另一个窗口");
  const auto site = MakeCom<RecordingSite>(host.world.log, frame.Handle(), RECT{5, 6, 405, 306});
  EXPECT_EQ(host.LeaveSite(), S_OK);
  EXPECT_EQ(ReferencesTo(host.site), 1U);
  host.world.log.Clear();
  const auto object = host.As<IOleObject>();
  EXPECT_EQ(object->SetClientSite(site.get()), S_OK);
  EXPECT_EQ(host.world.log.Count(kCreation), 1U);
  EXPECT_EQ(host.DoVerb(OLEIVERB_SHOW), S_OK);
  EXPECT_EQ(GetParent(WindowOf(host.control)), frame.Handle());
  EXPECT_EQ(object->SetClientSite(nullptr), S_OK);
  EXPECT_EQ(ReferencesTo(site), 1U);
}

TEST(AnotherContainer, MayReceiveTheControlThatTheFirstStillShows) {
  ControlHost host;
  host.Open();
  host.DoVerb(OLEIVERB_UIACTIVATE);
  const HostFrame frame(host.world.log, u"另一个窗口");
  const auto site = MakeCom<RecordingSite>(host.world.log, frame.Handle(), RECT{5, 6, 405, 306});
  host.world.log.Clear();
  const auto object = host.As<IOleObject>();
  EXPECT_EQ(object->SetClientSite(site.get()), S_OK);
  // It continues with its existing state: no second creation.
  EXPECT_EQ(host.world.log.Text(), Lines(R"(
      site SetActiveObject none
      site OnUIDeactivate
      site OnInPlaceDeactivate
      )"));
  EXPECT_EQ(ReferencesTo(host.site), 1U);
  EXPECT_EQ(host.DoVerb(OLEIVERB_SHOW), S_OK);
  EXPECT_EQ(GetParent(WindowOf(host.control)), frame.Handle());
  EXPECT_EQ(object->SetClientSite(nullptr), S_OK);
  EXPECT_EQ(ReferencesTo(site), 1U);
}

TEST(NoContainer, MayBeSetAtAnyTime) {
  ControlHost host;
  const auto object = host.As<IOleObject>();
  EXPECT_EQ(object->SetClientSite(nullptr), S_OK);
  EXPECT_EQ(object->Close(OLECLOSE_SAVEIFDIRTY), S_OK);
  EXPECT_EQ(object->SetClientSite(nullptr), S_OK);
  EXPECT_EQ(object->Close(OLECLOSE_NOSAVE), S_OK);
  ComPtr<IOleClientSite> site;
  EXPECT_EQ(object->GetClientSite(site.put()), S_OK);
  EXPECT_FALSE(site);
  EXPECT_FALSE(host.SuiteWasCalled());
  host.Open();
  EXPECT_NE(host.Window(), nullptr);
}

// A toolkit may have subclassed the window and forget it with its own object.
TEST(NoContainer, LeavesNoWindowThoughReferencesRemain) {
  ControlHost host;
  host.Open();
  const HWND window = host.Window();
  ASSERT_NE(IsWindow(window), FALSE);
  EXPECT_EQ(host.LeaveSite(), S_OK);
  EXPECT_EQ(IsWindow(window), FALSE);
  EXPECT_EQ(Statement(host.control.get(), L"RefreshToolbar"), "S_OK");
}

TEST(NoContainer, IsTheEndOfEachLifeAndTheNextBegins) {
  ControlHost host;
  for (int life = 1; life <= 5; ++life) {
    host.world.log.Clear();
    host.Open();
    EXPECT_EQ(host.world.log.Count(kCreation), 1U);
    EXPECT_EQ(host.LeaveSite(), S_OK);
    EXPECT_EQ(host.world.log.Count(R"(put dictionary("NodeSel1") = "gi01")"), 1U);
    EXPECT_EQ(host.Window(), nullptr);
    EXPECT_EQ(ReferencesTo(host.site), 1U);
  }
}

struct Refusal {
  const char* call;
  bool fails;     // the verb
  bool active;    // in place, afterwards
  bool uiActive;  // afterwards
};

class ReluctantContainer : public ::testing::TestWithParam<Refusal> {};

TEST_P(ReluctantContainer, LeavesTheControlReadyForTheNextTime) {
  ControlHost host;
  host.SetSite();
  host.world.log.Clear();
  host.site->refusedCall = GetParam().call;
  EXPECT_EQ(FAILED(host.DoVerb(OLEIVERB_UIACTIVATE)), GetParam().fails);
  EXPECT_EQ(host.Window() != nullptr, GetParam().active);
  EXPECT_EQ(host.world.log.Count("site SetActiveObject") == 1, GetParam().uiActive);
  host.site->refusedCall.clear();
  EXPECT_EQ(host.DoVerb(OLEIVERB_UIACTIVATE), S_OK);
  EXPECT_NE(IsChild(host.Window(), GetFocus()), FALSE);
  EXPECT_EQ(host.LeaveSite(), S_OK);
  EXPECT_EQ(ReferencesTo(host.site), 1U);
}

INSTANTIATE_TEST_SUITE_P(OnTheWayIn, ReluctantContainer,
                         ::testing::Values(Refusal{"GetWindow", true, false, false},
                                           Refusal{"OnInPlaceActivate", true, false, false},
                                           Refusal{"GetWindowContext", true, false, false},
                                           Refusal{"ShowObject", false, true, true},
                                           Refusal{"OnUIActivate", false, true, false},
                                           Refusal{"SetActiveObject", false, true, true},
                                           Refusal{"OnFocus", false, true, true}),
                         [](const auto& one) { return std::string(one.param.call); });

TEST(TheWayBack, CannotBeRefused) {
  for (const char* call :
       {"OnFocus lost", "SetActiveObject none", "OnUIDeactivate", "OnInPlaceDeactivate"}) {
    ControlHost host;
    host.SetSite();
    host.DoVerb(OLEIVERB_UIACTIVATE);
    host.site->refusedCall = call;
    EXPECT_EQ(host.As<IOleInPlaceObject>()->InPlaceDeactivate(), S_OK) << call;
    EXPECT_EQ(host.Window(), nullptr) << call;
    EXPECT_EQ(host.world.log.Count("site OnInPlaceDeactivate"), 1U) << call;
    EXPECT_EQ(host.LeaveSite(), S_OK) << call;
    EXPECT_EQ(ReferencesTo(host.site), 1U) << call;
  }
}

// A second control beside the first one in the same frame, with its own site.
class NeighbouringControls : public ::testing::Test {
 protected:
  NeighbouringControls() {
    first.Open();
    EXPECT_EQ(second.As<IOleObject>()->SetClientSite(site.get()), S_OK);
    EXPECT_EQ(Verb(OLEIVERB_SHOW), S_OK);
    EXPECT_EQ(Expression(second.get(), L"Show", {ObjectOf(nullptr)}), "S_OK True");
  }
  ~NeighbouringControls() override {
    EXPECT_EQ(second.As<IOleObject>()->Close(OLECLOSE_NOSAVE), S_OK);
    EXPECT_EQ(second.As<IOleObject>()->SetClientSite(nullptr), S_OK);
    EXPECT_EQ(ReferencesTo(site), 1U);
  }

  HRESULT Verb(LONG verb) {
    const RECT position{};
    return second.As<IOleObject>()->DoVerb(verb, nullptr, site.get(), 0, first.frame.Handle(),
                                           &position);
  }

  ControlHost first;
  ComPtr<RecordingSite> site =
      MakeCom<RecordingSite>(first.world.log, first.frame.Handle(), RECT{20, 250, 620, 550});
  ComPtr<IDispatch> second = first.library.NewPriceDown();
};

TEST_F(NeighbouringControls, AreCreatedIndependently) {
  EXPECT_EQ(first.world.log.Count(kCreation), 2U);
  EXPECT_EQ(first.world.log.Count(ExecuteLine(kTreeStatement)), 2U);
  EXPECT_NE(WindowOf(first.control), WindowOf(second));
  EXPECT_NE(IsWindowVisible(WindowOf(first.control)), FALSE);
  EXPECT_NE(IsWindowVisible(WindowOf(second)), FALSE);
}

TEST_F(NeighbouringControls, PassTheActivationWithTheFocus) {
  first.DoVerb(OLEIVERB_UIACTIVATE);
  first.world.log.Clear();
  const HWND tree = GetDlgItem(WindowOf(second), windows::control_ids::kTree);
  SetFocus(tree);
  EXPECT_EQ(first.world.log.Text(), Lines(R"(
      site OnFocus lost
      site OnUIActivate
      site SetActiveObject
      site OnFocus
      )"));
  first.world.log.Clear();
  EXPECT_EQ(first.As<IOleInPlaceObject>()->UIDeactivate(), S_OK);
  EXPECT_EQ(first.world.log.Text(), Lines(R"(
      site SetActiveObject none
      site OnUIDeactivate
      )"));
  EXPECT_EQ(GetFocus(), tree);
}

TEST_F(NeighbouringControls, DoNotHandleEachOthersKeys) {
  first.DoVerb(OLEIVERB_UIACTIVATE);
  first.world.log.Clear();
  MSG key{};
  key.hwnd = GetDlgItem(WindowOf(second), windows::control_ids::kTree);
  key.message = WM_KEYDOWN;
  key.wParam = VK_F5;
  EXPECT_EQ(first.As<IOleInPlaceActiveObject>()->TranslateAccelerator(&key), S_FALSE);
  EXPECT_EQ(first.world.log.Text(), "site TranslateAccelerator 116 modifiers 0\n");
}

TEST_F(NeighbouringControls, OutliveEachOther) {
  first.Close();
  first.LeaveSite();
  first.Release();
  EXPECT_NE(IsWindowVisible(WindowOf(second)), FALSE);
  first.world.log.Clear();
  EXPECT_EQ(Statement(second.get(), L"ModelCurrent"), "S_OK");
  EXPECT_EQ(first.world.log.Count(ExecuteLine(kModeStatement)), 1U);
  EXPECT_EQ(Verb(OLEIVERB_UIACTIVATE), S_OK);
  EXPECT_FALSE(first.library.CanUnload());
}

}  // namespace
}  // namespace pricedown::testing
