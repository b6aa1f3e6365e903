// An ODBC driver without a database: a text that holds "fail STATE" fails with that state, every
// other one has no result; after "keep" a rollback fails. Logins, their ends and calls of
// transactions are recorded.
#include <sql.h>
#include <sqlext.h>
#include <sqlucode.h>

#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

namespace {

// All handles are this one.
int theHandle;
std::string theState;
bool theRollbackFails;
std::string theCalls;

std::string Ascii(const SQLWCHAR* text, SQLINTEGER length) {
  std::string ascii(static_cast<std::size_t>(length), ' ');
  std::transform(text, text + length, ascii.begin(),
                 [](SQLWCHAR unit) { return static_cast<char>(unit); });
  return ascii;
}

void CopyTo(SQLWCHAR* target, std::string_view text) {
  std::copy(text.begin(), text.end(), target);
  target[text.size()] = 0;
}

}  // namespace

extern "C" {

// The calls since the last time, separated by blanks.
const char* RecordedCalls() {
  static std::string calls;
  calls = std::exchange(theCalls, {});
  return calls.c_str();
}

SQLRETURN SQL_API SQLAllocHandle(SQLSMALLINT, SQLHANDLE, SQLHANDLE* handle) {
  *handle = &theHandle;
  return SQL_SUCCESS;
}

SQLRETURN SQL_API SQLFreeHandle(SQLSMALLINT, SQLHANDLE) { return SQL_SUCCESS; }

SQLRETURN SQL_API SQLSetEnvAttr(SQLHENV, SQLINTEGER, SQLPOINTER, SQLINTEGER) { return SQL_SUCCESS; }

SQLRETURN SQL_API SQLSetConnectAttrW(SQLHDBC, SQLINTEGER attribute, SQLPOINTER value, SQLINTEGER) {
  if (attribute == SQL_ATTR_AUTOCOMMIT) {
    const bool isOn = reinterpret_cast<std::uintptr_t>(value) == SQL_AUTOCOMMIT_ON;
    theCalls += isOn ? "end " : "begin ";
  }
  return SQL_SUCCESS;
}

SQLRETURN SQL_API SQLDriverConnectW(SQLHDBC, SQLHWND, SQLWCHAR*, SQLSMALLINT, SQLWCHAR*,
                                    SQLSMALLINT, SQLSMALLINT*, SQLUSMALLINT) {
  theCalls += "login ";
  theRollbackFails = false;
  return SQL_SUCCESS;
}

SQLRETURN SQL_API SQLDisconnect(SQLHDBC) {
  theCalls += "logout ";
  return SQL_SUCCESS;
}

SQLRETURN SQL_API SQLSetStmtAttrW(SQLHSTMT, SQLINTEGER, SQLPOINTER, SQLINTEGER) {
  return SQL_SUCCESS;
}

SQLRETURN SQL_API SQLFreeStmt(SQLHSTMT, SQLUSMALLINT) { return SQL_SUCCESS; }

SQLRETURN SQL_API SQLExecDirectW(SQLHSTMT, SQLWCHAR* text, SQLINTEGER length) {
  constexpr std::string_view kFail = "fail ";
  const std::string sent = Ascii(text, length);
  if (sent.find("keep") != std::string::npos) theRollbackFails = true;
  const std::size_t at = sent.find(kFail);
  if (at == std::string::npos) return SQL_SUCCESS;
  theState = sent.substr(at + kFail.size(), SQL_SQLSTATE_SIZE);
  return SQL_ERROR;
}

SQLRETURN SQL_API SQLNumResultCols(SQLHSTMT, SQLSMALLINT* columns) {
  *columns = 0;
  return SQL_SUCCESS;
}

SQLRETURN SQL_API SQLMoreResults(SQLHSTMT) { return SQL_NO_DATA; }

SQLRETURN SQL_API SQLEndTran(SQLSMALLINT, SQLHANDLE, SQLSMALLINT how) {
  theCalls += how == SQL_COMMIT ? "commit " : "rollback ";
  return how == SQL_ROLLBACK && theRollbackFails ? SQL_ERROR : SQL_SUCCESS;
}

SQLRETURN SQL_API SQLGetDiagRecW(SQLSMALLINT, SQLHANDLE, SQLSMALLINT number, SQLWCHAR* state,
                                 SQLINTEGER* native, SQLWCHAR* message, SQLSMALLINT,
                                 SQLSMALLINT* length) {
  constexpr std::string_view kMessage = "failed as asked";
  if (number > 1) return SQL_NO_DATA;
  CopyTo(state, theState);
  CopyTo(message, kMessage);
  *native = 0;
  *length = static_cast<SQLSMALLINT>(kMessage.size());
  return SQL_SUCCESS;
}

// The driver manager wants it beside the records.
SQLRETURN SQL_API SQLGetDiagFieldW(SQLSMALLINT, SQLHANDLE, SQLSMALLINT, SQLSMALLINT, SQLPOINTER,
                                   SQLSMALLINT, SQLSMALLINT*) {
  return SQL_NO_DATA;
}
}
