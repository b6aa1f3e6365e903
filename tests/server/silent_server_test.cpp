// A server that accepts everything and answers nothing any more: every call ends at its time limit,
// without the user, and the connection works again with the server.
#include <gtest/gtest.h>

#include <chrono>
#include <functional>
#include <thread>

#include "tests/server_support/server_fixture.h"
#include "tests/server_support/silent_proxy.h"

namespace workbench::testing {
namespace {

using std::chrono::seconds;
using std::chrono::steady_clock;

constexpr seconds kLogin{1};
constexpr seconds kStatement{1};
constexpr seconds kGrace{3};  // two of the connection's, one of a busy machine

class SilentServer : public ServerTest {
 protected:
  void SetUp() override {
    ServerTest::SetUp();
    if (IsSkipped()) return;
    proxy_ = std::make_unique<SilentProxy>(server_->Port());
    const std::string port = "Port=" + std::to_string(server_->Port());
    database_.replace(database_.find(port), port.size(), "Port=" + std::to_string(proxy_->Port()));
    options_.loginTimeout = kLogin;
    options_.statementTimeout = kStatement;
  }

  // The failure of a call that meets the silence, which must end within the limit.
  std::string FailureWithin(seconds limit, const std::function<void()>& call) {
    const auto start = steady_clock::now();
    std::string failure;
    try {
      call();
      ADD_FAILURE() << "answered";
    } catch (const DatabaseError& error) {
      failure = error.what();
    }
    const auto waited = steady_clock::now() - start;
    EXPECT_TRUE(proxy_->IsSilent()) << failure;
    EXPECT_GE(waited, kLogin);
    EXPECT_LT(waited, limit + kGrace) << failure;
    return failure;
  }
  void ExpectItWorksAgain(Connection& connection) {
    proxy_->Recover();
    EXPECT_EQ(Number(connection, "SELECT 7"), 7);
  }

  std::unique_ptr<SilentProxy> proxy_;
  ConnectOptions options_;
};

TEST_F(SilentServer, EndsALoginThatIsNotAccepted) {
  proxy_->FallSilentAt("");
  EXPECT_NE(FailureWithin(kLogin, [&] { Open(options_); }).find("无法连接服务器："),
            std::string::npos);
}

TEST_F(SilentServer, EndsALoginWhoseFirstQueryIsNotAnswered) {
  // What the driver asks once the password is accepted.
  proxy_->FallSilentAt("DateStyle");
  const std::string failure = FailureWithin(kLogin, [&] { Open(options_); });
  EXPECT_EQ(failure, "无法连接服务器：[HYT01] 服务器 1 秒没有应答，连接已断开。");
}

TEST_F(SilentServer, EndsTheProbeAndTheNewLogin) {
  const auto connection = Open(options_);
  proxy_->FallSilentAt("SELECT 1");
  const std::string failure =
      FailureWithin(2 * (kLogin + kGrace), [&] { Execute(*connection, "SELECT 2"); });
  EXPECT_EQ(failure.find("与服务器的连接已断开，重新连接失败："), 0U) << failure;
  ExpectItWorksAgain(*connection);
}

TEST_F(SilentServer, EndsAStatement) {
  const auto connection = Open(options_);
  proxy_->FallSilentAt("SELECT 2");
  EXPECT_EQ(FailureWithin(kStatement, [&] { Execute(*connection, "SELECT 2"); }),
            "[HYT01] 服务器 1 秒没有应答，连接已断开。");
  ExpectItWorksAgain(*connection);
}

TEST_F(SilentServer, EndsACancelledStatement) {
  const auto start = steady_clock::now();
  options_.cancels = [start] { return steady_clock::now() - start > seconds(1); };
  const auto connection = Open(options_);
  proxy_->FallSilentAt("SELECT 2");
  FailureWithin(kStatement, [&] { Execute(*connection, "SELECT 2"); });
  ExpectItWorksAgain(*connection);
}

TEST_F(SilentServer, EndsTheStartOfATransaction) {
  const auto connection = Open(options_);
  Execute(*connection, "CREATE TABLE t(a INTEGER)");
  proxy_->FallSilentAt("SERIALIZABLE");
  FailureWithin(kStatement,
                [&] { Execute(*connection, "INSERT INTO t VALUES(1);INSERT INTO t VALUES(2)"); });
  ExpectItWorksAgain(*connection);
  EXPECT_EQ(Number(*connection, "SELECT count(*) FROM t"), 0);
}

TEST_F(SilentServer, EndsATextOfSeveralChangesAndItsRollback) {
  const auto connection = Open(options_);
  Execute(*connection, "CREATE TABLE t(a INTEGER)");
  proxy_->FallSilentAt("INSERT");
  FailureWithin(kStatement,
                [&] { Execute(*connection, "INSERT INTO t VALUES(1);INSERT INTO t VALUES(2)"); });
  ExpectItWorksAgain(*connection);
  EXPECT_EQ(Number(*connection, "SELECT count(*) FROM t"), 0);
}

TEST_F(SilentServer, EndsACommitWithoutAnAnswer) {
  const auto connection = Open(options_);
  Execute(*connection, "CREATE TABLE t(a INTEGER)");
  proxy_->FallSilentAt("COMMIT");
  FailureWithin(kStatement,
                [&] { Execute(*connection, "INSERT INTO t VALUES(1);INSERT INTO t VALUES(2)"); });
  ExpectItWorksAgain(*connection);
  EXPECT_EQ(Number(*connection, "SELECT count(*) FROM t"), 0);
}

TEST_F(SilentServer, EndsABatchOfRowsAndItsTransaction) {
  const auto connection = Open(options_);
  Execute(*connection, "CREATE TABLE t(a INTEGER)");
  FailureWithin(kStatement, [&] {
    Transaction transaction(*connection);
    const auto inserter = connection->PrepareInsert("t", "a");
    proxy_->FallSilentAt("INSERT");
    for (std::int64_t i = 0; i < 1000; ++i) {
      const InsertValue row[] = {i};
      inserter->Insert(row);
    }
    inserter->Finish();
    transaction.Commit();
  });
  ExpectItWorksAgain(*connection);
  EXPECT_EQ(Number(*connection, "SELECT count(*) FROM t"), 0);
}

TEST_F(SilentServer, LeavesNoTransactionWhenTheServerAnswersLater) {
  const auto connection = Open(options_);
  Execute(*connection, "CREATE TABLE t(a INTEGER)");
  const auto otherSessions = [&] {
    return Number(*connection,
                  "SELECT count(*) FROM pg_stat_activity WHERE datname=current_database() "
                  "AND pid<>pg_backend_pid()");
  };
  proxy_->FallSilentAt("VALUES(2)");
  FailureWithin(kStatement, [&] {
    Transaction transaction(*connection);
    Execute(*connection, "INSERT INTO t VALUES(1)");
    Execute(*connection, "INSERT INTO t VALUES(2)");
  });
  proxy_->Resume();
  const auto end = steady_clock::now() + seconds(10);
  while (otherSessions() > 0 && steady_clock::now() < end) {
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
  }
  EXPECT_EQ(otherSessions(), 0);
  EXPECT_EQ(Number(*connection, "SELECT count(*) FROM t"), 0);
}

TEST_F(SilentServer, ClosesWithinTheLimitOfALogin) {
  auto connection = Open(options_);
  proxy_->FallSilentAt("");
  const auto start = steady_clock::now();
  connection.reset();
  EXPECT_LT(steady_clock::now() - start, kLogin + kGrace);
}

}  // namespace
}  // namespace workbench::testing
