// Two programs at one server that save and delete classes as the form does: a reader sees each
// save whole or not at all, and a class that is only edited as one save left it.
#include <gtest/gtest.h>

#include <sys/wait.h>
#include <unistd.h>

#include <iostream>
#include <random>
#include <set>

#include "tests/server_support/server_fixture.h"

namespace workbench::testing {
namespace {

constexpr int kPrograms = 2;
constexpr int kCommands = 600;

class MeetingProgramsAtServer : public ServerTest {
 protected:
  // As the control: the guards, the amounts of the period, the class.
  static void Delete(Connection& company, const std::string& number) {
    const std::string isOfClass = " n='" + number + "' ";
    if (Number(company, "SELECT count(*) FROM vouchers") > 0) return;
    if (Number(company, "SELECT count(*) FROM amounts WHERE period<3 AND" + isOfClass) > 0) return;
    Execute(company, "DELETE FROM amounts WHERE period=3 AND" + isOfClass);
    Execute(company, "delete from c where" + isOfClass);
  }

  // The body of a program; its exit code. A save names its rows "PROGRAM-COMMAND-ROWS".
  int Work(int program) const {
    std::mt19937 random(static_cast<unsigned>(program) + 1);
    const auto roll = [&random](unsigned sides) { return static_cast<int>(random() % sides); };
    try {
      const auto company = Open();
      for (int command = 0; command < kCommands; ++command) {
        const bool isEdit = roll(3) == 0;
        const std::string number = (isEdit ? "E" : "K") + std::to_string(roll(4));
        const bool isThere =
            Number(*company, "SELECT count(*) FROM c WHERE n='" + number + "'") > 0;
        if (roll(2) == 0) {
          const std::string period = number == "K3" ? "2" : "3";
          Execute(*company, "INSERT INTO amounts VALUES('" + number + "'," + period + ")");
        }
        Execute(*company, roll(6) == 0 ? "INSERT INTO vouchers VALUES(3)" : "DELETE FROM vouchers");
        if (!isEdit && isThere && roll(6) == 0) {
          Delete(*company, number);
          continue;
        }
        const std::string to = !isEdit && roll(4) == 0 ? "K" + std::to_string(roll(4)) : number;
        const int rows = 1 + roll(20);
        const std::string name =
            std::to_string(program) + "-" + std::to_string(command) + "-" + std::to_string(rows);
        std::string text = "delete from c where n='" + (isThere ? number : "") + "'";
        for (int i = 0; i < rows; ++i) {
          text += ";INSERT INTO c(n,name,i)VALUES('" + to + "','" + name + "'," +
                  std::to_string(i) + ")";
        }
        Execute(*company, text);
      }
    } catch (const DatabaseError& error) {
      std::cerr << error.what() << '\n';
      return 1;
    }
    return 0;
  }
};

TEST_F(MeetingProgramsAtServer, ShowEachSaveWholeOrNotAtAll) {
  Execute(*Open(), "CREATE TABLE c(n VARCHAR(80),name VARCHAR(80),i INTEGER)");
  Execute(*Open(), "INSERT INTO c VALUES('E0','-1',0),('E1','-1',0),('E2','-1',0),('E3','-1',0)");
  Execute(
      *Open(),
      "CREATE TABLE amounts(n VARCHAR(80),period INTEGER);CREATE TABLE vouchers(period INTEGER);"
      "CREATE TABLE deleted(period INTEGER,vouchers INTEGER)");
  Execute(*Open(),
          "CREATE FUNCTION note() RETURNS trigger LANGUAGE plpgsql AS $$BEGIN "
          "EXECUTE 'INSERT INTO deleted SELECT $1,count(*)FROM vouchers' USING OLD.period;"
          "RETURN OLD;END$$");
  Execute(*Open(),
          "CREATE TRIGGER t BEFORE DELETE ON amounts FOR EACH ROW EXECUTE FUNCTION note()");
  std::vector<pid_t> programs;
  for (int program = 0; program < kPrograms; ++program) {
    programs.push_back(fork());
    if (programs.back() == 0) _exit(Work(program));
  }
  const auto company = Open();
  std::set<std::string> seen;
  int looks = 0;
  int shared = 0;
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
        Execute(*company, "SELECT n,name,count(*),count(DISTINCT i) FROM c GROUP BY n,name");
    std::set<std::string> numbers;
    for (std::size_t row = 0; row < saves.RowCount(); ++row) {
      const std::string name = Utf8FromUtf16(saves.At(row, 1).Text());
      const std::int64_t rows = std::stoi(name.substr(name.rfind('-') + 1));
      EXPECT_EQ(saves.At(row, 2).Integer(), rows) << name;
      EXPECT_EQ(saves.At(row, 3).Integer(), rows) << name;
      const std::string number = Utf8FromUtf16(saves.At(row, 0).Text());
      const bool isFirst = numbers.insert(number).second;
      EXPECT_TRUE(isFirst || number.front() != 'E') << number << ": two saves, one " << name;
      shared += isFirst ? 0 : 1;
      seen.insert(name);
    }
    EXPECT_TRUE(numbers.count("E0") == 1);
    ++looks;
  }
  EXPECT_EQ(Number(*company, "SELECT count(*) FROM deleted WHERE period<>3"), 0);
  EXPECT_GT(Number(*company, "SELECT count(*) FROM deleted"), 0);
  std::cout << Number(*company, "SELECT count(*) FROM deleted") << " amounts deleted, "
            << Number(*company, "SELECT count(*) FROM deleted WHERE vouchers>0")
            << " of them after a voucher had come\n";
  std::cout << looks << " looks, " << seen.size() << " saves seen, " << shared
            << " times two under one number\n";
  EXPECT_GT(looks, 100);
  EXPECT_GT(seen.size(), 100U);
}

}  // namespace
}  // namespace workbench::testing
