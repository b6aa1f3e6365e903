// A small drawing surface for icons: filled shapes with smooth edges, at any size.
// It is arithmetic only and knows no device; what the icons look like is icon_art.h.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace pricedown::windows {

// Units of the design, which is kIconGrid wide and high whatever the size in pixels.
inline constexpr double kIconGrid = 16;

struct IconPoint {
  double x = 0;
  double y = 0;
};

// 0xRRGGBB.
using IconColour = std::uint32_t;

class IconCanvas {
 public:
  // Requires: size is above 0.
  explicit IconCanvas(int size);

  // Edges fall on whole pixels, and nothing gets thinner than one.
  void Box(double left, double top, double right, double bottom, IconColour colour);
  void Polygon(std::span<const IconPoint> points, IconColour colour);
  void Disc(IconPoint centre, double radius, IconColour colour);
  // A straight stroke with square ends.
  void Stroke(IconPoint from, IconPoint to, double width, IconColour colour);

  int Size() const { return size_; }
  // Rows from the top, 0xAARRGGBB, colours not multiplied by alpha.
  const std::vector<std::uint32_t>& Pixels() const { return pixels_; }

 private:
  void Cover(int x, int y, double share, IconColour colour);
  double Snap(double unit) const;

  int size_;
  double scale_;
  std::vector<std::uint32_t> pixels_;
};

// The look of something that cannot be used now: grey and pale.
std::vector<std::uint32_t> Disabled(std::span<const std::uint32_t> pixels);

}  // namespace pricedown::windows
