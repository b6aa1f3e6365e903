// Named values in one text: name=value with a separator between the entries. Values are not
// escaped.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

namespace pricedown {

// The value of the entry of that exact name; empty when absent.
std::u16string SettingsEntry(std::u16string_view text, std::u16string_view name,
                             std::u16string_view separator);

struct NamedText {
  std::u16string_view name;
  std::u16string_view value;
};

// The entries as one text, in order.
std::u16string BuildSettings(std::initializer_list<NamedText> entries,
                             std::u16string_view separator);

}  // namespace pricedown
