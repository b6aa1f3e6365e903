// A company file appears whole or not at all, and replaces no file unless requested.
#include "workbench/sample/company_file.h"

#include <gtest/gtest.h>

#ifndef _WIN32
#include <sys/resource.h>

#include <csignal>
#endif

#include "tests/sample/content_digest.h"
#include "tests/sample/temporary_folder.h"
#include "tests/sample/test_company.h"
#include "workbench/company/schema.h"
#include "workbench/sample/company_info.h"

namespace workbench::testing {
namespace {

using Names = std::set<std::string>;

class CompanyFile : public ::testing::Test {
 protected:
  static CompanyFilePlan Plan(std::uint64_t seed, bool replaces = false) {
    CompanyFilePlan plan;
    plan.seed = seed;
    plan.replaces = replaces;
    return plan;
  }

  static CompanyFilePlan LargePlan(int items, int classes) {
    CompanyFilePlan plan = Plan(1);
    plan.large.emplace();
    plan.large->items = items;
    plan.large->classes = classes;
    return plan;
  }

  std::string RefusalOf(const std::string& name, const CompanyFilePlan& plan) const {
    try {
      CreateCompanyFile(folder_.PathOf(name), plan);
    } catch (const CompanyFileError& error) {
      return error.what();
    }
    return "not refused";
  }

  TemporaryFolder folder_;
};

TEST_F(CompanyFile, HoldsTheSampleCompanyAndLeavesNoOtherFile) {
  const std::string path = folder_.PathOf("示例.db");
  CreateCompanyFile(path, Plan(5));
  EXPECT_EQ(folder_.Names(), (Names{"示例.db"}));
  const Database company(path, Database::Mode::ReadOnly);
  EXPECT_EQ(ContentDigest(company.get()), ContentDigest(SampleCompany(5).get()));
  EXPECT_EQ(Rows(company, "PRAGMA integrity_check"), (std::vector<std::string>{"ok"}));
}

TEST_F(CompanyFile, HoldsACompanyOfTheRequestedSize) {
  CreateCompanyFile(folder_.PathOf("大.db"), LargePlan(1234, 56));
  const Database company(folder_.PathOf("大.db"), Database::Mode::ReadOnly);
  SqliteConnection connection(company.get());
  const CompanyInfo info = ReadCompanyInfo(connection);
  EXPECT_EQ(info.items, 1234);
  EXPECT_EQ(info.classes, 56);
  EXPECT_EQ(ContentDigest(company.get()), ContentDigest(LargeCompany({1, 1234, 56}).get()));
}

TEST_F(CompanyFile, SameSeedMakesTheSameBytes) {
  CreateCompanyFile(folder_.PathOf("a"), Plan(1));
  CreateCompanyFile(folder_.PathOf("b"), Plan(1));
  CreateCompanyFile(folder_.PathOf("c"), Plan(2));
  EXPECT_TRUE(folder_.Read("a") == folder_.Read("b"));
  EXPECT_FALSE(folder_.Read("a") == folder_.Read("c"));
}

TEST_F(CompanyFile, AnExistingFileIsRefusedAndKept) {
  folder_.Write("a.db", "not a company");
  EXPECT_EQ(RefusalOf("a.db", Plan(1)), "文件已存在(使用 --force 覆盖): " + folder_.PathOf("a.db"));
  EXPECT_EQ(folder_.Read("a.db"), "not a company");
  EXPECT_EQ(folder_.Names(), (Names{"a.db"}));
}

TEST_F(CompanyFile, ForceReplacesAnyFile) {
  folder_.Write("a.db", "not a company, but long enough to be looked at as a database");
  CreateCompanyFile(folder_.PathOf("a.db"), Plan(1, true));
  CreateCompanyFile(folder_.PathOf("a.db"), Plan(2, true));
  const Database company(folder_.PathOf("a.db"), Database::Mode::ReadOnly);
  EXPECT_EQ(ContentDigest(company.get()), ContentDigest(SampleCompany(2).get()));
  EXPECT_EQ(folder_.Names(), (Names{"a.db"}));
}

TEST_F(CompanyFile, ForceReplacesNoCompanyThatIsOpenElsewhere) {
  const std::string path = folder_.PathOf("a.db");
  CreateCompanyFile(path, Plan(1));
  Database open(path, Database::Mode::ReadWrite);
  open.Execute("PRAGMA journal_mode=WAL");
  open.Execute("UPDATE t_user SET FName='改名' WHERE FUserID=1");
  EXPECT_EQ(RefusalOf("a.db", Plan(2, true)), "文件正被其他程序使用: " + path);
  EXPECT_EQ(Rows(open, "SELECT FName FROM t_user WHERE FUserID=1"),
            (std::vector<std::string>{"改名"}));
}

TEST_F(CompanyFile, ForceLeavesNoOldLogToBeReplayedIntoTheNewFile) {
  const std::string path = folder_.PathOf("a.db");
  CreateCompanyFile(path, Plan(1));
  {
    // As after a crash: the write-ahead log lies beside the file.
    Database died(path, Database::Mode::ReadWrite);
    died.Execute("PRAGMA journal_mode=WAL");
    died.Execute("UPDATE t_user SET FName='旧日志' WHERE FUserID=1");
    std::filesystem::copy(PathFromUtf8(path + "-wal"), PathFromUtf8(path + "-kept"));
    std::filesystem::copy(PathFromUtf8(path), PathFromUtf8(path + "-main"));
  }
  std::filesystem::rename(PathFromUtf8(path + "-kept"), PathFromUtf8(path + "-wal"));
  std::filesystem::remove(PathFromUtf8(path));
  std::filesystem::rename(PathFromUtf8(path + "-main"), PathFromUtf8(path));

  CreateCompanyFile(path, Plan(2, true));
  EXPECT_EQ(folder_.Names(), (Names{"a.db"}));
  const Database company(path, Database::Mode::ReadOnly);
  EXPECT_EQ(ContentDigest(company.get()), ContentDigest(SampleCompany(2).get()));
}

TEST_F(CompanyFile, AnOldLogBesideAMissingFileIsRefusedAndRemovedByForce) {
  for (const char* log : {"a.db-journal", "a.db-wal", "a.db-shm"}) {
    folder_.Write(log, "of a company that is gone");
    EXPECT_EQ(RefusalOf("a.db", Plan(1)), "旧日志仍在(使用 --force 覆盖): " + folder_.PathOf(log));
    EXPECT_EQ(folder_.Names(), (Names{log}));
    CreateCompanyFile(folder_.PathOf("a.db"), Plan(1, true));
    EXPECT_EQ(folder_.Names(), (Names{"a.db"}));
    std::filesystem::remove(PathFromUtf8(folder_.PathOf("a.db")));
  }
}

TEST_F(CompanyFile, AFolderIsNotReplaced) {
  std::filesystem::create_directory(PathFromUtf8(folder_.PathOf("夹")));
  EXPECT_EQ(RefusalOf("夹", Plan(1, true)), "不是普通文件,不能覆盖: " + folder_.PathOf("夹"));
}

TEST_F(CompanyFile, AMissingFolderFailsAndLeavesNothing) {
  const std::string refusal = RefusalOf("没有/a.db", Plan(1));
  EXPECT_EQ(refusal.find("无法建立公司文件 " + folder_.PathOf("没有/a.db")), 0U) << refusal;
  EXPECT_EQ(folder_.Names(), Names());
}

#ifndef _WIN32
// A full disk, simulated as far as a process can.
class SmallDisk {
 public:
  explicit SmallDisk(rlim_t bytes) : handler_(std::signal(SIGXFSZ, SIG_IGN)) {
    getrlimit(RLIMIT_FSIZE, &before_);
    rlimit limit = before_;
    limit.rlim_cur = bytes;
    setrlimit(RLIMIT_FSIZE, &limit);
  }
  ~SmallDisk() {
    setrlimit(RLIMIT_FSIZE, &before_);
    std::signal(SIGXFSZ, handler_);
  }
  SmallDisk(const SmallDisk&) = delete;
  SmallDisk& operator=(const SmallDisk&) = delete;

