// Another user changes the company while a command of the control is under way: what is lost, and
// that `check` finds the resulting inconsistencies.
#include <gmock/gmock.h>

#include "tests/integration/control_fixture.h"
#include "tests/integration/forwarding_connection.h"
#include "workbench/sample/company_check.h"

namespace workbench {
namespace {

using pricedown::FormField;
using pricedown::FormTool;
using ::testing::HasSubstr;

class MeetingConnection final : public ForwardingConnection {
 public:
  using ForwardingConnection::ForwardingConnection;

  ResultSet Execute(std::u16string_view text) override {
    if (other_ && text.find(before_) != std::u16string_view::npos) std::exchange(other_, {})();
    return ForwardingConnection::Execute(text);
  }
  // Runs `other` just before the next statement that holds `text`.
  void Meet(std::u16string text, std::function<void()> other) {
    before_ = std::move(text);
    other_ = std::move(other);
  }
  bool HasMet() const { return !other_; }

 private:
  std::u16string before_;
  std::function<void()> other_;
};

class MeetingUsers : public ControlOnCompany {
 protected:
  MeetingUsers() {
    auto meeting = std::make_unique<MeetingConnection>(std::move(suite_->company));
    company_ = meeting.get();
    suite_->company = std::move(meeting);
    Open();
  }

  void OtherSaves(std::u16string_view opening, std::u16string_view number, std::u16string_view name,
                  const std::vector<std::int32_t>& items) {
    OtherDeletes(opening);
    InsertClass(number, name, items);
  }
  void OtherDeletes(std::u16string_view number) {
    Run(pricedown::Concatenate(
        {u"delete from icPriceDownClass where FItemClassNumber='", number, u"'"}));
  }
  void SaveAndExit() {
    editor.Click(FormTool::Save);
    questions.WillAnswer({false});
    editor.Click(FormTool::Exit);
    questions.ForgetAnswers();
  }
  std::string Findings() {
    std::string text;
    for (const std::string& finding : CheckCompany(*suite_->company)) text += finding + "\n";
    return text;
  }

  MeetingConnection* company_ = nullptr;
};

TEST_F(MeetingUsers, TheLaterOfTwoSavesReplacesTheEarlierOne) {
  Select(u"A1");
  Command(u"Edit", [this] {
    Type(FormField::ClassName, u"甲");
    OtherSaves(u"A1", u"A1", u"乙", {1, 6, 7});
    SaveAndExit();
  });
  EXPECT_EQ(Classes(),
            "A1|甲|1|1051|5711|1023|1281.1|12.5\n"
            "A1|甲|2|1051|5711|1023|1281.1|12.5\n"
            "A1|甲|3|1051|5711|1023|1281.1|12.5\n" +
                std::string(kB1));
  EXPECT_EQ(Messages(), "");
}

TEST_F(MeetingUsers, AClassDeletedMeanwhileComesBackWithTheSave) {
  Select(u"A1");
  Command(u"Edit", [this] {
    OtherDeletes(u"A1");
    SaveAndExit();
  });
  EXPECT_EQ(Classes(), std::string(kA1) + kB1);
}

TEST_F(MeetingUsers, TwoNewClassesMayGetOneNumber) {
  Command(u"Add", [this] {
    Type(u"C1", u"甲", u"1");
    Pick({7});
    company_->Meet(u"delete from icPriceDownClass where  ",
                   [this] { OtherSaves(u"", u"C1", u"乙", {8}); });
    SaveAndExit();
  });
  EXPECT_TRUE(company_->HasMet());
  EXPECT_EQ(Classes(), std::string(kA1) + kB1 +
                           "C1|乙|8|1051|5711|1023|1281.1|12.5\n"
                           "C1|甲|7|1051|5711|1023|1281.1|1\n");
  EXPECT_THAT(Findings(), HasSubstr("类别各行的名称、科目或百分比不一致: C1:"));
}

TEST_F(MeetingUsers, OneItemMayGetIntoTwoClasses) {
  Command(u"Add", [this] {
    Type(u"C1", u"甲", u"1");
    Pick({7});
    OtherSaves(u"", u"C2", u"乙", {7});
    SaveAndExit();
  });
  EXPECT_EQ(Classes(), std::string(kA1) + kB1 +
                           "C1|甲|7|1051|5711|1023|1281.1|1\n"
                           "C2|乙|7|1051|5711|1023|1281.1|12.5\n");
  EXPECT_THAT(Findings(), HasSubstr("物料属于多个类别: 01.7 物料7: C1, C2\n"));
}

TEST_F(MeetingUsers, AVoucherThatComesAfterTheGuardOfTheDeleteIsNotSeen) {
  AddProvision(1, 2008, 3, 5);
  Select(u"A1");
  questions.WillAnswer({true});
  company_->Meet(u"delete a from ICPriceDownPrepare", [this] {
    AddVoucher();
    AddProvision(2, 2007, 12, 5);
  });
  Command(u"Del");
  EXPECT_TRUE(company_->HasMet());
  EXPECT_EQ(Classes(), kB1);
  EXPECT_EQ(Provisions(), "2|2007|12|5\n");
}

TEST_F(MeetingUsers, AnAmountThatComesAfterTheGuardOfARemovalIsDeleted) {
  Select(u"A1");
  Command(u"Edit", [this] {
    company_->Meet(u"delete  a from ICPriceDownPrepare", [this] {
      AddVoucher();
      AddProvision(2, 2008, 3, 5);
    });
    Remove({3});
    questions.WillAnswer({false});
    editor.Click(FormTool::Exit);
    questions.ForgetAnswers();
  });
  EXPECT_TRUE(company_->HasMet());
  EXPECT_EQ(Provisions(), "");
  EXPECT_EQ(Classes(), std::string(kA1) + kB1) << "not saved";
}

}  // namespace
}  // namespace workbench
