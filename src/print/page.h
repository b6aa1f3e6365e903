// A page as draw commands, to be replayed on screen or printer in order.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "platform/geometry.h"
#include "platform/text_arena.h"
#include "print/page_units.h"

namespace pricedown {

enum class TextAlignment : std::uint8_t { Left, Centre, Right };

// A thin straight line between two points, both included.
struct PageRule {
  Tenths left = 0;
  Tenths top = 0;
  Tenths right = 0;
  Tenths bottom = 0;
  bool operator==(const PageRule&) const = default;
};

// One line of text. `anchor` is its left edge, middle or right edge, as aligned; `top` is the top
// of its line. Nothing of it shows outside `clip`.
struct PageText {
  std::u16string_view text;  // of the document, or of Page::made
  std::size_t font = 0;      // into PrintPages::Fonts
  TextAlignment alignment = TextAlignment::Left;
  Tenths anchor = 0;
  Tenths top = 0;
  Rectangle clip;
  bool operator==(const PageText&) const = default;
};

// Valid as long as the document's table does not change.
struct Page {
  std::vector<PageRule> rules;
  std::vector<PageText> texts;
  TextArena made = {};  // texts made for this page
};

}  // namespace pricedown
