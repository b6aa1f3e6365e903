// The grammar of connection strings: key=value entries, values in braces where they hold ";".
#include "workbench/company/location.h"

#include <algorithm>
#include <iterator>
#include <span>

#include "workbench/company/case_folding.h"
#include "workbench/passwords/password_keys.h"

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
constexpr std::string_view kSettingKeys[] = {"tds_version", "clientcharset", "sslmode",
                                             "applicationintent"};
constexpr std::string_view kOtherKeys[] = {"provider", "savefile"};

struct Entry {
  std::string key;         // in lower case
  std::string_view name;   // as written
  std::string_view value;  // as written, with its braces
  bool isClosed = true;    // its braces, if any
};

bool IsBlank(char character) {
  return character == ' ' || character == '\t' || character == '\r' || character == '\n';
}

std::string_view Trim(std::string_view text) {
  while (!text.empty() && IsBlank(text.front())) text.remove_prefix(1);
  while (!text.empty() && IsBlank(text.back())) text.remove_suffix(1);
  return text;
}

// Where the brace that begins the value closes; npos if it does not.
std::size_t ClosingBrace(std::string_view value) {
  for (std::size_t at = value.find('}'); at < value.size(); at = value.find('}', at + 2)) {
    const bool isDoubled = at + 1 < value.size() && value[at + 1] == '}';
    if (!isDoubled) return at;
  }
  return std::string_view::npos;
}

// The end of the value that begins at `start`: at ";" or at the end of the text. An unclosed brace
// extends to the end.
std::size_t EndOfValue(std::string_view text, std::size_t start) {
  while (start < text.size() && IsBlank(text[start])) ++start;
  std::size_t end = start;
  if (start < text.size() && text[start] == '{') {
    const std::size_t length = ClosingBrace(text.substr(start));
    if (length == std::string_view::npos) return text.size();
    end += length;
  }
  return std::min(text.find(';', end), text.size());
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
    entry.isClosed =
        !entry.value.starts_with('{') || ClosingBrace(entry.value) != std::string_view::npos;
    entries.push_back(std::move(entry));
    at = end + 1;
  }
  return entries;
}

bool IsOneOf(std::span<const std::string_view> keys, std::string_view key) {
  return std::find(keys.begin(), keys.end(), key) != keys.end();
}

// The passwords within a value: without its ";" or "}" an entry becomes part of the one before.
std::vector<std::string_view> PasswordsWithin(std::string_view value) {
  std::string folded;
  std::transform(value.begin(), value.end(), std::back_inserter(folded), FoldAscii);
  std::vector<std::string_view> passwords;
  for (std::size_t sign = value.find('='); sign != std::string_view::npos;
       sign = value.find('=', sign + 1)) {
    const std::string_view before = Trim(std::string_view(folded).substr(0, sign));
    if (std::none_of(std::begin(kPasswordKeys), std::end(kPasswordKeys),
                     [before](std::string_view key) { return before.ends_with(key); })) {
      continue;
    }
    const std::size_t end = EndOfValue(value, sign + 1);
    passwords.push_back(Trim(value.substr(sign + 1, end - sign - 1)));
  }
  return passwords;
}

bool MayBeShown(const Entry& entry) {
  return entry.isClosed && PasswordsWithin(entry.value).empty();
}

template <class Chosen>
std::string Joined(std::string_view location, Chosen&& isChosen) {
  std::string text;
  for (const Entry& entry : EntriesOf(location)) {
    if (!isChosen(entry)) continue;
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

void Hide(std::string& message, std::string_view secret) {
  if (!secret.empty()) ReplaceAll(message, secret, "***");
  if (!secret.starts_with('{')) return;
  secret.remove_prefix(1);
  if (secret.ends_with('}')) secret.remove_suffix(1);
  if (!secret.empty()) ReplaceAll(message, secret, "***");
}

void HidePassword(std::string& message, std::string_view password) {
  Hide(message, password);
  const bool isUnclosed =
      password.starts_with('{') && ClosingBrace(password) == std::string_view::npos;
  if (isUnclosed) Hide(message, password.substr(1, password.find(';') - 1));
}

}  // namespace

bool IsConnectionString(std::string_view location) {
  const std::vector<Entry> entries = EntriesOf(location);
  return std::any_of(entries.begin(), entries.end(), [](const Entry& entry) {
    return IsOneOf(kShownKeys, entry.key) || IsOneOf(kLoginKeys, entry.key) ||
           IsOneOf(kPasswordKeys, entry.key) || IsOneOf(kOtherKeys, entry.key);
  });
}

std::string_view EnteredLocation(std::string_view text) {
  text = Trim(text);
  const bool isQuoted = text.size() > 1 && text.starts_with('"') && text.ends_with('"');
  return isQuoted ? Trim(text.substr(1, text.size() - 2)) : text;
}

std::string NormalizedConnectionString(std::string_view location) {
  return Joined(location, [](const Entry&) { return true; });
}

std::string ShownLocation(std::string_view location) {
  if (!IsConnectionString(location)) return std::string(location);
  return Joined(location, [](const Entry& entry) {
    return IsOneOf(kShownKeys, entry.key) && MayBeShown(entry);
  });
}

std::string RememberedLocation(std::string_view location) {
  if (!IsConnectionString(location)) return std::string(location);
  return Joined(location, [](const Entry& entry) {
    const bool isKept = IsOneOf(kShownKeys, entry.key) || IsOneOf(kLoginKeys, entry.key) ||
                        IsOneOf(kSettingKeys, entry.key);
    return isKept && MayBeShown(entry);
  });
}

std::string WithPassword(std::string_view location, std::string_view password) {
  if (password.empty()) return std::string(location);
  std::string text =
      Joined(location, [](const Entry& entry) { return !IsOneOf(kPasswordKeys, entry.key); });
  if (!text.empty()) text += ';';
  text += "PWD={";
  for (const char character : password) {
    text += character;
    if (character == '}') text += character;
  }
  text += '}';
  return text;
}

std::string WithoutSecrets(std::string message, std::string_view location) {
  for (const Entry& entry : EntriesOf(location)) {
    if (!entry.isClosed) Hide(message, entry.value);
    if (IsOneOf(kPasswordKeys, entry.key)) HidePassword(message, entry.value);
    for (const std::string_view password : PasswordsWithin(entry.value)) {
      HidePassword(message, password);
    }
  }
  return message;
}

}  // namespace workbench
