// What the preview looks like: where the page's ink is, and pictures for people.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <optional>

#include "print/preview_state.h"
#include "tests/print/fake_measurer.h"
#include "tests/windows/base/high_contrast.h"
#include "tests/windows/print/preview_world.h"
#include "windows/base/dpi.h"
#include "windows/print/device_measurer.h"

namespace pricedown::testing {
namespace {

class PreviewLook : public PreviewWorld {
 protected:
  std::string Name(const std::string& what) const {
    return "preview " + what + " " + std::to_string(windows::Dpi::Of(nullptr).Value());
  }
  HWND Pane() const { return Child(preview_ids::kPane); }

  // What the pane should show: the state computed for its size.
  PreviewState Expected(const PrintPages& pages, std::optional<double> percent) const {
    RECT area{};
    GetClientRect(Pane(), &area);
    PreviewState state;
    state.SetPages(pages.PageCount(), pages.PrintedPaper());
    state.SetArea({area.right, area.bottom, windows::Dpi::Of(Pane()).Value()});
    percent ? state.SetPercent(*percent) : state.FitPage();
    state.ScrollBy(-state.ContentWidth(), -state.ContentHeight());
    return state;
  }
  // Ink is found where the first page has its rules, and none in its margins.
  void ExpectPage(const PrintPages& pages, std::optional<double> percent) const {
    const PreviewState state = Expected(pages, percent);
    const Picture picture = CapturePicture(Pane());
    const Rectangle paper = state.PaperBox();
    const auto x = [&](double tenths) { return paper.left + std::lround(state.Pixels(tenths)); };
    const auto y = [&](double tenths) { return paper.top + std::lround(state.Pixels(tenths)); };
    const auto inkNear = [&](long column, long row) {
      for (int i = -1; i <= 1; ++i) {
        for (int j = -1; j <= 1; ++j) {
          if (IsInk(picture, column + i, row + j)) return true;
        }
      }
      return false;
    };
    int seen = 0;
    for (const PageRule& rule : pages.PageAt(1).rules) {
      const long column = x((rule.left + rule.right) / 2.0);
      const long row = y((rule.top + rule.bottom) / 2.0);
      if (column + 1 >= picture.width || row + 1 >= picture.height) continue;
      ++seen;
      EXPECT_TRUE(inkNear(column, row)) << Readable(rule);
    }
    EXPECT_GT(seen, 10);
    const Rectangle inside = pages.PrintedPaper().Inside();
    for (long row = std::max(paper.top, 0) + 1; row < y(inside.top) - 2; ++row) {
      for (long column = std::max(paper.left, 0) + 1; column < x(inside.left) - 2; ++column) {
        if (column >= picture.width || row >= picture.height) break;
        ASSERT_EQ(picture.At(static_cast<int>(column), static_cast<int>(row)), 0xFFFFFFu);
      }
    }
    // Beside the paper there is nothing as dark as its ink.
    for (int row = 0; row < picture.height; ++row) {
      for (int column = 0; column < paper.left - 2; ++column) {
        ASSERT_GT(picture.At(column, row) & 0xFF, 0x60u) << column << "," << row;
      }
    }
  }
  // Of a tool strip, what stands out as a picture must.
  double ShareOfBar(int id) const {
    const Picture bar = CapturePicture(Child(id));
    return ShareThatStandsOut(bar, {1, 1, bar.width - 1, bar.height - 1}, 3);
  }
  static bool IsInk(const Picture& picture, long column, long row) {
    return (picture.At(static_cast<int>(column), static_cast<int>(row)) & 0xFF) < 0xC8;
  }
};

TEST_F(PreviewLook, ShowsThePagesRulesInTheirPlaces) {
  FillDocument(document, 200);
  windows::DeviceMeasurer measurer;
  const PrintPages pages(document, printing.paper, printing.Date(), measurer);
  Show({[&] { ExpectPage(pages, std::nullopt); }, [&] { TypeZoom(u"100%"); },
        [&] { PostMessageW(Pane(), WM_VSCROLL, SB_TOP, 0); },
        [&] { PostMessageW(Pane(), WM_HSCROLL, SB_TOP, 0); }, [&] { ExpectPage(pages, 100); },
        [&] { CloseByFrame(); }});
}

TEST_F(PreviewLook, ShowsTheWholePageThenItsWidthThenItsDetails) {
  const auto paper = [&] {
    const Picture picture = CapturePicture(Pane());
    return std::count(picture.pixels.begin(), picture.pixels.end(), 0xFFFFFFu);
  };
  std::ptrdiff_t whole = 0;
  Show(200, {[&] { KeepPicture(Window(), Name("whole")); }, [&] { whole = paper(); },
             [&] { ClickButton(u"FitWidth"); }, [&] { KeepPicture(Window(), Name("width")); },
             [&] { EXPECT_GT(paper(), whole * 5 / 4); }, [&] { ClickButton(u"Last"); },
             [&] { ClickButton(u"ZoomIn"); }, [&] { KeepPicture(Window(), Name("detail")); },
             [&] { SetWindowPos(Window(), nullptr, 0, 0, 300, 300, SWP_NOMOVE | SWP_NOZORDER); },
             [&] { KeepPicture(Window(), Name("narrow")); }, [&] { CloseByFrame(); }});
}

TEST_F(PreviewLook, ShowsPageInkAndSurroundingsInDifferentColoursInHighContrast) {
  for (const bool dark : {true, false}) {
    SCOPED_TRACE(dark ? "dark" : "light");
    const HighContrast colours(dark);
    Show(200, {[&] { HighContrast::Apply(Window()); },
               [&] {
                 KeepPicture(Window(), Name(dark ? "in dark" : "in light"));
                 const Picture picture = CapturePicture(Pane());
                 // From the left border to the middle of the page: the page begins somewhere, and
                 // has ink.
                 const int middle = picture.height / 2;
                 const std::uint32_t desk = picture.At(2, middle);
                 int edge = 3;
                 while (edge < picture.width && Contrast(picture.At(edge, middle), desk) < 1.5)
                   ++edge;
                 EXPECT_LT(edge, picture.width / 2) << "no edge of the page";
                 const RECT page{edge + 4, middle / 2, picture.width / 2, middle};
                 EXPECT_GT(ShareThatStandsOut(picture, page, 4.5), 0.0002);
                 EXPECT_GT(ShareOfBar(preview_ids::kDocumentBar), 0.02);
                 EXPECT_GT(ShareOfBar(preview_ids::kViewBar), 0.02);
               },
               [&] { CloseByFrame(); }});
  }
}

}  // namespace
}  // namespace pricedown::testing
