// The log's text forms.
#include "tests/support/call_log.h"

#include <algorithm>

namespace pricedown::testing {

std::size_t CallLog::Count(std::string_view line) const {
  return static_cast<std::size_t>(std::count(lines_->begin(), lines_->end(), line));
}

std::string CallLog::Text() const {
  std::string text;
  for (const std::string& line : *lines_) text += line + "\n";
  return text;
}

std::string Lines(std::string_view text) {
  if (text.starts_with('\n')) text.remove_prefix(1);
  while (text.ends_with(' ')) text.remove_suffix(1);

  std::vector<std::string_view> lines;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    lines.push_back(text.substr(0, end));
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  std::size_t indentation = std::string_view::npos;
  for (std::string_view line : lines) {
    if (!line.empty()) indentation = std::min(indentation, line.find_first_not_of(' '));
  }
  std::string joined;
  for (std::string_view line : lines) {
    joined += line.substr(std::min(indentation, line.size()));
    joined += "\n";
  }
  return joined;
}

}  // namespace pricedown::testing
