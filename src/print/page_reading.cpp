// Joins the texts of a page that are on one line, from top to bottom.
#include "print/page_reading.h"

#include <algorithm>

#include "platform/text.h"

namespace pricedown {
namespace {

Rectangle Around(const Rectangle& a, const Rectangle& b) {
  const std::int32_t left = std::min(a.left, b.left);
  const std::int32_t top = std::min(a.top, b.top);
  return {left, top, std::max(a.Right(), b.Right()) - left, std::max(a.Bottom(), b.Bottom()) - top};
}

}  // namespace

std::vector<ReadingLine> ReadingLines(const Page& page) {
  std::vector<const PageText*> texts;
  for (const PageText& text : page.texts) {
    if (!Trim(text.text).empty()) texts.push_back(&text);
  }
  std::stable_sort(texts.begin(), texts.end(), [](const PageText* a, const PageText* b) {
    return a->top != b->top ? a->top < b->top : a->anchor < b->anchor;
  });
  std::vector<ReadingLine> lines;
  const PageText* before = nullptr;
  for (const PageText* text : texts) {
    if (before != nullptr && before->top == text->top) {
      lines.back().text += u' ';
      lines.back().text += text->text;
      lines.back().area = Around(lines.back().area, text->clip);
    } else {
      lines.push_back({std::u16string(text->text), text->clip});
    }
    before = text;
  }
  return lines;
}

std::u16string ReadingText(const std::vector<ReadingLine>& lines) {
  std::u16string text;
  for (const ReadingLine& line : lines) {
    if (!text.empty()) text += kLineBreak;
    text += line.text;
  }
  return text;
}

}  // namespace pricedown
