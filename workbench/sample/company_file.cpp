// Fills a temporary file and renames it.
#include "workbench/sample/company_file.h"

#include <filesystem>
#include <random>

#include "workbench/company/sqlite_connection.h"
#include "workbench/sample/file_path.h"
#include "workbench/sample/sample_company.h"
#include "workbench/sample/sqlite_handle.h"

namespace workbench {
namespace {

namespace fs = std::filesystem;

// What SQLite may keep beside a database of that name.
constexpr const char* kCompanions[] = {"-journal", "-wal", "-shm"};

bool Exists(const std::string& path) {
  std::error_code ignored;
  return fs::exists(fs::symlink_status(PathFromUtf8(path), ignored));
}

// Leaving the write-ahead mode merges the log, and fails while another program has the database
// open.
void SettleOldFile(const std::string& path) {
  std::error_code ignored;
  if (!fs::is_regular_file(PathFromUtf8(path), ignored)) {
    throw CompanyFileError("不是普通文件,不能覆盖: " + path);
  }
  try {
    Database old(path, Database::Mode::ReadWrite);
    old.Execute("PRAGMA journal_mode=DELETE");
    old.Execute("BEGIN EXCLUSIVE");
    old.Execute("ROLLBACK");
  } catch (const SqliteError& error) {
    if (error.IsBusy()) throw CompanyFileError("文件正被其他程序使用: " + path);
    if (error.code() != SQLITE_NOTADB) {
      throw CompanyFileError("不能覆盖文件 " + path + ": " + error.what());
    }
  }
  for (const char* companion : kCompanions) {
    if (Exists(path + companion)) {
      throw CompanyFileError("文件正被其他程序使用或上次没有正常关闭: " + path + companion);
    }
  }
}

void RequireReplaceable(const std::string& path, bool replaces) {
  if (!replaces) {
    RequireFreeName(path, "(使用 --force 覆盖)");
  } else if (Exists(path)) {
    SettleOldFile(path);
  }
}

void RemoveLogs(const std::string& path) {
  for (const char* companion : kCompanions) {
    std::error_code error;
    fs::remove(PathFromUtf8(path + companion), error);
    if (error) {
      throw CompanyFileError("无法删除旧日志 " + path + companion + "(错误 " +
                             std::to_string(error.value()) + ")");
    }
  }
}

void Fill(const std::string& path, const CompanyFilePlan& plan) {
  Database database(path, Database::Mode::Create);
  // A failure discards the file, so no rollback journal is needed; the commit still syncs to disk,
  // because the file is renamed right after it.
  database.Execute("PRAGMA journal_mode=OFF");
  database.Execute("PRAGMA synchronous=FULL");
  database.Execute("PRAGMA cache_size=-262144");
  SqliteConnection company(database.get());
  if (plan.large) {
    LargeCompanyPlan large = *plan.large;
    large.seed = plan.seed;
    FillLargeCompany(company, large);
  } else {
    FillSampleCompany(company, plan.seed);
  }
}

}  // namespace

void RequireFreeName(const std::string& path, const std::string& advice) {
  if (Exists(path)) throw CompanyFileError("文件已存在" + advice + ": " + path);
  for (const char* companion : kCompanions) {
    if (Exists(path + companion)) {
      throw CompanyFileError("旧日志仍在" + advice + ": " + path + companion);
    }
  }
}

UnfinishedFile::UnfinishedFile(const std::string& path) {
  std::random_device device;
  path_ = path + ".part-" + std::to_string(device());
}

UnfinishedFile::~UnfinishedFile() {
  std::error_code ignored;
  fs::remove(PathFromUtf8(path_), ignored);
  for (const char* companion : kCompanions) fs::remove(PathFromUtf8(path_ + companion), ignored);
}

void CreateCompanyFile(const std::string& path, const CompanyFilePlan& plan) {
  RequireReplaceable(path, plan.replaces);
  const UnfinishedFile unfinished(path);
  try {
    Fill(unfinished.path(), plan);
  } catch (const SqliteError& error) {
    throw CompanyFileError("无法建立公司文件 " + path + ": " + error.what());
  } catch (const DatabaseError& error) {
    throw CompanyFileError("无法建立公司文件 " + path + ": " + error.what());
  }
  // Filling takes a while: another program may have created the file since.
  RequireReplaceable(path, plan.replaces);
  if (plan.replaces) RemoveLogs(path);
  std::error_code error;
  fs::rename(PathFromUtf8(unfinished.path()), PathFromUtf8(path), error);
  if (error) {
    throw CompanyFileError("无法写入文件 " + path + "(错误 " + std::to_string(error.value()) + ")");
  }
}

}  // namespace workbench
