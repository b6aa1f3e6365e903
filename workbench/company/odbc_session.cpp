#include "workbench/company/odbc_session.h"

#include <array>
#include <condition_variable>
#include <mutex>
#include <thread>

#include "workbench/company/location.h"
#include "workbench/company/odbc_fetch.h"
#include "workbench/company/utf.h"

namespace workbench::odbc {
namespace {

SQLPOINTER Number(SQLULEN value) { return reinterpret_cast<SQLPOINTER>(value); }

void SetTimeLimit(SQLHSTMT statement, std::chrono::seconds limit) noexcept {
  SQLSetStmtAttrW(statement, SQL_ATTR_QUERY_TIMEOUT, Number(static_cast<SQLULEN>(limit.count())),
                  SQL_IS_UINTEGER);
}

SQLSMALLINT Prepared(const Handle& environment) {
  Check(SQLSetEnvAttr(environment.Get(), SQL_ATTR_ODBC_VERSION, Number(SQL_OV_ODBC3), 0),
        SQL_HANDLE_ENV, environment.Get());
  return SQL_HANDLE_DBC;
}

// While it lives, asks whether the statement is to be cancelled. A key that is still down from
// the command that sent the statement does not count: the answer has to become true.
class CancelWatch {
 public:
  CancelWatch(SQLHSTMT statement, const std::function<bool()>& cancels) {
    if (cancels) thread_ = std::thread([this, statement, &cancels] { Watch(statement, cancels); });
  }
  ~CancelWatch() {
    if (!thread_.joinable()) return;
    {
      const std::lock_guard lock(mutex_);
      done_ = true;
    }
    wake_.notify_one();
    thread_.join();
  }
  CancelWatch(const CancelWatch&) = delete;
  CancelWatch& operator=(const CancelWatch&) = delete;

 private:
  void Watch(SQLHSTMT statement, const std::function<bool()>& cancels) {
    constexpr std::chrono::milliseconds kInterval{100};
    bool wasAsked = cancels();
    std::unique_lock lock(mutex_);
    while (!wake_.wait_for(lock, kInterval, [this] { return done_; })) {
      const bool isAsked = cancels();
      if (isAsked && !wasAsked) {
        SQLCancel(statement);
        return;
      }
      wasAsked = isAsked;
    }
  }

