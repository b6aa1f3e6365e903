// The print preview by keyboard and wheel, and the ways in which it ends. Messages are posted to
// the preview's own loop.
#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "tests/windows/print/preview_world.h"

namespace pricedown::testing {
namespace {

class PreviewKeys : public PreviewWorld {
 protected:
  void ShowFivePages(Steps steps) { Show(200, std::move(steps)); }
  // Released with the next step, when the preview has seen the key.
  void PostControlKey(WPARAM key) {
    HoldControl(true);
    PostKey(key);
  }
  Steps WithControl(WPARAM key) {
    return {[this, key] { PostControlKey(key); }, [this] { HoldControl(false); }};
  }
};

TEST_F(PreviewKeys, PageKeysTurnAWholePage) {
  ShowFivePages({[&] { PostKey(VK_NEXT); },
                 [&] {
                   EXPECT_EQ(Page(), "2 共 5 页");
                   PostKey(VK_PRIOR);
                 },
                 [&] {
                   EXPECT_EQ(Page(), "1 共 5 页");
                   PostKey(VK_PRIOR);
                 },
                 [&] { EXPECT_EQ(Page(), "1 共 5 页"); }, [&] { CloseByFrame(); }});
}

TEST_F(PreviewKeys, PageKeysGoDownALargePageBeforeTheyTurnIt) {
  int bottom = 0;
  ShowFivePages({[&] { ClickButton(u"FitWidth"); }, [&] { PostKey(VK_NEXT); },
                 [&] {
                   EXPECT_EQ(Page(), "1 共 5 页");
                   EXPECT_GT(Scroll(SB_VERT), 0);
                   PostKey(VK_END);
                 },
                 [&] {
                   bottom = Scroll(SB_VERT);
                   EXPECT_EQ(bottom, ScrollRange(SB_VERT));
                   PostKey(VK_NEXT);
                 },
                 [&] {
                   EXPECT_EQ(Page(), "2 共 5 页");
                   EXPECT_EQ(Scroll(SB_VERT), 0);
                   PostKey(VK_PRIOR);
                 },
                 [&] {
                   EXPECT_EQ(Page(), "1 共 5 页");
                   EXPECT_EQ(Scroll(SB_VERT), bottom);
                   PostKey(VK_HOME);
                 },
                 [&] { EXPECT_EQ(Scroll(SB_VERT), 0); }, [&] { CloseByFrame(); }});
}

TEST_F(PreviewKeys, ControlWithHomeAndEndGoesToFirstAndLast) {
  Steps steps = WithControl(VK_END);
  steps.push_back([&] { EXPECT_EQ(Page(), "5 共 5 页"); });
  Append(steps, WithControl(VK_HOME));
  steps.push_back([&] { EXPECT_EQ(Page(), "1 共 5 页"); });
  Append(steps, WithControl(VK_NEXT));
  steps.push_back([&] { EXPECT_EQ(Page(), "2 共 5 页"); });
  Append(steps, WithControl(VK_PRIOR));
  steps.push_back([&] { EXPECT_EQ(Page(), "1 共 5 页"); });
  steps.push_back([&] { CloseByFrame(); });
  ShowFivePages(std::move(steps));
}

TEST_F(PreviewKeys, ArrowsScroll) {
  int across = 0;
  int down = 0;
  ShowFivePages({[&] { TypeZoom(u"200"); }, [&] { SetFocus(Child(preview_ids::kPane)); },
                 [&] {
                   across = Scroll(SB_HORZ);
                   down = Scroll(SB_VERT);
                   PostKey(VK_DOWN);
                   PostKey(VK_RIGHT);
                 },
                 [&] {
                   EXPECT_GT(Scroll(SB_VERT), down);
                   EXPECT_GT(Scroll(SB_HORZ), across);
                   PostKey(VK_UP);
                   PostKey(VK_LEFT);
                 },
                 [&] {
                   EXPECT_EQ(Scroll(SB_VERT), down);
                   EXPECT_EQ(Scroll(SB_HORZ), across);
                   EXPECT_EQ(Page(), "1 共 5 页");
                 },
                 [&] { CloseByFrame(); }});
}

TEST_F(PreviewKeys, PlusAndMinusZoom) {
  ShowFivePages({[&] { TypeZoom(u"100"); }, [&] { SetFocus(Child(preview_ids::kPane)); },
                 [&] { PostKey(VK_ADD); },
                 [&] {
                   EXPECT_EQ(Zoom(), "125%");
                   PostKey(VK_OEM_MINUS);
                 },
                 [&] { PostKey(VK_SUBTRACT); },
                 [&] {
                   EXPECT_EQ(Zoom(), "75%");
                   PostKey(VK_OEM_PLUS);
                 },
                 [&] { EXPECT_EQ(Zoom(), "100%"); }, [&] { CloseByFrame(); }});
}

TEST_F(PreviewKeys, PageKeysWorkInTheFieldsToo) {
  ShowFivePages({[&] { SetFocus(Child(preview_ids::kPage)); }, [&] { PostKey(VK_NEXT); },
                 [&] {
                   EXPECT_EQ(Page(), "2 共 5 页");
                   SetFocus(Child(preview_ids::kDocumentBar));
                 },
                 [&] { PostKey(VK_NEXT); }, [&] { EXPECT_EQ(Page(), "3 共 5 页"); },
                 [&] { CloseByFrame(); }});
}

TEST_F(PreviewKeys, ControlWithLettersPrintsAndGoesToTheNumber) {
  Steps steps = WithControl('G');
  steps.push_back([&] {
    EXPECT_EQ(GetFocus(), Child(preview_ids::kPage));
    // The number is selected: typing replaces it.
    Type(u"4");
    PostKey(VK_RETURN);
  });
  steps.push_back([&] { EXPECT_EQ(Page(), "4 共 5 页"); });
  Append(steps, WithControl('P'));
  steps.push_back([&] { EXPECT_EQ(printing.calls, std::vector<std::string>{"print"}); });
  steps.push_back([&] { CloseByFrame(); });
  ShowFivePages(std::move(steps));
}

TEST_F(PreviewKeys, TabGoesThroughItsPartsInReadingOrder) {
  Steps steps;
  const auto step = [&](int id) {
    steps.push_back([&] { PostKey(VK_TAB); });
    steps.push_back([&, id] {
      EXPECT_TRUE(GetFocus() == Child(id) || IsChild(Child(id), GetFocus()) != FALSE) << id;
    });
  };
  for (const int id : {preview_ids::kDocumentBar, preview_ids::kPage, preview_ids::kZoom,
                       preview_ids::kViewBar, preview_ids::kPane}) {
    step(id);
  }
  steps.push_back([&] { CloseByFrame(); });
  ShowFivePages(std::move(steps));
}

TEST_F(PreviewKeys, AButtonIsPressedByKeyboard) {
  ShowFivePages({[&] { SetFocus(Child(preview_ids::kDocumentBar)); },
                 // The first one is printing.
                 [&] { PostKey(VK_RETURN); },
                 [&] { EXPECT_EQ(printing.calls, std::vector<std::string>{"print"}); },
                 [&] { CloseByFrame(); }});
}

TEST_F(PreviewKeys, TheWheelTurnsAPageThatFitsByWholeNotches) {
  ShowFivePages({[&] { Wheel(-WHEEL_DELTA); },
                 [&] {
                   EXPECT_EQ(Page(), "2 共 5 页");
                   Wheel(-40);
                 },
                 [&] {
                   EXPECT_EQ(Page(), "2 共 5 页");
                   Wheel(-40);
                   Wheel(-40);
                 },
                 [&] {
                   EXPECT_EQ(Page(), "3 共 5 页");
                   Wheel(WHEEL_DELTA);
                 },
                 [&] { EXPECT_EQ(Page(), "2 共 5 页"); }, [&] { CloseByFrame(); }});
}

TEST_F(PreviewKeys, TheWheelScrollsALargePage) {
  ShowFivePages({[&] { ClickButton(u"FitWidth"); }, [&] { Wheel(-WHEEL_DELTA); },
                 [&] {
                   EXPECT_EQ(Page(), "1 共 5 页");
                   EXPECT_GT(Scroll(SB_VERT), 0);
                   Wheel(WHEEL_DELTA);
                 },
                 [&] { EXPECT_EQ(Scroll(SB_VERT), 0); }, [&] { CloseByFrame(); }});
}

TEST_F(PreviewKeys, TheWheelZoomsWithControl) {
  ShowFivePages({[&] { TypeZoom(u"100"); }, [&] { Wheel(WHEEL_DELTA, MK_CONTROL); },
                 [&] {
                   EXPECT_EQ(Zoom(), "125%");
                   Wheel(-WHEEL_DELTA, MK_CONTROL);
                 },
                 [&] {
                   EXPECT_EQ(Zoom(), "100%");
                   EXPECT_EQ(Page(), "1 共 5 页");
                 },
                 [&] { CloseByFrame(); }});
}

TEST_F(PreviewKeys, ScrollBarsMoveThePage) {
  const auto send = [&](UINT message, int code) {
    PostMessageW(Child(preview_ids::kPane), message, MAKEWPARAM(code, 0), 0);
  };
  ShowFivePages({[&] { TypeZoom(u"200"); },
                 [&] {
                   send(WM_VSCROLL, SB_BOTTOM);
                   send(WM_HSCROLL, SB_RIGHT);
                 },
                 [&] {
                   EXPECT_EQ(Scroll(SB_VERT), ScrollRange(SB_VERT));
                   EXPECT_EQ(Scroll(SB_HORZ), ScrollRange(SB_HORZ));
                   send(WM_VSCROLL, SB_PAGEUP);
                   send(WM_HSCROLL, SB_LINELEFT);
                 },
                 [&] {
                   EXPECT_LT(Scroll(SB_VERT), ScrollRange(SB_VERT));
                   EXPECT_LT(Scroll(SB_HORZ), ScrollRange(SB_HORZ));
                   send(WM_VSCROLL, SB_TOP);
                   send(WM_HSCROLL, SB_LEFT);
                 },
                 [&] {
                   EXPECT_EQ(Scroll(SB_VERT), 0);
                   EXPECT_EQ(Scroll(SB_HORZ), 0);
                 },
                 [&] { CloseByFrame(); }});
}

class PreviewEnd : public PreviewKeys {};

TEST_F(PreviewEnd, ClosesByEscapeFromEveryPart) {
  for (const int id : {preview_ids::kPane, preview_ids::kPage, preview_ids::kZoom,
                       preview_ids::kDocumentBar, preview_ids::kViewBar}) {
    ShowFivePages({[&, id] { SetFocus(Child(id)); }, [&] { PostKey(VK_ESCAPE); }});
  }
}

TEST_F(PreviewEnd, EscapeClosesTheOpenListFirst) {
  ShowFivePages({[&] {
                   SetFocus(Child(preview_ids::kZoom));
                   SendMessageW(Child(preview_ids::kZoom), CB_SHOWDROPDOWN, TRUE, 0);
                   PostKey(VK_ESCAPE);
                 },
                 [&] {
                   ASSERT_NE(Window(), nullptr);
                   EXPECT_EQ(SendMessageW(Child(preview_ids::kZoom), CB_GETDROPPEDSTATE, 0, 0), 0);
                   PostKey(VK_ESCAPE);
                 }});
}

TEST_F(PreviewEnd, ClosesByItsButton) {
  ShowFivePages({[&] { ClickButton(u"Close"); }});
  EXPECT_EQ(GetActiveWindow(), host.Handle());
}

TEST_F(PreviewEnd, LeavesTheFocusInAnotherWindowThatIsActive) {
  const HWND field = CreateWindowW(L"EDIT", L"", WS_CHILD | WS_VISIBLE, 10, 10, 100, 20,
                                   host.Handle(), nullptr, GetModuleHandleW(nullptr), nullptr);
  SetFocus(field);
  std::unique_ptr<HostWindow> other;
  ShowFivePages({[&] {
                   other = std::make_unique<HostWindow>(300, 200);
                   SetFocus(other->Handle());
                 },
                 [&] { CloseByFrame(); }});
  EXPECT_EQ(GetActiveWindow(), other->Handle());
  EXPECT_EQ(GetFocus(), other->Handle());
}

TEST_F(PreviewEnd, EndsWithItsOwner) {
  ShowFivePages({[&] { DestroyWindow(host.Handle()); }});
}

TEST_F(PreviewEnd, EndsWhenTheProgramQuits) {
  FillDocument(document, 10);
  ModalSteps player({[] { PostQuitMessage(7); }});
  dialog.ShowModal(host.Handle(), fonts);
  EXPECT_EQ(Window(), nullptr);
  EXPECT_TRUE(IsWindowEnabled(host.Handle()) != FALSE);
  // The message is put back for the host's own loop.
  MSG message{};
  EXPECT_TRUE(PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE) != FALSE);
  EXPECT_EQ(message.wParam, 7u);
}

TEST_F(PreviewEnd, EndsWithTheControlThatOpenedIt) {
  ShowFivePages({[&] { dialog.Close(); }});
  EXPECT_TRUE(IsWindowEnabled(host.Handle()) != FALSE);
  dialog.Close();
}

TEST_F(PreviewEnd, EndsWithItsOwnerInTheMiddleOfPrinting) {
  printing.onPrint = [&] { DestroyWindow(host.Handle()); };
  ShowFivePages({[&] { ClickButton(u"Print"); }});
}

TEST_F(PreviewEnd, EndsWithItsOwnerBehindTheFontDialog) {
  fonts.onShow = [&] { DestroyWindow(host.Handle()); };
  fonts.answers = {{u"黑体", 12, true, false}};
  ShowFivePages({[&] { ClickButton(u"Font"); }});
  // No window is left to show it.
  EXPECT_EQ(document.font, Font());
}

TEST_F(PreviewEnd, EndsWithItsOwnerWhileAFailureIsShown) {
  boxes.WillPress({0});
  printing.onPrint = [] { throw AutomationError(ErrorNumber::Unspecified, u"打印机没有反应"); };
  ShowFivePages(
      {[&] { PostButton(u"Print"); }, [&] {}, [&] {}, [&] { DestroyWindow(host.Handle()); }});
}

TEST_F(PreviewEnd, ClosingWaitsForACommandThatRuns) {
  bool shown = false;
  printing.onPrint = [&] {
    SendMessageW(Window(), WM_CLOSE, 0, 0);
    shown = Window() != nullptr;
  };
  ShowFivePages({[&] { ClickButton(u"Print"); }});
  EXPECT_TRUE(shown);
}

TEST_F(PreviewEnd, CommandsDoNotRunInsideOfEachOther) {
  printing.onPrint = [&] { SendMessageW(Window(), WM_COMMAND, IDCANCEL, 0); };
  ShowFivePages({[&] { ClickButton(u"Print"); }, [&] { ASSERT_NE(Window(), nullptr); },
                 [&] { CloseByFrame(); }});
}

}  // namespace
}  // namespace pricedown::testing
