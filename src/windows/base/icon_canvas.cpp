// Fills shapes by counting samples of each pixel that lie inside.
// Compositing is the usual "over" on colours that are not multiplied by alpha.
#include "windows/base/icon_canvas.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace pricedown::windows {
namespace {

constexpr int kSamples = 4;  // per pixel, in each direction

struct Channels {
  double alpha, red, green, blue;
};

Channels Split(std::uint32_t pixel) {
  return {((pixel >> 24) & 0xFF) / 255.0, static_cast<double>((pixel >> 16) & 0xFF),
          static_cast<double>((pixel >> 8) & 0xFF), static_cast<double>(pixel & 0xFF)};
}

std::uint32_t Byte(double value) {
  return static_cast<std::uint32_t>(std::clamp(std::lround(value), 0L, 255L));
}

std::uint32_t Join(const Channels& c) {
  return Byte(c.alpha * 255) << 24 | Byte(c.red) << 16 | Byte(c.green) << 8 | Byte(c.blue);
}

// The even-odd rule.
bool Inside(std::span<const IconPoint> points, double x, double y) {
  bool inside = false;
  IconPoint previous = points.back();
  for (const IconPoint& point : points) {
    if ((point.y > y) != (previous.y > y) &&
        x < (previous.x - point.x) * (y - point.y) / (previous.y - point.y) + point.x) {
      inside = !inside;
    }
    previous = point;
  }
  return inside;
}

double ShareInside(std::span<const IconPoint> points, int x, int y) {
  int hits = 0;
  for (int row = 0; row < kSamples; ++row) {
    for (int column = 0; column < kSamples; ++column) {
      if (Inside(points, x + (column + 0.5) / kSamples, y + (row + 0.5) / kSamples)) ++hits;
    }
  }
  return static_cast<double>(hits) / (kSamples * kSamples);
}

}  // namespace

IconCanvas::IconCanvas(int size)
    : size_(size),
      scale_(size / kIconGrid),
      pixels_(static_cast<std::size_t>(size) * static_cast<std::size_t>(size)) {}

double IconCanvas::Snap(double unit) const { return std::round(unit * scale_); }

void IconCanvas::Cover(int x, int y, double share, IconColour colour) {
  if (share <= 0) return;
  auto& pixel = pixels_[static_cast<std::size_t>(y) * static_cast<std::size_t>(size_) +
                        static_cast<std::size_t>(x)];
  const Channels below = Split(pixel);
  const Channels above = Split(colour);
  Channels result{};
  result.alpha = share + below.alpha * (1 - share);
  const double rest = below.alpha * (1 - share);
  result.red = (above.red * share + below.red * rest) / result.alpha;
  result.green = (above.green * share + below.green * rest) / result.alpha;
  result.blue = (above.blue * share + below.blue * rest) / result.alpha;
  pixel = Join(result);
}

void IconCanvas::Box(double left, double top, double right, double bottom, IconColour colour) {
  const int x1 = static_cast<int>(Snap(left));
  const int y1 = static_cast<int>(Snap(top));
  const int x2 = std::max(x1 + 1, static_cast<int>(Snap(right)));
  const int y2 = std::max(y1 + 1, static_cast<int>(Snap(bottom)));
  for (int y = std::max(y1, 0); y < std::min(y2, size_); ++y) {
    for (int x = std::max(x1, 0); x < std::min(x2, size_); ++x) Cover(x, y, 1, colour);
  }
}

void IconCanvas::Polygon(std::span<const IconPoint> points, IconColour colour) {
  if (points.size() < 3) return;
  std::vector<IconPoint> scaled(points.begin(), points.end());
  double left = size_, top = size_, right = 0, bottom = 0;
  for (IconPoint& point : scaled) {
    point = {point.x * scale_, point.y * scale_};
    left = std::min(left, point.x);
    right = std::max(right, point.x);
    top = std::min(top, point.y);
    bottom = std::max(bottom, point.y);
  }
  const int x2 = std::min(size_, static_cast<int>(std::ceil(right)));
  const int y2 = std::min(size_, static_cast<int>(std::ceil(bottom)));
  for (int y = std::max(0, static_cast<int>(top)); y < y2; ++y) {
    for (int x = std::max(0, static_cast<int>(left)); x < x2; ++x) {
      Cover(x, y, ShareInside(scaled, x, y), colour);
    }
  }
}

void IconCanvas::Disc(IconPoint centre, double radius, IconColour colour) {
  constexpr int kCorners = 40;
  constexpr double kTurn = 6.283185307179586;
  std::array<IconPoint, kCorners> points{};
  for (int i = 0; i < kCorners; ++i) {
    const double angle = kTurn * i / kCorners;
    points[static_cast<std::size_t>(i)] = {centre.x + radius * std::cos(angle),
                                           centre.y + radius * std::sin(angle)};
  }
  Polygon(points, colour);
}

void IconCanvas::Stroke(IconPoint from, IconPoint to, double width, IconColour colour) {
  const double length = std::hypot(to.x - from.x, to.y - from.y);
  if (length <= 0) return;
  const double x = (to.y - from.y) / length * width / 2;
  const double y = (from.x - to.x) / length * width / 2;
  const std::array<IconPoint, 4> points{{{from.x + x, from.y + y},
                                         {to.x + x, to.y + y},
                                         {to.x - x, to.y - y},
                                         {from.x - x, from.y - y}}};
  Polygon(points, colour);
}

std::vector<std::uint32_t> Disabled(std::span<const std::uint32_t> pixels) {
  std::vector<std::uint32_t> result;
  result.reserve(pixels.size());
  for (const std::uint32_t pixel : pixels) {
    Channels c = Split(pixel);
    const double grey = 0.30 * c.red + 0.59 * c.green + 0.11 * c.blue;
    c.red = c.green = c.blue = 96 + grey * 0.5;
    c.alpha *= 0.55;
    result.push_back(Join(c));
  }
  return result;
}

}  // namespace pricedown::windows
