// Preparing a pattern, and matching it by backtracking to the last run.
#include "workbench/company/like_pattern.h"

#include <algorithm>

#include "workbench/company/case_folding.h"
#include "workbench/company/utf.h"

namespace workbench {
namespace {

char32_t NextFolded(std::string_view text, std::size_t& position) noexcept {
  const auto byte = static_cast<unsigned char>(text[position]);
  if (byte < 0x80) {
    ++position;
    return static_cast<unsigned char>(FoldAscii(static_cast<char>(byte)));
  }
  return FoldCase(NextCodePoint(text, position));
}

}  // namespace

LikePattern::LikePattern(std::string_view pattern) {
  std::size_t position = 0;
  while (position < pattern.size()) {
    switch (pattern[position]) {
      case '%':
        ++position;
        // Consecutive runs match the same as one.
        if (elements_.empty() || elements_.back().kind != ElementKind::AnyRun) {
          elements_.push_back({.kind = ElementKind::AnyRun});
        }
        break;
      case '_':
        ++position;
        elements_.push_back({.kind = ElementKind::AnyCharacter});
        break;
      case '[':
        AddClass(pattern, position);
        break;
      default:
        elements_.push_back(
            {.kind = ElementKind::Character, .character = NextFolded(pattern, position)});
    }
  }
}

void LikePattern::AddClass(std::string_view pattern, std::size_t& position) {
  const std::size_t end = pattern.find(']', position);
  if (end == std::string_view::npos) {
    elements_.push_back({.kind = ElementKind::Nothing});
    position = pattern.size();
    return;
  }
  Element element{.kind = ElementKind::Class, .firstRange = ranges_.size()};
  const std::string_view members = pattern.substr(0, end);
  ++position;
  if (position < end && pattern[position] == '^') {
    element.negated = true;
    ++position;
  }
  while (position < end) {
    const char32_t first = NextFolded(members, position);
    char32_t last = first;
    if (position + 1 < end && pattern[position] == '-') {
      ++position;
      last = NextFolded(members, position);
    }
    ranges_.push_back({first, last});
  }
  position = end + 1;
  element.rangeCount = ranges_.size() - element.firstRange;
  elements_.push_back(element);
}

bool LikePattern::MatchesOne(const Element& element, char32_t folded) const noexcept {
  switch (element.kind) {
    case ElementKind::Character:
      return element.character == folded;
    case ElementKind::AnyCharacter:
      return true;
    case ElementKind::Class: {
      const auto begin = ranges_.begin() + static_cast<std::ptrdiff_t>(element.firstRange);
      const bool found = std::any_of(
          begin, begin + static_cast<std::ptrdiff_t>(element.rangeCount),
          [folded](const Range& range) { return folded >= range.first && folded <= range.last; });
      return found != element.negated;
    }
    case ElementKind::AnyRun:
    case ElementKind::Nothing:
      break;
  }
  return false;
}

bool LikePattern::Matches(std::string_view text) const noexcept {
  constexpr std::size_t kNone = static_cast<std::size_t>(-1);
  std::size_t position = 0;
  std::size_t element = 0;
  // Where to backtrack: after the last run, one character further in the text.
  std::size_t retryElement = kNone;
  std::size_t retryPosition = 0;
  for (;;) {
    if (element < elements_.size() && elements_[element].kind == ElementKind::AnyRun) {
      retryElement = ++element;
      retryPosition = position;
      continue;
    }
    if (element == elements_.size()) {
      const bool ended = element == retryElement ||
                         text.find_first_not_of(' ', position) == std::string_view::npos;
      if (ended) return true;
    } else if (position < text.size()) {
      std::size_t next = position;
      if (MatchesOne(elements_[element], NextFolded(text, next))) {
        position = next;
        ++element;
        continue;
      }
    }
    if (retryElement == kNone || retryPosition >= text.size()) return false;
    NextFolded(text, retryPosition);
    position = retryPosition;
    element = retryElement;
  }
}

}  // namespace workbench
