// Starts the distribution's server as a child that ends with the test program. Its programs refuse
// to run as root; then they run as the user that the package made.
#include "tests/server_support/postgres_server.h"

#include <arpa/inet.h>
#include <fcntl.h>
#include <netinet/in.h>
#include <pwd.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <fstream>
#include <memory>
#include <stdexcept>
#include <thread>
#include <vector>

#include "workbench/company/connection.h"
#include "workbench/company/utf.h"

namespace workbench::testing {
namespace {

namespace fs = std::filesystem;

constexpr const char* kDriverSection = "[PostgreSQL Unicode]";
constexpr const char* kUnprivilegedUser = "postgres";

fs::path FindPrograms() {
  fs::path found;
  std::error_code ignored;
  for (const auto& version : fs::directory_iterator("/usr/lib/postgresql", ignored)) {
    if (fs::exists(version.path() / "bin/initdb")) found = std::max(found, version.path() / "bin");
  }
  return found;
}

bool HasDriver() {
  std::ifstream file("/etc/odbcinst.ini");
  const std::string text{std::istreambuf_iterator<char>(file), {}};
  return text.find(kDriverSection) != std::string::npos;
}

int FreePort() {
  const int probe = socket(AF_INET, SOCK_STREAM, 0);
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  socklen_t size = sizeof(address);
  auto* generic = reinterpret_cast<sockaddr*>(&address);
  const bool known = bind(probe, generic, size) == 0 && getsockname(probe, generic, &size) == 0;
  close(probe);
  if (!known) throw std::runtime_error("no free port");
  return ntohs(address.sin_port);
}

// Null where programs run as the user that runs the tests.
const passwd* ServerUser() { return geteuid() == 0 ? getpwnam(kUnprivilegedUser) : nullptr; }

// In the child: nothing that allocates. Ends with the parent.
[[noreturn]] void Become(const passwd* user, const char* log, char* const* words) {
  const bool changed = user == nullptr || (setgid(user->pw_gid) == 0 && setuid(user->pw_uid) == 0);
  prctl(PR_SET_PDEATHSIG, SIGQUIT);
  const int output = open(log, O_WRONLY | O_CREAT | O_APPEND, 0600);
  if (changed && output >= 0 && chdir("/") == 0) {
    dup2(output, STDOUT_FILENO);
    dup2(output, STDERR_FILENO);
    execv(words[0], words);
  }
  _exit(127);
}

pid_t StartProgram(std::vector<std::string> words, const fs::path& log) {
  const passwd* user = ServerUser();
  std::vector<char*> pointers;
  for (std::string& word : words) pointers.push_back(word.data());
  pointers.push_back(nullptr);
  const std::string logName = log.string();
  const pid_t process = fork();
  if (process == 0) Become(user, logName.c_str(), pointers.data());
  if (process < 0) throw std::runtime_error("fork failed");
  return process;
}

void RunProgram(std::vector<std::string> words, const fs::path& log) {
  const std::string name = words.front();
  const pid_t process = StartProgram(std::move(words), log);
  int status = 0;
  waitpid(process, &status, 0);
  if (status != 0) throw std::runtime_error(name + " failed, see " + log.string());
}

// Whether the user may pass through the folder and all above it.
bool CanReach(const passwd& user, fs::path folder) {
  for (;; folder = folder.parent_path()) {
    struct stat found {};
    if (stat(folder.c_str(), &found) != 0) return false;
    const mode_t needed = found.st_uid == user.pw_uid   ? S_IXUSR
                          : found.st_gid == user.pw_gid ? S_IXGRP
                                                        : S_IXOTH;
    if ((found.st_mode & needed) == 0) return false;
    if (folder == folder.root_path()) return true;
  }
}

// The build folder. Below a folder that is closed to the server's user, as a home folder may be,
// nothing can be opened to it: then the system's folder for temporary files.
fs::path FolderForServers() {
  const fs::path build = fs::read_symlink("/proc/self/exe").parent_path().parent_path();
  const passwd* user = ServerUser();
  return user == nullptr || CanReach(*user, build) ? build : fs::temp_directory_path();
}

}  // namespace

PostgresServer* PostgresServer::Get(std::string& whyNot) {
  static std::unique_ptr<PostgresServer> server;
  if (server != nullptr) return server.get();
  const fs::path programs = FindPrograms();
  if (programs.empty()) {
    whyNot = "no PostgreSQL server on this machine";
  } else if (!HasDriver()) {
    whyNot = "no ODBC driver of PostgreSQL on this machine";
  } else if (geteuid() == 0 && getpwnam(kUnprivilegedUser) == nullptr) {
    whyNot = "the server does not run as root and there is no user for it";
  } else {
    server.reset(new PostgresServer(programs));
  }
  return server.get();
}

PostgresServer::PostgresServer(fs::path programs) : programs_(std::move(programs)) {
  std::string name = (FolderForServers() / "server-XXXXXX").string();
  if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("no folder for the server");
  folder_ = name;
  std::ofstream(folder_ / "password") << kPassword << '\n';
  const passwd* user = ServerUser();
  if (user != nullptr) {
    for (const fs::path& path : {folder_, folder_ / "password"}) {
      if (chown(path.c_str(), user->pw_uid, user->pw_gid) != 0) {
        throw std::runtime_error("the server's folder cannot be given to its user");
      }
    }
  }
  RunProgram(
      {programs_ / "initdb", "-D", folder_ / "data", "-U", "workbench", "--auth=scram-sha-256",
       "--pwfile=" + (folder_ / "password").string(), "-E", "UTF8", "--no-locale", "--no-sync"},
      folder_ / "log");
  port_ = FreePort();
  Start();
}

PostgresServer::~PostgresServer() {
  Stop();
  std::error_code ignored;
  fs::remove_all(folder_, ignored);
}

void PostgresServer::Start() {
  process_ =
      StartProgram({programs_ / "postgres", "-D", folder_ / "data", "-p", std::to_string(port_),
                    "-c", "listen_addresses=127.0.0.1", "-c", "unix_socket_directories=", "-c",
                    "fsync=off", "-c", "full_page_writes=off", "-c", "max_connections=30", "-c",
                    "autovacuum=off", "-c", "track_commit_timestamp=on"},
                   folder_ / "log");
  const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(30);
  for (;;) {
    try {
      OpenConnection(ConnectionString("postgres"));
      return;
    } catch (const DatabaseError&) {
      if (std::chrono::steady_clock::now() > end) throw;
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
  }
}

void PostgresServer::Stop() {
  if (process_ == 0) return;
  kill(process_, SIGCONT);
  kill(process_, SIGQUIT);
  waitpid(process_, nullptr, 0);
  process_ = 0;
}

void PostgresServer::Freeze() const { kill(process_, SIGSTOP); }

void PostgresServer::Thaw() const { kill(process_, SIGCONT); }

void PostgresServer::CutConnections() const {
  OpenConnection(ConnectionString("postgres"))
      ->Execute(
          u"SELECT count(pg_terminate_backend(pid,5000)) FROM pg_stat_activity "
          u"WHERE pid<>pg_backend_pid() AND backend_type='client backend'");
}

std::string PostgresServer::NewDatabase() {
  const std::string name = "company" + std::to_string(++databases_);
  OpenConnection(ConnectionString("postgres"))
      ->Execute(Utf16FromUtf8("CREATE DATABASE " + name + " TEMPLATE template0"));
  return ConnectionString(name);
}

std::string PostgresServer::WithPassword(std::string connectionString, std::string_view password) {
  const std::size_t at = connectionString.find(kPassword);
  return connectionString.replace(at, kPassword.size(), password);
}

std::string PostgresServer::ConnectionString(const std::string& database) const {
  return "Driver={PostgreSQL Unicode};Server=127.0.0.1;Port=" + std::to_string(port_) +
         ";Database=" + database + ";UID=workbench;PWD=" + std::string(kPassword);
}

}  // namespace workbench::testing
