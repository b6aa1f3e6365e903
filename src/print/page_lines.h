// A header or footer line on a page: its fields filled in and its sections placed.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "print/page.h"
#include "print/text_measurer.h"

namespace pricedown {

// What the fields "&[日期]", "&[页]" and "&[总页]" stand for.
struct PageFields {
  std::u16string date;
  std::int32_t page = 1;
  std::int32_t pageCount = 1;
};

// The text with its fields filled in; other texts in brackets stay as they are.
std::u16string FillFields(std::u16string_view text, const PageFields& fields);

// Adds the sections of a line, which "|" separates, to the page: one section is in the middle,
// two are left and right; of more the first is left, the last right and the others in the
// middle of equal parts. Sections that would meet are shortened. A section of blanks draws nothing.
// Requires: `font` is the font at `fontIndex`.
void PlaceLine(std::u16string_view text, const PageFields& fields, TextMeasurer& measurer,
               const Font& font, std::size_t fontIndex, const Rectangle& box, Page& page);

}  // namespace pricedown
