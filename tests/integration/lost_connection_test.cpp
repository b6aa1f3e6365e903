// The connection is lost at every statement of every command, before or after the server has
// carried it out: what is stored, what the form keeps, and that the command works again.
#include <gmock/gmock.h>

#include "platform/error.h"
#include "tests/integration/control_fixture.h"
#include "tests/integration/forwarding_connection.h"
#include "workbench/pickers/picking.h"

namespace workbench {
namespace {

using pricedown::AutomationError;
using pricedown::FormField;
using pricedown::FormTool;
using ::testing::HasSubstr;

// Loses one statement or its answer, and has a new connection for the next one.
class LossyConnection final : public ForwardingConnection {
 public:
  using ForwardingConnection::ForwardingConnection;

  ResultSet Execute(std::u16string_view text) override {
    const bool isLost = ++sent == lostStatement;
    if (isLost && !isCarriedOut) Lose();
    ResultSet result = ForwardingConnection::Execute(text);
    if (isLost) Lose();
    return result;
  }

  int sent = 0;
  int lostStatement = 0;
  bool isCarriedOut = false;
  bool hasLost = false;

 private:
  void Lose() {
    hasLost = true;
    throw DatabaseError(u"[08S01] 连接已断开", 0);
  }
};

// Reads what the pickers' windows read: ids, a search, the texts of the page that is shown. Chooses
// the first account that is found, and the first two items.
class ReadingPickers final : public Pickers {
 public:
  std::optional<std::u16string> PickAccount(Connection& company,
                                            std::u16string_view text) override {
    Picking picking(company, AccountPicker(), {}, false);
    picking.List().Search(text);
    picking.FindFirst();
    if (picking.List().Count() == 0) return std::nullopt;
    return picking.List().Row(0).front();
  }
  std::optional<std::vector<std::int32_t>> PickItems(Connection& company,
                                                     std::u16string_view condition,
                                                     bool several) override {
    Picking picking(company, ItemPicker(), condition, several);
    picking.List().Search(u"物料");
    picking.FindFirst();
    for (const std::size_t position : {0U, 1U}) {
      EXPECT_NE(picking.List().Row(position).front(), u"");
      picking.Toggle(position);
    }
    return picking.Answer(0);
  }
};

constexpr const char* kEdited =
    "A1|材料|1|1051|5711|1023|1281.1|12.5\n"
    "A1|材料|2|1051|5711|1023|1281.1|12.5\n"
    "A1|材料|3|1051|5711|1023|1281.1|12.5\n";
constexpr const char* kPicked =
    "A1|材料|10|1051|5711|1023|1281.1|12.5\n"
    "A1|材料|11|1051|5711|1023|1281.1|12.5\n";
constexpr const char* kAdded = "C1|包装物|7|1051|5711|1023|1281.1|3.25\n";

class LostConnection : public ControlOnCompany {
 protected:
  LostConnection() {
    auto lossy = std::make_unique<LossyConnection>(std::move(suite_->company));
    server_ = lossy.get();
    suite_->company = std::move(lossy);
    auto queue = std::make_unique<QueuedPickers>(std::make_unique<ReadingPickers>());
    pickers = queue.get();
    suite_->pickers = std::move(queue);
    Open();
  }

  void ResetCompany() {
    Run(u"delete from icPriceDownClass");
    Run(u"delete from ICPriceDownPrepare");
    InsertClass(u"A1", u"原材料", {1, 2, 3});
    InsertClass(u"B1", u"成品", {4, 5});
    AddProvision(2, 2008, 3, 5);
    pickers->items.clear();
    questions.ForgetAnswers();
    Command(u"sp2");
  }

  // The command with each of its statements lost in turn, both ways, until none is.
  void LoseEachStatement(const std::function<void()>& scenario) {
    for (const bool isCarriedOut : {false, true}) {
      int losses = 0;
      do {
        ASSERT_LT(losses, 100);
        ResetCompany();
        Select(u"A1");
        server_->isCarriedOut = isCarriedOut;
        nextLoss_ = ++losses;
        SCOPED_TRACE(::testing::Message() << "statement " << losses << " lost "
                                          << (isCarriedOut ? "after" : "before") << " it ran");
        scenario();
        if (HasFatalFailure()) return;
      } while (server_->hasLost);
      losses_ += losses - 1;
    }
  }
  // The step in which a statement is lost; returns whether the failure was reported.
  bool Try(const std::function<void()>& step) {
    server_->sent = 0;
    server_->hasLost = false;
    server_->lostStatement = nextLoss_;
    bool isReported = false;
    try {
      step();
    } catch (const AutomationError& error) {
      isReported = true;
      EXPECT_THAT(pricedown::ToUtf8(error.Description()), HasSubstr("[08S01] 连接已断开"));
    }
    server_->lostStatement = 0;
    return isReported;
  }

