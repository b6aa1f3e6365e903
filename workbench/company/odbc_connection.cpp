// When a text is sent, and in which transaction. The login is in odbc_session.cpp.
#include "workbench/company/odbc_connection.h"

#include <random>
#include <thread>
#include <utility>

#include "workbench/company/odbc_inserter.h"
#include "workbench/company/odbc_session.h"
#include "workbench/company/schema.h"
#include "workbench/company/server_schema.h"
#include "workbench/company/tokenizer.h"
#include "workbench/company/utf.h"

namespace workbench {
namespace {

// Two or more statements that change rows. A text that cannot be read counts as several.
bool HoldsSeveralChanges(std::u16string_view text) {
  Tokenizer tokens(text);
  int changes = 0;
  try {
    for (Token token = tokens.Next(); token.kind != TokenKind::End; token = tokens.Next()) {
      const bool isChange =
          token.IsKeyword(u"insert") || token.IsKeyword(u"update") || token.IsKeyword(u"delete");
      if (isChange && ++changes == 2) return true;
    }
  } catch (const DatabaseError&) {
    return true;
  }
  return false;
}

bool IsMissingTable(const DatabaseError& error) {
  const std::u16string_view state = odbc::StateOf(error);
  if (state == u"42S02" || state == u"42P01" || state == u"S0002") return true;
  // A driver of one process's database knows no states.
  return state == u"HY000" && error.Message().find(u"no such table") != std::u16string::npos;
}

// Waits longer with every attempt, by a random share so that two programs do not collide again.
void WaitForTheOther(int attempt) {
  static thread_local std::minstd_rand random(std::random_device{}());
  std::this_thread::sleep_for(std::chrono::milliseconds(1 + random() % (20U << attempt)));
}

}  // namespace

class OdbcConnection::Session {
 public:
  Session(std::string_view connectionString, ConnectOptions options)
      : connectionString_(connectionString), options_(std::move(options)) {
    LogIn(u"无法连接服务器：");
  }

  // The login, reopened if it is lost.
  const std::shared_ptr<odbc::Session>& Alive() {
    if (session_ != nullptr && (inTransaction_ || session_->Answers())) return session_;
    session_.reset();
    LogIn(u"与服务器的连接已断开，重新连接失败：");
    return session_;
  }

  ResultSet Execute(std::u16string_view text) {
    odbc::Session& session = *Alive();
    if (inTransaction_ || !HoldsSeveralChanges(text)) return session.Execute(text);
    constexpr int kAttempts = 8;
    for (int attempt = 1;; ++attempt) {
      try {
        return ExecuteTogether(session, text);
      } catch (const DatabaseError& error) {
        if (!odbc::IsConflict(error) || attempt == kAttempts) throw;
      }
      WaitForTheOther(attempt);
    }
  }

  void Begin() {
    Alive()->Begin(odbc::Session::Isolation::Default);
    inTransaction_ = true;
  }

  void Commit() {
    if (!std::exchange(inTransaction_, false)) throw DatabaseError(u"没有要提交的事务。", 0);
    session_->Commit();
  }

  void Rollback() noexcept {
    if (!std::exchange(inTransaction_, false)) return;
    session_->Rollback();
  }

 private:
  void LogIn(const std::u16string& failure) {
    try {
      session_ = std::make_shared<odbc::Session>(connectionString_, options_);
    } catch (const DatabaseError& error) {
      throw DatabaseError(failure + error.Message(), error.NativeNumber());
    }
  }

  static ResultSet ExecuteTogether(odbc::Session& session, std::u16string_view text) {
    session.Begin(odbc::Session::Isolation::Serializable);
    ResultSet result;
    try {
      result = session.Execute(text);
    } catch (const DatabaseError& error) {
      if (odbc::IsConflict(error) || odbc::IsInterruption(error)) {
        session.Rollback();
        throw;
      }
      // Commits what the server has kept of the earlier statements; the failure is reported.
      try {
        session.Commit();
      } catch (const DatabaseError&) {
      }
      throw;
    } catch (...) {
      session.Rollback();
      throw;
    }
    session.Commit();
    return result;
  }

  std::string connectionString_;
  ConnectOptions options_;
  std::shared_ptr<odbc::Session> session_;  // null while a new login has failed
  bool inTransaction_ = false;              // then there is a session
};

OdbcConnection::OdbcConnection(std::string_view connectionString, ConnectOptions options)
    : session_(std::make_unique<Session>(connectionString, std::move(options))) {}

OdbcConnection::~OdbcConnection() = default;

ResultSet OdbcConnection::Execute(std::u16string_view text) { return session_->Execute(text); }

void OdbcConnection::Begin() { session_->Begin(); }

void OdbcConnection::Commit() { session_->Commit(); }

void OdbcConnection::Rollback() noexcept { session_->Rollback(); }

std::unique_ptr<RowInserter> OdbcConnection::PrepareInsert(std::string_view table,
                                                           std::string_view columns) {
  return std::make_unique<odbc::Inserter>(session_->Alive(), table, columns);
}

void OdbcConnection::CreateTables() {
  const std::string product = Utf8FromUtf16(session_->Alive()->ServerProduct());
  for (const std::string& table : ServerTables(product)) Execute(Utf16FromUtf8(table));
}

void OdbcConnection::CreateIndexes() {
  for (const std::string& index : ServerIndexes()) Execute(Utf16FromUtf8(index));
}

std::vector<std::string_view> OdbcConnection::MissingTables() {
  std::vector<std::string_view> missing;
  for (const std::string_view table : kCompanyTables) {
    try {
      Execute(u"SELECT * FROM " + Utf16FromUtf8(table) + u" WHERE 1=0");
    } catch (const DatabaseError& error) {
      if (!IsMissingTable(error)) throw;
      missing.push_back(table);
    }
  }
  return missing;
}

void OdbcConnection::RequireCompany() {
  const std::vector<std::string_view> missing = MissingTables();
  if (missing.empty()) return;
  throw SchemaError("不是公司数据库,没有表 " + std::string(missing.front()));
}

}  // namespace workbench
