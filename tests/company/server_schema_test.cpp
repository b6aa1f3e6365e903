// The tables as a server gets them; the guide shows the statements that are sent.
#include "workbench/company/server_schema.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

#include "workbench/company/schema.h"

namespace workbench {
namespace {

TEST(ServerSchema, HasEveryTableOfACompany) {
  const std::vector<std::string> tables = ServerTables("Microsoft SQL Server");
  ASSERT_EQ(tables.size(), std::size(kCompanyTables));
  for (std::size_t i = 0; i < tables.size(); ++i) {
    EXPECT_EQ(tables[i].find("CREATE TABLE " + std::string(kCompanyTables[i]) + "("), 0U);
  }
}

TEST(ServerSchema, WritesTextsAndKeysAsTheProductHasThem) {
  EXPECT_EQ(ServerTables("Microsoft SQL Server")[2],
            "CREATE TABLE t_voucher(FVoucherID INT IDENTITY(1,1) NOT NULL PRIMARY KEY,"
            "FYear INT NOT NULL,FPeriod INT NOT NULL,"
            "FDate NVARCHAR(10) COLLATE Chinese_PRC_CI_AS,"
            "FGroup NVARCHAR(20) COLLATE Chinese_PRC_CI_AS,FNumber INT,FTranType INT,"
            "FInternalInd NVARCHAR(20) COLLATE Chinese_PRC_CI_AS,"
            "FExplanation NVARCHAR(255) COLLATE Chinese_PRC_CI_AS)");
  EXPECT_EQ(ServerTables("anything")[7],
            "CREATE TABLE t_user(FUserID INT NOT NULL PRIMARY KEY,FName VARCHAR(80) NOT NULL,"
            "FDescription VARCHAR(255))");
}

TEST(ServerSchema, IsWrittenOutInTheGuide) {
  std::ifstream file(std::string(PRICEDOWN_DOCS) + "/company-schema.sql");
  const std::string guide{std::istreambuf_iterator<char>(file), {}};
  std::vector<std::string> statements = ServerTables("Microsoft SQL Server");
  for (std::string& index : ServerIndexes()) statements.push_back(std::move(index));
  for (const std::string& statement : statements) {
    EXPECT_NE(guide.find(statement + ";\n"), std::string::npos) << statement;
  }
}

}  // namespace
}  // namespace workbench
