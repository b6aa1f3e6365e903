// Tests of the control's life in a container: creation, activation, sizes, end.
#include <gtest/gtest.h>
#include <olectl.h>

#include "tests/windows/raw_call.h"
#include "tests/windows/server/control_host.h"
#include "windows/base/control_ids.h"

namespace pricedown::testing {
namespace {

using windows::ComPtr;

RECT InFrame(const ControlHost& host) {
  RECT rectangle{};
  GetWindowRect(host.Window(), &rectangle);
  MapWindowPoints(nullptr, host.frame.Handle(), reinterpret_cast<POINT*>(&rectangle), 2);
  return rectangle;
}

std::string Shown(const RECT& rectangle) {
  return std::to_string(rectangle.left) + "," + std::to_string(rectangle.top) + " " +
         std::to_string(rectangle.right) + "," + std::to_string(rectangle.bottom);
}

// The lines of the container alone.
std::string SiteLines(const CallLog& log) {
  std::string text;
  for (const std::string& line : log.Lines()) {
    if (line.starts_with("site ")) text += line + "\n";
  }
  return text;
}

TEST(Creation, MakesNoCallToTheSuite) {
  const ControlHost host;
  EXPECT_FALSE(host.SuiteWasCalled());
}

TEST(Creation, RunsWhenTheContainerSetsItsSite) {
  ControlHost host;
  EXPECT_EQ(host.SetSite(), S_OK);
  EXPECT_EQ(host.world.log.Count("create ZEPConnection.AppConnection"), 1U);
  EXPECT_EQ(host.world.log.Count("create ZEPCBSSystemData.AisInfo"), 1U);
}

TEST(Creation, RunsOnceForOneSite) {
  ControlHost host;
  host.Open();
  EXPECT_EQ(host.world.log.Count("create ZEPCBSSystemData.AisInfo"), 1U);
}

TEST(Creation, WaitsWhileTheContainerIsDesigned) {
  ControlHost host;
  host.site->userMode = false;
  EXPECT_EQ(host.SetSite(), S_OK);
  EXPECT_EQ(host.DoVerb(OLEIVERB_SHOW), S_OK);
  EXPECT_NE(host.Window(), nullptr);
  EXPECT_EQ(host.Close(), S_OK);
  EXPECT_EQ(host.LeaveSite(), S_OK);
  host.Release();
  EXPECT_FALSE(host.SuiteWasCalled());
}

TEST(Creation, FollowsTheEndOfDesigning) {
  ControlHost host;
  host.site->userMode = false;
  host.SetSite();
  host.site->userMode = true;
  EXPECT_EQ(host.As<IOleControl>()->OnAmbientPropertyChange(DISPID_AMBIENT_USERMODE), S_OK);
  EXPECT_EQ(host.world.log.Count("create ZEPCBSSystemData.AisInfo"), 1U);
}

TEST(Creation, IgnoresOtherAmbientProperties) {
  ControlHost host;
  host.site->userMode = false;
  host.SetSite();
  host.site->userMode = true;
  EXPECT_EQ(host.As<IOleControl>()->OnAmbientPropertyChange(DISPID_AMBIENT_BACKCOLOR), S_OK);
  EXPECT_FALSE(host.SuiteWasCalled());
}

TEST(Creation, RunsAtTheFirstMemberWithoutAContainer) {
  ControlHost host;
  EXPECT_EQ(Statement(host.control.get(), L"RefreshToolbar"), "S_OK");
  EXPECT_EQ(host.world.log.Count("create ZEPCBSSystemData.AisInfo"), 1U);
  EXPECT_EQ(Statement(host.control.get(), L"RefreshToolbar"), "S_OK");
  EXPECT_EQ(host.world.log.Count("create ZEPCBSSystemData.AisInfo"), 1U);
}

TEST(Activation, NotifiesTheContainerAndMovesTheWindow) {
  ControlHost host;
  host.SetSite();
  host.world.log.Clear();
  EXPECT_EQ(host.DoVerb(OLEIVERB_SHOW), S_OK);
  EXPECT_EQ(SiteLines(host.world.log), "site OnInPlaceActivate\nsite ShowObject\n");
  ASSERT_NE(host.Window(), nullptr);
  EXPECT_NE(IsWindowVisible(host.Window()), FALSE);
  EXPECT_EQ(Shown(InFrame(host)), "10,20 710,520");
}

TEST(Activation, OfTheUserInterfaceMakesTheControlTheActiveOne) {
  ControlHost host;
  host.SetSite();
  host.world.log.Clear();
  EXPECT_EQ(host.DoVerb(OLEIVERB_UIACTIVATE), S_OK);
  EXPECT_EQ(SiteLines(host.world.log),
            "site OnInPlaceActivate\nsite ShowObject\nsite OnUIActivate\n"
            "site SetActiveObject\nsite OnFocus\n");
  EXPECT_NE(IsChild(host.Window(), GetFocus()), FALSE);
}

TEST(Activation, ComesWithTheFocusToo) {
  ControlHost host;
  host.Open();
  host.world.log.Clear();
  SetFocus(GetDlgItem(host.Window(), windows::control_ids::kTree));
  EXPECT_EQ(SiteLines(host.world.log), "site OnUIActivate\nsite SetActiveObject\nsite OnFocus\n");
}

TEST(Activation, IsUndoneStepByStep) {
  ControlHost host;
  host.SetSite();
  host.DoVerb(OLEIVERB_UIACTIVATE);
  host.world.log.Clear();
  const auto object = host.As<IOleInPlaceObject>();
  EXPECT_EQ(object->UIDeactivate(), S_OK);
  EXPECT_EQ(SiteLines(host.world.log), "site SetActiveObject none\nsite OnUIDeactivate\n");
  EXPECT_EQ(object->UIDeactivate(), S_OK);
  EXPECT_EQ(object->InPlaceDeactivate(), S_OK);
  EXPECT_EQ(object->InPlaceDeactivate(), S_OK);
  EXPECT_EQ(SiteLines(host.world.log),
            "site SetActiveObject none\nsite OnUIDeactivate\nsite OnFocus lost\n"
            "site OnInPlaceDeactivate\n");
  EXPECT_EQ(host.Window(), nullptr);
  EXPECT_EQ(host.DoVerb(OLEIVERB_INPLACEACTIVATE), S_OK);
  EXPECT_NE(host.Window(), nullptr);
}

TEST(Activation, NotifiesTheContainerOfEachGainAndLossOfTheFocus) {
  ControlHost host;
  host.Open();
  host.world.log.Clear();
  const HWND tree = GetDlgItem(host.Window(), windows::control_ids::kTree);
  for (int round = 0; round < 2; ++round) {
    SetFocus(tree);
    SetFocus(GetDlgItem(host.Window(), windows::control_ids::kToolStrip));
    SetFocus(host.frame.Handle());
  }
  EXPECT_EQ(SiteLines(host.world.log),
            "site OnUIActivate\nsite SetActiveObject\nsite OnFocus\nsite OnFocus lost\n"
            "site OnFocus\nsite OnFocus lost\n");
}

// The container has the focus before the window is hidden, so that no key reaches a hidden window.
TEST(Activation, ReturnsTheFocusToTheContainerWhenItEnds) {
  ControlHost host;
  host.Open();
  host.DoVerb(OLEIVERB_UIACTIVATE);
  ASSERT_NE(IsChild(host.Window(), GetFocus()), FALSE);
  EXPECT_EQ(host.As<IOleInPlaceObject>()->InPlaceDeactivate(), S_OK);
  EXPECT_EQ(GetFocus(), host.frame.Handle());
}

TEST(Activation, ReturnsTheFocusToTheContainerWhenItIsHidden) {
  ControlHost host;
  host.Open();
  host.DoVerb(OLEIVERB_UIACTIVATE);
  host.world.log.Clear();
  EXPECT_EQ(host.DoVerb(OLEIVERB_HIDE), S_OK);
  EXPECT_EQ(GetFocus(), host.frame.Handle());
  EXPECT_EQ(SiteLines(host.world.log),
            "site SetActiveObject none\nsite OnUIDeactivate\nsite OnFocus lost\n");
  EXPECT_EQ(host.DoVerb(OLEIVERB_UIACTIVATE), S_OK);
  EXPECT_NE(IsChild(host.Window(), GetFocus()), FALSE);
}

TEST(Activation, IsRefusedWithoutASiteOrByIt) {
  ControlHost host;
  EXPECT_EQ(host.DoVerb(OLEIVERB_SHOW), OLE_E_NOT_INPLACEACTIVE);
  host.SetSite();
  host.site->canActivate = S_FALSE;
  EXPECT_EQ(host.DoVerb(OLEIVERB_SHOW), OLE_E_NOT_INPLACEACTIVE);
  EXPECT_EQ(host.Window(), nullptr);
  HWND window = host.frame.Handle();
  EXPECT_EQ(host.As<IOleInPlaceObject>()->GetWindow(&window), E_FAIL);
  EXPECT_EQ(window, nullptr);
}

TEST(Activation, MayEndWhileTheContainerIsNotified) {
  ControlHost host;
  host.SetSite();
  host.site->onActivate = [&] { host.Close(); };
  host.DoVerb(OLEIVERB_UIACTIVATE);
  host.site->onActivate = nullptr;
  EXPECT_EQ(host.Window(), nullptr);
}

TEST(Activation, HidesAndShowsTheWindow) {
  ControlHost host;
  host.SetSite();
  host.DoVerb(OLEIVERB_SHOW);
  EXPECT_EQ(host.DoVerb(OLEIVERB_HIDE), S_OK);
  EXPECT_EQ(IsWindowVisible(host.Window()), FALSE);
  EXPECT_EQ(host.DoVerb(OLEIVERB_SHOW), S_OK);
  EXPECT_NE(IsWindowVisible(host.Window()), FALSE);
}

TEST(Activation, KnowsItsVerbs) {
  ControlHost host;
  host.SetSite();
  EXPECT_EQ(host.DoVerb(OLEIVERB_OPEN), E_NOTIMPL);
  EXPECT_EQ(host.DoVerb(OLEIVERB_DISCARDUNDOSTATE), S_OK);
  EXPECT_EQ(host.DoVerb(5), OLEOBJ_S_INVALIDVERB);
}

TEST(Placing, MovesAndClipsTheWindow) {
  ControlHost host;
  host.SetSite();
  host.DoVerb(OLEIVERB_SHOW);
  const RECT position{5, 5, 605, 405};
  const RECT clip{55, 0, 600, 300};
  EXPECT_EQ(host.As<IOleInPlaceObject>()->SetObjectRects(&position, &clip), S_OK);
  EXPECT_EQ(Shown(InFrame(host)), "5,5 605,405");
  const HRGN region = CreateRectRgn(0, 0, 0, 0);
  RECT box{};
  ASSERT_EQ(GetWindowRgn(host.Window(), region), SIMPLEREGION);
  GetRgnBox(region, &box);
  EXPECT_EQ(Shown(box), "50,0 595,295");
  EXPECT_EQ(host.As<IOleInPlaceObject>()->SetObjectRects(&position, &position), S_OK);
  EXPECT_EQ(GetWindowRgn(host.Window(), region), ERROR);
  DeleteObject(region);
  EXPECT_EQ(host.As<IOleInPlaceObject>()->SetObjectRects(nullptr, nullptr), E_POINTER);
}

TEST(Placing, KeepsTheExtentInHundredthsOfAMillimetre) {
  ControlHost host;
  SIZEL size{5000, 4000};
  const auto object = host.As<IOleObject>();
  EXPECT_EQ(object->SetExtent(DVASPECT_CONTENT, &size), S_OK);
  SIZEL found{};
  EXPECT_EQ(object->GetExtent(DVASPECT_CONTENT, &found), S_OK);
  EXPECT_EQ(found.cx, 5000);
  EXPECT_EQ(found.cy, 4000);
  EXPECT_EQ(object->GetExtent(DVASPECT_ICON, &found), DV_E_DVASPECT);
  SIZEL negative{-1, 5};
  EXPECT_EQ(object->SetExtent(DVASPECT_CONTENT, &negative), E_INVALIDARG);
}

TEST(End, ByCloseKeepsTheSelectedNode) {
  ControlHost host;
  host.Open();
  host.world.log.Clear();
  EXPECT_EQ(host.Close(), S_OK);
  EXPECT_EQ(host.world.log.Count(R"(put dictionary("NodeSel1") = "gi01")"), 1U);
  EXPECT_EQ(host.Window(), nullptr);
}

TEST(End, ByLeavingTheContainerIsTheSame) {
  ControlHost host;
  host.Open();
  host.world.log.Clear();
  EXPECT_EQ(host.LeaveSite(), S_OK);
  EXPECT_EQ(host.world.log.Count("create ZEPEBCBASE.UserProfile"), 1U);
  host.Release();
  EXPECT_EQ(host.world.log.Count("create ZEPEBCBASE.UserProfile"), 1U);
}

TEST(End, ByTheLastReferenceIsTheSame) {
  ControlHost host;
  host.Open();
  host.world.log.Clear();
  host.Release();
  EXPECT_EQ(host.world.log.Count("create ZEPEBCBASE.UserProfile"), 1U);
  EXPECT_EQ(SiteLines(host.world.log), "site OnInPlaceDeactivate\n");
}

TEST(End, WithoutEverShowingTouchesNoSetting) {
  ControlHost host;
  host.SetSite();
  host.world.log.Clear();
  EXPECT_EQ(host.Close(), S_OK);
  EXPECT_EQ(host.LeaveSite(), S_OK);
  host.Release();
  EXPECT_EQ(host.world.log.Count("create ZEPEBCBASE.UserProfile"), 0U);
}

TEST(End, OfTheHostsWindowBeforeTheControlIsHarmless) {
  ControlHost host;
  host.Open();
  host.frame.Destroy();
  EXPECT_EQ(Statement(host.control.get(), L"RefreshToolbar"), "S_OK");
  EXPECT_EQ(host.As<IOleInPlaceObject>()->InPlaceDeactivate(), S_OK);
  EXPECT_EQ(host.Close(), S_OK);
  EXPECT_EQ(host.LeaveSite(), S_OK);
}

TEST(End, OfTheHostsWindowWithoutCloseIsHarmless) {
  ControlHost host;
  host.Open();
  host.frame.Destroy();
  host.Release();
}

TEST(End, OfTheControlBeforeTheHostsWindowIsHarmless) {
  ControlHost host;
  host.Open();
  host.Release();
  EXPECT_EQ(host.Window(), nullptr);
  EXPECT_NE(IsWindow(host.frame.Handle()), FALSE);
}

TEST(End, MakesMembersDoNothing) {
  ControlHost host;
  host.Open();
  host.Close();
  host.LeaveSite();
  const int calls = host.world.factory.CallCount();
  EXPECT_EQ(Statement(host.control.get(), L"ModelCurrent"), "S_OK");
  EXPECT_EQ(Statement(host.control.get(), L"addRecord"), "S_OK");
  EXPECT_EQ(host.world.factory.CallCount(), calls);
}

TEST(SecondLife, BeginsWithANewSite) {
  ControlHost host;
  host.Open();
  host.Close();
  host.LeaveSite();
  host.world.log.Clear();
  host.Open();
  EXPECT_EQ(host.world.log.Count("create ZEPCBSSystemData.AisInfo"), 1U);
  EXPECT_NE(host.Window(), nullptr);
}

TEST(SecondLife, BeginsWithActivationAfterClose) {
  ControlHost host;
  host.Open();
  host.Close();
  host.world.log.Clear();
  EXPECT_EQ(host.DoVerb(OLEIVERB_SHOW), S_OK);
  EXPECT_EQ(host.world.log.Count("create ZEPCBSSystemData.AisInfo"), 1U);
  EXPECT_NE(host.Window(), nullptr);
}

// An ambient change begins it before the container activates it in its next window.
TEST(SecondLife, IsShownInTheNextWindowOfAHostThatDestroyedItsFirst) {
  ControlHost host;
  host.Open();
  host.frame.Destroy();
  host.world.log.Clear();
  EXPECT_EQ(host.As<IOleControl>()->OnAmbientPropertyChange(DISPID_UNKNOWN), S_OK);
  EXPECT_EQ(SiteLines(host.world.log), "site OnInPlaceDeactivate\n");
  EXPECT_EQ(host.world.log.Count("create ZEPCBSSystemData.AisInfo"), 1U);
  const HostFrame next(host.world.log, u"物料类别维护");
  host.site->MoveInto(next.Handle());
  EXPECT_EQ(host.DoVerb(OLEIVERB_INPLACEACTIVATE), S_OK);
  const HWND shown = FindWindowExW(next.Handle(), nullptr, L"PriceDown.Control", nullptr);
  ASSERT_NE(shown, nullptr);
  EXPECT_NE(IsWindowVisible(shown), FALSE);
}

TEST(Keys, ThatTheControlDoesNotUseGoToItsSite) {
  ControlHost host;
  host.Open();
  host.DoVerb(OLEIVERB_UIACTIVATE);
  host.world.log.Clear();
  MSG key{};
  key.hwnd = GetFocus();
  key.message = WM_KEYDOWN;
  key.wParam = VK_F9;
  const auto active = host.As<IOleInPlaceActiveObject>();
  EXPECT_EQ(active->TranslateAccelerator(&key), S_FALSE);
  EXPECT_EQ(host.world.log.Text(), "site TranslateAccelerator 120 modifiers 0\n");
  host.site->translates = S_OK;
  EXPECT_EQ(active->TranslateAccelerator(&key), S_OK);
  EXPECT_EQ(active->TranslateAccelerator(nullptr), E_POINTER);
}

TEST(Keys, OfCommandsAreTheControlsWhileTreeOrGridHasTheFocus) {
  ControlHost host;
  host.Open();
  host.DoVerb(OLEIVERB_UIACTIVATE);
  host.world.log.Clear();
  MSG key{};
  key.hwnd = GetFocus();
  key.message = WM_KEYDOWN;
  key.wParam = VK_F5;
  EXPECT_EQ(host.As<IOleInPlaceActiveObject>()->TranslateAccelerator(&key), S_OK);
  EXPECT_EQ(host.world.log.Count(ExecuteLine(kItemsOf01)), 1U);
  EXPECT_EQ(host.world.log.Text().find("site"), std::string::npos);
}

TEST(TwoControls, LiveBesideEachOther) {
  ControlHost first;
  first.Open();
  {
    Library library;
    const auto second = library.NewPriceDown();
    EXPECT_EQ(Expression(second.get(), L"Show", {ObjectOf(nullptr)}), "S_OK True");
  }
  EXPECT_NE(first.Window(), nullptr);
  EXPECT_EQ(Statement(first.control.get(), L"RefreshToolbar"), "S_OK");
}

}  // namespace
}  // namespace pricedown::testing
