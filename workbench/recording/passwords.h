// Passwords in connection strings, which no recording holds.
#pragma once

#include <string>
#include <string_view>

namespace workbench {

// The text with the value of each entry whose key ends in a word for a password, such as "PWD=", as
// "***", up to the next ";" or the closing brace or quote of the value. Braces at the end of the
// value, of an entry around it, stay. What was hidden once stays as it is.
std::string WithoutPasswords(std::string_view text);

}  // namespace workbench
