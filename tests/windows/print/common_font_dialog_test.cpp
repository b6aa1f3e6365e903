// The system's own font dialog: its initial values, and the results of OK, Cancel and Apply. The
// test plays the user inside the dialog.
#include "windows/print/common_font_dialog.h"

#include <dlgs.h>
#include <gtest/gtest.h>

#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "tests/windows/print/preview_world.h"

namespace pricedown::testing {
namespace {

class HostCommands : public windows::CommandWindow {
 public:
  explicit HostCommands(const HostWindow& host) : host_(host) {}
  HWND Window() const override { return host_.Handle(); }
  HWND DialogOwner() const override { return host_.Handle(); }
  void SetWaiting(bool) override {}

 private:
  const HostWindow& host_;
};

class CommonFontDialogTest : public ::testing::Test, public Input {
 protected:
  // The dialog's text in one of its lists.
  std::string Chosen(int id) const { return Utf8(windows::TextOf(GetDlgItem(Dialog(), id))); }
  HWND Dialog() const { return FindWindowW(L"#32770", nullptr); }
  void Press(int button) const {
    PostMessageW(Dialog(), WM_COMMAND, MAKEWPARAM(button, BN_CLICKED),
                 reinterpret_cast<LPARAM>(GetDlgItem(Dialog(), button)));
  }
  void Choose(int list, const wchar_t* text) const {
    const LRESULT line = SendMessageW(GetDlgItem(Dialog(), list), CB_FINDSTRINGEXACT,
                                      static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(text));
    ASSERT_NE(line, CB_ERR);
    ChooseLine(list, static_cast<int>(line));
  }
  void ChooseLine(int list, int line) const {
    const HWND combo = GetDlgItem(Dialog(), list);
    SendMessageW(combo, CB_SETCURSEL, static_cast<WPARAM>(line), 0);
    SendMessageW(Dialog(), WM_COMMAND, MAKEWPARAM(list, CBN_SELCHANGE),
                 reinterpret_cast<LPARAM>(combo));
  }
  // The system's name of that font.
  static std::string Installed(const wchar_t* name) {
    const HDC context = CreateCompatibleDC(nullptr);
    const HFONT font =
        CreateFontW(-20, 0, 0, 0, FW_NORMAL, 0, 0, 0, DEFAULT_CHARSET, 0, 0, 0, 0, name);
    const HGDIOBJ previous = SelectObject(context, font);
    wchar_t face[LF_FACESIZE] = {};
    GetTextFaceW(context, LF_FACESIZE, face);
    SelectObject(context, previous);
    DeleteObject(font);
    DeleteDC(context);
    return Utf8(windows::FromWide(face));
  }
  // The font chosen, or nothing when the dialog reported a cancel.
  std::optional<Font> Show(const Font& font, Steps steps,
                           std::function<void(const Font&)> apply = {}) {
    windows::CommonFontDialog dialog(commands, std::move(apply));
    // The dialog shows itself once its messages are through.
    steps.insert(steps.begin(), 2, [] {});
    ModalSteps player(std::move(steps));
    try {
      const Font chosen = dialog.Show(font, kFontDialogFlags);
      EXPECT_TRUE(player.Ended());
      return chosen;
    } catch (const AutomationError& error) {
      EXPECT_TRUE(player.Ended());
      EXPECT_EQ(error.Number(), kDialogCancelled);
      EXPECT_FALSE(error.Description().empty());
      return std::nullopt;
    }
  }

