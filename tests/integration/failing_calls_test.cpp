// Every call to the suite fails once, in every command: what remains in the company, and that the
// form still works.
#include <gtest/gtest.h>

#include "platform/error.h"
#include "tests/control/button.h"
#include "tests/integration/control_fixture.h"

namespace workbench {
namespace {

using pricedown::AutomationError;
using pricedown::FormField;
using pricedown::FormTool;
using pricedown::testing::FailEachCallInTurn;
using pricedown::testing::kInjectedFailure;

class FailingCalls : public ControlOnCompany {
 protected:
  FailingCalls() {
    ResetCompany();
    before_ = Classes();
    Open();
  }
  // The classes and provisions that each run begins with, in one transaction.
  void ResetCompany() {
    Run(u"delete from icPriceDownClass");
    Run(u"delete from ICPriceDownPrepare");
    InsertClass(u"A1", u"原材料", {1, 2, 3});
    InsertClass(u"B1", u"成品", {4, 5});
    AddProvision(1, 2008, 3, 5);
    AddProvision(2, 2008, 2, 5);
    AddProvision(4, 2008, 3, 7);
    log.Clear();
  }
  // A user's step during which the chosen call fails; the user then tries again.
  template <typename Step, typename Again>
  void Try(Step step, Again again) {
    const int first = recorder->CallCount();
    recorder->FailCall(failingCall_);
    try {
      step();
    } catch (const AutomationError& error) {
      failed_ = true;
      EXPECT_EQ(error.Number(), kInjectedFailure) << pricedown::ToUtf8(error.Description());
    }
    calls_ = recorder->CallCount() - first;
    recorder->FailCall(0);
    if (!failed_) return;
    ++failures_;
    ASSERT_TRUE(editor.Shown().IsLoaded());
    afterFailure_ = Classes();
    again();
  }
  // The rows of the item in the form's list, none when it is not listed.
  std::vector<std::int32_t> RowsOf(const std::string& code) {
    std::vector<std::int32_t> rows;
    std::int32_t row = pricedown::MemberRows::kFirstItem;
    for (const std::string& listed : editor.list.Codes()) {
      if (listed == code) rows.push_back(row);
      ++row;
    }
    return rows;
  }
  bool IsListed(std::int32_t id) {
    const pricedown::Recordset members = editor.Shown().MemberList();
    for (members.MoveFirst(); !members.AtEnd(); members.MoveNext()) {
      if (members.Field(u"FItemID") == pricedown::Value(id)) return true;
    }
    return false;
  }
  // Runs `showing` with each call of its tried step failing in turn.
  void FailInTheForm(std::u16string_view button, const std::function<void()>& showing) {
    // All later commands keep the suite's view of the ledger.
    const auto objects = [this] { return recorder->LiveObjects() - (state.ledgerView ? 1 : 0); };
    FailEachCallInTurn([&](int failingCall) {
      ResetCompany();
      Select(u"A1");
      failingCall_ = failingCall;
      failed_ = false;
      calls_ = 0;
      const int before = objects();
      Command(button, showing);
      EXPECT_TRUE(editor.IsClean());
      // An edit has handed over the grid's recordset.
      EXPECT_EQ(objects(), button == u"Edit" ? before - 1 : before);
      return calls_;
    });
    control.reset();
    EXPECT_EQ(recorder->LiveObjects(), 0);
  }

