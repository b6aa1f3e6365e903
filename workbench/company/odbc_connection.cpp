#include "workbench/company/odbc_connection.h"

#ifdef _WIN32
#include <windows.h>
#endif
#include <sql.h>
#include <sqlext.h>
#include <sqlucode.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "workbench/company/utf.h"

namespace workbench {
namespace {

using OdbcText = std::basic_string<SQLWCHAR>;

OdbcText ToOdbc(std::u16string_view text) { return OdbcText(text.begin(), text.end()); }

std::u16string FromOdbc(const SQLWCHAR* text, std::size_t length) {
  return std::u16string(text, text + length);
}

// The first diagnostic record of a handle as exception.
[[noreturn]] void ThrowDiagnostic(SQLSMALLINT kind, SQLHANDLE handle) {
  std::array<SQLWCHAR, SQL_SQLSTATE_SIZE + 1> state{};
  std::array<SQLWCHAR, SQL_MAX_MESSAGE_LENGTH * 2> message{};
  SQLINTEGER number = 0;
  SQLSMALLINT length = 0;
  const SQLRETURN got = SQLGetDiagRecW(kind, handle, 1, state.data(), &number, message.data(),
                                       static_cast<SQLSMALLINT>(message.size()), &length);
  if (!SQL_SUCCEEDED(got)) throw DatabaseError(u"ODBC 调用失败，没有更多信息。", 0);
  const std::size_t known = std::min(static_cast<std::size_t>(length), message.size() - 1);
  throw DatabaseError(
      u"[" + FromOdbc(state.data(), SQL_SQLSTATE_SIZE) + u"] " + FromOdbc(message.data(), known),
      static_cast<int>(number));
}

void Check(SQLRETURN result, SQLSMALLINT kind, SQLHANDLE handle) {
  if (!SQL_SUCCEEDED(result)) ThrowDiagnostic(kind, handle);
}

// Owns one ODBC handle.
class Handle {
 public:
  Handle(SQLSMALLINT kind, SQLSMALLINT parentKind, SQLHANDLE parent) : kind_(kind) {
    const SQLRETURN result = SQLAllocHandle(kind, parent, &handle_);
    if (SQL_SUCCEEDED(result)) return;
    if (parent == SQL_NULL_HANDLE) throw DatabaseError(u"无法使用 ODBC。", 0);
    ThrowDiagnostic(parentKind, parent);
  }
  ~Handle() { SQLFreeHandle(kind_, handle_); }
  Handle(const Handle&) = delete;
  Handle& operator=(const Handle&) = delete;

  SQLHANDLE Get() const noexcept { return handle_; }

 private:
  SQLSMALLINT kind_;
  SQLHANDLE handle_ = SQL_NULL_HANDLE;
};

enum class Transfer { Integer, Double, DecimalText, Text };

struct FetchedColumn {
  ResultColumn described;
  Transfer transfer;
};

FetchedColumn DescribeColumn(SQLSMALLINT type, SQLULEN size, SQLSMALLINT scale) {
  const auto definedSize = static_cast<std::int64_t>(size);
  switch (type) {
    case SQL_BIT:
      return {{{}, AdoType::Boolean, 2}, Transfer::Integer};
    case SQL_TINYINT:
    case SQL_SMALLINT:
      return {{{}, AdoType::SmallInt, 2}, Transfer::Integer};
    case SQL_INTEGER:
      return {{{}, AdoType::Integer, 4}, Transfer::Integer};
    case SQL_BIGINT:
      return {{{}, AdoType::BigInt, 8}, Transfer::Integer};
    case SQL_REAL:
    case SQL_FLOAT:
    case SQL_DOUBLE:
      return {{{}, AdoType::Double, 8}, Transfer::Double};
    case SQL_DECIMAL:
    case SQL_NUMERIC:
      return {{{}, AdoType::Numeric, 19, static_cast<int>(size), scale}, Transfer::DecimalText};
    case SQL_CHAR:
    case SQL_WCHAR:
      return {{{}, AdoType::WChar, definedSize}, Transfer::Text};
    case SQL_LONGVARCHAR:
    case SQL_WLONGVARCHAR:
      return {{{}, AdoType::LongVarWChar, definedSize}, Transfer::Text};
    default:
      return {{{}, AdoType::VarWChar, definedSize}, Transfer::Text};
  }
}

// Copies the rows of an open result into a ResultSet.
class Fetcher {
 public:
  explicit Fetcher(SQLHSTMT statement) : statement_(statement), buffer_(1024) {}

  ResultSet FetchAll(SQLSMALLINT columnCount) {
    std::vector<Transfer> transfers;
    std::vector<ResultColumn> columns;
    for (SQLUSMALLINT i = 1; i <= columnCount; ++i) {
      FetchedColumn column = Describe(i);
      transfers.push_back(column.transfer);
      columns.push_back(std::move(column.described));
    }
    ResultSet result(std::move(columns));
    for (;;) {
      const SQLRETURN state = SQLFetch(statement_);
      if (state == SQL_NO_DATA) return result;
      Check(state, SQL_HANDLE_STMT, statement_);
      result.AddRow();
      for (std::size_t i = 0; i < transfers.size(); ++i) FetchCell(result, i, transfers[i]);
    }
  }

