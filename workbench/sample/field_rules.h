// What a field of an import file may hold. Each rule reports its own problem.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "workbench/sample/csv_table.h"

namespace workbench {

// Longest texts that the product's record layouts allow.
inline constexpr std::size_t kMaximumCodeLength = 80;
inline constexpr std::size_t kMaximumNameLength = 80;
inline constexpr std::size_t kMaximumModelLength = 255;

// A field and its name in messages.
struct NamedField {
  std::size_t column;
  const char* title;
  std::size_t mostLength;
};

// The trimmed code; reports a problem and returns an empty text when it is missing, too long, or
// holds a control character or an apostrophe (statements do not escape codes).
std::string ReadCode(CsvTable& table, const NamedField& field);

// The same for an optional code; nullopt when it is missing.
std::optional<std::string> ReadOptionalCode(CsvTable& table, const NamedField& field);

// The text unchanged, line breaks included; nullopt for an empty field. Reports a text that is too
// long, missing although required, or has other control characters.
std::optional<std::string> ReadText(CsvTable& table, const NamedField& field, bool isRequired);

// An amount from 0 to 99999999999.99 with "." as decimal point; reports anything else.
std::optional<double> ReadPrice(CsvTable& table, const NamedField& field);

// A whole number from `low` to `high`, `preset` when the field is empty; reports anything else.
int ReadWholeNumber(CsvTable& table, const NamedField& field, int low, int high, int preset);

}  // namespace workbench
