// Lengths on paper, in tenths of a millimetre, and the one place where twips become tenths.
#pragma once

#include <algorithm>
#include <cstdint>

#include "platform/geometry.h"

namespace pricedown {

using Tenths = std::int32_t;

inline constexpr std::int32_t kTenthsPerInch = 254;
inline constexpr std::int32_t kHundredthsPerTenth = 10;

constexpr double TenthsOfHundredths(std::int32_t hundredths) {
  return static_cast<double>(hundredths) / kHundredthsPerTenth;
}

// To the nearest tenth; nothing is shorter than 0.
constexpr Tenths TenthsOfTwips(std::int32_t twips) {
  return static_cast<Tenths>(
      (std::max<std::int64_t>(twips, 0) * kTenthsPerInch + kTwipsPerInch / 2) / kTwipsPerInch);
}

}  // namespace pricedown