 private:
  FetchedColumn Describe(SQLUSMALLINT column) {
    std::array<SQLWCHAR, 256> name{};
    SQLSMALLINT nameLength = 0;
    SQLSMALLINT type = 0;
    SQLULEN size = 0;
    SQLSMALLINT scale = 0;
    Check(SQLDescribeColW(statement_, column, name.data(), static_cast<SQLSMALLINT>(name.size()),
                          &nameLength, &type, &size, &scale, nullptr),
          SQL_HANDLE_STMT, statement_);
    FetchedColumn result = DescribeColumn(type, size, scale);
    // Some drivers count the name in bytes of another encoding: its end is the better sign.
    const auto end = std::find(name.begin(), name.end() - 1, SQLWCHAR{0});
    result.described.name.assign(name.begin(), end);
    return result;
  }

  void FetchCell(ResultSet& result, std::size_t index, Transfer transfer) {
    const auto column = static_cast<SQLUSMALLINT>(index + 1);
    if (transfer == Transfer::Integer) {
      SQLBIGINT value = 0;
      if (GetNumber(column, SQL_C_SBIGINT, &value)) result.SetInteger(index, value);
    } else if (transfer == Transfer::Double) {
      SQLDOUBLE value = 0;
      if (GetNumber(column, SQL_C_DOUBLE, &value)) result.SetNumber(index, value);
    } else if (const auto text = GetText(column)) {
      if (transfer == Transfer::Text) {
        result.SetText(index, *text);
        return;
      }
      const std::string digits = Utf8FromUtf16(*text);
      double value = 0;
      std::from_chars(digits.data(), digits.data() + digits.size(), value);
      result.SetNumber(index, value);
    }
  }

  bool GetNumber(SQLUSMALLINT column, SQLSMALLINT type, void* value) {
    SQLLEN indicator = 0;
    Check(SQLGetData(statement_, column, type, value, 0, &indicator), SQL_HANDLE_STMT, statement_);
    return indicator != SQL_NULL_DATA;
  }

  // In pieces of the buffer's size, each ended by a zero that is not counted.
  std::optional<std::u16string> GetText(SQLUSMALLINT column) {
    std::u16string text;
    for (;;) {
      SQLLEN bytes = 0;
      const SQLRETURN state =
          SQLGetData(statement_, column, SQL_C_WCHAR, buffer_.data(),
                     static_cast<SQLLEN>(buffer_.size() * sizeof(SQLWCHAR)), &bytes);
      if (state == SQL_NO_DATA) return text;
      Check(state, SQL_HANDLE_STMT, statement_);
      if (bytes == SQL_NULL_DATA) return std::nullopt;
      const std::size_t room = buffer_.size() - 1;
      const bool more =
          bytes == SQL_NO_TOTAL || static_cast<std::size_t>(bytes) / sizeof(SQLWCHAR) > room;
      text += FromOdbc(buffer_.data(),
                       more ? room : static_cast<std::size_t>(bytes) / sizeof(SQLWCHAR));
      if (!more) return text;
    }
  }

  SQLHSTMT statement_;
  std::vector<SQLWCHAR> buffer_;
};

}  // namespace

class OdbcConnection::Session {
 public:
  explicit Session(std::string_view connectionString)
      : environment_(SQL_HANDLE_ENV, 0, SQL_NULL_HANDLE),
        connection_(Prepared(environment_), SQL_HANDLE_ENV, environment_.Get()) {
    OdbcText text = ToOdbc(Utf16FromUtf8(connectionString));
    Check(SQLDriverConnectW(connection_.Get(), nullptr, text.data(),
                            static_cast<SQLSMALLINT>(text.size()), nullptr, 0, nullptr,
                            SQL_DRIVER_NOPROMPT),
          SQL_HANDLE_DBC, connection_.Get());
  }
  ~Session() { SQLDisconnect(connection_.Get()); }
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;

  ResultSet Execute(std::u16string_view text) {
    const Handle statement(SQL_HANDLE_STMT, SQL_HANDLE_DBC, connection_.Get());
    OdbcText sent = ToOdbc(text);
    SQLRETURN state =
        SQLExecDirectW(statement.Get(), sent.data(), static_cast<SQLINTEGER>(sent.size()));
    ResultSet result;
    // A change that meets no row answers SQL_NO_DATA. All results are asked for: what comes
    // behind the first may carry the error of a later statement.
    bool isFirst = true;
    for (;;) {
      if (state == SQL_NO_DATA && !isFirst) return result;
      if (state != SQL_NO_DATA) Check(state, SQL_HANDLE_STMT, statement.Get());
      isFirst = false;
      SQLSMALLINT columns = 0;
      Check(SQLNumResultCols(statement.Get(), &columns), SQL_HANDLE_STMT, statement.Get());
      if (columns > 0 && result.ColumnCount() == 0) {
        result = Fetcher(statement.Get()).FetchAll(columns);
      }
      state = SQLMoreResults(statement.Get());
    }
  }

 private:
  static SQLSMALLINT Prepared(const Handle& environment) {
    Check(SQLSetEnvAttr(environment.Get(), SQL_ATTR_ODBC_VERSION,
                        reinterpret_cast<SQLPOINTER>(SQL_OV_ODBC3), 0),
          SQL_HANDLE_ENV, environment.Get());
    return SQL_HANDLE_DBC;
  }

  Handle environment_;
  Handle connection_;
};

OdbcConnection::OdbcConnection(std::string_view connectionString)
    : session_(std::make_unique<Session>(connectionString)) {}

OdbcConnection::~OdbcConnection() = default;

ResultSet OdbcConnection::Execute(std::u16string_view text) { return session_->Execute(text); }

}  // namespace workbench
