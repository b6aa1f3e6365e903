// Recognising connection strings, and which parts may be shown, stored and reported.
#include "workbench/company/location.h"

#include <gtest/gtest.h>

namespace workbench {
namespace {

TEST(Location, IsAConnectionStringInAnyOrderCaseAndSpacing) {
  for (const char* text :
       {"Driver=SQL Server;Server=a", "DSN=a", "dsn=a", "  driver = {a}", ";;Driver=a",
        "SERVER=a;Database=b;PWD=c;Driver=d", "Foo=1;UID=sa;", "PWD=x", "\t\r\n Driver\t=x",
        "Initial Catalog=a", "Provider=x;Data Source=y", "Trusted_Connection=yes", "Driver={a"}) {
    EXPECT_TRUE(IsConnectionString(text)) << text;
  }
}

TEST(Location, IsAPathOtherwise) {
  for (const char* text : {"", "company.db", "/data/a=b.db", "C:\\data\\a;b.db", "./Driver=x.db",
                           "Driver", "driver;x", "{Driver=x}", "mydriver=x", "a=1;b=2"}) {
    EXPECT_FALSE(IsConnectionString(text)) << text;
    EXPECT_EQ(ShownLocation(text), text);
    EXPECT_EQ(RememberedLocation(text), text);
  }
}

constexpr const char* kWhole =
    " Encrypt=no; PWD={p;Driver=w}}d}; driver = {ODBC;17} ;Server=db,1433;Foo=bar;UID=sa;"
    "Database=账套;Password=zwei;AccessToken=drei";

TEST(Location, ShowsDriverServerAndDatabaseOnly) {
  EXPECT_EQ(ShownLocation(kWhole), "driver={ODBC;17};Server=db,1433;Database=账套");
}

TEST(Location, RemembersTheUserButNoPasswordAndNothingUnknown) {
  EXPECT_EQ(RememberedLocation(kWhole),
            "Encrypt=no;driver={ODBC;17};Server=db,1433;UID=sa;Database=账套");
  constexpr const char* kKinds =
      "Driver=FreeTDS;Server=db;TDS_Version=7.4;ClientCharset=UTF-8;SSLmode=require;"
      "ApplicationIntent=ReadOnly";
  EXPECT_EQ(RememberedLocation(kKinds), kKinds);
  EXPECT_EQ(ShownLocation(kKinds), "Driver=FreeTDS;Server=db");
}

TEST(Location, KeepsEveryEntryForTheDriverWithoutBlanksAround) {
  EXPECT_EQ(NormalizedConnectionString(" A = 1 ;; Driver={x ; y} ;PWD= z"),
            "A=1;Driver={x ; y};PWD=z");
}

TEST(Location, RemovesPasswordsFromMessages) {
  EXPECT_EQ(WithoutSecrets("login 'sa' with 'zwei' or {p;Driver=w}}d} or drei at db", kWhole),
            "login 'sa' with '***' or *** or *** at db");
  EXPECT_EQ(WithoutSecrets("nothing", "Driver=x;PWD="), "nothing");
  EXPECT_EQ(WithoutSecrets("geheim", "PWD={geheim}"), "***");
}

struct Careless {
  const char* name;
  const char* location;  // with the password Geheim
  const char* shown;
  const char* remembered;
};
constexpr Careless kCareless[] = {
    {"BraceOfTheDriver", "Driver={PostgreSQL Unicode;Server=x;PWD=Geheim", "", ""},
    {"BraceOfTheUser", "Server=x;UID={sa;PWD=Geheim", "Server=x", "Server=x"},
    {"BraceOfThePassword", "Server=x;PWD={Geheim;UID=sa", "Server=x", "Server=x"},
    {"BothBraces", "Server=x;UID={sa;PWD={Geheim", "Server=x", "Server=x"},
    {"DoubledBrace", "Server=x;Driver={D}};Pwd=Geheim", "Server=x", "Server=x"},
    {"SemicolonBeforeIt", "Driver=D;Server=db PWD=Geheim", "Driver=D", "Driver=D"},
    {"BlanksAroundTheSign", "Driver=D;Server=db pwd = Geheim", "Driver=D", "Driver=D"},
    {"SemicolonAfterTheUser", "Server=db;UID=sa Password=Geheim", "Server=db", "Server=db"},
    {"SemicolonAfterABrace", "Driver={D}PassWord={Geheim};Server=db", "Server=db", "Server=db"},
};

TEST(Location, NeverShowsThePasswordOfACarelessText) {
  for (const Careless& given : kCareless) {
    EXPECT_EQ(ShownLocation(given.location), given.shown) << given.name;
    EXPECT_EQ(RememberedLocation(given.location), given.remembered) << given.name;
    EXPECT_EQ(WithoutSecrets("'Geheim' is wrong", given.location).find("Geheim"), std::string::npos)
        << given.name;
  }
}

TEST(Location, RemovesAnUnclosedValueFromMessages) {
  EXPECT_EQ(WithoutSecrets("no {Post;Server=x, no Post;Server=x", "Driver={Post;Server=x"),
            "no ***, no ***");
}

TEST(Location, IsEnteredWithBlanksAndTheQuotesOfACopiedPath) {
  for (const char* entered :
       {"C:\\公司 1.db", " C:\\公司 1.db\r\n", "\"C:\\公司 1.db\"", " \" C:\\公司 1.db \"\t"}) {
    EXPECT_EQ(EnteredLocation(entered), "C:\\公司 1.db") << entered;
  }
  EXPECT_EQ(EnteredLocation("DSN=books;PWD=\"a b\""), "DSN=books;PWD=\"a b\"");
  EXPECT_EQ(EnteredLocation("\""), "\"");
  EXPECT_EQ(EnteredLocation(" \"\" "), "");
}

TEST(Location, ReplacesEveryPassword) {
  EXPECT_EQ(WithPassword("Server=db;PWD=alt;UID=sa;password={a;lt}", "n;e}u"),
            "Server=db;UID=sa;PWD={n;e}}u}");
  EXPECT_EQ(WithPassword("PWD=alt", "neu"), "PWD={neu}");
  EXPECT_EQ(WithPassword("Server=db;PWD=alt", ""), "Server=db;PWD=alt");
}

}  // namespace
}  // namespace workbench
