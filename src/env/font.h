// A font as the suite's settings describe it.
#pragma once

#include <string>

namespace pricedown {

struct Font {
  std::u16string name = u"宋体";
  double size = 9;  // points
  bool bold = false;
  bool italic = false;
  bool operator==(const Font&) const = default;
};

}  // namespace pricedown
