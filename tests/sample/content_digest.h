// A fingerprint of everything that a company's tables hold, row by row in stored order. It
// covers no index and no layout of the file.
#pragma once

#include <sqlite3.h>

#include <cstdint>

namespace workbench::testing {

/// Equal for equal rows, kinds of values included; the same on every platform.
std::uint64_t ContentDigest(sqlite3* company);

}  // namespace workbench::testing
