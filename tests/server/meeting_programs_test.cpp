// Two programs at one server that save, remove and delete as the form does: a reader sees each save
// whole or not at all, and users lose only what the host guide lists.
#include <gtest/gtest.h>

#include <sys/wait.h>
#include <unistd.h>

#include <fstream>
#include <iostream>
#include <random>
#include <set>

#include "tests/integration/meeting_journal.h"
#include "tests/sample/temporary_folder.h"
#include "tests/server_support/server_fixture.h"

namespace workbench::testing {
namespace {

constexpr int kPrograms = 2;
constexpr int kUsualCommands = 600;
constexpr int kItems = 12;
// It has an amount of an earlier period.
constexpr std::int64_t kItemWithHistory = 12;

// The random user of a program. The statements are those of the library in the server's dialect, in
// their order: c is the class table, and a save is one text.
class MeetingUser {
 public:
  MeetingUser(Connection& company, int program)
      : company_(company), program_(program), random_(static_cast<unsigned>(program) + 1) {}

  void Work(int command) {
    number_ = "K" + std::to_string(Roll(4));
    tag_ = std::to_string(program_) + "-" + std::to_string(command);
    StoreAmounts();
    items_.clear();
    const ResultSet rows = Ask("SELECT i,name FROM c WHERE n='" + number_ + "'");
    for (std::size_t row = 0; row < rows.RowCount(); ++row)
      items_.insert(rows.At(row, 0).Integer());
    if (items_.empty() || Roll(8) == 0) {
      items_.clear();
      Pick("");
      Save({}, number_, {});
    } else if (Roll(6) == 0) {
      Delete();
    } else {
      const std::string nameBefore = Utf8FromUtf16(rows.At(0, 1).Text());
      if (Roll(2) == 0) Pick(number_);
      if (Roll(2) == 0) Remove(*std::next(items_.begin(), Roll(static_cast<int>(items_.size()))));
      Save(number_, Roll(4) == 0 ? "K" + std::to_string(Roll(4)) : number_, nameBefore);
    }
  }

  MeetingReport report;

 private:
  int Roll(int sides) { return static_cast<int>(random_() % static_cast<unsigned>(sides)); }
  ResultSet Ask(const std::string& text) { return company_.Execute(Utf16FromUtf8(text)); }
  bool Has(const std::string& rows) {
    return Ask("SELECT count(*) FROM " + rows).At(0, 0).Integer() > 0;
  }

  void StoreAmounts() {
    if (Roll(2) == 0) {
      const std::string item = std::to_string(1 + Roll(kItems));
      Ask("INSERT INTO amounts VALUES(" + item + ",3,5)");
      ++report.amounts;
      if (Roll(4) == 0) {
        Ask("INSERT INTO amounts VALUES(" + item + ",2,0)");
        ++report.earlierAmounts;
      }
    }
    Ask(Roll(6) == 0 ? "INSERT INTO vouchers VALUES(3)" : "DELETE FROM vouchers");
  }

  // Offers the items that no other class has.
  void Pick(const std::string& opening) {
    std::set<std::int64_t> taken;
    const ResultSet others = Ask("SELECT i FROM c WHERE n<>'" + opening + "'");
    for (std::size_t row = 0; row < others.RowCount(); ++row) {
      taken.insert(others.At(row, 0).Integer());
    }
    for (std::int64_t item = 1; item <= kItems; ++item) {
      if (taken.count(item) == 0 && Roll(3) == 0) items_.insert(item);
    }
  }

  void Remove(std::int64_t item) {
    const std::string isItem = " i=" + std::to_string(item) + " ";
    if (Has("amounts WHERE period<3 AND amount<>0 AND" + isItem)) return;
    if (!Has("vouchers")) {
      Ask("DELETE FROM amounts WHERE period=3 AND" + isItem);
    } else if (Has("amounts WHERE period=3 AND amount<>0 AND" + isItem)) {
      return;
    }
    items_.erase(item);
    ++report.removals;
  }

