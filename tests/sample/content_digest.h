// A hash of all rows of a company's tables, in stored order.
#pragma once

#include <sqlite3.h>

#include <cstdint>

namespace workbench::testing {

// Equal for equal rows, kinds of values included; the same on every platform.
std::uint64_t ContentDigest(sqlite3* company);

}  // namespace workbench::testing
