// The host's frame on the sample company, for tests that open child windows in it.
#pragma once

#include <windows.h>

#include <commctrl.h>
#include <gtest/gtest.h>

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "platform/convert.h"
#include "platform/text.h"
#include "tests/support/utf8.h"
#include "tests/windows/host/sample_company_suite.h"
#include "windows/com/com_object_factory.h"
#include "windows/com/wide_text.h"
#include "workbench/host/frame_window.h"
#include "workbench/host/resource_ids.h"

namespace workbench {

class FrameWorld : public SampleCompanySuite {
 protected:
  FrameWorld() {
    frame_.OpenCompany(Company());
    frame_.Show(SW_SHOW);
  }
  ~FrameWorld() override {
    frame_.CloseChildren();
    frame_.Settings()->Call(u"Close");
  }

  HWND Toolbar() const {
    return FindWindowExW(frame_.Handle(), nullptr, TOOLBARCLASSNAMEW, nullptr);
  }
  int Buttons() const { return static_cast<int>(SendMessageW(Toolbar(), TB_BUTTONCOUNT, 0, 0)); }
  // With the mouse, index from 0.
  void Press(int index) const {
    RECT area{};
    SendMessageW(Toolbar(), TB_GETITEMRECT, static_cast<WPARAM>(index),
                 reinterpret_cast<LPARAM>(&area));
    const LPARAM place = MAKELPARAM((area.left + area.right) / 2, (area.top + area.bottom) / 2);
    SendMessageW(Toolbar(), WM_LBUTTONDOWN, MK_LBUTTON, place);
    SendMessageW(Toolbar(), WM_LBUTTONUP, 0, place);
  }
  bool Has(int index, int state) const {
    return (SendMessageW(Toolbar(), TB_GETSTATE, static_cast<WPARAM>(IDM_FIRST_TOOL + index), 0) &
            state) != 0;
  }
  static pricedown::ObjectPtr ToolOf(const ChildWindow& child, std::u16string_view name) {
    return child.Bar()->Call(u"Tools", {name}).Object();
  }
  // What the user would see when the business menu opens.
  std::vector<std::string> BusinessMenu() const {
    // A maximized child puts its own menu in front of the frame's.
    const HMENU bar = GetMenu(frame_.Handle());
    for (int i = 0; i < GetMenuItemCount(bar); ++i) {
      std::array<wchar_t, 64> text{};
      GetMenuStringW(bar, static_cast<UINT>(i), text.data(), 64, MF_BYPOSITION);
      if (std::wstring(text.data()) != L"业务(&B)") continue;
      const HMENU menu = GetSubMenu(bar, i);
      SendMessageW(frame_.Handle(), WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(menu), i);
      return LinesOf(menu);
    }
    return {};
  }
  static std::vector<std::string> LinesOf(HMENU menu) {
    std::vector<std::string> lines;
    for (int i = 0; i < GetMenuItemCount(menu); ++i) {
      std::array<wchar_t, 64> text{};
      GetMenuStringW(menu, static_cast<UINT>(i), text.data(), 64, MF_BYPOSITION);
      lines.push_back(pricedown::testing::Utf8(pricedown::windows::FromWide(text.data())));
    }
    return lines;
  }

  static constexpr int kInsert = 0;
  static constexpr int kStrip = 6;
  static constexpr int kStatus = 7;
  static constexpr int kExit = 8;
  static constexpr int kAll = 9;

  pricedown::windows::ComObjectFactory factory_;
  FrameWindow frame_{GetModuleHandleW(nullptr), factory_.Create(u"ZEPWorkbench.Settings")};
};

}  // namespace workbench