  std::mutex mutex_;
  std::condition_variable wake_;
  bool done_ = false;
  std::thread thread_;
};

}  // namespace

Session::Session(std::string_view connectionString, const ConnectOptions& options)
    : options_(options),
      environment_(SQL_HANDLE_ENV, 0, SQL_NULL_HANDLE),
      connection_(Prepared(environment_), SQL_HANDLE_ENV, environment_.Get()) {
  const auto timeout = static_cast<SQLULEN>(options.loginTimeout.count());
  SQLSetConnectAttrW(Get(), SQL_ATTR_LOGIN_TIMEOUT, Number(timeout), SQL_IS_UINTEGER);
  if (options.mode == OpenMode::ReadOnly) {
    SQLSetConnectAttrW(Get(), SQL_ATTR_ACCESS_MODE, Number(SQL_MODE_READ_ONLY), SQL_IS_UINTEGER);
  }
  OdbcText text = ToOdbc(Utf16FromUtf8(NormalizedConnectionString(connectionString)));
  try {
    Check(SQLDriverConnectW(Get(), nullptr, text.data(), static_cast<SQLSMALLINT>(text.size()),
                            nullptr, 0, nullptr, SQL_DRIVER_NOPROMPT),
          SQL_HANDLE_DBC, Get());
  } catch (const DatabaseError& error) {
    throw DatabaseError(Utf16FromUtf8(WithoutSecrets(error.what(), connectionString)),
                        error.NativeNumber());
  }
  connected_ = true;
}

Session::~Session() {
  if (connected_) SQLDisconnect(Get());
}

void Session::LimitTime(SQLHSTMT statement) const noexcept {
  SetTimeLimit(statement, options_.statementTimeout);
}

ResultSet Session::Execute(std::u16string_view text) {
  return Run(text, options_.statementTimeout, options_.cancels);
}

ResultSet Session::Run(std::u16string_view text, std::chrono::seconds limit,
                       const std::function<bool()>& cancels) {
  const Handle statement(SQL_HANDLE_STMT, SQL_HANDLE_DBC, Get());
  SetTimeLimit(statement.Get(), limit);
  const CancelWatch watch(statement.Get(), cancels);
  OdbcText sent = ToOdbc(text);
  SQLRETURN state =
      SQLExecDirectW(statement.Get(), sent.data(), static_cast<SQLINTEGER>(sent.size()));
  ResultSet result;
  // A change that affects no row returns SQL_NO_DATA. Fetch all results: those after the first may
  // carry the error of a later statement.
  bool isFirst = true;
  for (;;) {
    if (state == SQL_NO_DATA && !isFirst) return result;
    if (state != SQL_NO_DATA) Check(state, SQL_HANDLE_STMT, statement.Get());
    isFirst = false;
    SQLSMALLINT columns = 0;
    Check(SQLNumResultCols(statement.Get(), &columns), SQL_HANDLE_STMT, statement.Get());
    if (columns > 0 && result.ColumnCount() == 0) result = FetchAll(statement.Get(), columns);
    state = SQLMoreResults(statement.Get());
  }
}

bool Session::IsKnownDead() const noexcept {
  SQLUINTEGER dead = SQL_CD_FALSE;
  SQLGetConnectAttrW(Get(), SQL_ATTR_CONNECTION_DEAD, &dead, SQL_IS_UINTEGER, nullptr);
  return dead == SQL_CD_TRUE;
}

bool Session::Answers() noexcept {
  if (IsKnownDead()) return false;
  try {
    Run(u"SELECT 1", options_.loginTimeout, {});
    return true;
  } catch (const std::exception&) {
    return false;
  }
}

void Session::SetAutocommit(bool on) {
  Check(SQLSetConnectAttrW(Get(), SQL_ATTR_AUTOCOMMIT,
                           Number(on ? SQL_AUTOCOMMIT_ON : SQL_AUTOCOMMIT_OFF), SQL_IS_UINTEGER),
        SQL_HANDLE_DBC, Get());
}

// A driver with a single isolation level keeps it.
void Session::SetIsolation(Isolation isolation) noexcept {
  SQLSetConnectAttrW(
      Get(), SQL_ATTR_TXN_ISOLATION,
      Number(isolation == Isolation::Serializable ? SQL_TXN_SERIALIZABLE : SQL_TXN_READ_COMMITTED),
      SQL_IS_UINTEGER);
}

void Session::Begin(Isolation isolation) {
  if (isolation == Isolation::Serializable) SetIsolation(isolation);
  SetAutocommit(false);
}

void Session::Commit() {
  // A driver may report success for a transaction that the server has lost.
  if (IsKnownDead()) throw DatabaseError(u"与服务器的连接已断开，事务没有提交。", 0);
  const SQLRETURN ended = SQLEndTran(SQL_HANDLE_DBC, Get(), SQL_COMMIT);
  if (!SQL_SUCCEEDED(ended)) {
    try {
      ThrowDiagnostic(SQL_HANDLE_DBC, Get());
    } catch (...) {
      Rollback();
      throw;
    }
  }
  SetAutocommit(true);
  SetIsolation(Isolation::Usual);
}

void Session::Rollback() noexcept {
  SQLEndTran(SQL_HANDLE_DBC, Get(), SQL_ROLLBACK);
  // Fails on a lost connection, which is reopened before the next text.
  SQLSetConnectAttrW(Get(), SQL_ATTR_AUTOCOMMIT, Number(SQL_AUTOCOMMIT_ON), SQL_IS_UINTEGER);
  SetIsolation(Isolation::Usual);
}

std::u16string Session::ServerProduct() {
  std::array<SQLWCHAR, 128> name{};
  SQLSMALLINT bytes = 0;
  Check(SQLGetInfoW(Get(), SQL_DBMS_NAME, name.data(), sizeof(name), &bytes), SQL_HANDLE_DBC,
        Get());
  std::u16string product(name.begin(), name.end());
  return product.substr(0, product.find(u'\0'));
}

}  // namespace workbench::odbc
