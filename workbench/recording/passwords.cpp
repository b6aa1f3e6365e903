// A scan for key=value entries, wherever they are in a text.
#include "workbench/recording/passwords.h"

#include <algorithm>
#include <iterator>

#include "workbench/passwords/password_keys.h"

namespace workbench {
namespace {

constexpr std::string_view kHidden = "***";
constexpr std::string_view kBlanks = " \t\r\n";

bool EndsInKey(std::string_view text) {
  const auto sameLetter = [](char one, char letter) { return (one | 0x20) == letter; };
  return std::any_of(std::begin(kPasswordKeys), std::end(kPasswordKeys), [&](auto key) {
    return text.size() >= key.size() &&
           std::equal(key.begin(), key.end(), text.end() - static_cast<std::ptrdiff_t>(key.size()),
                      [&](char letter, char one) { return sameLetter(one, letter); });
  });
}

// Behind the closing sign of the value that begins at `start`, where it is doubled inside; the end
// of the text if there is none.
std::size_t EndOfQuoted(std::string_view text, std::size_t start, char closing) {
  for (std::size_t at = text.find(closing, start + 1); at != std::string_view::npos;
       at = text.find(closing, at + 2)) {
    if (at + 1 == text.size() || text[at + 1] != closing) return at + 1;
  }
  return text.size();
}

std::size_t EndOfValue(std::string_view text, std::size_t start) {
  if (start < text.size()) {
    if (text[start] == '{') return EndOfQuoted(text, start, '}');
    if (text[start] == '"' || text[start] == '\'') return EndOfQuoted(text, start, text[start]);
  }
  const std::string_view value = text.substr(start);
  if (value.starts_with(kHidden)) {
    const std::size_t behind = start + kHidden.size();
    if (behind == text.size() ||
        std::string_view(";} ").find(text[behind]) != std::string_view::npos)
      return behind;
  }
  std::size_t end = std::min(text.find(';', start), text.size());
  while (end > start && text[end - 1] == '}') --end;
  return end;
}

}  // namespace

std::string WithoutPasswords(std::string_view text) {
  std::string hidden;
  std::size_t done = 0;
  for (std::size_t sign = text.find('='); sign != std::string_view::npos;
       sign = text.find('=', std::max(sign + 1, done))) {
    const std::size_t last = text.substr(0, sign).find_last_not_of(kBlanks);
    if (last == std::string_view::npos || !EndsInKey(text.substr(0, last + 1))) continue;
    const std::size_t start = std::min(text.find_first_not_of(kBlanks, sign + 1), text.size());
    const std::size_t end = EndOfValue(text, start);
    if (end == start) continue;
    hidden.append(text.substr(done, start - done)).append(kHidden);
    done = end;
  }
  return hidden.append(text.substr(done));
}

}  // namespace workbench
