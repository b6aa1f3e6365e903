// What the grid's window draws, and that it survives the end of its grid.
#include <set>

#include "tests/windows/base/high_contrast.h"
#include "tests/windows/base/picture.h"
#include "tests/windows/grid/grid_world.h"

namespace pricedown::testing {
namespace {

TEST_F(GridWindow, AnEmptyGridShowsTitlesAndGridLines) {
  grid_.SetMaxRows(0);
  const Picture picture = CapturePicture(Handle());
  std::set<int> lines;
  const int middle = CellPoint(2, 1).x;
  const std::uint32_t background = picture.At(middle, picture.height - 2 * Scale(10));
  for (int y = window_.Viewport().Geometry().TitleHeight(); y < picture.height; ++y) {
    if (picture.At(middle, y) != picture.At(middle, y - 1)) lines.insert(y);
  }
  EXPECT_GT(lines.size(), 10u) << std::hex << background;
  KeepPicture(host_.Handle(), "grid empty");
}

// One of the system's colours for a test.
class SystemColour {
 public:
  SystemColour(int index, COLORREF colour) : index_(index), before_(GetSysColor(index)) {
    Set(colour);
  }
  ~SystemColour() { Set(before_); }
  SystemColour(const SystemColour&) = delete;
  SystemColour& operator=(const SystemColour&) = delete;

 private:
  void Set(COLORREF colour) const { SetSysColors(1, &index_, &colour); }

  int index_;
  COLORREF before_;
};

TEST_F(GridWindow, ShowsLockedCellsInTheTooltipColour) {
  const SystemColour yellow(COLOR_INFOBK, RGB(0xFF, 0xFF, 0xE1));
  const POINT locked = CellPoint(3, 3);
  const POINT open = CellPoint(4, 3);
  const Picture picture = CapturePicture(Handle());
  EXPECT_EQ(picture.At(locked.x, locked.y), 0xFFFFE1u);
  EXPECT_NE(picture.At(open.x, open.y), 0xFFFFE1u);
}

TEST_F(GridWindow, TintsLockedCellsWhereTooltipsAreAsWhiteAsWindows) {
  const SystemColour white(COLOR_INFOBK, GetSysColor(COLOR_WINDOW));
  const POINT locked = CellPoint(2, 3);
  const POINT open = CellPoint(4, 3);
  const Picture picture = CapturePicture(Handle());
  EXPECT_NE(picture.At(locked.x, locked.y), picture.At(open.x, open.y));
  KeepPicture(host_.Handle(), "grid with white tooltips");
}

TEST_F(GridWindow, ShowsOpenLockedAndSelectedCellsDifferentlyInEveryColourScheme) {
  const auto look = [this] {
    const Picture picture = CapturePicture(Handle());
    std::set<std::uint32_t> colours;
    // One selected, one locked, one open.
    for (const POINT& cell : {CellPoint(2, 3), CellPoint(2, 6), CellPoint(4, 6)}) {
      colours.insert(picture.At(cell.x, cell.y));
    }
    return colours.size();
  };
  window_.GoTo(1, 2);
  input_.PressWith(VK_SHIFT, VK_RIGHT);
  input_.PressWith(VK_SHIFT, VK_RIGHT);
  input_.PressWith(VK_SHIFT, VK_DOWN);
  EXPECT_EQ(look(), 3u);
  SetFocus(host_.Handle());
  EXPECT_EQ(look(), 3u) << "without the focus";
  const SystemColour window(COLOR_WINDOW, RGB(0, 0, 0));
  const SystemColour text(COLOR_WINDOWTEXT, RGB(255, 255, 255));
  const SystemColour face(COLOR_BTNFACE, RGB(0, 0, 0));
  const SystemColour tip(COLOR_INFOBK, RGB(0, 0, 0));
  EXPECT_EQ(look(), 3u) << "in high contrast";
  KeepPicture(host_.Handle(), "grid in high contrast");
}

TEST_F(GridWindow, LockedAndSelectedCellsStandOutFromOpenOnesInHighContrast) {
  window_.GoTo(1, 2);
  input_.PressWith(VK_SHIFT, VK_RIGHT);
  SetFocus(host_.Handle());
  for (const bool dark : {false, true}) {
    const HighContrast colours(dark);
    const Picture picture = CapturePicture(Handle());
    const auto contrast = [&](POINT a, POINT b) {
      return Contrast(picture.At(a.x, a.y), picture.At(b.x, b.y));
    };
    EXPECT_GT(contrast(CellPoint(2, 6), CellPoint(4, 6)), 1.2) << "locked, " << dark;
    EXPECT_GT(contrast(CellPoint(1, 2), CellPoint(1, 6)), 1.2) << "selected, " << dark;
  }
}

TEST_F(GridWindow, RowsAndTitlesFollowTheGrid) {
  grid_.SetRowHeight(40.2);
  grid_.SetTitleHeight(50);
  EXPECT_EQ(window_.Viewport().Geometry().RowHeight(), 41);
  EXPECT_EQ(window_.Viewport().Geometry().TitleHeight(), 50);
  grid_.SetFont(Font{u"宋体", 30, false, false});
  EXPECT_GT(window_.Viewport().Geometry().RowHeight(), 41);
}

// A container may draw the control while an open cell's field closes.
TEST_F(GridWindow, CanBeDrawnWhileItsGridIsDetached) {
  input_.Click(Handle(), CellPoint(4, 2));
  input_.Type(u"1");
  ASSERT_NE(Editor(), nullptr);
  const HDC context = CreateCompatibleDC(nullptr);
  bool drawn = false;
  whenFocused_ = [&] {
    SendMessageW(Handle(), WM_PRINTCLIENT, reinterpret_cast<WPARAM>(context), PRF_CLIENT);
    drawn = true;
  };
  window_.Show(nullptr);
  EXPECT_TRUE(drawn);
  DeleteDC(context);
}

TEST_F(GridWindow, OutlivesADetachedGrid) {
  window_.Show(nullptr);
  CapturePicture(Handle());
  input_.Press(VK_DOWN);
  input_.Type(u"5");
  input_.Click(Handle(), {30, 60});
  EXPECT_EQ(Editor(), nullptr);
  grid_.SetMaxRows(5);
}

}  // namespace
}  // namespace pricedown::testing
