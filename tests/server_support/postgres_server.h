// A private PostgreSQL server on a free port of the loopback interface, for tests of what a real
// server does with logins, transactions and lost connections. It does not know the dialect of the
// library's statements.
#pragma once

#include <sys/types.h>

#include <filesystem>
#include <string>
#include <string_view>

namespace workbench::testing {

class PostgresServer {
 public:
  // The program's one server, started at the first call and stopped with the program; null where
  // it or its ODBC driver is not installed, and then `whyNot` says so. Throws std::runtime_error
  // when it is installed and does not start.
  static PostgresServer* Get(std::string& whyNot);

  ~PostgresServer();
  PostgresServer(const PostgresServer&) = delete;
  PostgresServer& operator=(const PostgresServer&) = delete;

  // The connection string of a new empty database.
  std::string NewDatabase();
  // The same server's connection string with another password.
  static std::string WithPassword(std::string connectionString, std::string_view password);

  void Start();
  void Stop();
  // Suspends the server without closing connections, and resumes it.
  void Freeze() const;
  void Thaw() const;
  // Ends every session but the caller's.
  void CutConnections() const;

  static constexpr std::string_view kPassword = "Geheim-4711";
  int Port() const { return port_; }

 private:
  explicit PostgresServer(std::filesystem::path programs);
  std::string ConnectionString(const std::string& database) const;

  std::filesystem::path programs_;
  std::filesystem::path folder_;
  int port_ = 0;
  int databases_ = 0;
  pid_t process_ = 0;
};

}  // namespace workbench::testing
