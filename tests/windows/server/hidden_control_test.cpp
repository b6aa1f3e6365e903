// A hidden control accepts no focus, however its container hides or activates it.
#include <gtest/gtest.h>
#include <olectl.h>

#include "tests/windows/raw_call.h"
#include "tests/windows/server/control_host.h"
#include "windows/base/control_ids.h"

namespace pricedown::testing {
namespace {

TEST(Activation, KeepsTheFocusOutOfItsHiddenWindowsInAnyContainer) {
  ControlHost host;
  host.Open();
  host.DoVerb(OLEIVERB_UIACTIVATE);
  const HWND window = host.Window();
  const HWND tree = GetFocus();
  host.site->onFocusLost = [&] { SetFocus(tree); };
  EXPECT_EQ(host.As<IOleInPlaceObject>()->InPlaceDeactivate(), S_OK);
  host.site->onFocusLost = nullptr;
  EXPECT_EQ(IsChild(window, GetFocus()), FALSE);
}

// Containers set the focus back to the control's window, dialogs to the window that had it.
TEST(Activation, TakesNoFocusWhileItIsHidden) {
  ControlHost host;
  host.Open();
  host.DoVerb(OLEIVERB_UIACTIVATE);
  const HWND tree = GetFocus();
  ASSERT_NE(IsChild(host.Window(), tree), FALSE);
  EXPECT_EQ(host.DoVerb(OLEIVERB_HIDE), S_OK);
  for (const HWND window : {host.Window(), tree}) {
    SetFocus(window);
    EXPECT_EQ(GetFocus(), host.frame.Handle());
  }
  EXPECT_EQ(host.DoVerb(OLEIVERB_SHOW), S_OK);
  SetFocus(host.Window());
  EXPECT_EQ(GetFocus(), tree);
}

TEST(Activation, TakesNoFocusOnceItHasEnded) {
  ControlHost host;
  host.Open();
  host.DoVerb(OLEIVERB_UIACTIVATE);
  const HWND tree = GetFocus();
  EXPECT_EQ(host.As<IOleInPlaceObject>()->InPlaceDeactivate(), S_OK);
  SetFocus(tree);
  EXPECT_EQ(GetFocus(), host.frame.Handle());
}

TEST(Activation, TakesTheFocusAgainInAContainerThatShowsTheWindowItself) {
  ControlHost host;
  host.Open();
  const HWND tree = GetDlgItem(host.Window(), windows::control_ids::kTree);
  for (const bool byPlace : {false, true}) {
    host.DoVerb(OLEIVERB_HIDE);
    if (byPlace) {
      SetWindowPos(host.Window(), nullptr, 0, 0, 0, 0,
                   SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_SHOWWINDOW);
    } else {
      ShowWindow(host.Window(), SW_SHOW);
    }
    SetFocus(tree);
    EXPECT_EQ(GetFocus(), tree) << byPlace;
  }
}

TEST(Activation, StaysHiddenWhenItsDocumentIsActivated) {
  ControlHost host;
  host.Open();
  const auto object = host.As<IOleInPlaceActiveObject>();
  host.DoVerb(OLEIVERB_HIDE);
  EXPECT_EQ(object->OnDocWindowActivate(TRUE), S_OK);
  EXPECT_EQ(IsWindowVisible(host.Window()), FALSE);
  EXPECT_EQ(GetFocus(), host.frame.Handle());
  host.DoVerb(OLEIVERB_SHOW);
  EXPECT_EQ(object->OnDocWindowActivate(TRUE), S_OK);
  EXPECT_NE(IsChild(host.Window(), GetFocus()), FALSE);
}

}  // namespace
}  // namespace pricedown::testing
