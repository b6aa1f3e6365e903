// Decimal amounts as doubles, correctly rounded on every platform; a division would round
// differently on processors with wide registers.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace workbench {

// The double nearest to a plain decimal text ("12.5"); empty when the text is not digits
// with at most one "." between digits. No sign, blank, exponent or thousands separator.
std::optional<double> ParsePlainDecimal(std::string_view text);

// The double nearest to `hundredths` / 100. Requires: hundredths >= 0.
double FromHundredths(std::int64_t hundredths);

}  // namespace workbench
