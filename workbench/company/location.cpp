// The grammar of connection strings: key=value entries, values in braces where they hold ";".
#include "workbench/company/location.h"

#include <algorithm>
#include <iterator>
#include <span>

#include "workbench/company/case_folding.h"

namespace workbench {
namespace {

constexpr std::string_view kShownKeys[] = {
    "driver", "dsn",  "filedsn",  "server",   "servername",      "data source", "address",
    "addr",   "host", "hostname", "database", "initial catalog", "port",        "network address"};
constexpr std::string_view kLoginKeys[] = {"uid",
                                           "user id",
                                           "user",
                                           "username",
                                           "trusted_connection",
                                           "integrated security",
                                           "encrypt",
                                           "trustservercertificate"};
constexpr std::string_view kPasswordKeys[] = {"pwd", "password", "passwd", "pass", "accesstoken"};
constexpr std::string_view kOtherKeys[] = {"provider", "savefile"};

struct Entry {
  std::string key;         // in lower case
  std::string_view name;   // as written
  std::string_view value;  // as written, with its braces
};

bool IsBlank(char character) {
  return character == ' ' || character == '\t' || character == '\r' || character == '\n';
}

std::string_view Trim(std::string_view text) {
  while (!text.empty() && IsBlank(text.front())) text.remove_prefix(1);
  while (!text.empty() && IsBlank(text.back())) text.remove_suffix(1);
  return text;
}

// The end of the value that begins at `start`: at ";" or at the end of the text. An unclosed brace
// extends to the end.
std::size_t EndOfValue(std::string_view text, std::size_t start) {
  while (start < text.size() && IsBlank(text[start])) ++start;
  std::size_t end = start;
  if (start < text.size() && text[start] == '{') {
    for (++end; end < text.size(); ++end) {
      if (text[end] != '}') continue;
      if (end + 1 >= text.size() || text[end + 1] != '}') break;
      ++end;  // doubled inside braces
    }
  }
  return std::min(text.find(';', std::min(end, text.size())), text.size());
}

std::vector<Entry> EntriesOf(std::string_view text) {
  std::vector<Entry> entries;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t separator = text.find_first_of("=;", at);
    if (separator == std::string_view::npos) break;
    if (text[separator] == ';') {
      at = separator + 1;
      continue;
    }
    const std::size_t end = EndOfValue(text, separator + 1);
    Entry entry;
    entry.name = Trim(text.substr(at, separator - at));
    entry.value = Trim(text.substr(separator + 1, end - separator - 1));
    std::transform(entry.name.begin(), entry.name.end(), std::back_inserter(entry.key), FoldAscii);
    entries.push_back(std::move(entry));
    at = end + 1;
  }
  return entries;
}

bool IsOneOf(std::span<const std::string_view> keys, std::string_view key) {
  return std::find(keys.begin(), keys.end(), key) != keys.end();
}

template <class Chosen>
std::string Joined(std::string_view location, Chosen&& isChosen) {
  std::string text;
  for (const Entry& entry : EntriesOf(location)) {
    if (!isChosen(entry.key)) continue;
    if (!text.empty()) text += ';';
    text.append(entry.name).append("=").append(entry.value);
  }
  return text;
}

void ReplaceAll(std::string& text, std::string_view part, std::string_view by) {
  for (std::size_t at = text.find(part); at != std::string::npos;
       at = text.find(part, at + by.size())) {
    text.replace(at, part.size(), by);
  }
}

}  // namespace

bool IsConnectionString(std::string_view location) {
  const std::vector<Entry> entries = EntriesOf(location);
  return std::any_of(entries.begin(), entries.end(), [](const Entry& entry) {
    return IsOneOf(kShownKeys, entry.key) || IsOneOf(kLoginKeys, entry.key) ||
           IsOneOf(kPasswordKeys, entry.key) || IsOneOf(kOtherKeys, entry.key);
  });
}

std::string NormalizedConnectionString(std::string_view location) {
  return Joined(location, [](std::string_view) { return true; });
}

std::string ShownLocation(std::string_view location) {
  if (!IsConnectionString(location)) return std::string(location);
  return Joined(location, [](std::string_view key) { return IsOneOf(kShownKeys, key); });
}

std::string RememberedLocation(std::string_view location) {
  if (!IsConnectionString(location)) return std::string(location);
  return Joined(location, [](std::string_view key) {
    return IsOneOf(kShownKeys, key) || IsOneOf(kLoginKeys, key);
  });
}

std::string WithoutSecrets(std::string message, std::string_view location) {
  for (const Entry& entry : EntriesOf(location)) {
    if (!IsOneOf(kPasswordKeys, entry.key)) continue;
    std::string_view secret = entry.value;
    if (!secret.empty()) ReplaceAll(message, secret, "***");
    const bool inBraces = secret.size() > 2 && secret.front() == '{' && secret.back() == '}';
    if (inBraces) ReplaceAll(message, secret.substr(1, secret.size() - 2), "***");
  }
  return message;
}

}  // namespace workbench
