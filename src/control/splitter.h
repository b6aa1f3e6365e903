// The vertical splitter between tree and grid while the mouse drags it.
// Positions are in twips from the control's left edge.
#pragma once

#include <cstdint>

#include "control/layout.h"

namespace pricedown {

class Splitter {
 public:
  std::int32_t Position() const { return position_; }
  void SetPosition(std::int32_t position) { position_ = position; }
  bool Dragging() const { return dragging_; }
  // Where the drag bar is while dragging.
  std::int32_t BarPosition() const { return barPosition_; }

  void Begin();
  // `offset` is the mouse position less the splitter's left edge. Ignored unless dragging.
  void MoveTo(std::int32_t offset, std::int32_t controlWidth);
  // Sets the position to the bar's and ends the drag.
  void End();

 private:
  std::int32_t position_ = kDefaultSplitter;
  std::int32_t barPosition_ = kDefaultSplitter;
  bool dragging_ = false;
};

}  // namespace pricedown
