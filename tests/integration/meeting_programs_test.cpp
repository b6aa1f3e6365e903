// Two programs on one company file, each with a random user: a save is one step, and users
// lose only what the host guide lists.
#include <gmock/gmock.h>

#include <sqlite3.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <fstream>
#include <iostream>
#include <sstream>
#include <thread>

#include "platform/error.h"
#include "tests/integration/command_sequences.h"
#include "tests/integration/forwarding_connection.h"
#include "workbench/company/utf.h"
#include "workbench/sample/company_check.h"

namespace workbench {
namespace {

using pricedown::FormField;
using pricedown::FormTool;
using pricedown::FromUtf8;
using pricedown::kNoNode;
using pricedown::ToUtf8;
using ::testing::AnyOf;
using ::testing::Each;
using ::testing::HasSubstr;

// A row of the class table, stored or deleted.
struct Change {
  bool isInsert = false;
  std::string number;
  std::string name;
  std::int64_t item = 0;
};

// What a user meant to save. Every save has a name of its own.
struct Save {
  std::string opening;
  std::string number;
  std::string nameBefore;
  std::set<std::int64_t> items;
};

// Between a guard and what it guards passes the time of a network.
class DistantConnection final : public ForwardingConnection {
 public:
  using ForwardingConnection::ForwardingConnection;

  ResultSet Execute(std::u16string_view text) override {
    const bool isGuarded = text.starts_with(u"delete") &&
                           text.find(u"ICPriceDownPrepare") != std::u16string_view::npos;
    if (isGuarded) std::this_thread::sleep_for(std::chrono::milliseconds(1));
    return ForwardingConnection::Execute(text);
  }
};

class MeetingPrograms : public ControlOnCompany {
 protected:
  static constexpr int kPrograms = 2;
  static constexpr int kCommands = 2000;

  ~MeetingPrograms() override {
    for (int program = 0; program < kPrograms; ++program) {
      std::filesystem::remove(ReportPath(program));
    }
  }

  std::string ReportPath(int program) const {
    return path_.string() + ".report" + std::to_string(program);
  }

  void KeepAJournal() const {
    sqlite3* company = nullptr;
    ASSERT_EQ(sqlite3_open(path_.string().c_str(), &company), SQLITE_OK);
    RegisterServerText(company);
    constexpr const char* kJournal =
        "DELETE FROM icPriceDownClass;"
        "CREATE TABLE journal(n INTEGER PRIMARY KEY,i INTEGER,number TEXT,name TEXT,item INTEGER);"
        "CREATE TRIGGER inserted AFTER INSERT ON icPriceDownClass BEGIN INSERT INTO journal("
        "i,number,name,item)VALUES(1,NEW.FItemClassNumber,NEW.FItemClassName,NEW.FItemID);END;"
        "CREATE TRIGGER deleted AFTER DELETE ON icPriceDownClass BEGIN INSERT INTO journal("
        "i,number,name,item)VALUES(0,OLD.FItemClassNumber,OLD.FItemClassName,OLD.FItemID);END;"
        // What commands delete of the amounts, and whether the voucher that forbids it was there.
        "CREATE TABLE deleted(item INTEGER,year INTEGER,period INTEGER,vouchers INTEGER);"
        "CREATE TRIGGER amountDeleted AFTER DELETE ON ICPriceDownPrepare BEGIN "
        "INSERT INTO deleted SELECT OLD.FItemID,OLD.FYear,OLD.FPeriod,count(*)FROM t_voucher;END";
    EXPECT_EQ(sqlite3_exec(company, kJournal, nullptr, nullptr, nullptr), SQLITE_OK)
        << sqlite3_errmsg(company);
    sqlite3_close(company);
  }

  // The body of a program; its exit code. A failure must not reach the test program's own loop.
  int Work(int program) {
    try {
      return RunCommands(program);
    } catch (const pricedown::AutomationError& error) {
      std::cerr << tag_ << ": " << ToUtf8(error.Description()) << '\n';
    } catch (const std::exception& error) {
      std::cerr << tag_ << ": " << error.what() << '\n';
    }
    return 1;
  }

