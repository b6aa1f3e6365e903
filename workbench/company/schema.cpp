// The DDL of the company database, written out whole.
#include "workbench/company/schema.h"

namespace workbench {
namespace {

// Declared types are the server's: their kinds and widths are what a recordset shows. Text
// columns compare as the suite's server does. In the two tables that the library writes, a
// value that does not fit is refused while the statement runs, as the server refuses it. Only
// the suite's own keys are unique: nothing here enforces the rules of item classes, because
// the suite's database does not either.
constexpr const char* kFileTables = R"sql(
CREATE TABLE icPriceDownClass(
  FItemID INTEGER NOT NULL CHECK(typeof(FItemID)='integer'),
  FItemClassNumber NVARCHAR(80) NOT NULL COLLATE CHINESE_CI_PAD
    CHECK(length(FItemClassNumber)<=80),
  FItemClassName NVARCHAR(80) COLLATE CHINESE_CI_PAD CHECK(length(FItemClassName)<=80),
  FAPAccID INTEGER CHECK(typeof(FAPAccID) IN('integer','null')),
  FAPNumber NVARCHAR(80) COLLATE CHINESE_CI_PAD CHECK(length(FAPNumber)<=80),
  FARAccID INTEGER CHECK(typeof(FARAccID) IN('integer','null')),
  FARNumber NVARCHAR(80) COLLATE CHINESE_CI_PAD CHECK(length(FARNumber)<=80),
  FPencentPrepare FLOAT CHECK(typeof(FPencentPrepare) IN('real','null')));

CREATE TABLE ICPriceDownPrepare(
  FItemID INTEGER NOT NULL CHECK(typeof(FItemID)='integer'),
  FYear INTEGER NOT NULL CHECK(typeof(FYear)='integer'),
  FPeriod INTEGER NOT NULL CHECK(typeof(FPeriod)='integer'),
  FHaveAdd FLOAT CHECK(typeof(FHaveAdd) IN('real','null')),
  FCurrentAdd FLOAT CHECK(typeof(FCurrentAdd) IN('real','null')));

CREATE TABLE t_voucher(
  FVoucherID INTEGER PRIMARY KEY,
  FYear INTEGER NOT NULL,
  FPeriod INTEGER NOT NULL,
  FDate NVARCHAR(10),
  FGroup NVARCHAR(20) COLLATE CHINESE_CI_PAD,
  FNumber INTEGER,
  FTranType INTEGER,
  FInternalInd NVARCHAR(20) COLLATE CHINESE_CI_PAD,
  FExplanation NVARCHAR(255) COLLATE CHINESE_CI_PAD);

CREATE TABLE t_ICItem(
  FItemID INTEGER PRIMARY KEY,
  FNumber NVARCHAR(80) COLLATE CHINESE_CI_PAD,
  FShortNumber NVARCHAR(80) COLLATE CHINESE_CI_PAD,
  FName NVARCHAR(80) COLLATE CHINESE_CI_PAD,
  FModel NVARCHAR(255) COLLATE CHINESE_CI_PAD,
  FErpClsID INTEGER NOT NULL,
  FUnitName NVARCHAR(80) COLLATE CHINESE_CI_PAD,
  FPlanPrice FLOAT,
  FSalePrice FLOAT);

CREATE TABLE t_account(
  FAccountID INTEGER PRIMARY KEY,
  FNumber NVARCHAR(80) NOT NULL COLLATE CHINESE_CI_PAD,
  FName NVARCHAR(80) COLLATE CHINESE_CI_PAD,
  FLevel INTEGER NOT NULL,
  FParentID INTEGER NOT NULL,
  FDetail INTEGER NOT NULL,
  FDC INTEGER NOT NULL);

CREATE TABLE t_systemprofile(
  FCategory NVARCHAR(80) NOT NULL COLLATE CHINESE_CI_PAD,
  FKey NVARCHAR(80) NOT NULL COLLATE CHINESE_CI_PAD,
  FValue NVARCHAR(255) COLLATE CHINESE_CI_PAD);

CREATE TABLE t_UserSetting(
  FUserID INTEGER NOT NULL,
  FCategory NVARCHAR(80) NOT NULL COLLATE CHINESE_CI_PAD,
  FKey NVARCHAR(80) NOT NULL COLLATE CHINESE_CI_PAD,
  FValue NVARCHAR(255) COLLATE CHINESE_CI_PAD);

CREATE TABLE t_user(
  FUserID INTEGER PRIMARY KEY,
  FName NVARCHAR(80) NOT NULL COLLATE CHINESE_CI_PAD,
  FDescription NVARCHAR(255) COLLATE CHINESE_CI_PAD);

CREATE TABLE t_UserRight(
  FUserID INTEGER NOT NULL,
  FObjectType INTEGER NOT NULL,
  FObjectID INTEGER NOT NULL,
  FAccessMask INTEGER NOT NULL,
  PRIMARY KEY(FUserID, FObjectType, FObjectID));

CREATE TABLE t_UserProfile(
  FUserID INTEGER NOT NULL,
  FApplication NVARCHAR(80) NOT NULL COLLATE CHINESE_CI_PAD,
  FSection NVARCHAR(80) NOT NULL COLLATE CHINESE_CI_PAD,
  FKey NVARCHAR(80) NOT NULL COLLATE CHINESE_CI_PAD,
  FValue NVARCHAR(4000) COLLATE CHINESE_CI_PAD,
  PRIMARY KEY(FUserID, FApplication, FSection, FKey));
)sql";

// The class index covers the tree's statement: its rows come out in class order without
// touching the table. The others serve the joins and look-ups by code, item and period.
constexpr const char* kFileIndexes = R"sql(
CREATE INDEX ixPriceDownClassNumber ON icPriceDownClass(FItemClassNumber, FItemClassName);
CREATE INDEX ixPriceDownPrepareItem ON ICPriceDownPrepare(FItemID, FYear, FPeriod);
CREATE INDEX ixICItemNumber ON t_ICItem(FNumber);
CREATE INDEX ixAccountNumber ON t_account(FNumber);
CREATE INDEX ixVoucherPeriod ON t_voucher(FYear, FPeriod, FTranType, FInternalInd);
CREATE INDEX ixSystemProfileKey ON t_systemprofile(FCategory, FKey);
CREATE INDEX ixUserSettingKey ON t_UserSetting(FUserID, FCategory, FKey);
)sql";

