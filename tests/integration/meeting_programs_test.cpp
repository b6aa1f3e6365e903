// Two programs on one company file, each with a random user: a save is one step, and users
// lose only what the host guide lists.
#include <gmock/gmock.h>

#include <sqlite3.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <fstream>
#include <iostream>
#include <thread>

#include "platform/error.h"
#include "tests/integration/command_sequences.h"
#include "tests/integration/forwarding_connection.h"
#include "tests/integration/meeting_journal.h"
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
  static constexpr int kUsualCommands = 2000;

  std::string ReportPath(int program) const {
    return folder_.PathOf("report" + std::to_string(program));
  }

  void KeepAJournal() const {
    sqlite3* company = nullptr;
    ASSERT_EQ(sqlite3_open(path_.c_str(), &company), SQLITE_OK);
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
    suite_->OpenCompany(FromUtf8(path_));
    auto offering = std::make_unique<OfferingPickers>(random_);
    suite_->pickers = std::move(offering);
    suite_->company = std::make_unique<DistantConnection>(std::move(suite_->company));
    Open();
    for (int command = 0; command < commands_ && !HasFailure(); ++command) {
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
        if (Classes().find(number + "|") == std::string::npos) ++report_.deletions;
      } else {
        Command(u"Edit", [&] { ChangeClass(); });
      }
      questions.ForgetAnswers();
    }
    std::ofstream report(ReportPath(program));
    report_.Write(report);
    report.close();
    return HasFailure() || !report ? 1 : 0;
  }

  void ReadReports() {
    for (int program = 0; program < kPrograms; ++program) {
      std::ifstream report(ReportPath(program));
      report_.Add(report);
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
    if (listed > 0 && Roll(2) == 0) {
      Remove({2 + Roll(listed)});
      report_.removals += editor.list.Rows().Items() < listed ? 1 : 0;
    }
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
      ++report_.amounts;
      if (Roll(4) == 0) {
        AddProvision(item, 2007, 12, 0);
        ++report_.earlierAmounts;
      }
    }
    if (Roll(12) == 0) {
      Run(u"INSERT INTO t_voucher(FYear,FPeriod,FTranType,FInternalInd)VALUES"
          u"(2008,3,820,'Industry')");
    } else {
      Run(u"delete from t_voucher where FPeriod=3");
    }
  }

  void SaveAndExit(Save save) {
    save.number = ToUtf8(editor.view.Text(FormField::ClassNumber));
    for (const std::string& code : editor.list.Codes())
      save.items.insert(std::stoi(code.substr(3)));
    report_.saves.emplace(tag_, std::move(save));
    editor.Click(FormTool::Save);
    if (editor.Shown().IsLoaded()) editor.Click(FormTool::Exit);
  }

  std::mt19937 random_;
  std::string tag_;

 protected:
  std::int64_t Number(std::u16string_view statement) const {
    return suite_->Execute(statement).At(0, 0).Integer();
  }

  const int commands_ = MeetingCommands(kUsualCommands);
  MeetingReport report_;
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
  suite_->OpenCompany(FromUtf8(path_));
  ReadReports();

  MeetingJournal journal(report_.saves);
  journal.Replay(Journal());
  if (HasFatalFailure()) return;

  std::multiset<std::string> left;
  const ResultSet table =
      suite_->Execute(u"select FItemClassNumber,FItemClassName,FItemID from icPriceDownClass");
  for (std::size_t row = 0; row < table.RowCount(); ++row) {
    left.insert(MeetingJournal::RowOf({true, Utf8FromUtf16(table.At(row, 0).Text()),
                                       Utf8FromUtf16(table.At(row, 1).Text()),
                                       table.At(row, 2).Integer()}));
  }
  EXPECT_EQ(left, journal.Rows());
  EXPECT_THAT(CheckCompany(*suite_->company),
              Each(AnyOf(HasSubstr("物料属于多个类别"), HasSubstr("名称、科目或百分比不一致"))));

  EXPECT_EQ(Number(u"select count(*) from deleted where year<>2008 or period<>3"), 0);
  EXPECT_EQ(Number(u"select count(*) from ICPriceDownPrepare where FYear=2007"),
            report_.earlierAmounts);
  const std::int64_t deletedAmounts = Number(u"select count(*) from deleted");
  const std::int64_t lateVouchers = Number(u"select count(*) from deleted where vouchers>0");
  EXPECT_EQ(Number(u"select count(*) from ICPriceDownPrepare where FYear=2008"),
            report_.amounts - deletedAmounts);
  std::cout << report_.amounts << " amounts of the period, " << deletedAmounts << " deleted with "
            << report_.deletions << " classes and " << report_.removals << " items, "
            << lateVouchers << " of them after a voucher had come\n"
            << journal.stored << " saves stored, " << journal.replaced << " over one not seen, "
            << journal.revived << " of a deleted class, " << journal.doubled
            << " under a number in use, " << journal.shared << " items that another class had\n";
  EXPECT_GT(journal.stored, commands_ / 2);
  EXPECT_GT(report_.removals, 0);
  EXPECT_GT(report_.deletions, 0);
  EXPECT_GT(lateVouchers, 0);
  EXPECT_GT(journal.replaced, 0);
  EXPECT_GT(journal.revived, 0);
}

}  // namespace
}  // namespace workbench
