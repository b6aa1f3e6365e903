// Typing numbers into open cells of the grid.
#include <imm.h>
#include <oleacc.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <memory>
#include <new>

#include "tests/windows/base/picture.h"
#include "tests/windows/grid/grid_world.h"
#include "windows/base/clipboard.h"
#include "windows/base/plain_control.h"
#include "windows/base/system_functions.h"
#include "windows/com/bstr.h"
#include "windows/com/com_ptr.h"

namespace pricedown::testing {
namespace {

// As an input method does that completes a composition.
void Compose(HWND field, std::wstring_view text) {
  const HIMC context = ImmGetContext(field);
  ASSERT_NE(context, nullptr);
  std::wstring composed(text);
  ASSERT_TRUE(ImmSetCompositionStringW(context, SCS_SETSTR, composed.data(),
                                       static_cast<DWORD>(composed.size() * sizeof(wchar_t)),
                                       nullptr, 0));
  ASSERT_TRUE(ImmNotifyIME(context, NI_COMPOSITIONSTR, CPS_COMPLETE, 0));
  ImmReleaseContext(field, context);
  RunMessages();
}

// What a client of IAccessible reads as the window's name.
std::string AccessibleName(HWND window) {
  using FromWindow = HRESULT(WINAPI*)(HWND, DWORD, REFIID, void**);
  LoadLibraryW(L"oleacc.dll");
  const auto fromWindow =
      windows::SystemFunction<FromWindow>(L"oleacc.dll", "AccessibleObjectFromWindow");
  windows::ComPtr<IAccessible> object;
  if (fromWindow == nullptr || FAILED(fromWindow(window, static_cast<DWORD>(OBJID_CLIENT),
                                                 __uuidof(IAccessible), object.putVoid()))) {
    return "no object";
  }
  VARIANT self{};
  self.vt = VT_I4;
  windows::Bstr name;
  return SUCCEEDED(object->get_accName(self, name.put())) ? Utf8(name.Text()) : "no name";
}

TEST_F(GridWindow, AcceptsNumbersInAnUnlockedCell) {
  input_.Click(Handle(), CellPoint(4, 2));
  input_.Type(u"12.5");
  ASSERT_NE(Editor(), nullptr);
  KeepPicture(host_.Handle(), "grid editing");
  input_.Press(VK_RETURN);
  EXPECT_EQ(Editor(), nullptr);
  EXPECT_EQ(Cell(4, 2), "12.50");
  EXPECT_EQ(Current(), "4,3");
  EXPECT_EQ(GetFocus(), Handle());
}

TEST_F(GridWindow, AcceptsTheNumberWhenItsFontChanges) {
  input_.Click(Handle(), CellPoint(4, 2));
  input_.Type(u"7");
  ASSERT_NE(Editor(), nullptr);
  Font larger = grid_.CellFont();
  larger.size += 3;
  grid_.SetFont(larger);
  EXPECT_EQ(Editor(), nullptr);
  EXPECT_EQ(Cell(4, 2), "7.00");
}

TEST_F(GridWindow, AcceptsTheNumberWhenTheControlHasToKnowIt) {
  input_.Click(Handle(), CellPoint(4, 2));
  input_.Type(u"7");
  grid_.AcceptTyping();
  EXPECT_EQ(Editor(), nullptr);
  EXPECT_EQ(Cell(4, 2), "7.00");
}

// As when any program changes the environment or the wallpaper.
TEST_F(GridWindow, LetsTheUserTypeOnWhenSettingsChangeThatItDoesNotShow) {
  input_.Click(Handle(), CellPoint(4, 2));
  input_.Type(u"1");
  window_.UpdateAppearance();
  input_.Type(u"2");
  input_.Press(VK_RETURN);
  EXPECT_EQ(Cell(4, 2), "12.00");
}

TEST_F(GridWindow, RefusesNonNumbersAndNumbersAboveTheBound) {
  input_.Click(Handle(), CellPoint(4, 1));
  input_.Type(u"9x9999 9999999");
  EXPECT_EQ(Utf8(windows::TextOf(Editor())), "99999999999");
  input_.Type(u".999");
  EXPECT_EQ(Utf8(windows::TextOf(Editor())), "99999999999.99");
  input_.Press(VK_RETURN);
  EXPECT_EQ(Cell(4, 1), "99999999999.99");
}

TEST_F(GridWindow, F2AndEnterTypeInAnOpenCellAndEditTheClassInALockedOne) {
  for (const WPARAM key : std::initializer_list<WPARAM>{VK_F2, VK_RETURN}) {
    input_.Click(Handle(), CellPoint(2, 2));
    input_.Press(key);
    EXPECT_EQ(Editor(), nullptr);
    EXPECT_EQ(commands_, std::vector{static_cast<Key>(key)});
    input_.Click(Handle(), CellPoint(4, 2));
    input_.Press(key);
    EXPECT_NE(Editor(), nullptr);
    EXPECT_EQ(commands_.size(), 1u);
    commands_.clear();
    input_.Press(VK_ESCAPE);
  }
}

TEST_F(GridWindow, KeepsAllKeysButFunctionKeysWhileTyping) {
  input_.Click(Handle(), CellPoint(4, 2));
  input_.Type(u"12");
  for (const WPARAM key : std::initializer_list<WPARAM>{VK_INSERT, VK_DELETE, VK_F2})
    input_.Press(key);
  input_.PressWith(VK_CONTROL, 'P');
  EXPECT_NE(Editor(), nullptr);
  EXPECT_TRUE(commands_.empty());
  input_.Press(VK_F5);
  EXPECT_EQ(Editor(), nullptr);
  EXPECT_EQ(Cell(4, 2), "12.00");
  EXPECT_EQ(commands_, std::vector{Key::F5});
}

TEST_F(GridWindow, DeleteRemovesADigitWhileTyping) {
  input_.Click(Handle(), CellPoint(4, 2));
  input_.Type(u"12");
  input_.Press(VK_HOME);
  input_.Press(VK_DELETE);
  input_.Press(VK_RETURN);
  EXPECT_EQ(Cell(4, 2), "2.00");
  EXPECT_TRUE(commands_.empty());
}

TEST_F(GridWindow, EscapeKeepsTheOldNumber) {
  grid_.SetText(4, 1, u"1.00");
  input_.Click(Handle(), CellPoint(4, 1));
  input_.Type(u"7");
  input_.Press(VK_ESCAPE);
  EXPECT_EQ(Editor(), nullptr);
  EXPECT_EQ(Cell(4, 1), "1.00");
  EXPECT_EQ(GetFocus(), Handle());
}

TEST_F(GridWindow, LeavingTheCellKeepsTheNewNumber) {
  input_.Click(Handle(), CellPoint(4, 1));
  input_.Type(u"7");
  input_.Click(Handle(), CellPoint(1, 3));
  EXPECT_EQ(Editor(), nullptr);
  EXPECT_EQ(Cell(4, 1), "7.00");
  EXPECT_EQ(Current(), "1,3");
}

// Also for another program's, which leaves this one without a focus.
TEST_F(GridWindow, LeavesTheFocusToTheWindowThatASignAloneIsLeftFor) {
  grid_.SetText(4, 1, u"1.00");
  for (const HWND other : {host_.Handle(), HWND{}}) {
    input_.Click(Handle(), CellPoint(4, 1));
    input_.Type(u"-");
    ASSERT_NE(Editor(), nullptr);
    ASSERT_EQ(Utf8(windows::TextOf(Editor())), "-");
    SetFocus(other);
    EXPECT_EQ(Editor(), nullptr);
    EXPECT_EQ(GetFocus(), other);
    EXPECT_EQ(Cell(4, 1), "1.00");
  }
}

TEST_F(GridWindow, ArrowsEndTypingAndMoveOn) {
  input_.Click(Handle(), CellPoint(4, 1));
  input_.Type(u"3");
  input_.Press(VK_DOWN);
  EXPECT_EQ(Cell(4, 1), "3.00");
  EXPECT_EQ(Current(), "4,2");
}

TEST_F(GridWindow, ADoubleClickEditsTheExistingText) {
  grid_.SetText(4, 2, u"8.25");
  input_.DoubleClick(Handle(), CellPoint(4, 2));
  ASSERT_NE(Editor(), nullptr);
  EXPECT_EQ(Utf8(windows::TextOf(Editor())), "8.25");
  SendMessageW(Editor(), WM_CLEAR, 0, 0);
  input_.Press(VK_RETURN);
  EXPECT_EQ(Cell(4, 2), "");
}

TEST_F(GridWindow, DoesNotEditLockedCells) {
  input_.Click(Handle(), CellPoint(1, 1));
  input_.Type(u"5");
  EXPECT_EQ(Editor(), nullptr);
  grid_.LockColumns(4);
  input_.Click(Handle(), CellPoint(4, 1));
  input_.Type(u"5");
  input_.DoubleClick(Handle(), CellPoint(4, 1));
  EXPECT_EQ(Editor(), nullptr);
  EXPECT_EQ(Cell(4, 1), "");
}

TEST_F(GridWindow, PastesOnlyNumbers) {
  input_.Click(Handle(), CellPoint(4, 1));
  input_.Type(u"1");
  ASSERT_TRUE(windows::CopyToClipboard(Handle(), u"abc"));
  SendMessageW(Editor(), WM_PASTE, 0, 0);
  EXPECT_EQ(Utf8(windows::TextOf(Editor())), "1");
  ASSERT_TRUE(windows::CopyToClipboard(Handle(), u" 23.4 "));
  SendMessageW(Editor(), WM_PASTE, 0, 0);
  EXPECT_EQ(Utf8(windows::TextOf(Editor())), "123.4");
}

TEST_F(GridWindow, ALoadEndsTypingAndStartsAtTheTop) {
  input_.PressWith(VK_CONTROL, VK_END);
  input_.Type(u"4");
  Fill(50);
  EXPECT_EQ(Editor(), nullptr);
  EXPECT_EQ(Current(), "1,1");
  EXPECT_EQ(window_.Viewport().TopRow(), 1);
}

TEST_F(GridWindow, MayBeDestroyedWhileTyping) {
  input_.Click(Handle(), CellPoint(4, 1));
  input_.Type(u"6");
  ASSERT_NE(Editor(), nullptr);
  DestroyWindow(Handle());
  EXPECT_EQ(Handle(), nullptr);
  grid_.SetText(1, 1, u"later");
}

TEST_F(GridWindow, LeavesItsMemoryAloneOnceTheHostHasDestroyedItAtTheEndOfTyping) {
  alignas(windows::GridWindow) std::array<std::byte, sizeof(windows::GridWindow)> memory{};
  auto* other = new (memory.data()) windows::GridWindow(*this, automation_);
  other->Create(host_.Handle(), GetModuleHandleW(nullptr), u"物料明细");
  window_.Show(nullptr);
  other->Show(&grid_);
  SetWindowPos(other->Handle(), HWND_TOP, 0, 0, Scale(460), Scale(300), 0);
  SetFocus(other->Handle());
  other->GoTo(4, 1);
  const HWND window = other->Handle();
  input_.Type(u"7");
  const HWND field = GetDlgItem(window, windows::control_ids::kCellEditor);
  ASSERT_NE(field, nullptr);
  whenFocused_ = [&] {
    std::destroy_at(other);
    memory.fill(std::byte{0xDD});
  };
  SendMessageW(field, WM_KEYDOWN, VK_ESCAPE, 0);
  ASSERT_EQ(IsWindow(window), FALSE);
  EXPECT_TRUE(std::all_of(memory.begin(), memory.end(),
                          [](std::byte one) { return one == std::byte{0xDD}; }));
  EXPECT_EQ(IsWindow(field), FALSE);
}

TEST_F(GridWindow, DeleteEmptiesAnOpenCellAndAsksForTheClassInALockedOne) {
  grid_.SetText(4, 2, u"8.25");
  grid_.SetText(4, 3, u"9.00");
  input_.Click(Handle(), CellPoint(4, 2));
  input_.Press(VK_DELETE);
  EXPECT_EQ(Cell(4, 2), "");
  EXPECT_EQ(Cell(4, 3), "9.00");
  EXPECT_TRUE(commands_.empty());
  input_.Click(Handle(), CellPoint(3, 2));
  input_.Press(VK_DELETE);
  EXPECT_EQ(Cell(3, 2), "乙");
  EXPECT_EQ(commands_, std::vector{Key::Delete});
}

TEST_F(GridWindow, DeleteEmptiesAllSelectedPrices) {
  grid_.SetText(4, 2, u"8.25");
  grid_.SetText(4, 3, u"9.00");
  input_.Click(Handle(), CellPoint(4, 2));
  input_.PressWith(VK_SHIFT, VK_DOWN);
  input_.Press(VK_DELETE);
  EXPECT_EQ(Cell(4, 2) + Cell(4, 3), "");
}

TEST_F(GridWindow, AcceptsFullWidthDigitsAndPointsInAPrice) {
  input_.Click(Handle(), CellPoint(4, 2));
  input_.Type(u"１２．５");
  EXPECT_EQ(Utf8(windows::TextOf(Editor())), "12.5");
  SendMessageW(Editor(), EM_SETSEL, 0, -1);
  ASSERT_TRUE(windows::CopyToClipboard(Handle(), u"３４。５６"));
  SendMessageW(Editor(), WM_PASTE, 0, 0);
  input_.Press(VK_RETURN);
  EXPECT_EQ(Cell(4, 2), "34.56");
}

TEST_F(GridWindow, TakesWhatAnInputMethodComposesInAPrice) {
  input_.Click(Handle(), CellPoint(4, 2));
  input_.Press(VK_F2);
  for (const wchar_t unit : std::wstring_view(L"１２．５")) {
    PostMessageW(Editor(), WM_IME_CHAR, unit, 1);
  }
  RunMessages();
  EXPECT_EQ(Utf8(windows::TextOf(Editor())), "12.5");
  SendMessageW(Editor(), EM_SETSEL, 0, -1);
  Compose(Editor(), L"３４。５");
  EXPECT_EQ(Utf8(windows::TextOf(Editor())), "34.5");
  Compose(Editor(), L"元");
  EXPECT_EQ(Utf8(windows::TextOf(Editor())), "34.5");
  input_.Press(VK_RETURN);
  EXPECT_EQ(Cell(4, 2), "34.50");
}

TEST_F(GridWindow, AcceptsAPriceOfFullWidthCharactersHoweverItGotThere) {
  input_.Click(Handle(), CellPoint(4, 2));
  input_.Press(VK_F2);
  SetWindowTextW(Editor(), L"７．５");
  input_.Press(VK_RETURN);
  EXPECT_EQ(Cell(4, 2), "7.50");
}

TEST_F(GridWindow, ScreenReadersReadTitleAndRowOfAnOpenPrice) {
  CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
  input_.Click(Handle(), CellPoint(4, 2));
  input_.Press(VK_F2);
  EXPECT_EQ(AccessibleName(Editor()), "列4，第 2 行");
  input_.Press(VK_ESCAPE);
  EXPECT_EQ(GetWindow(Handle(), GW_CHILD), nullptr) << "nothing stays of the field";
  input_.Click(Handle(), CellPoint(4, 3));
  input_.Type(u"1");
  EXPECT_EQ(AccessibleName(Editor()), "列4，第 3 行");
  CoUninitialize();
}

}  // namespace
}  // namespace pricedown::testing
