// The splitter's drag: begun, moved within its limits, ended.
#include "control/splitter.h"

#include <algorithm>
#include <limits>

namespace pricedown {

void Splitter::Begin() {
  dragging_ = true;
  barPosition_ = position_;
}

void Splitter::MoveTo(std::int32_t offset, std::int32_t controlWidth) {
  if (!dragging_) return;
  const std::int64_t proposed = std::int64_t{position_} + offset;
  constexpr std::int64_t kMinimum = std::numeric_limits<std::int32_t>::min();
  constexpr std::int64_t kMaximum = std::numeric_limits<std::int32_t>::max();
  barPosition_ = ClampSplitter(static_cast<std::int32_t>(std::clamp(proposed, kMinimum, kMaximum)),
                               controlWidth);
}

void Splitter::End() {
  if (dragging_) position_ = barPosition_;
  dragging_ = false;
}

}  // namespace pricedown
