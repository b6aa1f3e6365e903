// Owners of ODBC handles and the one way from a failed call to a DatabaseError.
#pragma once

#ifdef _WIN32
#include <windows.h>
#endif
#include <sql.h>
#include <sqlext.h>
#include <sqlucode.h>

#include <string>
#include <string_view>
#include <vector>

#include "workbench/company/database_error.h"

namespace workbench::odbc {

using OdbcText = std::basic_string<SQLWCHAR>;

inline OdbcText ToOdbc(std::u16string_view text) { return OdbcText(text.begin(), text.end()); }
inline std::u16string FromOdbc(const SQLWCHAR* text, std::size_t length) {
  return std::u16string(text, text + length);
}

// The first of the diagnostic records that is no warning, else the first.
DatabaseError MostRelevant(const std::vector<DatabaseError>& records);

// Throws the most relevant diagnostic record of the handle.
[[noreturn]] void ThrowDiagnostic(SQLSMALLINT kind, SQLHANDLE handle);

inline void Check(SQLRETURN result, SQLSMALLINT kind, SQLHANDLE handle) {
  if (!SQL_SUCCEEDED(result)) ThrowDiagnostic(kind, handle);
}

// The SQLSTATE of an error thrown by ThrowDiagnostic; empty for any other.
std::u16string_view StateOf(const DatabaseError& error);

// Whether the error is a conflict with another transaction, because of which the server rolled back
// the whole transaction.
bool IsConflict(const DatabaseError& error);

// Whether the statement was cancelled or hit its time limit. A server may keep the transaction.
bool IsInterruption(const DatabaseError& error);

// Owns one ODBC handle.
class Handle {
 public:
  // Throws DatabaseError.
  Handle(SQLSMALLINT kind, SQLSMALLINT parentKind, SQLHANDLE parent);
  ~Handle() { SQLFreeHandle(kind_, handle_); }
  Handle(const Handle&) = delete;
  Handle& operator=(const Handle&) = delete;

  SQLHANDLE Get() const noexcept { return handle_; }

 private:
  SQLSMALLINT kind_;
  SQLHANDLE handle_ = SQL_NULL_HANDLE;
};

}  // namespace workbench::odbc
