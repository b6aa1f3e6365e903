// Registers the SQLite functions and the collation that translated statements need.
#include <sqlite3.h>

#include <memory>
#include <new>
#include <string>
#include <string_view>

#include "workbench/company/collation.h"
#include "workbench/company/database_error.h"
#include "workbench/company/like_pattern.h"
#include "workbench/company/server_functions.h"
#include "workbench/company/server_number.h"
#include "workbench/company/utf.h"

namespace workbench {
namespace {

int Collate(void*, int leftSize, const void* left, int rightSize, const void* right) {
  return CompareServerText({static_cast<const char*>(left), static_cast<std::size_t>(leftSize)},
                           {static_cast<const char*>(right), static_cast<std::size_t>(rightSize)});
}

std::string_view TextOf(sqlite3_value* value) {
  const unsigned char* text = sqlite3_value_text(value);
  if (text == nullptr) return {};
  return {reinterpret_cast<const char*>(text),
          static_cast<std::size_t>(sqlite3_value_bytes(value))};
}

void DeletePattern(void* pattern) { delete static_cast<LikePattern*>(pattern); }

// server_like(text, pattern)
void Like(sqlite3_context* context, int, sqlite3_value** arguments) {
  if (sqlite3_value_type(arguments[0]) == SQLITE_NULL ||
      sqlite3_value_type(arguments[1]) == SQLITE_NULL) {
    return;
  }
  try {
    const auto* kept = static_cast<const LikePattern*>(sqlite3_get_auxdata(context, 1));
    if (kept != nullptr) {
      sqlite3_result_int(context, kept->Matches(TextOf(arguments[0])) ? 1 : 0);
      return;
    }
    auto pattern = std::make_unique<LikePattern>(TextOf(arguments[1]));
    sqlite3_result_int(context, pattern->Matches(TextOf(arguments[0])) ? 1 : 0);
    sqlite3_set_auxdata(context, 1, pattern.release(), DeletePattern);
  } catch (const std::bad_alloc&) {
    sqlite3_result_error_nomem(context);
  }
}

NumberType NumberTypeNamed(std::string_view name) {
  if (name == ServerTypeName(NumberType::Integer)) return NumberType::Integer;
  if (name == ServerTypeName(NumberType::Decimal)) return NumberType::Decimal;
  return NumberType::Float;
}

// server_number(value, type name)
void Number(sqlite3_context* context, int, sqlite3_value** arguments) {
  if (sqlite3_value_type(arguments[0]) != SQLITE_TEXT) {
    sqlite3_result_value(context, arguments[0]);
    return;
  }
  try {
    const NumberType type = NumberTypeNamed(TextOf(arguments[1]));
    const std::string_view text = TextOf(arguments[0]);
    const auto number = NumberFromText(text, type);
    if (!number) {
      const std::string message = ConversionFailure(text, type);
      sqlite3_result_error(context, message.c_str(), static_cast<int>(message.size()));
      sqlite3_result_error_code(context, ResultCodeOfServerError(ConversionFailureNumber(type)));
    } else if (number->isInteger) {
      sqlite3_result_int64(context, number->integer);
    } else {
      sqlite3_result_double(context, number->real);
    }
  } catch (const std::bad_alloc&) {
    sqlite3_result_error_nomem(context);
  }
}

}  // namespace

int ResultCodeOfServerError(int nativeNumber) { return SQLITE_ERROR | (nativeNumber << 8); }

int ServerErrorOfResultCode(int resultCode) {
  // SQLite's own extensions of SQLITE_ERROR are small numbers; the server's begin at 100.
  const int number = resultCode >> 8;
  return (resultCode & 0xFF) == SQLITE_ERROR && number >= 100 ? number : 0;
}

void RegisterServerText(sqlite3* database) {
  constexpr int kFlags = SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS;
  int result = sqlite3_create_collation_v2(database, kChineseCollation, SQLITE_UTF8, nullptr,
                                           Collate, nullptr);
  if (result == SQLITE_OK) {
    result = sqlite3_create_function_v2(database, kLikeFunction, 2, kFlags, nullptr, Like, nullptr,
                                        nullptr, nullptr);
  }
  if (result == SQLITE_OK) {
    result = sqlite3_create_function_v2(database, kNumberFunction, 2, kFlags, nullptr, Number,
                                        nullptr, nullptr, nullptr);
  }
  if (result != SQLITE_OK) {
    throw DatabaseError(Utf16FromUtf8(sqlite3_errmsg(database)), result);
  }
}

}  // namespace workbench