  int RunCommands(int program) {
    random_.seed(static_cast<unsigned>(program) + 1);
    report_.open(ReportPath(program));
    suite_->OpenCompany(FromUtf8(path_.string()));
    auto offering = std::make_unique<OfferingPickers>(random_);
    suite_->pickers = std::move(offering);
    suite_->company = std::make_unique<DistantConnection>(std::move(suite_->company));
    Open();
    for (int command = 0; command < kCommands && !HasFailure(); ++command) {
      tag_ = "program" + std::to_string(program) + "-" + std::to_string(command);
      const std::string number = "K" + std::to_string(Roll(4));
      const bool isThere = control->Nodes().FindKey(FromUtf8("gi" + number)) != kNoNode;
      if (isThere) Select(FromUtf8(number));
      StoreAmounts();
      questions.WillAnswer({Roll(2) == 0});
      if (!isThere || Roll(8) == 0) {
        Command(u"Add", [&] {
          Type(FromUtf8(number), FromUtf8(tag_), u"1");
          editor.Click(FormTool::AddItem);
          SaveAndExit({});
        });
      } else if (Roll(6) == 0) {
        Command(u"Del");
      } else {
        Command(u"Edit", [&] { ChangeClass(); });
      }
      questions.ForgetAnswers();
    }
    report_ << "amounts " << amounts_ << ' ' << earlierAmounts_ << '\n';
    report_.close();
    return HasFailure() || !report_ ? 1 : 0;
  }

  void ReadReports() {
    for (int program = 0; program < kPrograms; ++program) {
      std::ifstream report(ReportPath(program));
      for (std::string line; std::getline(report, line);) {
        std::istringstream words(line);
        std::string name;
        if (line.starts_with("amounts ")) {
          std::int64_t amounts = 0;
          std::int64_t earlier = 0;
          words >> name >> amounts >> earlier;
          amounts_ += amounts;
          earlierAmounts_ += earlier;
          continue;
        }
        Save save;
        for (std::string* each : {&name, &save.opening, &save.number, &save.nameBefore}) {
          std::getline(words, *each, '|');
        }
        for (std::int64_t item = 0; words >> item;) save.items.insert(item);
        saves_.emplace(name, save);
      }
    }
  }

  std::vector<Change> Journal() const {
    const ResultSet rows = suite_->Execute(u"select i,number,name,item from journal order by n");
    std::vector<Change> journal;
    for (std::size_t row = 0; row < rows.RowCount(); ++row) {
      journal.push_back({rows.At(row, 0).Integer() != 0, Utf8FromUtf16(rows.At(row, 1).Text()),
                         Utf8FromUtf16(rows.At(row, 2).Text()), rows.At(row, 3).Integer()});
    }
    return journal;
  }

  int Roll(int sides) { return static_cast<int>(random_() % static_cast<unsigned>(sides)); }

 private:
  void ChangeClass() {
    const std::string opening = ToUtf8(editor.view.Text(FormField::ClassNumber));
    const std::string nameBefore = ToUtf8(editor.view.Text(FormField::ClassName));
    Type(FormField::ClassName, FromUtf8(tag_));
    if (Roll(4) == 0) Type(FormField::ClassNumber, FromUtf8("K" + std::to_string(Roll(4))));
    if (Roll(2) == 0) editor.Click(FormTool::AddItem);
    const std::int32_t listed = editor.list.Rows().Items();
    if (listed > 0 && Roll(2) == 0) Remove({2 + Roll(listed)});
    // Lets the other program run at random.
    if (Roll(3) == 0) std::this_thread::sleep_for(std::chrono::milliseconds(Roll(4)));
    SaveAndExit({opening, {}, nameBefore, {}});
  }

  // As the run of the provision does, with rows of an earlier period that are zero and forbid
  // nothing. Vouchers do not stay long.
  void StoreAmounts() {
    if (Roll(2) == 0) {
      const std::int32_t item = 1 + Roll(12);
      AddProvision(item, 2008, 3, 5);
      ++amounts_;
      if (Roll(4) == 0) {
        AddProvision(item, 2007, 12, 0);
        ++earlierAmounts_;
      }
    }
    if (Roll(12) == 0) {
      Run(u"INSERT INTO t_voucher(FYear,FPeriod,FTranType,FInternalInd)VALUES"
          u"(2008,3,820,'Industry')");
    } else {
      Run(u"delete from t_voucher where FPeriod=3");
    }
  }

  void SaveAndExit(const Save& before) {
    report_ << tag_ << '|' << before.opening << '|'
            << ToUtf8(editor.view.Text(FormField::ClassNumber)) << '|' << before.nameBefore << '|';
    for (const std::string& code : editor.list.Codes()) report_ << code.substr(3) << ' ';
    report_ << '\n';
    editor.Click(FormTool::Save);
    if (editor.Shown().IsLoaded()) editor.Click(FormTool::Exit);
  }

  std::mt19937 random_;
  std::ofstream report_;
  std::string tag_;

 protected:
  std::int64_t Number(std::u16string_view statement) const {
    return suite_->Execute(statement).At(0, 0).Integer();
  }