void Execute(sqlite3* database, const char* sql) {
  if (sqlite3_exec(database, sql, nullptr, nullptr, nullptr) != SQLITE_OK) {
    throw SchemaError(std::string("无法建立公司数据库: ") + sqlite3_errmsg(database));
  }
}

void SetPragma(sqlite3* database, const char* name, int value) {
  const std::string sql = std::string("PRAGMA ") + name + "=" + std::to_string(value);
  Execute(database, sql.c_str());
}

int ReadPragma(sqlite3* database, const char* name) {
  const std::string sql = std::string("PRAGMA ") + name;
  sqlite3_stmt* statement = nullptr;
  int status = sqlite3_prepare_v2(database, sql.c_str(), -1, &statement, nullptr);
  int value = 0;
  if (status == SQLITE_OK) {
    status = sqlite3_step(statement);
    if (status == SQLITE_ROW) value = sqlite3_column_int(statement, 0);
  }
  sqlite3_finalize(statement);
  if (status == SQLITE_NOTADB) throw SchemaError("不是公司文件");
  if (status != SQLITE_ROW) {
    throw SchemaError(std::string("无法读取公司文件: ") + sqlite3_errmsg(database));
  }
  return value;
}

}  // namespace

void CreateCompanyTables(sqlite3* database) {
  Execute(database, kFileTables);
  SetPragma(database, "application_id", kCompanyApplicationId);
  SetPragma(database, "user_version", kCompanySchemaVersion);
}

void CreateCompanyIndexes(sqlite3* database) { Execute(database, kFileIndexes); }

int CompanySchemaVersion(sqlite3* database) {
  if (ReadPragma(database, "application_id") != kCompanyApplicationId) return 0;
  return ReadPragma(database, "user_version");
}

void RequireCompany(sqlite3* database) {
  const int version = CompanySchemaVersion(database);
  if (version == kCompanySchemaVersion) return;
  if (version <= 0) throw SchemaError("不是公司文件");
  const std::string versions = "(文件版本 " + std::to_string(version) + ",程序版本 " +
                               std::to_string(kCompanySchemaVersion) + ")";
  if (version < kCompanySchemaVersion) throw SchemaError("公司文件的版本太旧" + versions);
  throw SchemaError("公司文件由更新版本的程序建立" + versions);
}

}  // namespace workbench
