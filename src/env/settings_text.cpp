// The reading and building of settings texts.
#include "env/settings_text.h"

#include <cstddef>

#include "platform/text.h"

namespace pricedown {

std::u16string SettingsEntry(std::u16string_view text, std::u16string_view name,
                             std::u16string_view separator) {
  // Separators at both ends make the first and the last entry like all others.
  const std::u16string entries = Concatenate({separator, text, separator});
  const std::u16string beginning = Concatenate({separator, name, u"="});
  const std::size_t found = entries.find(beginning);
  if (found == std::u16string::npos) return {};
  const std::size_t value = found + beginning.size();
  return entries.substr(value, entries.find(separator, value) - value);
}

std::u16string BuildSettings(std::initializer_list<NamedText> entries,
                             std::u16string_view separator) {
  std::u16string text;
  for (const NamedText& entry : entries) {
    if (&entry != entries.begin()) text += separator;
    text += Concatenate({entry.name, u"=", entry.value});
  }
  return text;
}

}  // namespace pricedown