  // Leaves the form, and drops what may have changed since the save.
  void Exit() {
    questions.WillAnswer({false});
    editor.Click(FormTool::Exit);
    questions.ForgetAnswers();
  }

  // The form, also when a statement is lost while it opens.
  void OpenForm(std::u16string_view button, const std::function<void()>& work) {
    bool isOpened = false;
    const auto seen = [&] {
      isOpened = true;
      work();
    };
    Try([&] { Command(button, seen); });
    if (isOpened) return;
    EXPECT_TRUE(server_->hasLost);
    Command(u"sp2");
    Select(u"A1");
    Command(button, seen);
    EXPECT_TRUE(isOpened);
  }

  LossyConnection* server_ = nullptr;
  int nextLoss_ = 0;
  int losses_ = 0;
};

TEST_F(LostConnection, KeepsWhatWasTypedAndSavesItWhenTheServerIsBack) {
  LoseEachStatement([&] {
    Command(u"Edit", [&] {
      Type(FormField::ClassName, u"材料");
      if (Try([&] { editor.Click(FormTool::Save); })) {
        ASSERT_TRUE(editor.Shown().IsLoaded());
        EXPECT_EQ(pricedown::ToUtf8(editor.view.Text(FormField::ClassName)), "材料");
        EXPECT_TRUE(Classes() == std::string(kA1) + kB1 || Classes() == std::string(kEdited) + kB1);
        editor.Click(FormTool::Save);
      }
      EXPECT_EQ(Classes(), std::string(kEdited) + kB1);
      Exit();
    });
  });
  EXPECT_GE(losses_, 8);
}

TEST_F(LostConnection, AddsANewClassOnce) {
  LoseEachStatement([&] {
    Command(u"Add", [&] {
      Type(u"C1", u"包装物", u"3.25");
      Pick({7});
      if (Try([&] { editor.Click(FormTool::Save); })) {
        EXPECT_EQ(pricedown::ToUtf8(editor.view.Text(FormField::ClassName)), "包装物");
        editor.Click(FormTool::Save);
      }
      EXPECT_EQ(Classes(), std::string(kA1) + kB1 + kAdded);
      Exit();
    });
  });
  EXPECT_GE(losses_, 8);
}

TEST_F(LostConnection, RemovesAnItemAtTheSecondTry) {
  LoseEachStatement([&] {
    Command(u"Edit", [&] {
      if (Try([&] { Remove({3}); })) {
        EXPECT_EQ(editor.list.Rows().Items(), 3) << "the item stays in the list";
        Remove({3});
      }
      EXPECT_EQ(editor.list.Rows().Items(), 2);
      EXPECT_EQ(Provisions(), "");
      EXPECT_EQ(Classes(), std::string(kA1) + kB1) << "before the save";
      Exit();
    });
  });
  EXPECT_GE(losses_, 8);
}

TEST_F(LostConnection, DeletesAClassAtTheSecondTry) {
  LoseEachStatement([&] {
    questions.WillAnswer({true});
    const bool isReported = Try([&] { Command(u"Del"); });
    questions.ForgetAnswers();
    if (isReported && Classes() != kB1) {
      EXPECT_EQ(Classes(), std::string(kA1) + kB1);
      Select(u"A1");
      questions.WillAnswer({true});
      Command(u"Del");
    }
    EXPECT_EQ(Classes(), kB1);
    EXPECT_EQ(Provisions(), "");
  });
  EXPECT_GE(losses_, 8);
}

TEST_F(LostConnection, BrowsesAgainWhenTheServerIsBack) {
  LoseEachStatement([&] {
    Try([&] {
      Command(u"sp2");
      Select(u"B1");
    });
    Command(u"sp2");
    Select(u"B1");
    EXPECT_EQ(Tree(), "物料 A1(原材料) B1(成品) ");
    EXPECT_EQ(GridCodes(), "01.4 01.5 ");
    EXPECT_EQ(Classes(), std::string(kA1) + kB1);
  });
  EXPECT_GE(losses_, 4);
}

TEST_F(LostConnection, OpensTheControlAtTheSecondTry) {
  LoseEachStatement([&] {
    Try([&] {
      control.reset();
      Open();
    });
    control.reset();
    Open();
    EXPECT_EQ(Tree(), "物料 A1(原材料) B1(成品) ");
    Select(u"A1");
    EXPECT_EQ(GridCodes(), "01.1 01.2 01.3 ");
    EXPECT_EQ(Classes(), std::string(kA1) + kB1);
  });
  EXPECT_GE(losses_, 20);
}

TEST_F(LostConnection, OpensTheFormAtTheSecondTry) {
  LoseEachStatement([&] {
    OpenForm(u"Edit", [&] {
      EXPECT_EQ(pricedown::ToUtf8(editor.view.Text(FormField::ClassName)), "原材料");
      EXPECT_EQ(editor.list.Rows().Items(), 3);
    });
    Command(u"sp2");
    EXPECT_EQ(Tree(), "物料 A1(原材料) B1(成品) ");
    EXPECT_EQ(Classes(), std::string(kA1) + kB1);
  });
  EXPECT_GE(losses_, 4);
}

TEST_F(LostConnection, OpensAnEmptyFormAtTheSecondTry) {
  LoseEachStatement([&] {
    OpenForm(u"Add", [&] { EXPECT_EQ(editor.list.Rows().Items(), 0); });
    Command(u"sp2");
    EXPECT_EQ(Tree(), "物料 A1(原材料) B1(成品) ");
  });
  EXPECT_GE(losses_, 4);
}

TEST_F(LostConnection, PicksItemsAtTheSecondTryAndKeepsWhatWasTyped) {
  LoseEachStatement([&] {
    Command(u"Edit", [&] {
      Type(FormField::ClassName, u"材料");
      if (Try([&] { editor.Click(FormTool::AddItem); })) {
        EXPECT_EQ(pricedown::ToUtf8(editor.view.Text(FormField::ClassName)), "材料");
        EXPECT_EQ(editor.list.Rows().Items(), 3);
        editor.Click(FormTool::AddItem);
      }
      EXPECT_EQ(editor.list.Rows().Items(), 5);
      editor.Click(FormTool::Save);
      Exit();
    });
    EXPECT_EQ(Classes(), std::string(kPicked) + kEdited + kB1);
  });
  EXPECT_GE(losses_, 10);
}

TEST_F(LostConnection, ShowsThatAnAccountCannotBeLookedUpAndFindsItAtTheSecondTry) {
  LoseEachStatement([&] {
    Command(u"Edit", [&] {
      const auto text = [&] { return pricedown::ToUtf8(editor.view.Text(FormField::LossAccount)); };
      const auto lookUp = [&] { editor.Shown().LookupRequested(FormField::LossAccount); };
      Type(FormField::ClassName, u"材料");
      Type(FormField::LossAccount, u"57");
      log.Clear();
      EXPECT_FALSE(Try(lookUp));
      if (server_->hasLost) {
        EXPECT_THAT(Messages(), HasSubstr("[08S01] 连接已断开"));
        EXPECT_EQ(text(), "57");
        lookUp();
      }
      EXPECT_EQ(text(), "5711");
      editor.Click(FormTool::Save);
      Exit();
    });
    EXPECT_EQ(Classes(), std::string(kEdited) + kB1);
  });
  EXPECT_GE(losses_, 8);
}

TEST_F(LostConnection, ShowsThePreviewAtTheSecondTry) {
  suite_->SetRightsMask(1002, 35, 0x438000);
  LoseEachStatement([&] {
    output->pageCount = 0;
    Try([&] { Command(u"PrintView"); });
    Command(u"sp2");
    Select(u"A1");
    Command(u"PrintView");
    EXPECT_EQ(output->pageCount, 1);
    EXPECT_THAT(output->Texts(), HasSubstr("01.3\n"));
  });
  EXPECT_GE(losses_, 4);
}

}  // namespace
}  // namespace workbench
