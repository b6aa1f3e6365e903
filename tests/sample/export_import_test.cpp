// Generated companies are exported and imported into a company without items and accounts: what the
// export calls importable comes back equal, and the rest is what the import refuses or changes.
#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <random>
#include <string>

#include "tests/sample/test_company.h"
#include "workbench/sample/csv_export.h"

namespace workbench::testing {
namespace {

class ExportAndImport : public ::testing::Test {
 protected:
  static constexpr int kCompanies = 1500;

  std::size_t Roll(std::size_t sides) { return random_() % sides; }

  std::string Repeated(const std::string& text, std::size_t times) {
    std::string repeated;
    for (std::size_t i = 0; i < times; ++i) repeated += text;
    return repeated;
  }
  // Texts that an import takes.
  std::string OddText() {
    static const std::string kPieces[] = {
        "钢板", "\"",   ",",    "\r\n", "\n", "\r", "\t",           " ",    "'", "''",
        "=1+1", "\"\"", "；，", "𠀀",   "é",  "　", "\xEF\xBB\xBF", "NULL", "0", "a"};
    std::string text;
    for (std::size_t i = Roll(6); i > 0; --i) text += kPieces[Roll(std::size(kPieces))];
    return text;
  }
  std::string OddCode(std::size_t row) {
    static const std::string kPieces[] = {"\"", ",", " ", "钢", "𠀀", "%", "-", "A", "a", ";"};
    std::string code = std::to_string(row);
    for (std::size_t i = Roll(4); i > 0; --i) code += kPieces[Roll(std::size(kPieces))];
    return code + "x";
  }
  // A text that an import may not take in some column.
  std::string BadText() {
    switch (Roll(7)) {
      case 0:
        return "";
      case 1:
        return " \t";
      case 2:
        return std::string("a\x01", 2);
      case 3:
        return "a\x7F";
      case 4:
        return Repeated("长", 80 + Roll(2) * 176);
      case 5:
        return " 两边 ";
      default:
        return "it's\nso";
    }
  }

  void InsertItem(const Database& company, std::size_t row, bool mayBeBad) {
    using Text = std::optional<std::string>;
    const std::size_t bad = mayBeBad ? Roll(20) : 0;
    const auto price = [&](bool isBad) -> std::optional<double> {
      constexpr double kPrices[] = {0, 0.01, 1e-7, 12.5, 1.0 / 3, 99999999999.99, 4e9};
      constexpr double kBadPrices[] = {-1, 1e11, 1e300, -0.0};
      if (isBad) return kBadPrices[Roll(std::size(kBadPrices))];
      if (Roll(4) == 0) return std::nullopt;
      return kPrices[Roll(std::size(kPrices))];
    };
    const auto optional = [&](std::string text) { return Roll(4) == 0 ? Text() : Text(text); };
    const Text code = bad == 1   ? Text()
                      : bad == 2 ? Text(BadText())
                                 : Text(OddCode(bad == 3 ? Roll(3) : row));
    const std::string name = bad == 4 ? BadText() : "名" + OddText();
    const Text shortCode = optional(bad == 5 ? BadText() : OddCode(Roll(3)));
    const Text model = optional(bad == 6 ? BadText() : OddText());
    const std::size_t category = bad == 7 ? Roll(12) : 1 + Roll(9);
    const Text unit = optional(bad == 8 ? BadText() : OddText());
    Statement insert(company.get(), "INSERT INTO t_ICItem VALUES(?,?,?,?,?,?,?,?,?)");
    insert.Start(static_cast<int>(row), code, shortCode, name, model, static_cast<int>(category),
                 unit, price(bad == 9), price(bad == 10));
    insert.Step();
  }

