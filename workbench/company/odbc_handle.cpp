// Diagnostic records as one DatabaseError, and the kinds of failure.
#include "workbench/company/odbc_handle.h"

#include <algorithm>
#include <array>
#include <optional>

namespace workbench::odbc {
namespace {

std::optional<DatabaseError> ReadRecord(SQLSMALLINT kind, SQLHANDLE handle, SQLSMALLINT record) {
  std::array<SQLWCHAR, SQL_SQLSTATE_SIZE + 1> state{};
  std::array<SQLWCHAR, SQL_MAX_MESSAGE_LENGTH * 2> message{};
  SQLINTEGER number = 0;
  SQLSMALLINT length = 0;
  const SQLRETURN got = SQLGetDiagRecW(kind, handle, record, state.data(), &number, message.data(),
                                       static_cast<SQLSMALLINT>(message.size()), &length);
  if (!SQL_SUCCEEDED(got)) return std::nullopt;
  const std::size_t known = std::min(static_cast<std::size_t>(length), message.size() - 1);
  std::u16string text = FromOdbc(message.data(), known);
  text.erase(text.find_last_not_of(u" \t\r\n") + 1);
  return DatabaseError(u"[" + FromOdbc(state.data(), SQL_SQLSTATE_SIZE) + u"] " + text,
                       static_cast<int>(number));
}

}  // namespace

DatabaseError MostRelevant(const std::vector<DatabaseError>& records) {
  if (records.empty()) return DatabaseError(u"ODBC 调用失败，没有更多信息。", 0);
  const auto failure = std::find_if(records.begin(), records.end(), [](const DatabaseError& error) {
    return !StateOf(error).starts_with(u"01");
  });
  return failure == records.end() ? records.front() : *failure;
}

void ThrowDiagnostic(SQLSMALLINT kind, SQLHANDLE handle) {
  std::vector<DatabaseError> records;
  while (const auto read = ReadRecord(kind, handle, static_cast<SQLSMALLINT>(records.size() + 1))) {
    records.push_back(*read);
  }
  throw MostRelevant(records);
}

std::u16string_view StateOf(const DatabaseError& error) {
  const std::u16string_view message = error.Message();
  const bool hasState = message.size() > SQL_SQLSTATE_SIZE + 1 && message.front() == u'[' &&
                        message[SQL_SQLSTATE_SIZE + 1] == u']';
  return hasState ? message.substr(1, SQL_SQLSTATE_SIZE) : std::u16string_view();
}

bool IsConflict(const DatabaseError& error) {
  const std::u16string_view state = StateOf(error);
  return state == u"40001" || state == u"40P01";
}

bool IsInterruption(const DatabaseError& error) {
  const std::u16string_view state = StateOf(error);
  return state == u"HY008" || state == u"HYT00" || state == u"HYT01" || state == u"57014";
}

Handle::Handle(SQLSMALLINT kind, SQLSMALLINT parentKind, SQLHANDLE parent) : kind_(kind) {
  const SQLRETURN result = SQLAllocHandle(kind, parent, &handle_);
  if (SQL_SUCCEEDED(result)) return;
  if (parent == SQL_NULL_HANDLE) throw DatabaseError(u"无法使用 ODBC。", 0);
  ThrowDiagnostic(parentKind, parent);
}

}  // namespace workbench::odbc
