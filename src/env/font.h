// A font as settings and pages describe it.
#pragma once

#include <cstdint>
#include <string>

namespace pricedown {

// No character set: it follows from the font's name. Distinct from the system's default
// set, 1, which the suite may ask for.
inline constexpr std::int32_t kAnyCharset = -1;

struct Font {
  std::u16string name = u"宋体";
  double size = 9;  // points
  bool bold = false;
  bool italic = false;
  bool underlined = false;
  std::int32_t charset = kAnyCharset;
  bool operator==(const Font&) const = default;
};

}  // namespace pricedown