  std::map<std::string, Save> saves_;  // by name
  // Stored, of the period and of an earlier one.
  std::int64_t amounts_ = 0;
  std::int64_t earlierAmounts_ = 0;
};

TEST_F(MeetingPrograms, LoseToEachOtherWhatTheHostGuideSays) {
  KeepAJournal();
  Run(u"INSERT INTO t_user(FUserID,FName)VALUES(1,'a')");
  suite_->company.reset();  // an open file does not survive a fork
  std::vector<pid_t> programs;
  for (int program = 0; program < kPrograms; ++program) {
    programs.push_back(fork());
    if (programs.back() == 0) _exit(Work(program));
  }
  for (const pid_t program : programs) {
    int status = -1;
    waitpid(program, &status, 0);
    EXPECT_EQ(status, 0);
  }
  suite_->OpenCompany(FromUtf8(path_.string()));
  ReadReports();

  std::multiset<std::string> rows;  // number|name|item
  std::map<std::string, std::multiset<std::string>> namesOf;
  std::multiset<std::int64_t> items;
  int stored = 0;
  int replaced = 0;
  int revived = 0;
  int doubled = 0;
  int shared = 0;
  const std::vector<Change> journal = Journal();
  std::string deletedNumber;
  std::set<std::string> deleted;  // names of the rows of that number that were deleted last
  for (std::size_t i = 0; i < journal.size();) {
    const Change& change = journal[i];
    const auto lineOf = [](const Change& each) {
      return each.number + "|" + each.name + "|" + std::to_string(each.item);
    };
    auto& names = namesOf[change.number];
    if (!change.isInsert) {
      rows.erase(rows.find(lineOf(change)));
      names.erase(names.find(change.name));
      items.erase(items.find(change.item));
      if (std::exchange(deletedNumber, change.number) != change.number) deleted.clear();
      deleted.insert(change.name);
      ++i;
      continue;
    }
    ASSERT_EQ(saves_.count(change.name), 1U) << change.name;
    const Save& save = saves_[change.name];
    ASSERT_TRUE(save.opening.empty() || namesOf[save.opening].empty())
        << change.name << ": rows of " << save.opening << " are left";
    if (deletedNumber != save.opening) deleted.clear();
    if (!save.opening.empty()) {
      revived += deleted.empty() ? 1 : 0;
      replaced += deleted.empty() || deleted.count(save.nameBefore) != 0 ? 0 : 1;
    }
    doubled += names.empty() ? 0 : 1;
    std::set<std::int64_t> inserted;
    for (; i < journal.size() && journal[i].isInsert && journal[i].name == change.name; ++i) {
      EXPECT_EQ(journal[i].number, save.number);
      inserted.insert(journal[i].item);
      shared += items.count(journal[i].item) == 0 ? 0 : 1;
      items.insert(journal[i].item);
      rows.insert(lineOf(journal[i]));
      names.insert(change.name);
    }
    ASSERT_EQ(inserted, save.items) << change.name;
    deleted.clear();
    saves_.erase(change.name);
    ++stored;
  }

  std::multiset<std::string> left;
  const ResultSet table =
      suite_->Execute(u"select FItemClassNumber,FItemClassName,FItemID from icPriceDownClass");
  for (std::size_t row = 0; row < table.RowCount(); ++row) {
    left.insert(Utf8FromUtf16(table.At(row, 0).Text()) + "|" +
                Utf8FromUtf16(table.At(row, 1).Text()) + "|" +
                std::to_string(table.At(row, 2).Integer()));
  }
  EXPECT_EQ(left, rows);
  EXPECT_THAT(CheckCompany(*suite_->company),
              Each(AnyOf(HasSubstr("物料属于多个类别"), HasSubstr("名称、科目或百分比不一致"))));

  EXPECT_EQ(Number(u"select count(*) from deleted where year<>2008 or period<>3"), 0);
  EXPECT_EQ(Number(u"select count(*) from ICPriceDownPrepare where FYear=2007"), earlierAmounts_);
  const std::int64_t deletedAmounts = Number(u"select count(*) from deleted");
  const std::int64_t lateVouchers = Number(u"select count(*) from deleted where vouchers>0");
  EXPECT_EQ(Number(u"select count(*) from ICPriceDownPrepare where FYear=2008"),
            amounts_ - deletedAmounts);
  std::cout << amounts_ << " amounts of the period, " << deletedAmounts << " deleted with classes "
            << "and items, " << lateVouchers << " of them after a voucher had come\n";
  EXPECT_GT(lateVouchers, 0);
  std::cout << stored << " saves stored, " << replaced << " over one not seen, " << revived
            << " of a deleted class, " << doubled << " under a number in use, " << shared
            << " items that another class had\n";
  EXPECT_GT(stored, kCommands / 2);
  EXPECT_GT(replaced, 0);
  EXPECT_GT(revived, 0);
}

}  // namespace
}  // namespace workbench
