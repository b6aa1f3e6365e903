// The print preview of a document of numbered rows, in its real window over a host window. The test
// plays the user in steps while the preview is shown.
#pragma once

#include <windows.h>

#include <commctrl.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "browser/print_list.h"
#include "platform/convert.h"
#include "platform/error.h"
#include "tests/support/utf8.h"
#include "tests/windows/base/message_boxes.h"
#include "tests/windows/base/picture.h"
#include "tests/windows/control/ui_world.h"
#include "tests/windows/support/modal_steps.h"
#include "windows/base/control_ids.h"
#include "windows/base/plain_control.h"
#include "windows/com/wide_text.h"
#include "windows/print/preview_dialog.h"
#include "windows/print/preview_ids.h"

namespace pricedown::testing {

namespace preview_ids = windows::preview_ids;

// A printer that only reports its paper; tests define the rest.
class ScriptedPrinting : public windows::PreviewPrinting {
 public:
  Paper CurrentPaper() override {
    if (failsToReportPaper) throw AutomationError(ErrorNumber::Unspecified, u"打印机没有回答");
    return paper;
  }
  std::u16string Date() override { return u"2008-03-31"; }
  void Print(HWND owner, const PrintDocument&) override { Note("print", owner, onPrint); }
  void SetUpPage(HWND owner) override { Note("page set-up", owner, onSetUpPage); }

  Paper paper;
  bool failsToReportPaper = false;
  std::function<void()> onPrint;
  std::function<void()> onSetUpPage;
  std::vector<std::string> calls;
  HWND lastOwner = nullptr;

 private:
  void Note(const char* call, HWND owner, const std::function<void()>& action) {
    calls.emplace_back(call);
    lastOwner = owner;
    if (action) action();
  }
};

// Returns the queued fonts; without one the user cancels.
class ScriptedFonts : public FontDialog {
 public:
  Font Show(const Font& font, std::uint32_t flags) override {
    shown.push_back(font);
    lastFlags = flags;
    if (onShow) onShow();
    if (answers.empty()) throw AutomationError(kDialogCancelled, u"cancelled");
    const Font answer = answers.front();
    answers.erase(answers.begin());
    return answer;
  }

  std::vector<Font> answers;
  std::vector<Font> shown;
  std::uint32_t lastFlags = 0;
  std::function<void()> onShow;
};

inline void FillDocument(PrintDocument& document, std::int32_t rows) {
  SetPageLines({}, document);
  document.header.back().text.insert(0, u"测试公司");
  PrintTable& table = document.table;
  table.Clear();
  table.AddColumn(u"物料代码", 1500);
  table.AddColumn(u"物料名称", 3000);
  table.AddColumn(u"规格型号", 2700);
  table.AddColumn(u"标准单价", 1200);
  for (std::int32_t row = 1; row <= rows; ++row) {
    const std::u16string number = NumberText(row);
    table.AddCell(u"01." + number);
    table.AddCell(u"六角头螺栓 " + number);
    table.AddCell(u"M8×40 GB/T 5782");
    table.AddCell(number + u".50");
  }
}

// Finds parts of the preview's window: children by id, buttons by key.
class PreviewUser : public Input {
 public:
  HWND Window() const { return FindWindowW(L"PriceDown.Preview", nullptr); }
  HWND Child(int id) const { return GetDlgItem(Window(), id); }
  std::string TextIn(int id) const { return Utf8(windows::TextOf(Child(id))); }
  std::string Page() const {
    return TextIn(preview_ids::kPage) + " " + TextIn(preview_ids::kPageCount);
  }
  std::string Zoom() const { return TextIn(preview_ids::kZoom); }

