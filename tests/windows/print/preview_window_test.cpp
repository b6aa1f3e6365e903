// Buttons, fields and messages of the print preview: pages, sizes, printing, page set-up.
#include <gtest/gtest.h>

#include <cstdio>
#include <string>
#include <vector>

#include "tests/windows/base/other_resolution.h"
#include "tests/windows/print/preview_world.h"

namespace pricedown::testing {
namespace {

class PreviewWindowTest : public PreviewWorld {
 protected:
  // Of 200 rows there are five pages.
  void ShowFivePages(Steps steps) { Show(200, std::move(steps)); }
};

TEST_F(PreviewWindowTest, OpensWithTheWholeFirstPage) {
  ShowFivePages({[&] {
                   EXPECT_EQ(Utf8(windows::TextOf(Window())), "打印预览");
                   EXPECT_EQ(Page(), "1 共 5 页");
                   EXPECT_EQ(GetWindow(Window(), GW_OWNER), host.Handle());
                   EXPECT_FALSE(IsWindowEnabled(host.Handle()) != FALSE);
                   EXPECT_EQ(GetFocus(), Child(preview_ids::kPane));
                   EXPECT_EQ(Turning(), "Next Last ");
                   for (int id = preview_ids::kDocumentBar; id <= preview_ids::kPane; ++id) {
                     EXPECT_NE(Child(id), nullptr) << id;
                   }
                 },
                 [&] { CloseByFrame(); }});
  EXPECT_TRUE(IsWindowEnabled(host.Handle()) != FALSE);
  EXPECT_TRUE(boxes.All().empty());
}

TEST_F(PreviewWindowTest, BothBarsShowWhatTheirButtonsDo) {
  const auto tip = [this](int bar) {
    NMTTDISPINFOW info{};
    info.hdr.hwndFrom = reinterpret_cast<HWND>(SendMessageW(Child(bar), TB_GETTOOLTIPS, 0, 0));
    info.hdr.code = TTN_GETDISPINFOW;
    info.hdr.idFrom = static_cast<UINT_PTR>(windows::control_ids::kFirstButton) + 1;
    SendMessageW(Window(), WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&info));
    return info.lpszText == nullptr ? "none" : Utf8(windows::FromWide(info.lpszText));
  };
  ShowFivePages({[&] {
                   EXPECT_NE(tip(preview_ids::kDocumentBar), "none");
                   EXPECT_NE(tip(preview_ids::kViewBar), "none");
                   EXPECT_NE(tip(preview_ids::kViewBar), tip(preview_ids::kDocumentBar));
                 },
                 [&] { CloseByFrame(); }});
}

TEST_F(PreviewWindowTest, TurnsPagesByItsButtons) {
  ShowFivePages({[&] { ClickButton(u"Next"); },
                 [&] {
                   EXPECT_EQ(Page(), "2 共 5 页");
                   EXPECT_EQ(Turning(), "First Previous Next Last ");
                   ClickButton(u"Last");
                 },
                 [&] {
                   EXPECT_EQ(Page(), "5 共 5 页");
                   EXPECT_EQ(Turning(), "First Previous ");
                   ClickButton(u"Previous");
                 },
                 [&] {
                   EXPECT_EQ(Page(), "4 共 5 页");
                   ClickButton(u"First");
                 },
                 [&] {
                   EXPECT_EQ(Page(), "1 共 5 页");
                   EXPECT_EQ(Turning(), "Next Last ");
                   // No previous value to restore.
                   ClickButton(u"Previous");
                 },
                 [&] {
                   EXPECT_EQ(Page(), "1 共 5 页");
                   ClickButton(u"Close");
                 }});
}

TEST_F(PreviewWindowTest, AnEmptyGridHasOnePageAndNowhereToTurn) {
  Show(0, {[&] {
             EXPECT_EQ(Page(), "1 共 1 页");
             EXPECT_EQ(Turning(), "");
           },
           [&] { CloseByFrame(); }});
}

TEST_F(PreviewWindowTest, GoesToTheTypedPageOrTheNearestOne) {
  ShowFivePages({[&] { TypePage(u"3"); },
                 [&] {
                   EXPECT_EQ(Page(), "3 共 5 页");
                   TypePage(u"0");
                 },
                 [&] {
                   EXPECT_EQ(Page(), "1 共 5 页");
                   TypePage(u"9999999");
                 },
                 [&] {
                   EXPECT_EQ(Page(), "5 共 5 页");
                   TypePage(u" ２ ");
                 },
                 [&] {
                   EXPECT_EQ(Page(), "2 共 5 页");
                   EXPECT_EQ(GetFocus(), Child(preview_ids::kPage));
                 },
                 [&] { CloseByFrame(); }});
}

TEST_F(PreviewWindowTest, AnythingButAPageNumberIsReverted) {
  Steps steps;
  for (const char16_t* typed : {u"", u"第三页", u"-2", u"2.5", u"1 2", u"0x3"}) {
    steps.push_back([&, typed] { TypePage(typed); });
    steps.push_back([&, typed] { EXPECT_EQ(Page(), "1 共 5 页") << Utf8(typed); });
  }
  steps.push_back([&] { CloseByFrame(); });
  ShowFivePages(std::move(steps));
  EXPECT_TRUE(boxes.All().empty());
}

TEST_F(PreviewWindowTest, AnUnappliedNumberIsDroppedWithTheFocus) {
  ShowFivePages({[&] {
                   SetFocus(Child(preview_ids::kPage));
                   Type(u"4");
                   EXPECT_NE(Page(), "1 共 5 页");
                   SetFocus(Child(preview_ids::kPane));
                   EXPECT_EQ(Page(), "1 共 5 页");
                 },
                 [&] { CloseByFrame(); }});
}

TEST_F(PreviewWindowTest, ZoomsByItsButtons) {
  std::string whole;
  ShowFivePages({[&] {
                   whole = Zoom();
                   TypeZoom(u"100%");
                 },
                 [&] {
                   EXPECT_EQ(Zoom(), "100%");
                   ClickButton(u"ZoomIn");
                 },
                 [&] {
                   EXPECT_EQ(Zoom(), "125%");
                   ClickButton(u"ZoomOut");
                 },
                 [&] { ClickButton(u"ZoomOut"); },
                 [&] {
                   EXPECT_EQ(Zoom(), "75%");
                   ClickButton(u"FitPage");
                 },
                 [&] {
                   EXPECT_EQ(Zoom(), whole);
                   ClickButton(u"FitWidth");
                 },
                 [&] {
                   EXPECT_NE(Zoom(), whole);
                   // The paper fills the width but for its border.
                   EXPECT_EQ(ScrollRange(SB_HORZ), 0);
                   EXPECT_GT(ScrollRange(SB_VERT), 0);
                   EXPECT_EQ(Scroll(SB_VERT), 0);
                 },
                 [&] { CloseByFrame(); }});
}

TEST_F(PreviewWindowTest, OffersNoSizeBeyondTheLargestAndTheSmallest) {
  ShowFivePages({[&] { TypeZoom(u"500"); },
                 [&] {
                   EXPECT_EQ(Zoom(), "500%");
                   EXPECT_FALSE(IsEnabled(u"ZoomIn"));
                   EXPECT_TRUE(IsEnabled(u"ZoomOut"));
                   TypeZoom(u"25");
                 },
                 [&] {
                   EXPECT_EQ(Zoom(), "25%");
                   EXPECT_TRUE(IsEnabled(u"ZoomIn"));
                   EXPECT_FALSE(IsEnabled(u"ZoomOut"));
                 },
                 [&] { CloseByFrame(); }});
}

TEST_F(PreviewWindowTest, AppliesATypedSizeWithinItsLimits) {
  std::string before;
  ShowFivePages({[&] { TypeZoom(u"80"); },
                 [&] {
                   EXPECT_EQ(Zoom(), "80%");
                   TypeZoom(u"９０％");
                 },
                 [&] {
                   EXPECT_EQ(Zoom(), "90%");
                   TypeZoom(u"99999%");
                 },
                 [&] {
                   EXPECT_EQ(Zoom(), "500%");
                   TypeZoom(u"1%");
                 },
                 [&] {
                   EXPECT_EQ(Zoom(), "10%");
                   TypeZoom(u"大");
                 },
                 [&] {
                   EXPECT_EQ(Zoom(), "10%");
                   TypeZoom(u"0");
                 },
                 [&] { EXPECT_EQ(Zoom(), "10%"); }, [&] { CloseByFrame(); }});
}

TEST_F(PreviewWindowTest, ListsTheStandardSizes) {
  std::string whole;
  ShowFivePages({[&] {
                   whole = Zoom();
                   std::string lines;
                   for (int line = 0; line < 12; ++line) {
                     wchar_t text[32] = {};
                     SendMessageW(Child(preview_ids::kZoom), CB_GETLBTEXT,
                                  static_cast<WPARAM>(line), reinterpret_cast<LPARAM>(text));
                     lines += Utf8(windows::FromWide(text)) + " ";
                   }
                   EXPECT_EQ(lines, "整页 页宽 25% 50% 75% 100% 125% 150% 200% 300% 400% 500% ");
                   ChooseZoom(6);
                 },
                 [&] {},
                 [&] {
                   EXPECT_EQ(Zoom(), "125%");
                   ChooseZoom(0);
                 },
                 [&] {},
                 [&] {
                   EXPECT_EQ(Zoom(), whole);
                   ChooseZoom(1);
                 },
                 [&] {},
                 [&] {
                   EXPECT_EQ(ScrollRange(SB_HORZ), 0);
                   EXPECT_GT(ScrollRange(SB_VERT), 0);
                   EXPECT_NE(Zoom(), "页宽");
                 },
                 [&] { CloseByFrame(); }});
}

TEST_F(PreviewWindowTest, PrintsOverItselfAndShowsThePaperThatWasChosen) {
  HWND preview = nullptr;
  printing.onPrint = [&] { printing.paper = Paper{2970, 4200, {200, 200, 200, 200}}; };
  ShowFivePages({[&] {
                   preview = Window();
                   ClickButton(u"Print");
                 },
                 [&] {
                   EXPECT_EQ(printing.calls, std::vector<std::string>{"print"});
                   EXPECT_EQ(printing.lastOwner, preview);
                   // A3 holds more rows.
                   EXPECT_EQ(Page(), "1 共 3 页");
                 },
                 [&] { CloseByFrame(); }});
}

TEST_F(PreviewWindowTest, StaysNearItsPageWhenAPageSetUpMakesFewer) {
  printing.onSetUpPage = [&] { printing.paper.margins = {100, 10, 100, 10}; };
  ShowFivePages({[&] { ClickButton(u"Last"); }, [&] { ClickButton(u"PageSetup"); },
                 [&] {
                   EXPECT_EQ(printing.calls, std::vector<std::string>{"page set-up"});
                   EXPECT_EQ(Page(), "4 共 4 页");
                 },
                 [&] { CloseByFrame(); }});
}

TEST_F(PreviewWindowTest, ReportsAFailureAndContinues) {
  printing.onPrint = [] { throw AutomationError(ErrorNumber::Unspecified, u"没有可用的打印机"); };
  printing.onSetUpPage = [] { throw AutomationError(ErrorNumber::Unspecified, u"无法设置页面"); };
  HWND preview = nullptr;
  ShowFivePages({[&] {
                   preview = Window();
                   ClickButton(u"Print");
                 },
                 [&] { ClickButton(u"PageSetup"); }, [&] { ClickButton(u"Next"); },
                 [&] { EXPECT_EQ(Page(), "2 共 5 页"); }, [&] { CloseByFrame(); }});
  ASSERT_EQ(boxes.All().size(), 2u);
  EXPECT_EQ(boxes.All()[0].text, "没有可用的打印机");
  EXPECT_EQ(boxes.All()[0].owner, preview);
  EXPECT_EQ(boxes.All()[1].text, "无法设置页面");
}

TEST_F(PreviewWindowTest, KeepsItsPagesWhenNewOnesCannotBeMade) {
  printing.onSetUpPage = [&] { printing.failsToReportPaper = true; };
  ShowFivePages({[&] { ClickButton(u"PageSetup"); }, [&] { ClickButton(u"Last"); },
                 [&] { EXPECT_EQ(Page(), "5 共 5 页"); }, [&] { CloseByFrame(); }});
  ASSERT_EQ(boxes.All().size(), 1u);
  EXPECT_EQ(boxes.All()[0].text, "打印机没有回答");
}

TEST_F(PreviewWindowTest, KeepsTheFontWhenNoPagesCanBeMadeInTheNewOne) {
  fonts.answers = {{u"黑体", 12, true, false}};
  fonts.onShow = [&] { printing.failsToReportPaper = true; };
  ShowFivePages({[&] { ClickButton(u"Font"); }, [&] { CloseByFrame(); }});
  EXPECT_EQ(document.font, Font());
  EXPECT_EQ(boxes.All().size(), 1u);
}

TEST_F(PreviewWindowTest, DoesNotOpenWithoutPages) {
  printing.failsToReportPaper = true;
  EXPECT_THROW(dialog.ShowModal(host.Handle(), fonts), AutomationError);
  EXPECT_EQ(Window(), nullptr);
  EXPECT_TRUE(IsWindowEnabled(host.Handle()) != FALSE);
  printing.failsToReportPaper = false;
  Show(10, {[&] { CloseByFrame(); }});
}

TEST_F(PreviewWindowTest, ShowsThePagesOfEachShowing) {
  Show(10, {[&] { EXPECT_EQ(Page(), "1 共 1 页"); }, [&] { CloseByFrame(); }});
  Show(100, {[&] { EXPECT_EQ(Page(), "1 共 3 页"); }, [&] { ClickButton(u"Last"); },
             [&] { CloseByFrame(); }});
  Show(200, {[&] { EXPECT_EQ(Page(), "1 共 5 页"); }, [&] { CloseByFrame(); }});
}

TEST_F(PreviewWindowTest, RefitsThePageWhenTheWindowIsResized) {
  std::string large;
  ShowFivePages(
      {[&] { large = Zoom(); },
       [&] { SetWindowPos(Window(), nullptr, 0, 0, 640, 480, SWP_NOMOVE | SWP_NOZORDER); },
       [&] {
         EXPECT_LT(std::stoi(Zoom()), std::stoi(large));
         EXPECT_EQ(ScrollRange(SB_VERT), 0);
       },
       [&] { CloseByFrame(); }});
}

TEST_F(PreviewWindowTest, ItsFrameHasAnIcon) {
  Show(10, {[&] {
         EXPECT_NE(SendMessageW(Window(), WM_GETICON, ICON_SMALL, 0), 0);
         EXPECT_NE(SendMessageW(Window(), WM_GETICON, ICON_BIG, 0), 0);
         CloseByFrame();
       }});
}

TEST_F(PreviewWindowTest, HasItsFontsHeightsAndIconsAgainAfterAChangeOfTheResolution) {
  Show(10, {[&] {
         const std::vector<HWND> children{
             Child(preview_ids::kPage), Child(preview_ids::kPageCount), Child(preview_ids::kZoom),
             Child(preview_ids::kDocumentBar), Child(preview_ids::kViewBar)};
         const auto before = HeightsOf(children);
         const OtherResolution other(children);
         SendMessageW(Window(), WM_SETICON, ICON_SMALL, 0);
         EXPECT_NE(HeightsOf(children), before);
         OtherResolution::SendChange(Window());
         EXPECT_EQ(HeightsOf(children), before);
         EXPECT_NE(SendMessageW(Window(), WM_GETICON, ICON_SMALL, 0), 0);
         CloseByFrame();
       }});
}

// The system sends it when the window moves to a screen of another resolution; here only the place
// changes.
TEST_F(PreviewWindowTest, MovesToThePlaceThatTheSystemSuggestsOnAnotherScreen) {
  RECT place{40, 30, 1140, 730};  // wide enough at every resolution
  ShowFivePages({[&] {
                   SendMessageW(Window(), 0x02E0, MAKEWPARAM(96, 96),
                                reinterpret_cast<LPARAM>(&place));
                 },
                 [&] {
                   RECT area{};
                   GetWindowRect(Window(), &area);
                   EXPECT_TRUE(EqualRect(&area, &place) != FALSE);
                   EXPECT_EQ(ScrollRange(SB_VERT), 0);
                   ClickButton(u"Next");
                 },
                 [&] { EXPECT_EQ(Page(), "2 共 5 页"); }, [&] { CloseByFrame(); }});
}

// The time is printed, not asserted; a list of any length is paged and shown without drawing every
// page.
TEST_F(PreviewWindowTest, OpensOnTwoHundredThousandRows) {
  const ULONGLONG begin = GetTickCount64();
  FillDocument(document, 200'000);
  const ULONGLONG start = GetTickCount64();
  ULONGLONG opened = 0;
  Show({[&] {
          opened = GetTickCount64();
          EXPECT_EQ(Page(), "1 共 4546 页");
          ClickButton(u"Last");
        },
        [&] {
          EXPECT_EQ(Page(), "4546 共 4546 页");
          std::printf("filled in %llu ms, opened in %llu ms, last page after %llu ms\n",
                      start - begin, opened - start, GetTickCount64() - opened);
        },
        [&] { CloseByFrame(); }});
}

}  // namespace
}  // namespace pricedown::testing
