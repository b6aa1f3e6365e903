// The sections of a line and their fields, which are filled in after the line was split, so that no
// value can add a section.
#include "print/page_lines.h"

#include <algorithm>
#include <utility>

#include "platform/convert.h"
#include "platform/text.h"
#include "print/fitted_text.h"

namespace pricedown {
namespace {

constexpr char16_t kSectionSeparator = u'|';
constexpr Tenths kSectionGap = 20;

std::vector<std::u16string> Sections(std::u16string_view text, const PageFields& fields) {
  std::vector<std::u16string> sections;
  for (;;) {
    const std::size_t end = text.find(kSectionSeparator);
    sections.push_back(FillFields(text.substr(0, end), fields));
    if (end == std::u16string_view::npos) return sections;
    text.remove_prefix(end + 1);
  }
}

struct SectionRange {
  Tenths left = 0;
  Tenths right = 0;
};

// Each extends to where the other begins. Where they would meet, the wider one is narrowed, to half
// of the line at least.
std::pair<SectionRange, SectionRange> ShareLine(Tenths first, Tenths second, const Rectangle& box) {
  const Tenths room = std::max(box.width - kSectionGap, 0);
  const Tenths half = room / 2;
  if (std::int64_t{first} + second > room) {
    if (first <= half) {
      second = room - first;
    } else if (second <= half) {
      first = room - second;
    } else {
      first = second = half;
    }
  }
  return {{box.left, box.Right() - second - kSectionGap},
          {box.left + first + kSectionGap, box.Right()}};
}

std::vector<SectionRange> SectionRanges(const std::vector<std::u16string>& sections,
                                        TextMeasurer& measurer, const Font& font,
                                        const Rectangle& box) {
  if (sections.size() == 2) {
    const auto [left, right] =
        ShareLine(measurer.Width(font, sections[0]), measurer.Width(font, sections[1]), box);
    return {left, right};
  }
  std::vector<SectionRange> ranges;
  const auto count = static_cast<std::int64_t>(sections.size());
  const auto edge = [&](std::int64_t number) {
    return box.left + static_cast<Tenths>(box.width * number / count);
  };
  for (std::int64_t number = 0; number < count; ++number) {
    ranges.push_back({edge(number), edge(number + 1)});
  }
  return ranges;
}

}  // namespace

std::u16string FillFields(std::u16string_view text, const PageFields& fields) {
  constexpr std::u16string_view kBegin = u"&[";
  std::u16string filled;
  // Appends the value when the text begins with that field.
  const auto fill = [&](std::u16string_view field, const auto& valueOf) {
    if (!text.starts_with(field)) return false;
    filled.append(valueOf());
    text.remove_prefix(field.size());
    return true;
  };
  for (;;) {
    const std::size_t begin = std::min(text.find(kBegin), text.size());
    filled.append(text.substr(0, begin));
    text.remove_prefix(begin);
    if (text.empty()) return filled;
    if (fill(u"&[日期]", [&] { return std::u16string_view(fields.date); }) ||
        fill(u"&[页]", [&] { return NumberText(fields.page); }) ||
        fill(u"&[总页]", [&] { return NumberText(fields.pageCount); })) {
      continue;
    }
    filled.append(kBegin);
    text.remove_prefix(kBegin.size());
  }
}

void PlaceLine(std::u16string_view text, const PageFields& fields, TextMeasurer& measurer,
               const Font& font, std::size_t fontIndex, const Rectangle& box, Page& page) {
  if (box.IsEmpty()) return;
  const std::vector<std::u16string> sections = Sections(text, fields);
  const std::vector<SectionRange> ranges = SectionRanges(sections, measurer, font, box);
  for (std::size_t number = 0; number < sections.size(); ++number) {
    if (Trim(sections[number]).empty()) continue;
    const SectionRange& range = ranges[number];
    PageText placed;
    placed.text = FitText(measurer, font, page.made.Keep(sections[number]),
                          range.right - range.left, page.made);
    if (placed.text.empty()) continue;
    placed.font = fontIndex;
    placed.top = box.top;
    placed.clip = {range.left, box.top, range.right - range.left, box.height};
    const bool first = number == 0;
    const bool last = number + 1 == sections.size();
    if (first == last) {
      placed.alignment = TextAlignment::Centre;
      placed.anchor = range.left + (range.right - range.left) / 2;
    } else {
      placed.alignment = first ? TextAlignment::Left : TextAlignment::Right;
      placed.anchor = first ? range.left : range.right;
    }
    page.texts.push_back(placed);
  }
}

}  // namespace pricedown
