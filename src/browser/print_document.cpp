// The display font becomes the pages' font here.
// The pages themselves are made by the room `print`.
#include "browser/print_document.h"

#include <utility>

namespace pricedown {

void LedgerDocument::SetHeaderLine(std::int32_t line, std::u16string_view text,
                                   const LineFont& font) {
  content_.SetHeaderLine(line, text, font);
}

void LedgerDocument::SetFooterLine(std::int32_t line, std::u16string_view text,
                                   const LineFont& font) {
  content_.SetFooterLine(line, text, font);
}

LedgerPages LedgerDocument::Pages(const Paper& paper, std::u16string date,
                                  TextMeasurer& measurer) const {
  const Font& font = appearance_.font;
  return {content_,
          {{font.name, font.size, font.bold, font.italic, false},
           appearance_.rowHeight,
           paper,
           std::move(date)},
          measurer};
}

}  // namespace pricedown
