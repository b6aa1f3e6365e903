// Where a page is drawn on a device, and the measures of its texts.
// Pages are drawn on bitmaps of several resolutions and compared with their draw commands.
#include "windows/print/page_painter.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <ostream>

#include "tests/windows/base/picture.h"
#include "tests/windows/print/preview_world.h"
#include "windows/print/device_measurer.h"

namespace pricedown::testing {
namespace {

using windows::DeviceMeasurer;
using windows::PagePainter;
using windows::PageScale;

const Font kPlain{u"宋体", 9, false, false, false};
// Its line is exactly as long as the text is wide.
const Font kUnderlined{u"宋体", 9, false, false, true};

constexpr std::uint32_t kWhite = 0xFFFFFF;

// White, of that size in pixels.
class Canvas {
 public:
  Canvas(int width, int height)
      : width_(width), height_(height), context_(CreateCompatibleDC(nullptr)) {
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = width;
    info.bmiHeader.biHeight = -height;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    void* bits = nullptr;
    bitmap_ = CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    previous_ = SelectObject(context_, bitmap_);
    PatBlt(context_, 0, 0, width, height, WHITENESS);
  }
  ~Canvas() {
    SelectObject(context_, previous_);
    DeleteObject(bitmap_);
    DeleteDC(context_);
  }
  Canvas(const Canvas&) = delete;
  Canvas& operator=(const Canvas&) = delete;

  HDC Context() const { return context_; }
  Picture Look() const { return CapturePicture(context_, {0, 0, width_, height_}); }

 private:
  int width_;
  int height_;
  HDC context_;
  HBITMAP bitmap_ = nullptr;
  HGDIOBJ previous_ = nullptr;
};

struct Ink {
  int left = 0;
  int top = 0;
  int right = -1;  // the last column and row that have ink
  int bottom = -1;
  bool IsNone() const { return right < left; }
};

Ink InkOf(const Picture& picture) {
  Ink ink{picture.width, picture.height, -1, -1};
  for (int y = 0; y < picture.height; ++y) {
    for (int x = 0; x < picture.width; ++x) {
      if (picture.At(x, y) == kWhite) continue;
      ink.left = std::min(ink.left, x);
      ink.top = std::min(ink.top, y);
      ink.right = std::max(ink.right, x);
      ink.bottom = std::max(ink.bottom, y);
    }
  }
  return ink;
}

// Requires: the text outlives the result.
PageText TextAt(std::u16string_view text, TextAlignment alignment, Tenths anchor, Tenths top,
                const Rectangle& clip = {0, 0, 2100, 2970}) {
  return {text, 0, alignment, anchor, top, clip};
}

class PainterAt : public ::testing::TestWithParam<int> {
 protected:
  double Scale() const { return GetParam() / double{kTenthsPerInch}; }
  double Pixels(double tenths) const { return tenths * Scale(); }
  // A page of A4 with nothing else on it.
  Ink Paint(const Page& page, const Font& font) {
    const Canvas canvas(static_cast<int>(Pixels(2100)) + 2, static_cast<int>(Pixels(2970)) + 2);
    painter_.Paint(canvas.Context(), page, std::array{font}, {0, 0, Scale(), Scale()});
    return InkOf(canvas.Look());
  }

