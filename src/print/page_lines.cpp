// Fields are filled in after the line was split, so that no value can add a section.
// Two sections share the line as they need it; more have equal parts.
#include "print/page_lines.h"

#include <algorithm>
#include <array>
#include <utility>

#include "platform/convert.h"
#include "platform/text.h"
#include "print/fitted_text.h"
#include "print/ledger_content.h"

namespace pricedown {
namespace {

constexpr Tenths kSectionGap = 20;

std::vector<std::u16string> Sections(std::u16string_view text, const PageFields& fields) {
  std::vector<std::u16string> sections;
  for (;;) {
    const std::size_t end = text.find(kCellSeparator);
    sections.push_back(FillFields(text.substr(0, end), fields));
    if (end == std::u16string_view::npos) return sections;
    text.remove_prefix(end + 1);
  }
}

struct Part {
  Tenths left = 0;
  Tenths right = 0;
};

// Each up to where the other one begins. Where they would meet the wider one gives way, down to
// its half.
std::pair<Part, Part> ShareLine(Tenths first, Tenths second, const PageBox& box) {
  const Tenths room = std::max(box.Width() - kSectionGap, 0);
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
  return {{box.left, box.right - second - kSectionGap},
          {box.left + first + kSectionGap, box.right}};
}

std::vector<Part> Parts(const std::vector<std::u16string>& sections, TextMeasurer& measurer,
                        const PageFont& font, const PageBox& box) {
  if (sections.size() == 2) {
    const auto [left, right] =
        ShareLine(measurer.Width(font, sections[0]), measurer.Width(font, sections[1]), box);
    return {left, right};
  }
  std::vector<Part> parts;
  const auto count = static_cast<std::int64_t>(sections.size());
  const auto edge = [&](std::int64_t number) {
    return box.left + static_cast<Tenths>(box.Width() * number / count);
  };
  for (std::int64_t number = 0; number < count; ++number) {
    parts.push_back({edge(number), edge(number + 1)});
  }
  return parts;
}

}  // namespace

std::u16string FillFields(std::u16string_view text, const PageFields& fields) {
  const std::array<std::pair<std::u16string_view, std::u16string>, 3> values{{
      {u"&[日期]", fields.date},
      {u"&[页]", NumberText(fields.page)},
      {u"&[总页]", NumberText(fields.pageCount)},
  }};
  std::u16string filled;
  while (!text.empty()) {
    const auto field = std::find_if(values.begin(), values.end(), [&](const auto& value) {
      return text.starts_with(value.first);
    });
    if (field != values.end()) {
      filled.append(field->second);
      text.remove_prefix(field->first.size());
    } else {
      filled.push_back(text.front());
      text.remove_prefix(1);
    }
  }
  return filled;
}

void PlaceLine(std::u16string_view text, const PageFields& fields, TextMeasurer& measurer,
               const PageFont& font, std::size_t fontIndex, const PageBox& box,
               std::vector<PageText>& texts) {
  if (box.IsEmpty()) return;
  const std::vector<std::u16string> sections = Sections(text, fields);
  const std::vector<Part> parts = Parts(sections, measurer, font, box);
  for (std::size_t number = 0; number < sections.size(); ++number) {
    if (Trim(sections[number]).empty()) continue;
    const Part& part = parts[number];
    std::u16string fitted = FitText(measurer, font, sections[number], part.right - part.left);
    if (fitted.empty()) continue;
    PageText& placed = texts.emplace_back();
    placed.text = std::move(fitted);
    placed.font = fontIndex;
    placed.top = box.top;
    placed.clip = {part.left, box.top, part.right, box.bottom};
    const bool first = number == 0;
    const bool last = number + 1 == sections.size();
    if (first == last) {
      placed.alignment = TextAlignment::Centre;
      placed.anchor = part.left + (part.right - part.left) / 2;
    } else {
      placed.alignment = first ? TextAlignment::Left : TextAlignment::Right;
      placed.anchor = first ? part.left : part.right;
    }
  }
}

}  // namespace pricedown