  std::string before_;
  std::string afterFailure_;
  int failingCall_ = 0;
  int calls_ = 0;
  bool failed_ = false;
  int failures_ = 0;
};

TEST_F(FailingCalls, LeaveASaveUndoneAndTheNextOneWorks) {
  const std::string after =
      "A1|材料|1|1051|5711|1023|1281.1|8.25\n"
      "A1|材料|2|1051|5711|1023|1281.1|8.25\n"
      "A1|材料|3|1051|5711|1023|1281.1|8.25\n"
      "B1|成品|4|1051|5711|1023|1281.1|12.5\n"
      "B1|成品|5|1051|5711|1023|1281.1|12.5\n";
  FailInTheForm(u"Edit", [&] {
    Type(FormField::ClassName, u"材料");
    Type(FormField::Percentage, u"8.25");
    const auto save = [&] { editor.Click(FormTool::Save); };
    Try(save, [&] {
      EXPECT_EQ(afterFailure_, before_);
      save();
    });
    EXPECT_EQ(Classes(), after);
  });
  EXPECT_GT(failures_, 40);
}

TEST_F(FailingCalls, LeaveTheRowsOfALookupThatWereAppended) {
  FailInTheForm(u"Edit", [&] {
    Try(
        [&] {
          Pick({7, 8});
        },
        [&] {
          pickers->items.clear();
          // The picker offers no item that is listed already.
          std::vector<std::int32_t> ids;
          for (const std::int32_t id : {7, 8}) {
            if (!IsListed(id)) ids.push_back(id);
          }
          Pick(ids);
        });
    EXPECT_EQ(Classes(), before_);
    editor.Click(FormTool::Save);
    EXPECT_EQ(Classes(), before_.substr(0, before_.find("B1|")) +
                             "A1|原材料|7|1051|5711|1023|1281.1|12.5\n"
                             "A1|原材料|8|1051|5711|1023|1281.1|12.5\n" +
                             before_.substr(before_.find("B1|")));
  });
  EXPECT_GT(failures_, 40);
}

TEST_F(FailingCalls, LeaveTheItemsThatWereRemovedBefore) {
  FailInTheForm(u"Edit", [&] {
    Try(
        [&] {
          Remove({2, 3, 4});
        },
        [&] {
          // The provision of an item is deleted before the item.
          EXPECT_TRUE(IsListed(1) || Provisions().find("1|2008|3|5") == std::string::npos);
          EXPECT_TRUE(IsListed(2));
          std::vector<std::int32_t> rows;
          for (const char* code : {"01.1", "01.2", "01.3"}) {
            for (const std::int32_t row : RowsOf(code)) rows.push_back(row);
          }
          Remove(rows);
        });
    // The class itself is written by a save.
    EXPECT_EQ(Classes(), before_);
    EXPECT_EQ(Provisions(), "2|2008|2|5\n4|2008|3|7\n");
    EXPECT_EQ(editor.list.RowTexts(), "物料代码|物料名称|规格型号|\n01.2|物料2|M2|\n");
    editor.Click(FormTool::Save);
    EXPECT_EQ(Classes(),
              "A1|原材料|2|1051|5711|1023|1281.1|12.5\n" + before_.substr(before_.find("B1|")));
  });
  EXPECT_GT(failures_, 30);
}

TEST_F(FailingCalls, LeaveANewClassUnwrittenOrWritten) {
  FailInTheForm(u"Add", [&] {
    Type(u"C1", u"包装物", u"3.25");
    Pick({7});
    Try([&] { editor.Click(FormTool::Save); },
        [&] {
          // Once the class is written, only clearing the form was interrupted.
          if (afterFailure_ == before_) editor.Click(FormTool::Save);
        });
    EXPECT_EQ(Classes(), before_ + "C1|包装物|7|1051|5711|1023|1281.1|3.25\n");
  });
  EXPECT_GT(failures_, 40);
}

TEST_F(FailingCalls, KeepTheFormOpenWhenTheSaveBeforeClosingFails) {
  FailInTheForm(u"Edit", [&] {
    Type(FormField::ClassName, u"材料");
    questions.WillAnswer({true});
    Try([&] { editor.Click(FormTool::Exit); },
        [&] {
          EXPECT_EQ(afterFailure_, before_);
          questions.ForgetAnswers();
          editor.Click(FormTool::Save);
          editor.Click(FormTool::Exit);
        });
    EXPECT_FALSE(editor.Shown().IsLoaded());
    EXPECT_EQ(Classes().find("原材料"), std::string::npos);
  });
  EXPECT_GT(failures_, 40);
}

// Failures before the form is shown: inside the copies they are ignored, elsewhere they end the
// command. Nothing has been changed yet.
TEST_F(FailingCalls, ChangeNothingWhileTheFormIsPrepared) {
  for (const std::u16string_view button : {u"Add", u"Edit"}) {
    FailEachCallInTurn([&](int failingCall) {
      Select(u"A1");
      const int first = recorder->CallCount();
      int calls = 0;
      recorder->FailCall(failingCall);
      try {
        Command(button, [&] { calls = recorder->CallCount() - first; });
      } catch (const AutomationError&) {
        ++failures_;
      }
      recorder->FailCall(0);
      EXPECT_TRUE(editor.IsClean());
      EXPECT_EQ(Classes(), before_);
      return calls;
    });
  }
  EXPECT_GT(failures_, 100);
  Select(u"A1");
  Command(u"Edit", [&] {
    EXPECT_EQ(editor.list.Rows().Items(), 3);
    Type(FormField::ClassName, u"材料");
    editor.Click(FormTool::Save);
  });
  EXPECT_NE(Classes(), before_);
  control.reset();
  EXPECT_EQ(recorder->LiveObjects(), 0);
}

// Delete: provision rows are deleted first, and stay deleted when the class could not be.
TEST_F(FailingCalls, LeaveAClassWithOrWithoutItsProvisionOrGone) {
  const std::string provisions = "1|2008|3|5\n4|2008|3|7\n";
  int halfDone = 0;
  FailEachCallInTurn([&](int failingCall) {
    ResetCompany();
    Run(u"delete from ICPriceDownPrepare where FItemID='2'");
    control->CommandChosen(
        pricedown::testing::Button(u"sp2"));  // the tree again, with the class in it
    Select(u"A1");
    const int first = recorder->CallCount();
    recorder->FailCall(failingCall);
    questions.WillAnswer({true});
    bool failed = false;
    try {
      control->delRecord();
    } catch (const AutomationError&) {
      failed = true;
    }
    const int calls = recorder->CallCount() - first;
    recorder->FailCall(0);
    questions.ForgetAnswers();
    if (failed) {
      const bool half = Provisions() != provisions;
      halfDone += half;
      EXPECT_EQ(Classes(), before_);
      EXPECT_EQ(Provisions(), half ? "4|2008|3|7\n" : provisions);
    } else {
      EXPECT_EQ(Classes(), before_.substr(before_.find("B1|")));
      EXPECT_EQ(Provisions(), "4|2008|3|7\n");
    }
    return calls;
  });
  EXPECT_EQ(halfDone, 1);
}

}  // namespace
}  // namespace workbench
