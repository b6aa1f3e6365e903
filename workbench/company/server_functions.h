// The names of the functions that translated statements call, and how their errors travel.
// Registered by RegisterServerText (collation.h).
#pragma once

namespace workbench {

// server_like(text, pattern): 1 or 0 as LIKE of the server, NULL where one of them is NULL.
inline constexpr const char* kLikeFunction = "server_like";

// server_number(value, type): a text as number of the type int, numeric or float, or the
// server's conversion error; everything else as it is.
inline constexpr const char* kNumberFunction = "server_number";

// SQLite carries an error's number in the upper bits of an extended result code.
int ResultCodeOfServerError(int nativeNumber);

// 0 where the result code is SQLite's own.
int ServerErrorOfResultCode(int resultCode);

}  // namespace workbench
