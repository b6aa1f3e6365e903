// SQLite's backup in one step, which reads one state of the file, then a rename.
#include "workbench/sample/company_backup.h"

#include <filesystem>

#include "workbench/company/schema.h"
#include "workbench/sample/company_file.h"
#include "workbench/sample/file_path.h"
#include "workbench/sample/sqlite_handle.h"

namespace workbench {
namespace {

namespace fs = std::filesystem;

void Copy(sqlite3* from, sqlite3* to) {
  sqlite3_backup* backup = sqlite3_backup_init(to, "main", from, "main");
  if (backup == nullptr) throw SqliteError(sqlite3_extended_errcode(to), sqlite3_errmsg(to));
  const int copied = sqlite3_backup_step(backup, -1);
  sqlite3_backup_finish(backup);
  if (copied != SQLITE_DONE) throw SqliteError(copied, sqlite3_errstr(copied));
}

void RequireSound(const std::string& path) {
  const Database copy(path, Database::Mode::ReadOnly);
  RequireCompany(copy.get());
  Statement check(copy.get(), "PRAGMA integrity_check");
  if (!check.Step() || check.Text(0) != "ok") {
    throw CompanyFileError("备份文件不完整: " + path);
  }
}

}  // namespace

void BackUpCompanyFile(const std::string& from, const std::string& to) {
  RequireFreeName(to);
  const UnfinishedFile unfinished(to);
  {
    const Database source(from, Database::Mode::ReadOnly);
    RequireCompany(source.get());
    const Database target(unfinished.path(), Database::Mode::Create);
    Copy(source.get(), target.get());
  }
  {
    // The copy of a shared file is in write-ahead mode, too; leave it, so that no log is needed.
    Database target(unfinished.path(), Database::Mode::ReadWrite);
    target.Execute("PRAGMA journal_mode=DELETE");
  }
  RequireSound(unfinished.path());
  // A rename replaces a file that was made during the copy.
  RequireFreeName(to);
  std::error_code error;
  fs::rename(PathFromUtf8(unfinished.path()), PathFromUtf8(to), error);
  if (error) {
    throw CompanyFileError("无法写入文件 " + to + "(错误 " + std::to_string(error.value()) + ")");
  }
}

}  // namespace workbench
