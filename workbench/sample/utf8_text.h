// Checks and helpers for UTF-8 texts from a user's file.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace workbench {

// The position of the first byte that is not part of well-formed UTF-8; npos when all is.
std::size_t FindInvalidUtf8(std::string_view bytes);

// The length in UTF-16 code units, as the suite counts. Requires: well-formed UTF-8.
std::size_t LengthAsTheSuiteCounts(std::string_view text);

// `text` without blanks and tabs at both ends.
std::string_view TrimBlanks(std::string_view text);

// True when there is a control character that `allowed` does not list.
bool HasControlCharacter(std::string_view text, std::string_view allowed);

// The content of the file at a UTF-8 path.
// Throws std::runtime_error with a Chinese text when it cannot be read.
std::string ReadFileBytes(const std::string& path);

}  // namespace workbench