  void InsertAccount(const Database& company, std::size_t row, bool mayBeBad) {
    static const std::string kParents[] = {"1001", "10,01", "1001.01"};
    const std::size_t bad = mayBeBad ? Roll(12) : 0;
    std::string number = OddCode(row);
    if (Roll(2) == 0) number = kParents[Roll(std::size(kParents))] + "." + number;
    if (row < std::size(kParents)) number = kParents[row];
    if (bad == 1) number = BadText();
    if (bad == 2) number = "没有." + number;
    if (bad == 3) number += ".";
    if (bad == 4) number = "1001";
    const std::string name = bad == 5 ? BadText() : "名" + OddText();
    Statement insert(company.get(), "INSERT INTO t_account VALUES(?,?,?,1,0,1,?)");
    insert.Start(static_cast<int>(row) + 1, number, name, Roll(2) == 0 ? -1 : 1);
    insert.Step();
  }

  // Items and accounts are new each time.
  const Database& MakeUpACompany(bool mayBeBad) {
    Empty(source_);
    for (std::size_t row = 1 + Roll(4); row > 0; --row) InsertItem(source_, row, mayBeBad);
    for (std::size_t row = 3 + Roll(4); row > 0; --row) InsertAccount(source_, row - 1, mayBeBad);
    return source_;
  }
  const Database& NoItems() {
    Empty(target_);
    return target_;
  }
  static void Empty(Database& company) {
    company.Execute("DELETE FROM t_ICItem;DELETE FROM t_account");
  }

  struct Files {
    CsvExport items;
    CsvExport accounts;
  };
  static Files Export(const Database& company) {
    SqliteConnection connection(company.get());
    return {ExportItems(connection, "物料.csv"), ExportAccounts(connection, "科目.csv")};
  }

  std::mt19937 random_{20081231};
  Database source_ = TinyCompany();
  Database target_ = TinyCompany();
};

TEST_F(ExportAndImport, GiveBackEveryCompanyThatTheImportAccepts) {
  for (int i = 0; i < kCompanies; ++i) {
    const Files files = Export(MakeUpACompany(false));
    ASSERT_TRUE(files.items.problems.empty()) << ToText(files.items.problems.front());
    ASSERT_TRUE(files.accounts.problems.empty()) << ToText(files.accounts.problems.front());
    const Database& company = NoItems();
    const ImportResult result = Import(company, files.items.file, files.accounts.file);
    ASSERT_TRUE(result.problems.empty()) << ToText(result.problems.front());
    const Files again = Export(company);
    ASSERT_EQ(again.items.file.bytes, files.items.file.bytes);
    ASSERT_EQ(again.accounts.file.bytes, files.accounts.file.bytes);
  }
}

TEST_F(ExportAndImport, AgreeOnTheRowsThatCannotComeBack) {
  int whole = 0;
  int refused = 0;
  int changed = 0;
  const auto compare = [&](const CsvExport& exported, bool areItems) {
    const Database& company = NoItems();
    const ImportResult result = areItems ? Import(company, exported.file, std::nullopt)
                                         : Import(company, std::nullopt, exported.file);
    const Files again = Export(company);
    const bool isEqual =
        (areItems ? again.items : again.accounts).file.bytes == exported.file.bytes;
    ASSERT_EQ(exported.problems.empty(), result.problems.empty() && isEqual)
        << exported.file.bytes
        << (result.problems.empty() ? std::string() : ToText(result.problems.front()));
    whole += exported.problems.empty() ? 1 : 0;
    refused += result.problems.empty() ? 0 : 1;
    changed += result.problems.empty() && !isEqual ? 1 : 0;
    // Whatever the import refuses, the export has said of the same line.
    for (const ImportProblem& problem : result.problems) {
      ASSERT_TRUE(std::any_of(exported.problems.begin(), exported.problems.end(),
                              [&](const auto& each) { return each.line == problem.line; }))
          << ToText(problem);
    }
  };
  for (int i = 0; i < kCompanies; ++i) {
    const Files files = Export(MakeUpACompany(true));
    compare(files.items, true);
    compare(files.accounts, false);
    if (HasFatalFailure()) return;
  }
  EXPECT_GT(whole, kCompanies / 2);
  EXPECT_GT(refused, kCompanies / 4);
  EXPECT_GT(changed, kCompanies / 100);
}

}  // namespace
}  // namespace workbench::testing
