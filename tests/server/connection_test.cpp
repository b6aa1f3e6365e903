// Login, loss, time limits and transactions at a real server.
#include <gtest/gtest.h>

#include <chrono>
#include <thread>

#include "tests/server_support/server_fixture.h"

namespace workbench::testing {
namespace {

using std::chrono::seconds;
using std::chrono::steady_clock;

std::string FailureOf(const std::string& location, ConnectOptions options = {}) {
  try {
    OpenConnection(location, std::move(options));
  } catch (const DatabaseError& error) {
    return error.what();
  }
  return "opened";
}

// Wide, because the machine may be busy.
constexpr seconds kFarBelowTheSleep{30};

class ServerConnection : public ServerTest {};

TEST_F(ServerConnection, KeepsTextsAndNumbersThroughTheBatchedInsert) {
  const auto connection = Open();
  Execute(*connection, "CREATE TABLE t(a INTEGER,b VARCHAR(80),c FLOAT,d INTEGER)");
  const auto inserter = connection->PrepareInsert("t", "a,b,c,d");
  for (std::int64_t i = 0; i < 1234; ++i) {
    const std::string text = i % 3 == 0 ? "" : "钢板' \\ " + std::to_string(i) + "  ";
    const InsertValue value = i % 7 == 0 ? InsertValue() : InsertValue(std::string_view(text));
    const InsertValue row[] = {i, value, 0.1 * static_cast<double>(i), std::monostate()};
    inserter->Insert(row);
  }
  inserter->Finish();
  const ResultSet rows = Execute(*connection, "SELECT a,b,c,d FROM t ORDER BY a");
  ASSERT_EQ(rows.RowCount(), 1234U);
  for (std::size_t i = 0; i < rows.RowCount(); ++i) {
    EXPECT_EQ(rows.At(i, 0).Integer(), static_cast<std::int64_t>(i));
    EXPECT_EQ(rows.At(i, 1).IsNull(), i % 7 == 0) << i;
    if (i % 7 != 0) {
      EXPECT_EQ(Utf8FromUtf16(rows.At(i, 1).Text()),
                i % 3 == 0 ? "" : "钢板' \\ " + std::to_string(i) + "  ");
    }
    EXPECT_EQ(rows.At(i, 2).Number(), 0.1 * static_cast<double>(i));
    EXPECT_TRUE(rows.At(i, 3).IsNull());
  }
}

TEST_F(ServerConnection, ReportsABadRowOfABatch) {
  const auto connection = Open();
  Execute(*connection, "CREATE TABLE t(a INTEGER PRIMARY KEY)");
  const auto inserter = connection->PrepareInsert("t", "a");
  Transaction transaction(*connection);
  for (const std::int64_t key : {1, 2, 2, 3}) {
    const InsertValue row[] = {key};
    inserter->Insert(row);
  }
  EXPECT_THROW(inserter->Finish(), DatabaseError);
}

TEST_F(ServerConnection, RollsATransactionBackUnlessItIsCommitted) {
  const auto connection = Open();
  Execute(*connection, "CREATE TABLE t(a INTEGER)");
  {
    Transaction transaction(*connection);
    Execute(*connection, "INSERT INTO t VALUES(1)");
  }
  EXPECT_EQ(Number(*connection, "SELECT count(*) FROM t"), 0);
  {
    Transaction transaction(*connection);
    Execute(*connection, "INSERT INTO t VALUES(1)");
    transaction.Commit();
  }
  EXPECT_EQ(Number(*Open(), "SELECT count(*) FROM t"), 1);
}

TEST_F(ServerConnection, ReportsALoginFailureWithoutThePassword) {
  const std::string wrong = FailureOf(PostgresServer::WithPassword(database_, "Falsch-0815"));
  EXPECT_NE(wrong.find("password authentication failed"), std::string::npos) << wrong;
  EXPECT_EQ(wrong.find("Falsch-0815"), std::string::npos) << wrong;
  const std::string down =
      FailureOf("Driver={PostgreSQL Unicode};Server=127.0.0.1;Port=1;Database=x;UID=u;PWD=Geheim");
  EXPECT_NE(down.find("refused"), std::string::npos) << down;
}

TEST_F(ServerConnection, AcceptsConnectionStringsInAnyOrderCaseAndSpacing) {
  const std::string port = std::to_string(server_->Port());
  const std::string name = database_.substr(database_.find("company"), 8);
  const std::string database = name.substr(0, name.find(';'));
  for (const std::string& location :
       {"  server = 127.0.0.1 ; PORT=" + port + "; pwd=" + std::string(PostgresServer::kPassword) +
            ";uid=workbench;Database=" + database + ";  DRIVER = {PostgreSQL Unicode}",
        "UID=workbench;Pwd={" + std::string(PostgresServer::kPassword) +
            "};Servername=127.0.0.1;Port=" + port + ";DATABASE=" + database +
            ";driver=PostgreSQL Unicode;"}) {
    EXPECT_EQ(Number(*OpenConnection(location), "SELECT 7"), 7) << location;
  }
}

TEST_F(ServerConnection, ReconnectsALostConnectionBeforeTheNextText) {
  const auto connection = Open();
  Execute(*connection, "CREATE TABLE t(a INTEGER)");
  server_->CutConnections();
  Execute(*connection, "INSERT INTO t VALUES(1)");
  EXPECT_EQ(Number(*connection, "SELECT count(*) FROM t"), 1);
}

TEST_F(ServerConnection, RefusesPreparedRowsAfterTheirConnectionWasLost) {
  const auto connection = Open();
  Execute(*connection, "CREATE TABLE t(a INTEGER)");
  const auto inserter = connection->PrepareInsert("t", "a");
  const InsertValue row[] = {std::int64_t{1}};
  inserter->Insert(row);
  server_->CutConnections();
  EXPECT_EQ(Number(*connection, "SELECT count(*) FROM t"), 0) << "on a new connection";
  EXPECT_THROW(inserter->Finish(), DatabaseError);
  EXPECT_EQ(Number(*connection, "SELECT count(*) FROM t"), 0);
}

TEST_F(ServerConnection, RecoversWithTheServer) {
  const auto connection = Open();
  server_->Stop();
  for (int i = 0; i < 2; ++i) {
    try {
      Execute(*connection, "SELECT 1");
      ADD_FAILURE() << "a stopped server answered";
    } catch (const DatabaseError& error) {
      EXPECT_EQ(std::string(error.what()).find("与服务器的连接已断开，重新连接失败：["), 0U)
          << error.what();
    }
  }
  server_->Start();
  EXPECT_EQ(Number(*connection, "SELECT 5"), 5);
}

TEST_F(ServerConnection, NeverSendsATextTwiceBecauseTheConnectionWasLost) {
  const auto connection = Open();
  Execute(*connection, "CREATE SEQUENCE sent");  // which no rollback reverts
  EXPECT_THROW(
      Execute(*connection, "SELECT nextval('sent'),pg_terminate_backend(pg_backend_pid())"),
      DatabaseError);
  EXPECT_EQ(Number(*connection, "SELECT last_value FROM sent WHERE is_called"), 1);
}

TEST_F(ServerConnection, LosesATextOfSeveralChangesWholeAndSendsItOnce) {
  const auto connection = Open();
  Execute(*connection, "CREATE TABLE t(a INTEGER)");
  Execute(*connection, "CREATE SEQUENCE sent");  // which no rollback reverts
  constexpr int kChanges = 4;
  for (int lost = 0; lost <= kChanges; ++lost) {
    std::string text = "SELECT nextval('sent')";
    for (int change = 0; change <= kChanges; ++change) {
      text += change == lost ? ";SELECT pg_terminate_backend(pg_backend_pid())"
                             : ";INSERT INTO t VALUES(" + std::to_string(change) + ")";
    }
    EXPECT_THROW(Execute(*connection, text), DatabaseError);
    EXPECT_EQ(Number(*connection, "SELECT count(*) FROM t"), 0) << lost;
    EXPECT_EQ(Number(*connection, "SELECT last_value FROM sent"), lost + 1);
  }
}

TEST_F(ServerConnection, DoesNotReconnectInsideATransaction) {
  const auto connection = Open();
  Execute(*connection, "CREATE TABLE t(a INTEGER)");
  {
    Transaction transaction(*connection);
    Execute(*connection, "INSERT INTO t VALUES(1)");
    server_->CutConnections();
    EXPECT_THROW(Execute(*connection, "INSERT INTO t VALUES(2)"), DatabaseError);
    EXPECT_THROW(transaction.Commit(), DatabaseError);
  }
  EXPECT_EQ(Number(*connection, "SELECT count(*) FROM t"), 0);
}

TEST_F(ServerConnection, RefusesACommitWithoutATransaction) {
  const auto connection = Open();
  const auto failureOfCommit = [&] {
    try {
      connection->Commit();
    } catch (const DatabaseError& error) {
      return std::string(error.what());
    }
    return std::string("committed");
  };
  EXPECT_EQ(failureOfCommit(), "没有要提交的事务。");
  server_->Stop();
  EXPECT_THROW(connection->Begin(), DatabaseError);
  EXPECT_EQ(failureOfCommit(), "没有要提交的事务。");
  connection->Rollback();
  server_->Start();
  EXPECT_EQ(Number(*connection, "SELECT 6"), 6);
}

TEST_F(ServerConnection, ReportsACommitThatTheServerDidNotGet) {
  const auto connection = Open();
  Execute(*connection, "CREATE TABLE t(a INTEGER)");
  connection->Begin();
  Execute(*connection, "INSERT INTO t VALUES(1)");
  server_->Stop();
  EXPECT_THROW(connection->Commit(), DatabaseError);
  connection->Rollback();
  server_->Start();
  EXPECT_EQ(Number(*connection, "SELECT count(*) FROM t"), 0);
}

TEST_F(ServerConnection, ClosesWithAnOpenTransaction) {
  const auto other = Open();
  Execute(*other, "CREATE TABLE t(a INTEGER)");
  {
    const auto connection = Open();
    connection->Begin();
    Execute(*connection, "INSERT INTO t VALUES(1)");
  }
  const auto sessions = [&] {
    return Number(*other,
                  "SELECT count(*) FROM pg_stat_activity WHERE datname=current_database() "
                  "AND backend_type='client backend'");
  };
  // The server ends the session a moment after the client.
  for (int i = 0; i < 50 && sessions() > 1; ++i) Execute(*other, "SELECT pg_sleep(0.1)");
  EXPECT_EQ(sessions(), 1);
  EXPECT_EQ(Number(*other, "SELECT count(*) FROM t"), 0);
}

TEST_F(ServerConnection, TimesOutALoginWithoutAReply) {
  server_->Freeze();
  ConnectOptions options;
  options.loginTimeout = seconds(2);
  const auto start = steady_clock::now();
  const std::string failure = FailureOf(database_, options);
  const auto waited = steady_clock::now() - start;
  server_->Thaw();
  EXPECT_NE(failure, "opened");
  EXPECT_GE(waited, seconds(1));
  EXPECT_LT(waited, seconds(30));
}

TEST_F(ServerConnection, EndsAStatementAtItsTimeLimit) {
  ConnectOptions options;
  options.statementTimeout = seconds(1);
  const auto connection = Open(options);
  const auto start = steady_clock::now();
  EXPECT_THROW(Execute(*connection, "SELECT pg_sleep(60)"), DatabaseError);
  EXPECT_LT(steady_clock::now() - start, kFarBelowTheSleep);
  EXPECT_EQ(Number(*connection, "SELECT 3"), 3);
}

TEST_F(ServerConnection, CancelsARunningStatementWhenAsked) {
  const auto start = steady_clock::now();
  ConnectOptions options;
  options.cancels = [start] { return steady_clock::now() - start > seconds(1); };
  const auto connection = Open(options);
  try {
    Execute(*connection, "SELECT pg_sleep(60)");
    ADD_FAILURE() << "not cancelled";
  } catch (const DatabaseError& error) {
    EXPECT_NE(std::string(error.what()).find("cancel"), std::string::npos) << error.what();
  }
  EXPECT_LT(steady_clock::now() - start, kFarBelowTheSleep);
}

TEST_F(ServerConnection, ReportsTheEndOfEachStatementThatWasToBeCancelled) {
  bool isAsked = false;
  int ends = 0;
  ConnectOptions options;
  // Asked after the statement has begun.
  options.cancels = [&isAsked, answers = 0]() mutable { return isAsked && ++answers % 20 == 0; };
  options.afterCancel = [&ends] { ++ends; };
  const auto connection = Open(options);
  Execute(*connection, "SELECT pg_sleep(0.1)");
  EXPECT_EQ(ends, 0);
  isAsked = true;
  EXPECT_THROW(Execute(*connection, "SELECT pg_sleep(20)"), DatabaseError);
  EXPECT_EQ(ends, 1);
  // The server may be done before it hears of it.
  Execute(*connection, "SELECT 1");
  EXPECT_EQ(ends, 1);
}

TEST_F(ServerConnection, SeesAShortPressOfTheCancelKey) {
  int answers = 0;
  ConnectOptions options;
  options.cancels = [&answers] { return ++answers < 0; };
  Execute(*Open(options), "SELECT pg_sleep(1)");
  EXPECT_GT(answers, 20);
}

TEST_F(ServerConnection, KeepsNothingOfATextThatIsCancelled) {
  bool isAsked = false;
  ConnectOptions options;
  // Pressed again and again: a slow server may have done a statement before it hears of the key.
  options.cancels = [&isAsked, answers = 0]() mutable { return isAsked && ++answers % 20 == 0; };
  const auto connection = Open(options);
  Execute(*connection, "CREATE TABLE t(a INTEGER)");
  isAsked = true;
  EXPECT_THROW(
      Execute(*connection, "INSERT INTO t VALUES(1);INSERT INTO t VALUES(2);SELECT pg_sleep(20)"),
      DatabaseError);
  isAsked = false;
  const auto other = Open();
  EXPECT_EQ(Number(*other, "SELECT count(*) FROM t"), 0);
  EXPECT_EQ(Number(*other,
                   "SELECT count(*) FROM pg_stat_activity WHERE datname=current_database() "
                   "AND state LIKE 'idle in transaction%'"),
            0);
}

TEST_F(ServerConnection, IgnoresACancelKeyThatWasDownBeforeTheStatement) {
  ConnectOptions options;
  options.cancels = [] { return true; };
  EXPECT_EQ(Number(*Open(options), "SELECT 4 FROM pg_sleep(0.5)"), 4);
}

// Two programs that rewrite the rows of one class at the same time, as a save does.
TEST_F(ServerConnection, SeveralChangesOfOneTextComeOneAfterTheOther) {
  const auto first = Open();
  const auto second = Open();
  Execute(*first, "CREATE TABLE c(n VARCHAR(80),name VARCHAR(80),i INTEGER)");
  const auto save = [](Connection& connection, const std::string& name) {
    std::string text = "delete from c where n='01'";
    for (int i = 0; i < 300; ++i) {
      text += ";INSERT INTO c(n,name,i)VALUES('01','" + name + "'," + std::to_string(i) + ")";
    }
    for (int round = 0; round < 6; ++round) Execute(connection, text);
  };
  std::thread other([&] { save(*second, "乙"); });
  save(*first, "甲");
  other.join();
  EXPECT_EQ(Number(*first, "SELECT count(*) FROM c"), 300);
  EXPECT_EQ(Number(*first, "SELECT count(DISTINCT name) FROM c"), 1);
}

TEST_F(ServerConnection, KeepsItsIsolationAfterATextOfSeveralChanges) {
  Execute(*Open(),
          "DO $$BEGIN EXECUTE format('ALTER DATABASE %I SET default_transaction_isolation=%L',"
          "current_database(),'repeatable read');END$$");
  bool isAsked = false;
  ConnectOptions options;
  options.cancels = [&isAsked, answers = 0]() mutable { return isAsked && ++answers > 3; };
  const auto connection = Open(options);
  const auto isolation = [&] {
    return Utf8FromUtf16(Execute(*connection, "SHOW transaction_isolation").At(0, 0).Text());
  };
  Execute(*connection, "CREATE TABLE t(a INTEGER PRIMARY KEY)");
  EXPECT_EQ(isolation(), "repeatable read");
  Execute(*connection,
          "CREATE TABLE seen AS SELECT ''::text AS isolation;INSERT INTO t VALUES(1);"
          "INSERT INTO seen SELECT current_setting('transaction_isolation')");
  EXPECT_EQ(Number(*connection, "SELECT count(*) FROM seen WHERE isolation='serializable'"), 1);
  EXPECT_EQ(isolation(), "repeatable read") << "committed";
  EXPECT_THROW(Execute(*connection, "INSERT INTO t VALUES(2);INSERT INTO t VALUES(2)"),
               DatabaseError);
  EXPECT_EQ(isolation(), "repeatable read") << "failed";
  isAsked = true;
  EXPECT_THROW(
      Execute(*connection, "INSERT INTO t VALUES(3);INSERT INTO t VALUES(4);SELECT pg_sleep(20)"),
      DatabaseError);
  isAsked = false;
  EXPECT_EQ(isolation(), "repeatable read") << "rolled back";
  {
    Transaction transaction(*connection);
    EXPECT_EQ(isolation(), "repeatable read") << "a transaction of the caller's own";
  }
  EXPECT_EQ(isolation(), "repeatable read");
}

TEST_F(ServerConnection, AFailureOfALaterChangeReachesTheCaller) {
  const auto connection = Open();
  Execute(*connection, "CREATE TABLE t(a INTEGER PRIMARY KEY)");
  EXPECT_THROW(Execute(*connection, "INSERT INTO t VALUES(1);INSERT INTO t VALUES(1)"),
               DatabaseError);
  // The next text is in no transaction of the failed one.
  Execute(*connection, "INSERT INTO t VALUES(2)");
  EXPECT_EQ(Number(*Open(), "SELECT count(*) FROM t WHERE a=2"), 1);
}

}  // namespace
}  // namespace workbench::testing