  HostWindow host{600, 400};
  HostCommands commands{host};
};

TEST_F(CommonFontDialogTest, OpensOverItsOwnerWithTheFontSelected) {
  Show({u"Tahoma", 14, true, true},
       {[&] {
          ASSERT_NE(Dialog(), nullptr);
          EXPECT_EQ(GetWindow(Dialog(), GW_OWNER), host.Handle());
          EXPECT_EQ(Chosen(cmb1), Installed(L"Tahoma"));
          EXPECT_EQ(Chosen(cmb3), "14");
          EXPECT_EQ(SendMessageW(GetDlgItem(Dialog(), cmb2), CB_GETCURSEL, 0, 0), 3);
        },
        [&] { Press(IDCANCEL); }});
}

TEST_F(CommonFontDialogTest, OkWithoutAChangeReturnsTheSameFont) {
  // Sizes that are not a whole number of pixels or points, and a name that may not be installed.
  for (const Font& font : {Font{u"宋体", 9, false, false}, Font{u"Tahoma", 10.5, true, false},
                           Font{u"宋体", 11.3, false, true}}) {
    const auto chosen = Show(font, {[&] { Press(IDOK); }});
    ASSERT_TRUE(chosen);
    EXPECT_EQ(Utf8(chosen->name), Utf8(font.name));
    EXPECT_EQ(chosen->size, font.size);
    EXPECT_EQ(chosen->bold, font.bold);
    EXPECT_EQ(chosen->italic, font.italic);
  }
}

TEST_F(CommonFontDialogTest, ReturnsTheFocusInAHostThatPassesNone) {
  const HWND field = CreateWindowExW(0, L"EDIT", nullptr, WS_CHILD | WS_VISIBLE, 0, 0, 100, 20,
                                     host.Handle(), nullptr, nullptr, nullptr);
  for (const int button : {IDOK, IDCANCEL}) {
    SetFocus(field);
    Show({u"Tahoma", 9, false, false}, {[&] {
           EXPECT_TRUE(IsChild(Dialog(), GetFocus()));
           Press(button);
         }});
    EXPECT_EQ(GetFocus(), field) << button;
  }
}

TEST_F(CommonFontDialogTest, ReturnsTheChosenSizeAndStyle) {
  const Font first{u"Tahoma", 9, false, false};
  const auto chosen = Show(first, {[&] {
                             Choose(cmb3, L"16");
                             ChooseLine(cmb2, 2);
                             Press(IDOK);
                           }});
  ASSERT_TRUE(chosen);
  EXPECT_EQ(chosen->name, first.name);
  EXPECT_EQ(chosen->size, 16);
  EXPECT_TRUE(chosen->bold);
  EXPECT_FALSE(chosen->italic);
}

TEST_F(CommonFontDialogTest, CancelIsReportedAsItsOwnError) {
  EXPECT_FALSE(Show({}, {[&] { Press(IDCANCEL); }}));
}

TEST_F(CommonFontDialogTest, AppliesWithoutClosing) {
  std::vector<Font> applied;
  const auto chosen = Show({u"Tahoma", 9, false, false},
                           {[&] {
                              EXPECT_TRUE(IsWindowVisible(GetDlgItem(Dialog(), psh3)) != FALSE);
                              Choose(cmb3, L"16");
                              Press(psh3);
                            },
                            [&] {
                              ASSERT_EQ(applied.size(), 1u);
                              EXPECT_EQ(applied[0], (Font{u"Tahoma", 16, false, false}));
                              Press(IDCANCEL);
                            }},
                           [&](const Font& font) { applied.push_back(font); });
  EXPECT_FALSE(chosen);
}

TEST_F(CommonFontDialogTest, AppliesAFractionalSize) {
  std::vector<Font> applied;
  Show({u"Tahoma", 9, false, false},
       {[&] {
          Choose(cmb3, L"16");
          SetDlgItemTextW(Dialog(), cmb3, L"16.5");
          Press(psh3);
        },
        [&] {
          ASSERT_EQ(applied.size(), 1u);
          EXPECT_EQ(applied[0].size, 16.5);
          Press(IDCANCEL);
        }},
       [&](const Font& font) { applied.push_back(font); });
}

TEST_F(CommonFontDialogTest, AppliesSizesFromFiveToSeventyTwoPoints) {
  MessageBoxes boxes;
  // Message boxes have the font dialog's window class; the dialog itself gets no answer.
  boxes.WillPress({0, IDOK, IDOK});
  std::vector<double> applied;
  Steps steps;
  for (const wchar_t* size : {L"4.9", L"5", L"72", L"161281"}) {
    steps.push_back([this, size] {
      Choose(cmb3, L"16");
      SetDlgItemTextW(Dialog(), cmb3, size);
      Press(psh3);
    });
    steps.insert(steps.end(), 4, [] {});
  }
  steps.push_back([this] { Press(IDCANCEL); });
  Show({u"Tahoma", 9, false, false}, std::move(steps),
       [&](const Font& font) { applied.push_back(font.size); });
  EXPECT_EQ(applied, (std::vector<double>{5, 72}));
  ASSERT_EQ(boxes.All().size(), 3u);
  EXPECT_EQ(boxes.All()[1].text, "字号应在 5 到 72 之间");
  EXPECT_EQ(boxes.All()[2].text, "字号应在 5 到 72 之间");
}

TEST_F(CommonFontDialogTest, LeavesALargerSizeThatItBeginsWith) {
  std::vector<Font> applied;
  const auto chosen = Show({u"Tahoma", 96.5, false, false},
                           {[&] {
                              ChooseLine(cmb2, 2);
                              Press(psh3);
                            },
                            [] {}, [] {}, [&] { Press(IDOK); }},
                           [&](const Font& font) { applied.push_back(font); });
  ASSERT_EQ(applied.size(), 1u);
  EXPECT_EQ(applied[0], (Font{u"Tahoma", 96.5, true, false}));
  EXPECT_EQ(chosen, applied[0]);
}

TEST_F(CommonFontDialogTest, ReportsAFailureOfApplyAndStaysOpen) {
  MessageBoxes boxes;
  // Message boxes have the font dialog's window class; the dialog itself gets no answer.
  boxes.WillPress({0, IDOK});
  Show({}, {[&] { Press(psh3); }, [&] {}, [&] {}, [&] {}, [&] { Press(IDCANCEL); }},
       [](const Font&) { throw AutomationError(ErrorNumber::Unspecified, u"不能用这种字体"); });
  ASSERT_EQ(boxes.All().size(), 2u);
  EXPECT_EQ(boxes.All()[1].text, "不能用这种字体");
}

TEST_F(CommonFontDialogTest, HasNoButtonForApplyingWhereNothingIsApplied) {
  Show({}, {[&] {
              ASSERT_NE(GetDlgItem(Dialog(), psh3), nullptr);
              EXPECT_FALSE(IsWindowVisible(GetDlgItem(Dialog(), psh3)) != FALSE);
            },
            [&] { Press(IDCANCEL); }});
}

TEST_F(CommonFontDialogTest, EndsWithItsOwner) {
  EXPECT_FALSE(Show({}, {[&] { DestroyWindow(host.Handle()); }}));
}

}  // namespace
}  // namespace pricedown::testing
