// Tests of keys and mnemonics between a container and its control: Tab in, through and out, and the
// keys that belong to the host.
#include <gtest/gtest.h>
#include <olectl.h>

#include <string>
#include <vector>

#include "tests/windows/server/control_host.h"
#include "windows/base/control_ids.h"

namespace pricedown::testing {
namespace {

namespace ids = windows::control_ids;

// Holds keys of the thread's keyboard down while it lives.
class HeldKeys {
 public:
  explicit HeldKeys(std::initializer_list<int> keys) {
    GetKeyboardState(before_);
    BYTE now[256] = {};
    for (const int key : keys) now[key] = 0x80;
    SetKeyboardState(now);
  }
  ~HeldKeys() { SetKeyboardState(before_); }
  HeldKeys(const HeldKeys&) = delete;
  HeldKeys& operator=(const HeldKeys&) = delete;

 private:
  BYTE before_[256] = {};
};

MSG Key(UINT message, WPARAM key) {
  MSG one{};
  one.hwnd = GetFocus();
  one.message = message;
  one.wParam = key;
  return one;
}

class KeysOfTheContainer : public ::testing::Test {
 protected:
  KeysOfTheContainer() { host.Open(); }

  HRESULT Translate(MSG message) {
    return host.As<IOleInPlaceActiveObject>()->TranslateAccelerator(&message);
  }
  HRESULT ActivateBy(MSG message) {
    const RECT position{};
    return host.As<IOleObject>()->DoVerb(OLEIVERB_UIACTIVATE, &message, host.site.get(), 0,
                                         host.frame.Handle(), &position);
  }
  HWND Child(int id) const { return GetDlgItem(host.Window(), id); }