  DeviceMeasurer measurer_;
  PagePainter painter_{measurer_};
};

INSTANTIATE_TEST_SUITE_P(Resolutions, PainterAt, ::testing::Values(96, 144, 192, 300));

TEST_P(PainterAt, ARuleIsDrawnWhereItsCommandSays) {
  const Ink across = Paint({{{200, 372, 1900, 372}}, {}}, kPlain);
  const double half = std::max(Pixels(1.5), 1.0) / 2;
  EXPECT_NEAR(across.left, Pixels(200) - half, 1);
  EXPECT_NEAR(across.right + 1, Pixels(1900) + half, 1);
  EXPECT_NEAR((across.top + across.bottom + 1) / 2.0, Pixels(372), 1);
  const int thick = across.bottom - across.top + 1;
  EXPECT_GE(thick, 1);
  EXPECT_LE(thick, std::max(1.0, Pixels(2)));

  const Ink down = Paint({{{507, 372, 507, 2500}}, {}}, kPlain);
  EXPECT_NEAR((down.left + down.right + 1) / 2.0, Pixels(507), 1);
  EXPECT_NEAR(down.top, Pixels(372) - half, 1);
  EXPECT_NEAR(down.bottom + 1, Pixels(2500) + half, 1);
}

TEST_P(PainterAt, ATextIsDrawnAtItsAnchorAsAligned) {
  const std::u16string text = u"六角头螺栓 M8×40";
  const double width = measurer_.Width(kUnderlined, text);
  const Ink left = Paint({{}, {TextAt(text, TextAlignment::Left, 300, 500)}}, kUnderlined);
  EXPECT_NEAR(left.left, Pixels(300), 1);
  EXPECT_NEAR(left.right + 1, Pixels(300 + width), 1.5);
  const Ink right = Paint({{}, {TextAt(text, TextAlignment::Right, 1500, 500)}}, kUnderlined);
  EXPECT_NEAR(right.left, Pixels(1500 - width), 1.5);
  EXPECT_NEAR(right.right + 1, Pixels(1500), 1);
  const Ink centre = Paint({{}, {TextAt(text, TextAlignment::Centre, 1000, 500)}}, kUnderlined);
  EXPECT_NEAR((centre.left + centre.right + 1) / 2.0, Pixels(1000), 1);
}

TEST_P(PainterAt, ATextIsDrawnOnItsMeasuredBaseline) {
  const Ink ink = Paint({{}, {TextAt(u"HEH", TextAlignment::Left, 300, 500)}}, kPlain);
  EXPECT_NEAR(ink.bottom + 1, Pixels(500 + measurer_.Ascent(kPlain) / 10.0), 1);
  EXPECT_GE(ink.top, Pixels(500) - 1);
}

TEST_P(PainterAt, NothingShowsOutsideTheClip) {
  const Rectangle clip{400, 500, 50, 20};
  const Ink ink =
      Paint({{}, {TextAt(u"六角头螺栓六角头螺栓", TextAlignment::Left, 300, 490, clip)}}, kPlain);
  ASSERT_FALSE(ink.IsNone());
  EXPECT_GE(ink.left, std::lround(Pixels(clip.left)));
  EXPECT_LT(ink.right, std::lround(Pixels(clip.Right())));
  EXPECT_GE(ink.top, std::lround(Pixels(clip.top)));
  EXPECT_LT(ink.bottom, std::lround(Pixels(clip.Bottom())));
}

// Each cell's ink on a real page lies in its clip and at its command's side of it.
TEST_P(PainterAt, EveryTextOfAPageIsWhereItsCommandSays) {
  PrintDocument document;
  FillDocument(document, 12);
  const PrintPages pages(document, {}, u"2008-03-31", measurer_);
  const Page page = pages.PageAt(1);
  ASSERT_GT(page.texts.size(), 50u);
  const Canvas canvas(static_cast<int>(Pixels(2100)) + 2, static_cast<int>(Pixels(2970)) + 2);
  Page texts;
  texts.texts = page.texts;
  painter_.Paint(canvas.Context(), texts, pages.Fonts(), {0, 0, Scale(), Scale()});
  const Picture picture = canvas.Look();
  for (const PageText& text : page.texts) {
    const Font& font = pages.Fonts()[text.font];
    const double width = measurer_.Width(font, text.text);
    double start = text.anchor;
    if (text.alignment == TextAlignment::Centre) start -= width / 2;
    if (text.alignment == TextAlignment::Right) start -= width;
    // The row of the text in its clip; its neighbours have their own clips.
    Ink ink{picture.width, 0, -1, 0};
    const auto edge = [&](Tenths tenths) { return static_cast<int>(std::lround(Pixels(tenths))); };
    for (int y = edge(text.clip.top); y < edge(text.clip.Bottom()); ++y) {
      for (int x = edge(text.clip.left); x < edge(text.clip.Right()); ++x) {
        if (picture.At(x, y) == kWhite) continue;
        ink.left = std::min(ink.left, x);
        ink.right = std::max(ink.right, x);
      }
    }
    ASSERT_FALSE(ink.IsNone()) << Utf8(text.text);
    // The ink of a letter is slightly narrower than its width.
    const double inside = Pixels(font.size * 35.28 / 10 / 4) + 1.5;
    EXPECT_GE(ink.left, Pixels(start) - 1) << Utf8(text.text);
    EXPECT_LE(ink.left, Pixels(start) + inside) << Utf8(text.text);
    EXPECT_LE(ink.right, Pixels(start + width) + 1) << Utf8(text.text);
    EXPECT_GE(ink.right, Pixels(start + width) - inside) << Utf8(text.text);
  }
}

TEST(PagePainter, DrawsFromAnyOriginAndClipsTheRest) {
  DeviceMeasurer measurer;
  PagePainter painter(measurer);
  const Canvas canvas(100, 100);
  painter.Paint(canvas.Context(), {{{100, 100, 300, 100}}, {}}, {}, {-20.0, 30.0, 0.5, 0.5});
  const Ink ink = InkOf(canvas.Look());
  EXPECT_EQ(ink.left, 30);
  EXPECT_EQ(ink.right, 99);
  EXPECT_EQ(ink.top, 80);
}

TEST(PagePainter, LeavesTheContextAsItWas) {
  DeviceMeasurer measurer;
  PagePainter painter(measurer);
  const Canvas canvas(200, 100);
  SetTextColor(canvas.Context(), RGB(1, 2, 3));
  SetBkMode(canvas.Context(), OPAQUE);
  SetTextAlign(canvas.Context(), TA_RIGHT);
  const HGDIOBJ font = GetCurrentObject(canvas.Context(), OBJ_FONT);
  painter.Paint(canvas.Context(), {{{0, 0, 100, 0}}, {TextAt(u"M8", TextAlignment::Left, 0, 0)}},
                std::array{kPlain}, {});
  EXPECT_EQ(GetTextColor(canvas.Context()), RGB(1, 2, 3));
  EXPECT_EQ(GetBkMode(canvas.Context()), OPAQUE);
  EXPECT_EQ(GetTextAlign(canvas.Context()), static_cast<UINT>(TA_RIGHT));
  EXPECT_EQ(GetCurrentObject(canvas.Context(), OBJ_FONT), font);
}

TEST(PagePainter, ReportsADeviceThatCannotDraw) {
  DeviceMeasurer measurer;
  PagePainter painter(measurer);
  EXPECT_THROW(painter.Paint(nullptr, {{}, {TextAt(u"M8", TextAlignment::Left, 0, 0)}},
                             std::array{kPlain}, {}),
               AutomationError);
}

TEST(DeviceMeasurer, FittingLengthIsTheLongestBeginningWithinTheWidth) {
  DeviceMeasurer measurer;
  const Font font{u"宋体", 10.5, false, false, false};
  const std::u16string text = u"六角头螺栓 M8×40";
  for (Tenths available = 0; available <= measurer.Width(font, text); ++available) {
    const std::size_t length = measurer.FittingLength(font, text, available);
    EXPECT_LE(measurer.Width(font, text.substr(0, length)), available);
    if (length < text.size()) {
      EXPECT_GT(measurer.Width(font, text.substr(0, length + 1)), available);
    }
  }
  EXPECT_EQ(measurer.FittingLength(font, text, measurer.Width(font, text)), text.size());
}

TEST(DeviceMeasurer, ALongerTextIsNeverNarrowerThanItsBeginning) {
  DeviceMeasurer measurer;
  for (const bool italic : {false, true}) {
    const Font font{u"宋体", 10.5, false, italic, false};
    for (const std::u16string text : {u"六角头螺栓 M8×40 GB/T 5782", u"AVAVAVA To We fj ffi",
                                      u"…  　a\u0301\u0302", u"𠀀𠀁x"}) {
      Tenths before = 0;
      for (std::size_t length = 0; length <= text.size(); ++length) {
        const Tenths width = measurer.Width(font, text.substr(0, length));
        EXPECT_GE(width, before) << Utf8(text) << " " << length;
        before = width;
      }
    }
  }
}

TEST(DeviceMeasurer, WidthsAreRoundedUpToTenths) {
  DeviceMeasurer measurer;
  for (const char16_t* text : {u"1", u"12", u"物料", u"iiii", u"M8×40"}) {
    const int hundredths = measurer.Ends(kPlain, text).back();
    const Tenths width = measurer.Width(kPlain, text);
    EXPECT_GE(width * 10, hundredths);
    EXPECT_LT(width * 10, hundredths + 10);
  }
  EXPECT_EQ(measurer.Width(kPlain, u""), 0);
}

TEST(DeviceMeasurer, AChineseCharacterIsAsWideAsItsFontIsHigh) {
  DeviceMeasurer measurer;
  // 9 points are 31.75 tenths of a millimetre, 18 points twice as much.
  EXPECT_NEAR(measurer.Width(kPlain, u"物料物料物料物料物料") / 10.0, 31.75, 0.3);
  EXPECT_NEAR(measurer.Width({u"宋体", 18}, u"物料物料物料物料物料") / 10.0, 63.5, 0.3);
  EXPECT_GE(measurer.LineHeight(kPlain), 31);
  EXPECT_LE(measurer.LineHeight(kPlain), 48);
}

TEST(DeviceMeasurer, MeasuresAgainWhatItMeasuredBeforeManyOtherFonts) {
  DeviceMeasurer measurer;
  const Tenths width = measurer.Width(kPlain, u"物料 123");
  for (int size = 1; size <= 100; ++size) measurer.Width({u"宋体", size / 2.0}, u"x");
  EXPECT_EQ(measurer.Width(kPlain, u"物料 123"), width);
}

}  // namespace
}  // namespace pricedown::testing
