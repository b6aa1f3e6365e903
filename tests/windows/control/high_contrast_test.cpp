// The control in high contrast, on its pixels: pictures, texts and marks stand out.
#include "tests/windows/base/high_contrast.h"

#include <gtest/gtest.h>

#include <cstring>

#include "tests/windows/control/ui_world.h"
#include "windows/base/control_ids.h"
#include "windows/base/dpi.h"

namespace pricedown::testing {
namespace {

namespace ids = windows::control_ids;

constexpr double kPictureContrast = 3;
constexpr double kTextContrast = 4.5;

class ControlInHighContrast : public ::testing::TestWithParam<bool> {
 protected:
  ControlInHighContrast() {
    world_.Start();
    HighContrast::Apply(world_.window->Handle());
    world_.Click(world_.Tree(), world_.NodePoint(3));
  }
  RECT ButtonArea(std::size_t index) const {
    RECT area{};
    SendMessageW(world_.Strip(), TB_GETITEMRECT, index, reinterpret_cast<LPARAM>(&area));
    return area;
  }
  // The node's text, without its picture.
  RECT NodeArea(NodeIndex node) const {
    const POINT middle = world_.NodePoint(node);
    TVHITTESTINFO hit{};
    hit.pt = middle;
    RECT area{};
    const HTREEITEM item = TreeView_HitTest(world_.Tree(), &hit);
    std::memcpy(&area, &item, sizeof item);
    SendMessageW(world_.Tree(), TVM_GETITEMRECT, TRUE, reinterpret_cast<LPARAM>(&area));
    InflateRect(&area, -1, -1);
    return area;
  }
  int Scale(int pixels) const { return windows::Dpi::Of(world_.host.Handle()).Scale(pixels); }