  void Delete() {
    const std::string isOfClass = " i IN(SELECT i FROM c WHERE n='" + number_ + "') ";
    if (Has("vouchers")) return;
    if (Has("amounts WHERE period<3 AND amount<>0 AND" + isOfClass)) return;
    Ask("DELETE FROM amounts WHERE period=3 AND" + isOfClass);
    Ask("delete from c where n='" + number_ + "'");
    ++report.deletions;
  }

  // The name of the rows tells how many there are: "PROGRAM-COMMAND-ROWS".
  void Save(const std::string& opening, const std::string& number, const std::string& nameBefore) {
    if (items_.empty() || (number != opening && Has("c WHERE n='" + number + "'"))) return;
    const std::string name = tag_ + "-" + std::to_string(items_.size());
    std::string text = "delete from c where n='" + opening + "'";
    for (const std::int64_t item : items_) {
      text += ";INSERT INTO c(n,name,i)VALUES('" + number + "','" + name + "'," +
              std::to_string(item) + ")";
    }
    report.saves[name] = {opening, number, nameBefore, items_};
    Ask(text);
  }

  Connection& company_;
  int program_;
  std::mt19937 random_;
  std::string tag_;
  std::string number_;
  std::set<std::int64_t> items_;  // of the form
};

class MeetingProgramsAtServer : public ServerTest {
 protected:
  // Every change of the class table is noted with its transaction, and every amount that a command
  // deletes with the vouchers that there were.
  void CreateCompany() {
    const auto company = Open();
    for (const char* text :
         {"CREATE TABLE c(n VARCHAR(80),name VARCHAR(80),i INTEGER)",
          "CREATE TABLE amounts(i INTEGER,period INTEGER,amount INTEGER)",
          "CREATE TABLE vouchers(period INTEGER)",
          "CREATE TABLE deleted(period INTEGER,vouchers INTEGER)",
          "CREATE TABLE journal(id SERIAL,x BIGINT DEFAULT txid_current(),isInsert INTEGER,"
          "n VARCHAR(80),name VARCHAR(80),i INTEGER)",
          "CREATE FUNCTION note_amount() RETURNS trigger LANGUAGE plpgsql AS $$BEGIN "
          "EXECUTE 'INSERT INTO deleted SELECT $1,count(*)FROM vouchers' USING OLD.period;"
          "RETURN OLD;END$$",
          "CREATE TRIGGER a BEFORE DELETE ON amounts FOR EACH ROW EXECUTE FUNCTION note_amount()",
          "CREATE FUNCTION note_change() RETURNS trigger LANGUAGE plpgsql AS $$BEGIN "
          "IF TG_OP='INSERT' THEN EXECUTE 'INSERT INTO journal(isInsert,n,name,i)"
          "VALUES(1,$1,$2,$3)' USING NEW.n,NEW.name,NEW.i;ELSE EXECUTE "
          "'INSERT INTO journal(isInsert,n,name,i)VALUES(0,$1,$2,$3)' USING OLD.n,OLD.name,OLD.i;"
          "END IF;RETURN NULL;END$$",
          "CREATE TRIGGER c AFTER INSERT OR DELETE ON c FOR EACH ROW EXECUTE FUNCTION "
          "note_change()"}) {
      Execute(*company, text);
    }
    Execute(*company, "INSERT INTO amounts VALUES(" + std::to_string(kItemWithHistory) + ",2,7)");
  }

  // The body of a program; its exit code.
  int Work(int program) const {
    try {
      const auto company = Open();
      MeetingUser user(*company, program);
      for (int command = 0; command < commands_; ++command) user.Work(command);
      std::ofstream report(ReportPath(program));
      user.report.Write(report);
      report.close();
      return report ? 0 : 1;
    } catch (const DatabaseError& error) {
      std::cerr << error.what() << '\n';
      return 1;
    }
  }
  std::string ReportPath(int program) const {
    return folder_.PathOf("report" + std::to_string(program));
  }

