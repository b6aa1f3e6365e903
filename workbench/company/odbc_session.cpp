// Login, texts and transactions on the thread of the call.
#include "workbench/company/odbc_session.h"

#include <array>
#include <utility>

#include "workbench/company/background_call.h"
#include "workbench/company/location.h"
#include "workbench/company/odbc_fetch.h"
#include "workbench/company/utf.h"

namespace workbench::odbc {
namespace {

using std::chrono::milliseconds;
using std::chrono::seconds;
using std::chrono::steady_clock;

// Added to a time limit for the drivers that enforce it themselves.
constexpr seconds kGrace{2};

SQLPOINTER Number(SQLULEN value) { return reinterpret_cast<SQLPOINTER>(value); }

SQLSMALLINT Prepared(const Handle& environment) {
  Check(SQLSetEnvAttr(environment.Get(), SQL_ATTR_ODBC_VERSION, Number(SQL_OV_ODBC3), 0),
        SQL_HANDLE_ENV, environment.Get());
  return SQL_HANDLE_DBC;
}

bool IsKnownDead(SQLHDBC connection) noexcept {
  SQLUINTEGER dead = SQL_CD_FALSE;
  SQLGetConnectAttrW(connection, SQL_ATTR_CONNECTION_DEAD, &dead, SQL_IS_UINTEGER, nullptr);
  return dead == SQL_CD_TRUE;
}

SQLRETURN SetAutocommit(SQLHDBC connection, bool on) noexcept {
  return SQLSetConnectAttrW(connection, SQL_ATTR_AUTOCOMMIT,
                            Number(on ? SQL_AUTOCOMMIT_ON : SQL_AUTOCOMMIT_OFF), SQL_IS_UINTEGER);
}

void SetIsolation(SQLHDBC connection, SQLUINTEGER level) noexcept {
  SQLSetConnectAttrW(connection, SQL_ATTR_TXN_ISOLATION, Number(level), SQL_IS_UINTEGER);
}

// A driver with a single isolation level keeps it.
void MakeSerializable(Link& link) noexcept {
  const SQLHDBC connection = link.connection.Get();
  SQLUINTEGER usual = 0;
  if (SQL_SUCCEEDED(SQLGetConnectAttrW(connection, SQL_ATTR_TXN_ISOLATION, &usual, SQL_IS_UINTEGER,
                                       nullptr))) {
    link.usualIsolation = usual;
  }
  SetIsolation(connection, SQL_TXN_SERIALIZABLE);
}

void RestoreIsolation(Link& link) noexcept {
  if (const SQLUINTEGER usual = std::exchange(link.usualIsolation, 0); usual != 0) {
    SetIsolation(link.connection.Get(), usual);
  }
}

void RollBack(Link& link) noexcept {
  const SQLHDBC connection = link.connection.Get();
  const bool isRolledBack = SQL_SUCCEEDED(SQLEndTran(SQL_HANDLE_DBC, connection, SQL_ROLLBACK));
  // Autocommit commits a transaction that is still open. On a dead connection there is none.
  if (!isRolledBack && !IsKnownDead(connection)) {
    link.isLost = true;
    return;
  }
  link.inTransaction = false;
  SetAutocommit(connection, true);
  RestoreIsolation(link);
}

void Commit(Link& link) {
  const SQLHDBC connection = link.connection.Get();
  // A driver may report success for a transaction that the server has lost.
  if (IsKnownDead(connection)) throw DatabaseError(u"与服务器的连接已断开，事务没有提交。", 0);
  if (!SQL_SUCCEEDED(SQLEndTran(SQL_HANDLE_DBC, connection, SQL_COMMIT))) {
    try {
      ThrowDiagnostic(SQL_HANDLE_DBC, connection);
    } catch (...) {
      RollBack(link);
      throw;
    }
  }
  link.inTransaction = false;
  const SQLRETURN ended = SetAutocommit(connection, true);
  RestoreIsolation(link);
  Check(ended, SQL_HANDLE_DBC, connection);
}

void Connect(Link& link, OdbcText text) {
  Check(SQLDriverConnectW(link.connection.Get(), nullptr, text.data(),
                          static_cast<SQLSMALLINT>(text.size()), nullptr, 0, nullptr,
                          SQL_DRIVER_NOPROMPT),
        SQL_HANDLE_DBC, link.connection.Get());
  link.isConnected = true;
}

// The first result with columns. All are fetched: those after it may carry the error of a later
// statement.
ResultSet Send(SQLHSTMT statement, OdbcText text, std::atomic<unsigned>& progress) {
  SQLRETURN state = SQLExecDirectW(statement, text.data(), static_cast<SQLINTEGER>(text.size()));
  ResultSet result;
  // A change that affects no row returns SQL_NO_DATA.
  bool isFirst = true;
  for (;;) {
    if (state == SQL_NO_DATA && !isFirst) return result;
    if (state != SQL_NO_DATA) Check(state, SQL_HANDLE_STMT, statement);
    isFirst = false;
    SQLSMALLINT columns = 0;
    Check(SQLNumResultCols(statement, &columns), SQL_HANDLE_STMT, statement);
    if (columns > 0 && result.ColumnCount() == 0) result = FetchAll(statement, columns, progress);
    state = SQLMoreResults(statement);
  }
}

}  // namespace

Link::Link()
    : environment(SQL_HANDLE_ENV, 0, SQL_NULL_HANDLE),
      connection(Prepared(environment), SQL_HANDLE_ENV, environment.Get()) {}

void Link::Disconnect() noexcept {
  if (!std::exchange(isConnected, false)) return;
  // A driver manager may refuse to close a connection that has a transaction.
  if (inTransaction || isHanging) RollBack(*this);
  SQLDisconnect(connection.Get());
}

Statement::Statement(std::shared_ptr<Link> link) : link_(std::move(link)) {
  const SQLHDBC connection = link_->connection.Get();
  Check(SQLAllocHandle(SQL_HANDLE_STMT, connection, &handle_), SQL_HANDLE_DBC, connection);
}

Statement::~Statement() {
  if (!link_->isHanging) SQLFreeHandle(SQL_HANDLE_STMT, handle_);
}

Session::Session(std::string_view connectionString, const ConnectOptions& options)
    : options_(options), link_(std::make_shared<Link>()) {
  const SQLHDBC connection = link_->connection.Get();
  const auto timeout = static_cast<SQLULEN>(options.loginTimeout.count());
  SQLSetConnectAttrW(connection, SQL_ATTR_LOGIN_TIMEOUT, Number(timeout), SQL_IS_UINTEGER);
  if (options.mode == OpenMode::ReadOnly) {
    SQLSetConnectAttrW(connection, SQL_ATTR_ACCESS_MODE, Number(SQL_MODE_READ_ONLY),
                       SQL_IS_UINTEGER);
  }
  OdbcText text = ToOdbc(Utf16FromUtf8(NormalizedConnectionString(connectionString)));
  try {
    Run([link = link_, text] { Connect(*link, text); }, options.loginTimeout);
  } catch (const DatabaseError& error) {
    throw DatabaseError(Utf16FromUtf8(WithoutSecrets(error.what(), connectionString)),
                        error.NativeNumber());
  }
}

Session::~Session() {
  try {
    if (!link_->isHanging) Run([link = link_] { link->Disconnect(); }, options_.loginTimeout);
    // The last owner of a link that hung may have to wait for the server.
    if (link_->isHanging) BackgroundCall([link = std::move(link_)] {});
  } catch (const std::exception&) {
  }
}

void Session::RequireLink() const {
  if (link_->isHanging || link_->isLost) throw DatabaseError(u"[08S01] 与服务器的连接已断开。", 0);
}

void Session::Run(std::function<void()> call) {
  RequireLink();
  Run(std::move(call), options_.statementTimeout);
}

// A key that is still down from the command that sent the statement does not cancel it: the answer
// has to become true.
void Session::Run(std::function<void()> call, seconds limit, const std::function<bool()>& cancels,
                  const std::function<void()>& cancel) {
  // Short enough to see a quick press of a key.
  constexpr milliseconds kInterval{20};
  bool wasAsked = cancels && cancels();
  unsigned progress = link_->progress;
  auto start = steady_clock::now();
  const BackgroundCall running(std::move(call));
  std::unique_ptr<BackgroundCall> cancelling;
  const auto end = [&] {
    if (cancelling != nullptr && options_.afterCancel) options_.afterCancel();
  };
  while (!running.EndsWithin(kInterval) ||
         (cancelling != nullptr && !cancelling->EndsWithin(kInterval))) {
    const bool isAsked = cancels && cancels();
    if (isAsked && !wasAsked && cancelling == nullptr) {
      cancelling = std::make_unique<BackgroundCall>(cancel);
    }
    wasAsked = isAsked;
    const auto now = steady_clock::now();
    if (std::exchange(progress, link_->progress) != progress) start = now;
    if (limit.count() > 0 && now > start + limit + kGrace) {
      link_->isHanging = true;
      end();
      throw DatabaseError(u"[HYT01] 服务器 " + Utf16FromUtf8(std::to_string(limit.count())) +
                              u" 秒没有应答，连接已断开。",
                          0);
    }
  }
  end();
  running.Get();
}

std::shared_ptr<Statement> Session::NewStatement() const {
  RequireLink();
  auto statement = std::make_shared<Statement>(link_);
  const auto limit = static_cast<SQLULEN>(options_.statementTimeout.count());
  SQLSetStmtAttrW(statement->Get(), SQL_ATTR_QUERY_TIMEOUT, Number(limit), SQL_IS_UINTEGER);
  return statement;
}

ResultSet Session::Execute(std::u16string_view text) {
  return Execute(text, options_.statementTimeout, options_.cancels);
}

ResultSet Session::Execute(std::u16string_view text, seconds limit,
                           const std::function<bool()>& cancels) {
  const auto statement = NewStatement();
  const auto result = std::make_shared<ResultSet>();
  Run([link = link_, statement, result,
       sent = ToOdbc(text)] { *result = Send(statement->Get(), sent, link->progress); },
      limit, cancels, [statement] { SQLCancel(statement->Get()); });
  return std::move(*result);
}

bool Session::Answers() noexcept {
  if (link_->isHanging || link_->isLost || IsKnownDead(link_->connection.Get())) return false;
  try {
    Execute(u"SELECT 1", options_.loginTimeout, {});
    return true;
  } catch (const std::exception&) {
    return false;
  }
}

void Session::Begin(Isolation isolation) {
  Run([link = link_, isolation] {
    const SQLHDBC connection = link->connection.Get();
    if (isolation == Isolation::Serializable) MakeSerializable(*link);
    if (!SQL_SUCCEEDED(SetAutocommit(connection, false))) {
      RestoreIsolation(*link);
      ThrowDiagnostic(SQL_HANDLE_DBC, connection);
    }
    link->inTransaction = true;
  });
}

void Session::Commit() {
  Run([link = link_] { odbc::Commit(*link); });
}

void Session::Rollback() noexcept {
  try {
    Run([link = link_] { RollBack(*link); });
  } catch (const std::exception&) {
    // Only of a server that does not answer, which loses the transaction with the connection.
  }
}

std::u16string Session::ServerProduct() {
  const SQLHDBC connection = link_->connection.Get();
  std::array<SQLWCHAR, 128> name{};
  SQLSMALLINT bytes = 0;
  Check(SQLGetInfoW(connection, SQL_DBMS_NAME, name.data(), sizeof(name), &bytes), SQL_HANDLE_DBC,
        connection);
  std::u16string product(name.begin(), name.end());
  return product.substr(0, product.find(u'\0'));
}

}  // namespace workbench::odbc
