// The designs, on a grid of 16 units.
// A ring is a polygon, because shapes can only be drawn over each other.
#include "workbench/host/tool_icons.h"

#include <array>
#include <cmath>
#include <vector>

#include "windows/base/icon_art.h"

namespace workbench {

using pricedown::windows::DrawIcon;
using pricedown::windows::Icon;
using pricedown::windows::IconCanvas;
using pricedown::windows::IconColour;
using pricedown::windows::IconPoint;

namespace {

constexpr IconColour kInk = 0x4A5568;
constexpr IconColour kPaper = 0xFFFFFF;
constexpr IconColour kBlue = 0x2B6CB0;
constexpr IconColour kGreen = 0x1F9D55;

// Most of a ring with an arrow's head at its end.
void DrawRefresh(IconCanvas& canvas) {
  constexpr int kCorners = 30;
  constexpr double kFrom = -0.3;
  constexpr double kTo = -5.4;
  std::vector<IconPoint> ring;
  const auto add = [&ring](double radius, double angle) {
    ring.push_back({8 + radius * std::cos(angle), 8 - radius * std::sin(angle)});
  };
  for (int i = 0; i <= kCorners; ++i) add(6.6, kFrom + (kTo - kFrom) * i / kCorners);
  for (int i = kCorners; i >= 0; --i) add(4.2, kFrom + (kTo - kFrom) * i / kCorners);
  canvas.Polygon(ring, kGreen);
  canvas.Polygon(std::array<IconPoint, 3>{{{9.2, 6.8}, {15.4, 6.8}, {15.4, 0.6}}}, kGreen);
}

// A window with a part of it marked, from `top` to `bottom`.
void DrawWindowPart(IconCanvas& canvas, double top, double bottom) {
  canvas.Box(1, 2, 15, 14, kInk);
  canvas.Box(2, 3, 14, 13, kPaper);
  canvas.Box(2, top, 14, bottom, kBlue);
}

struct Shared {
  std::u16string_view tool;
  Icon icon;
};
constexpr std::array<Shared, 6> kShared{{{u"iInsert", Icon::Add},
                                         {u"iEdit", Icon::Edit},
                                         {u"iCut", Icon::Delete},
                                         {u"iPrint", Icon::Print},
                                         {u"iPrintPreView", Icon::Preview},
                                         {u"iExit", Icon::Exit}}};

}  // namespace

std::optional<IconCanvas> ToolPicture(std::u16string_view name, int size) {
  for (const Shared& shared : kShared) {
    if (shared.tool == name) return DrawIcon(shared.icon, size);
  }
  IconCanvas canvas(size);
  if (name == u"iRefresh") {
    DrawRefresh(canvas);
  } else if (name == u"iToolBar") {
    DrawWindowPart(canvas, 3, 6);
  } else if (name == u"mnuViewStatusBar") {
    DrawWindowPart(canvas, 10, 13);
  } else {
    return std::nullopt;
  }
  return canvas;
}

}  // namespace workbench
