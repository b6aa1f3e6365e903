// How the company compares text: the server's usual Chinese collation, as far as it matters here.
#pragma once

#include <string_view>

struct sqlite3;

namespace workbench {

// The name in the COLLATE clause of text columns.
inline constexpr const char* kChineseCollation = "CHINESE_CI_PAD";

// Less than, equal to or greater than 0. Letters are equal in either case, the shorter text is
// compared as if padded with blanks, everything else is in code-point order. Both texts in UTF-8.
int CompareServerText(std::string_view left, std::string_view right) noexcept;

// Registers the collation and the functions that translated statements use. Every connection to
// the company file needs it, also one that only creates tables. Throws DatabaseError.
void RegisterServerText(sqlite3* database);

}  // namespace workbench