 private:
  void (*handler_)(int);
  rlimit before_{};
};

TEST_F(CompanyFile, AFullDiskLeavesNothingBehind) {
  std::string refusal;
  {
    const SmallDisk disk(200000);
    refusal = RefusalOf("a.db", LargePlan(20000, 20));
  }
  EXPECT_EQ(refusal.find("无法建立公司文件 "), 0U) << refusal;
  EXPECT_EQ(folder_.Names(), Names());
}

TEST_F(CompanyFile, AFullDiskKeepsTheFileToBeReplaced) {
  CreateCompanyFile(folder_.PathOf("a.db"), Plan(1));
  const std::string before = folder_.Read("a.db");
  {
    const SmallDisk disk(200000);
    EXPECT_NE(RefusalOf("a.db", Plan(2, true)), "not refused");
  }
  EXPECT_TRUE(folder_.Read("a.db") == before);
  EXPECT_EQ(folder_.Names(), (Names{"a.db"}));
}
#endif

TEST(CompanyInfo, CountsTheSampleCompany) {
  const Database company = SampleCompany(1);
  SqliteConnection connection(company.get());
  const CompanyInfo info = ReadCompanyInfo(connection);
  EXPECT_EQ(info.items, 3200);
  EXPECT_EQ(info.accounts, 185);
  EXPECT_EQ(info.classes, 25);
  EXPECT_EQ(info.classRows, Count(company, "SELECT count(*) FROM icPriceDownClass"));
  EXPECT_EQ(info.currentYear, "2008");
  EXPECT_EQ(info.currentPeriod, "3");
  EXPECT_EQ(info.itemClassType, "1");
  ASSERT_EQ(info.users.size(), 6U);
  EXPECT_EQ(info.users[0].name, "系统管理员");
}

TEST(CompanyInfo, MissingProfilesAreEmpty) {
  Database company = SampleCompany(1);
  company.Execute("DELETE FROM t_systemprofile");
  SqliteConnection connection(company.get());
  const CompanyInfo info = ReadCompanyInfo(connection);
  EXPECT_EQ(info.currentYear, "");
  EXPECT_EQ(info.itemClassType, "");
}

TEST(CompanyInfo, RefusesADatabaseThatIsNotACompany) {
  const Database other(":memory:", Database::Mode::Create);
  SqliteConnection connection(other.get());
  EXPECT_THROW(ReadCompanyInfo(connection), SchemaError);
}

}  // namespace
}  // namespace workbench::testing
