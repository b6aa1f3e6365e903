// Finds a failed call of GetRows, whose rows are then read again field by field.
#pragma once

#include <algorithm>

#include "tests/support/call_log.h"

namespace pricedown::testing {

// Whether the log has a call of GetRows that failed.
inline bool HasFailedBlock(const CallLog& log) {
  const auto& lines = log.Lines();
  return std::any_of(lines.begin(), lines.end(), [](const std::string& line) {
    return line.find(".GetRows(") != line.npos && line.ends_with(" fails");
  });
}

}  // namespace pricedown::testing