  struct Place {
    HWND bar = nullptr;
    WPARAM index = 0;
    int id = 0;
  };
  Place Button(std::u16string_view key) const {
    const auto find = [&](std::span<const PreviewButton> buttons, int bar) -> Place {
      for (std::size_t i = 0; i < buttons.size(); ++i) {
        if (buttons[i].key == key) {
          return {Child(bar), i, windows::control_ids::kFirstButton + static_cast<int>(i) + 1};
        }
      }
      return {};
    };
    const Place place = find(kDocumentButtons, preview_ids::kDocumentBar);
    return place.bar != nullptr ? place : find(kViewButtons, preview_ids::kViewBar);
  }
  bool IsEnabled(std::u16string_view key) const {
    const Place place = Button(key);
    return SendMessageW(place.bar, TB_ISBUTTONENABLED, static_cast<WPARAM>(place.id), 0) != 0;
  }
  // Which of the paging buttons are enabled.
  std::string Turning() const {
    std::string enabled;
    for (const char16_t* key : {u"First", u"Previous", u"Next", u"Last"}) {
      if (IsEnabled(key)) enabled += Utf8(key) + " ";
    }
    return enabled;
  }
  void ClickButton(std::u16string_view key) {
    const Place place = Button(key);
    RECT area{};
    SendMessageW(place.bar, TB_GETITEMRECT, place.index, reinterpret_cast<LPARAM>(&area));
    Click(place.bar, {(area.left + area.right) / 2, (area.top + area.bottom) / 2});
  }
  // Like a click, for a command that waits in its own window while the steps continue.
  void PostButton(std::u16string_view key) const {
    const Place place = Button(key);
    SendMessageW(place.bar, TB_SETHOTITEM, place.index, 0);
    PostMessageW(place.bar, WM_KEYDOWN, VK_RETURN, 1);
  }
  // Posts to the preview's own message loop, which runs it after the step.
  void PostKey(WPARAM key) const { PostMessageW(GetFocus(), WM_KEYDOWN, key, 1); }
  void HoldControl(bool held) const {
    BYTE keys[256] = {};
    GetKeyboardState(keys);
    keys[VK_CONTROL] = held ? 0x80 : 0;
    SetKeyboardState(keys);
  }
  void Wheel(int delta, WPARAM keys = 0) const {
    PostMessageW(Child(preview_ids::kPane), WM_MOUSEWHEEL,
                 MAKEWPARAM(keys, static_cast<WORD>(delta)), 0);
  }
  int Scroll(int bar) const { return GetScrollPos(Child(preview_ids::kPane), bar); }
  void TypePage(std::u16string_view text) {
    SetFocus(Child(preview_ids::kPage));
    SendMessageW(Child(preview_ids::kPage), EM_SETSEL, 0, -1);
    Type(text);
    PostKey(VK_RETURN);
  }
  // How far a bar can be moved.
  int ScrollRange(int bar) const {
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_ALL;
    GetScrollInfo(Child(preview_ids::kPane), bar, &info);
    return std::max(info.nMax - static_cast<int>(info.nPage) + 1, 0);
  }
  HWND ZoomField() const {
    return FindWindowExW(Child(preview_ids::kZoom), nullptr, L"Edit", nullptr);
  }
  void TypeZoom(std::u16string_view text) {
    SetFocus(Child(preview_ids::kZoom));
    SendMessageW(Child(preview_ids::kZoom), CB_SETEDITSEL, 0, MAKELPARAM(0, -1));
    Type(text);
    PostKey(VK_RETURN);
  }
  // Opens the list and chooses by keyboard; line from 0.
  void ChooseZoom(int line) {
    const HWND zoom = Child(preview_ids::kZoom);
    SetFocus(zoom);
    SendMessageW(zoom, CB_SHOWDROPDOWN, TRUE, 0);
    SendMessageW(zoom, CB_SETCURSEL, static_cast<WPARAM>(line), 0);
    PostKey(VK_RETURN);
  }
  void CloseByFrame() const { PostMessageW(Window(), WM_CLOSE, 0, 0); }
};

class PreviewWorld : public ::testing::Test, public PreviewUser {
 protected:
  void Show(std::int32_t rows, Steps steps) {
    FillDocument(document, rows);
    Show(std::move(steps));
  }
  void Show(Steps steps) {
    ModalSteps player(std::move(steps));
    dialog.ShowModal(host.Handle(), fonts);
    EXPECT_TRUE(player.Ended());
    EXPECT_EQ(Window(), nullptr);
    RunMessages();
  }

  HostWindow host{900, 620};
  MessageBoxes boxes;
  PrintDocument document;
  ScriptedPrinting printing;
  ScriptedFonts fonts;
  windows::PreviewDialog dialog{GetModuleHandleW(nullptr), document, printing};
};

}  // namespace pricedown::testing