  const HighContrast colours_{GetParam()};
  UiWorld world_;
};

INSTANTIATE_TEST_SUITE_P(Schemes, ControlInHighContrast, ::testing::Bool(),
                         [](const auto& tested) { return tested.param ? "Dark" : "Light"; });

TEST_P(ControlInHighContrast, PicturesAndCaptionsOfTheToolStripStandOut) {
  KeepPicture(world_.host.Handle(), GetParam() ? "control in dark" : "control in light");
  const Picture strip = CapturePicture(world_.Strip());
  const int icon = Scale(16);
  const auto count = static_cast<std::size_t>(SendMessageW(world_.Strip(), TB_BUTTONCOUNT, 0, 0));
  int buttons = 0;
  for (std::size_t i = 0; i < count; ++i) {
    TBBUTTON button{};
    SendMessageW(world_.Strip(), TB_GETBUTTON, i, reinterpret_cast<LPARAM>(&button));
    if ((button.fsStyle & BTNS_SEP) != 0) continue;
    ++buttons;
    RECT area = ButtonArea(i);
    InflateRect(&area, -Scale(2), -Scale(2));
    const RECT picture{area.left, area.top, area.left + icon + Scale(4), area.bottom};
    const RECT caption{picture.right, area.top, area.right, area.bottom};
    EXPECT_GT(ShareThatStandsOut(strip, picture, kPictureContrast), 0.1) << i;
    EXPECT_GT(ShareThatStandsOut(strip, caption, kTextContrast), 0.02) << i;
  }
  EXPECT_EQ(buttons, 6);
}

// How far an area's pixels are from its first one, on average.
double StrengthOf(const Picture& picture, const RECT& area) {
  double sum = 0;
  for (LONG y = area.top; y < area.bottom; ++y) {
    for (LONG x = area.left; x < area.right; ++x) {
      sum += Contrast(picture.At(x, y), picture.At(area.left, area.top)) - 1;
    }
  }
  return sum / static_cast<double>((area.right - area.left) * (area.bottom - area.top));
}

TEST_P(ControlInHighContrast, DisabledButtonsAreSeenAndDifferFromEnabledOnes) {
  const auto image = [this](std::size_t index) {
    RECT area = ButtonArea(index);
    InflateRect(&area, -Scale(2), -Scale(2));
    return RECT{area.left, area.top, area.left + Scale(20), area.bottom};
  };
  for (const std::size_t index : {1u, 2u, 3u}) {
    TBBUTTON button{};
    SendMessageW(world_.Strip(), TB_GETBUTTON, index, reinterpret_cast<LPARAM>(&button));
    const Picture enabled = CapturePicture(world_.Strip());
    SendMessageW(world_.Strip(), TB_ENABLEBUTTON, static_cast<WPARAM>(button.idCommand), FALSE);
    const Picture disabled = CapturePicture(world_.Strip());
    EXPECT_GT(ShareThatStandsOut(disabled, image(index), 1.5), 0.1) << index;
    EXPECT_LT(StrengthOf(disabled, image(index)), StrengthOf(enabled, image(index)) * 0.6) << index;
  }
  KeepPicture(world_.host.Handle(), GetParam() ? "disabled in dark" : "disabled in light");
}

TEST_P(ControlInHighContrast, CaptionsOfDisabledButtonsAreReadableAndWeaker) {
  TBBUTTON button{};
  SendMessageW(world_.Strip(), TB_GETBUTTON, 1, reinterpret_cast<LPARAM>(&button));
  RECT caption = ButtonArea(1);
  InflateRect(&caption, -Scale(2), -Scale(2));
  caption.left += Scale(22);
  SendMessageW(world_.Strip(), TB_ENABLEBUTTON, static_cast<WPARAM>(button.idCommand), FALSE);
  const Picture disabled = CapturePicture(world_.Strip());
  EXPECT_GT(ShareThatStandsOut(disabled, caption, 2), 0.02);
  EXPECT_EQ(ShareThatStandsOut(disabled, caption, 8), 0) << "as strong as an enabled one's";
}

TEST_P(ControlInHighContrast, NodesOfTheTreeStandOutAndSoDoesTheSelectedOne) {
  SetFocus(world_.Tree());
  RunMessages();
  const auto ground = [&](NodeIndex node) {
    const Picture tree = CapturePicture(world_.Tree());
    const RECT text = NodeArea(node);
    EXPECT_GT(ShareThatStandsOut(tree, text, kTextContrast), 0.02) << node;
    return tree.At(text.left, text.top);
  };
  EXPECT_GT(Contrast(ground(3), ground(4)), kPictureContrast) << "selected";
  SetFocus(world_.Grid());
  RunMessages();
  EXPECT_GT(Contrast(ground(3), ground(4)), 1.3) << "without the focus";
  const Picture tree = CapturePicture(world_.Tree());
  const RECT text = NodeArea(4);
  const RECT picture{text.left - Scale(20), text.top, text.left - Scale(2), text.bottom};
  EXPECT_GT(ShareThatStandsOut(tree, picture, kPictureContrast), 0.1);
}

TEST_P(ControlInHighContrast, TheSplitterShowsItsFocusAndWhereItIsDragged) {
  const HWND splitter = world_.Child(ids::kSplitter);
  const auto pixels = [&] { return CapturePicture(splitter).pixels; };
  const auto plain = pixels();
  SetFocus(splitter);
  RunMessages();
  EXPECT_NE(pixels(), plain);
  SetFocus(world_.Tree());
  const HWND bar = world_.Child(ids::kDragBar);
  SendMessageW(splitter, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(1, 40));
  SendMessageW(splitter, WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(Scale(60), 40));
  RunMessages();
  EXPECT_TRUE(IsWindowVisible(bar));
  RECT place{};
  GetWindowRect(bar, &place);
  MapWindowPoints(nullptr, world_.window->Handle(), reinterpret_cast<POINT*>(&place), 2);
  const std::uint32_t dragged = CapturePicture(bar).At(0, Scale(60));
  const std::uint32_t beside =
      CapturePicture(world_.window->Handle()).At(place.left - Scale(12), place.top + Scale(200));
  EXPECT_GT(Contrast(dragged, beside), kPictureContrast);
  SendMessageW(splitter, WM_LBUTTONUP, 0, MAKELPARAM(Scale(60), 40));
}

}  // namespace
}  // namespace pricedown::testing
