// The texts of a page in reading order, for screen readers.
#pragma once

#include <string>
#include <vector>

#include "print/page.h"

namespace pricedown {

// Texts that are side by side: a row of the table, or a line above or below it.
struct ReadingLine {
  std::u16string text;  // blanks between the texts
  Rectangle area;       // on paper
  bool operator==(const ReadingLine&) const = default;
};

// From top to bottom, each from left to right; lines without text are left out.
std::vector<ReadingLine> ReadingLines(const Page& page);
// All lines, with line breaks between them.
std::u16string ReadingText(const std::vector<ReadingLine>& lines);

}  // namespace pricedown