  static std::vector<Change> Journal(Connection& company) {
    const ResultSet rows = Execute(
        company,
        "SELECT isInsert,n,name,i FROM journal ORDER BY pg_xact_commit_timestamp(xmin),x,id");
    std::vector<Change> journal;
    for (std::size_t row = 0; row < rows.RowCount(); ++row) {
      journal.push_back({rows.At(row, 0).Integer() != 0, Utf8FromUtf16(rows.At(row, 1).Text()),
                         Utf8FromUtf16(rows.At(row, 2).Text()), rows.At(row, 3).Integer()});
    }
    return journal;
  }

  TemporaryFolder folder_;
  const int commands_ = MeetingCommands(kUsualCommands);
};

TEST_F(MeetingProgramsAtServer, LoseToEachOtherWhatTheHostGuideSays) {
  CreateCompany();
  std::vector<pid_t> programs;
  for (int program = 0; program < kPrograms; ++program) {
    programs.push_back(fork());
    if (programs.back() == 0) _exit(Work(program));
  }
  const auto company = Open();
  std::set<std::string> seen;
  int looks = 0;
  bool isLast = false;
  while (!isLast) {
    // The last check runs when both have ended.
    isLast = true;
    for (pid_t& program : programs) {
      int status = 0;
      if (program == 0) continue;
      if (waitpid(program, &status, WNOHANG) == 0) {
        isLast = false;
        continue;
      }
      EXPECT_EQ(status, 0);
      program = 0;
    }
    const ResultSet saves =
        Execute(*company, "SELECT name,count(*),count(DISTINCT i) FROM c GROUP BY n,name");
    for (std::size_t row = 0; row < saves.RowCount(); ++row) {
      const std::string name = Utf8FromUtf16(saves.At(row, 0).Text());
      const std::int64_t rows = std::stoi(name.substr(name.rfind('-') + 1));
      EXPECT_EQ(saves.At(row, 1).Integer(), rows) << name;
      EXPECT_EQ(saves.At(row, 2).Integer(), rows) << name;
      seen.insert(name);
    }
    ++looks;
  }
  MeetingReport report;
  for (int program = 0; program < kPrograms; ++program) {
    std::ifstream file(ReportPath(program));
    report.Add(file);
  }
  MeetingJournal journal(report.saves);
  journal.Replay(Journal(*company));
  if (HasFatalFailure()) return;

  std::multiset<std::string> left;
  const ResultSet table = Execute(*company, "SELECT n,name,i FROM c");
  for (std::size_t row = 0; row < table.RowCount(); ++row) {
    left.insert(MeetingJournal::RowOf({true, Utf8FromUtf16(table.At(row, 0).Text()),
                                       Utf8FromUtf16(table.At(row, 1).Text()),
                                       table.At(row, 2).Integer()}));
  }
  EXPECT_EQ(left, journal.Rows());

  EXPECT_EQ(Number(*company, "SELECT count(*) FROM deleted WHERE period<>3"), 0);
  EXPECT_EQ(Number(*company, "SELECT count(*) FROM amounts WHERE period=2"),
            report.earlierAmounts + 1);
  const std::int64_t deleted = Number(*company, "SELECT count(*) FROM deleted");
  EXPECT_EQ(Number(*company, "SELECT count(*) FROM amounts WHERE period=3"),
            report.amounts - deleted);
  std::cout << report.amounts << " amounts of the period, " << deleted << " deleted with "
            << report.deletions << " classes and " << report.removals << " items, "
            << Number(*company, "SELECT count(*) FROM deleted WHERE vouchers>0")
            << " of them after a voucher had come\n"
            << journal.stored << " saves stored, " << journal.replaced << " over one not seen, "
            << journal.revived << " of a deleted class, " << journal.doubled
            << " under a number in use, " << journal.shared << " items that another class had\n"
            << looks << " looks, " << seen.size() << " saves seen\n";
  EXPECT_GT(journal.stored, commands_ / 2);
  EXPECT_GT(deleted, 0);
  EXPECT_GT(report.removals, 0);
  EXPECT_GT(report.deletions, 0);
  EXPECT_GT(looks, 100);
  EXPECT_GT(seen.size(), 100U);
}

}  // namespace
}  // namespace workbench::testing
