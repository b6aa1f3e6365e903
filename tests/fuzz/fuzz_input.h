// What the fuzz targets share: texts out of raw bytes, and a property that must hold.
#pragma once

#include <fuzzer/FuzzedDataProvider.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace pricedown::fuzz {

// Arbitrary UTF-16 units, lone surrogates and NUL included.
inline std::u16string TextOf(const std::string& bytes) {
  std::u16string text;
  for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
    text += static_cast<char16_t>(static_cast<unsigned char>(bytes[i]) |
                                  (static_cast<unsigned char>(bytes[i + 1]) << 8));
  }
  return text;
}

inline std::u16string ConsumeText(FuzzedDataProvider& input) {
  return TextOf(input.ConsumeRandomLengthString(4096));
}

inline std::u16string RestAsText(FuzzedDataProvider& input) {
  return TextOf(input.ConsumeRemainingBytesAsString());
}

inline void Require(bool holds, const char* property) {
  if (holds) return;
  std::fprintf(stderr, "does not hold: %s\n", property);
  std::abort();
}

}  // namespace pricedown::fuzz
