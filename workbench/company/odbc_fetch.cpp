// Column by column with SQLGetData; long texts in pieces.
#include "workbench/company/odbc_fetch.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>
#include <utility>
#include <vector>

#include "workbench/company/utf.h"

namespace workbench::odbc {
namespace {

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
  Fetcher(SQLHSTMT statement, std::atomic<unsigned>& progress)
      : statement_(statement), progress_(progress), buffer_(1024) {}

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
      ++progress_;
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
    // Some drivers return the length in bytes of another encoding, so look for the terminator.
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
  std::atomic<unsigned>& progress_;
  std::vector<SQLWCHAR> buffer_;
};

}  // namespace

ResultSet FetchAll(SQLHSTMT statement, SQLSMALLINT columnCount, std::atomic<unsigned>& progress) {
  return Fetcher(statement, progress).FetchAll(columnCount);
}

}  // namespace workbench::odbc