  ControlHost host;
};

TEST_F(KeysOfTheContainer, TabEntersAtTheStartAndLeavesAtTheEnd) {
  SetFocus(host.frame.Handle());
  EXPECT_EQ(ActivateBy(Key(WM_KEYDOWN, VK_TAB)), S_OK);
  EXPECT_EQ(GetFocus(), Child(ids::kTree));
  host.world.log.Clear();
  std::vector<HWND> stops{GetFocus()};
  while (stops.size() < 10 && Translate(Key(WM_KEYDOWN, VK_TAB)) == S_OK) {
    EXPECT_NE(GetFocus(), stops.back());
    stops.push_back(GetFocus());
  }
  EXPECT_EQ(stops.size(), 3U);
  EXPECT_EQ(stops.back(), Child(ids::kToolStrip));
  // Only the last one was offered to the container, which moves the focus on.
  EXPECT_EQ(host.world.log.Text(), "site TranslateAccelerator 9 modifiers 0\n");
}

TEST_F(KeysOfTheContainer, ShiftTabEntersAtTheEndAndLeavesAtTheStart) {
  const HeldKeys shift({VK_SHIFT});
  SetFocus(host.frame.Handle());
  EXPECT_EQ(ActivateBy(Key(WM_KEYDOWN, VK_TAB)), S_OK);
  EXPECT_EQ(GetFocus(), Child(ids::kToolStrip));
  host.world.log.Clear();
  int stops = 1;
  while (stops < 10 && Translate(Key(WM_KEYDOWN, VK_TAB)) == S_OK) ++stops;
  EXPECT_EQ(stops, 3);
  EXPECT_EQ(GetFocus(), Child(ids::kTree));
  EXPECT_EQ(host.world.log.Text(), "site TranslateAccelerator 9 modifiers 1\n");
}

// A host's fields before and after the control, and the usual loops of a host.
class TabThroughAForm : public KeysOfTheContainer {
 protected:
  TabThroughAForm() {
    const HWND form = host.frame.Handle();
    const auto field = [form](const wchar_t* text) {
      return CreateWindowExW(0, L"EDIT", text, WS_CHILD | WS_VISIBLE | WS_TABSTOP, 0, 0, 50, 20,
                             form, nullptr, nullptr, nullptr);
    };
    before_ = field(L"before");
    after_ = field(L"after");
    // In the order of a dialog's controls.
    SetWindowPos(before_, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
  }

  // The stops of `count` presses, first letters: before, tree, grid, tool strip, after.
  std::string Stops(int count, bool offersToControl) {
    std::string stops;
    for (int press = 0; press < count; ++press) {
      MSG message = Key(WM_KEYDOWN, VK_TAB);
      const bool inside = IsChild(host.Window(), message.hwnd) != FALSE;
      if (!(offersToControl && inside && Translate(message) == S_OK) &&
          IsDialogMessageW(host.frame.Handle(), &message) == FALSE) {
        DispatchMessageW(&message);
      }
      stops += NameOfFocus();
    }
    return stops;
  }

  HWND before_ = nullptr;
  HWND after_ = nullptr;

 private:
  char NameOfFocus() const {
    const HWND focus = GetFocus();
    if (focus == before_) return 'b';
    if (focus == after_) return 'a';
    if (focus == Child(ids::kTree)) return 't';
    if (focus == Child(ids::kToolStrip)) return 's';
    return focus == GetDlgItem(Child(ids::kGridPane), ids::kGrid) ? 'g' : '?';
  }
};

TEST_F(TabThroughAForm, GoesRoundWithTheDialogManagerAlone) {
  SetFocus(before_);
  EXPECT_EQ(Stops(6, false), "tgsabt");
  const HeldKeys shift({VK_SHIFT});
  SetFocus(after_);
  EXPECT_EQ(Stops(6, false), "sgtbas");
}

TEST_F(TabThroughAForm, GoesRoundWhenTheLoopOffersKeysToTheControlFirst) {
  host.DoVerb(OLEIVERB_UIACTIVATE);
  SetFocus(before_);
  EXPECT_EQ(Stops(6, true), "tgsabt");
  const HeldKeys shift({VK_SHIFT});
  SetFocus(after_);
  EXPECT_EQ(Stops(6, true), "sgtbas");
}

// Tab in the bar's field returns to the pane, so that the field is no stop of its own.
TEST_F(TabThroughAForm, PassesTheOpenFindBar) {
  host.DoVerb(OLEIVERB_UIACTIVATE);
  {
    const HeldKeys control({VK_CONTROL});
    SendMessageW(Child(ids::kTree), WM_KEYDOWN, 'F', 1);
  }
  const HWND field = GetDlgItem(Child(ids::kFindBar), ids::kFindField);
  ASSERT_EQ(GetFocus(), field);
  for (const bool offersToControl : {false, true}) {
    SetFocus(field);
    EXPECT_EQ(Stops(1, offersToControl), "t");
    SetFocus(before_);
    EXPECT_EQ(Stops(6, offersToControl), "tgsabt");
    const HeldKeys shift({VK_SHIFT});
    SetFocus(after_);
    EXPECT_EQ(Stops(6, offersToControl), "sgtbas");
  }
  EXPECT_NE(IsWindowVisible(field), FALSE);
}

TEST_F(KeysOfTheContainer, TabIsUsedUpWhenTheContainerMovesOn) {
  host.DoVerb(OLEIVERB_UIACTIVATE);
  SetFocus(Child(ids::kToolStrip));
  host.site->translates = S_OK;
  EXPECT_EQ(Translate(Key(WM_KEYDOWN, VK_TAB)), S_OK);
}

TEST_F(KeysOfTheContainer, OtherActivationsKeepTheFocusWhereItWas) {
  host.DoVerb(OLEIVERB_UIACTIVATE);
  SetFocus(Child(ids::kToolStrip));
  const HeldKeys shift({VK_SHIFT});
  EXPECT_EQ(ActivateBy(Key(WM_LBUTTONDOWN, 0)), S_OK);
  EXPECT_EQ(GetFocus(), Child(ids::kToolStrip));
}

struct HostKey {
  const char* name;
  UINT message;
  WPARAM key;
  std::vector<int> held;
  int modifiers;
};

class HostKeys : public ::testing::TestWithParam<HostKey> {};

TEST_P(HostKeys, StayTheHosts) {
  ControlHost host;
  host.Open();
  host.DoVerb(OLEIVERB_UIACTIVATE);
  const HostKey& pressed = GetParam();
  BYTE none[256] = {};
  SetKeyboardState(none);
  BYTE state[256] = {};
  for (const int key : pressed.held) state[key] = 0x80;
  SetKeyboardState(state);
  for (const int id : {ids::kTree, ids::kToolStrip}) {
    SetFocus(GetDlgItem(host.Window(), id));
    host.world.log.Clear();
    MSG message = Key(pressed.message, pressed.key);
    EXPECT_EQ(host.As<IOleInPlaceActiveObject>()->TranslateAccelerator(&message), S_FALSE);
    EXPECT_EQ(host.world.log.Text(), "site TranslateAccelerator " + std::to_string(pressed.key) +
                                         " modifiers " + std::to_string(pressed.modifiers) + "\n");
  }
  SetKeyboardState(none);
}

INSTANTIATE_TEST_SUITE_P(
    All, HostKeys,
    ::testing::Values(HostKey{"Help", WM_KEYDOWN, VK_F1, {}, 0},
                      HostKey{"Find", WM_KEYDOWN, VK_F3, {}, 0},
                      HostKey{"ControlS", WM_KEYDOWN, 'S', {VK_CONTROL}, 2},
                      HostKey{"ControlShiftS", WM_KEYDOWN, 'S', {VK_CONTROL, VK_SHIFT}, 3},
                      HostKey{"ControlTab", WM_KEYDOWN, VK_TAB, {VK_CONTROL}, 2},
                      HostKey{"ControlF4", WM_KEYDOWN, VK_F4, {VK_CONTROL}, 2},
                      HostKey{"Escape", WM_KEYDOWN, VK_ESCAPE, {}, 0},
                      HostKey{"Menu", WM_SYSKEYDOWN, VK_F10, {}, 0},
                      HostKey{"AltF4", WM_SYSKEYDOWN, VK_F4, {VK_MENU}, 4},
                      HostKey{"Mnemonic", WM_SYSCHAR, 'f', {VK_MENU}, 4}),
    [](const auto& one) { return std::string(one.param.name); });

TEST_F(KeysOfTheContainer, AreNoOtherMessages) {
  host.DoVerb(OLEIVERB_UIACTIVATE);
  host.world.log.Clear();
  for (const int message : {WM_MOUSEMOVE, WM_TIMER, WM_PAINT, WM_USER}) {
    EXPECT_EQ(Translate(Key(static_cast<UINT>(message), VK_F5)), S_FALSE);
  }
  EXPECT_EQ(host.world.log.Text(), "");
}

TEST_F(KeysOfTheContainer, AreOfferedNoMnemonics) {
  const auto control = host.As<IOleControl>();
  CONTROLINFO info{};
  info.cb = sizeof info;
  info.hAccel = reinterpret_cast<HACCEL>(1);
  info.cAccel = 9;
  EXPECT_EQ(control->GetControlInfo(&info), S_OK);
  EXPECT_EQ(info.hAccel, nullptr);
  EXPECT_EQ(info.cAccel, 0);
  EXPECT_EQ(control->GetControlInfo(nullptr), E_POINTER);
  info.cb = 4;
  EXPECT_EQ(control->GetControlInfo(&info), E_POINTER);
  // A container that calls anyway changes nothing.
  const HWND focus = GetFocus();
  host.world.log.Clear();
  MSG mnemonic = Key(WM_SYSCHAR, 'a');
  EXPECT_EQ(control->OnMnemonic(&mnemonic), S_OK);
  EXPECT_EQ(control->OnMnemonic(nullptr), S_OK);
  EXPECT_EQ(GetFocus(), focus);
  EXPECT_EQ(host.world.log.Text(), "");
}

}  // namespace
}  // namespace pricedown::testing
