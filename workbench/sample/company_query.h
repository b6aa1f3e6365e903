// Helpers to query a company: numbers and texts of cells, literals for statements.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "workbench/company/connection.h"

namespace workbench {

// Runs a statement in UTF-8. Throws DatabaseError.
ResultSet Ask(Connection& company, std::string_view statement);

// The first cell as a whole number, 0 without rows or for NULL. Throws DatabaseError.
std::int64_t QueryInteger(Connection& company, std::string_view statement);

// A number of any kind, 0 for NULL and texts: servers keep whole numbers in several types.
std::int64_t IntegerOf(const Cell& cell);

// In UTF-8; empty for NULL. Numbers as plain digits, without an exponent.
std::string TextOf(const Cell& cell);

// Plain digits, as few as restore the number.
std::string PlainDigits(double number);

// `text` between apostrophes, its own doubled.
std::string Literal(std::string_view text);

// The value of a system profile, empty when missing. Throws DatabaseError.
std::string ProfileOf(Connection& company, std::string_view category, std::string_view key);

}  // namespace workbench
