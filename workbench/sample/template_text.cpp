// The template language of item names.
#include "workbench/sample/template_text.h"

#include <algorithm>
#include <charconv>

namespace workbench {
namespace {

std::string_view PickAlternative(std::string_view choices, Random& random) {
  const auto bars = static_cast<std::uint32_t>(std::count(choices.begin(), choices.end(), '|'));
  for (std::uint32_t skip = random.Below(bars + 1); skip > 0; --skip) {
    choices.remove_prefix(choices.find('|') + 1);
  }
  return choices.substr(0, choices.find('|'));
}

int ToInt(std::string_view digits) {
  int value = 0;
  std::from_chars(digits.data(), digits.data() + digits.size(), value);
  return value;
}

int PickNumber(std::string_view range, Random& random) {
  const std::size_t dash = range.find('-');
  const std::size_t slash = range.find('/');
  const int low = ToInt(range.substr(0, dash));
  const int high = ToInt(range.substr(dash + 1, slash - dash - 1));
  const int step = ToInt(range.substr(slash + 1));
  return low + step * random.Between(0, (high - low) / step);
}

}  // namespace

std::string FillTemplate(std::string_view pattern, Random& random) {
  std::string text;
  while (!pattern.empty()) {
    const std::size_t open = std::min(pattern.find_first_of("[{"), pattern.size());
    text += pattern.substr(0, open);
    pattern.remove_prefix(open);
    if (pattern.empty()) break;
    const bool isRange = pattern.front() == '{';
    const std::size_t close = pattern.find(isRange ? '}' : ']');
    const std::string_view inside = pattern.substr(1, close - 1);
    if (isRange) {
      text += std::to_string(PickNumber(inside, random));
    } else {
      text += PickAlternative(inside, random);
    }
    pattern.remove_prefix(close + 1);
  }
  return text;
}

}  // namespace workbench
