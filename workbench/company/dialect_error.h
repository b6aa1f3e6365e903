// Refusals of a statement text, with the position and the server's wording.
#pragma once

#include <cstddef>
#include <string_view>

#include "workbench/company/database_error.h"

namespace workbench {

// The server's numbers for the errors that the dialect layer finds by itself.
namespace server_error {
inline constexpr int kSyntax = 102;
inline constexpr int kUnclosedQuote = 105;
inline constexpr int kMoreColumnsThanValues = 109;
inline constexpr int kMoreValuesThanColumns = 110;
inline constexpr int kSyntaxAtKeyword = 156;
inline constexpr int kNumberOutOfRange = 168;
inline constexpr int kNestedTooDeeply = 191;
inline constexpr int kUnequalColumnCounts = 205;
inline constexpr int kInvalidColumn = 207;
inline constexpr int kInvalidObject = 208;
inline constexpr int kAmbiguousColumn = 209;
inline constexpr int kTypeClash = 206;
inline constexpr int kNoTables = 263;
inline constexpr int kColumnNamedTwice = 264;
inline constexpr int kTableNamedTwice = 1013;
inline constexpr int kOrderByNumberOutOfRange = 108;
inline constexpr int kUnboundName = 4104;
inline constexpr int kNotACondition = 4145;
inline constexpr int kNotInAggregate = 8120;
inline constexpr int kNotSupported = 40514;
}  // namespace server_error

// Each throws DatabaseError whose message begins with the line and column of `offset`, both
// counted from 1, columns in UTF-16 units.
[[noreturn]] void ThrowAt(std::u16string_view source, std::size_t offset,
                          std::u16string_view message, int nativeNumber);

// `nearText`: the text at the place; a long one is shortened.
[[noreturn]] void ThrowSyntaxError(std::u16string_view source, std::size_t offset,
                                   std::u16string_view nearText);
[[noreturn]] void ThrowNotSupported(std::u16string_view source, std::size_t offset,
                                    std::u16string_view what);

// `quote`: the offset of the opening quote.
[[noreturn]] void ThrowUnclosedQuote(std::u16string_view source, std::size_t quote);

}  // namespace workbench
