// The events of a control: selections, written and deleted classes, failures, its end.
#include "env/host_events.h"

#include <functional>
#include <string>
#include <utility>

#include "tests/browser/class_deletion.h"
#include "tests/control/dispatch_fixture.h"

namespace pricedown::testing {
namespace {

// Log lines: event selection "01", event class 3 "01", event closing, event failed 5 "text".
class RecordingEvents : public HostEvents {
 public:
  explicit RecordingEvents(CallLog log) : log_(std::move(log)) {}

  bool HasListeners() const override { return hasListeners; }
  void SelectionChanged(std::u16string_view classNumber) override {
    Log("event selection " + Quoted(classNumber));
  }
  void ClassChanged(ClassChange change, std::u16string_view classNumber) override {
    Log("event class " + std::to_string(static_cast<int>(change)) + " " + Quoted(classNumber));
  }
  void Closing() override { Log("event closing"); }
  void Failed(const Failure& failure) override {
    Log("event failed " + std::to_string(failure.code) + " " + Quoted(failure.description));
  }

  bool hasListeners = true;
  std::function<void()> whenNotified;

 private:
  void Log(const std::string& line) {
    log_.Add(line);
    if (whenNotified) std::exchange(whenNotified, nullptr)();
  }

  CallLog log_;
};

class ControlEvents : public Dispatch {
 protected:
  ControlEvents() { world_.events = events_; }

  // The lines of the events alone.
  std::string EventLines() const {
    std::string text;
    for (const std::string& line : world_.log.Lines()) {
      if (line.starts_with("event ")) text += line + "\n";
    }
    return text;
  }
  void ScriptDeletion() {
    AnswerStatement(world_.factory, kVoucher, Rows({u"FVoucherID"}, {}));
    AnswerStatement(world_.factory, kHistory, Rows({u"FItemID"}, {}));
    AnswerNothing(world_.factory, kDeleteProvision);
    AnswerNothing(world_.factory, kDeleteClass);
    world_.questions.WillAnswer({true});
  }

  std::shared_ptr<RecordingEvents> events_ = std::make_shared<RecordingEvents>(world_.log);
};

TEST_F(ControlEvents, ReportTheClassThatIsShownFirst) {
  world_.CreateAndInitialize();
  world_.control->Show(nullptr);
  EXPECT_EQ(EventLines(), "event selection \"01\"\n");
}

TEST_F(ControlEvents, ReportAnotherSelectionAndNotTheSameAgain) {
  Start();
  Control().NodeClicked(1);
  Control().NodeClicked(1);
  Control().NodeClicked(2);
  EXPECT_EQ(EventLines(), "event selection \"\"\nevent selection \"01\"\n");
}

// The host may let the user answer in the event.
TEST_F(ControlEvents, ComeWhenTheControlPaints) {
  world_.CreateAndInitialize();
  bool paints = false;
  events_->whenNotified = [&] { paints = world_.screen.paints; };
  world_.control->Show(nullptr);
  EXPECT_EQ(EventLines(), "event selection \"01\"\n");
  EXPECT_TRUE(paints);
}

TEST_F(ControlEvents, ReportTheEndDuringShowWhenTheControlPaints) {
  world_.CreateAndInitialize();
  bool paints = false;
  events_->whenNotified = [&] { paints = world_.screen.paints; };
  world_.screen.onMessages = [&] { world_.control->Terminate(); };
  world_.control->Show(nullptr);
  EXPECT_EQ(EventLines(), "event closing\n");
  EXPECT_TRUE(paints);
}

TEST_F(ControlEvents, LeavePaintingForTheEndOfShowWhenNobodyListens) {
  world_.CreateAndInitialize();
  events_->hasListeners = false;
  world_.control->Show(nullptr);
  EXPECT_EQ(EventLines(), "");
  EXPECT_EQ(world_.screen.paintings, (std::vector<bool>{false, true}));
}

// Messages run at the end of a click: a click on another node may be among them.
TEST_F(ControlEvents, ReportOnlyTheFinalSelectionOfNestedClicks) {
  Start();
  Control().NodeClicked(1);
  bool clicked = false;
  world_.screen.onMessages = [&] {
    if (!std::exchange(clicked, true)) Control().NodeClicked(1);
  };
  Control().NodeClicked(2);
  EXPECT_EQ(EventLines(), "event selection \"\"\n") << "the root, which the host knows";
  world_.screen.onMessages = nullptr;
  Control().NodeClicked(2);
  EXPECT_EQ(EventLines(), "event selection \"\"\nevent selection \"01\"\n");
}

TEST_F(ControlEvents, ReportNoSelectionWhoseMessagesEndTheControl) {
  Start();
  Control().GetGrid().Attach(nullptr);
  world_.screen.onMessages = [&] { Control().Terminate(); };
  Control().NodeClicked(1);
  EXPECT_EQ(EventLines(), "event closing\n");
}

TEST_F(ControlEvents, ReportADeletedClassBeforeTheRootIsSelected) {
  Start();
  ScriptDeletion();
  Control().delRecord();
  EXPECT_EQ(EventLines(), "event class 3 \"01\"\nevent selection \"\"\n");
}

TEST_F(ControlEvents, ReportNoDeletionThatTheUserRefuses) {
  Start();
  world_.questions.WillAnswer({false});
  Control().delRecord();
  EXPECT_EQ(EventLines(), "");
}

TEST_F(ControlEvents, LeaveTheTreeAloneWhenADeletionEndsTheControl) {
  Start();
  Control().GetGrid().Attach(nullptr);
  ScriptDeletion();
  events_->whenNotified = [this] { Control().Terminate(); };
  Control().delRecord();
  EXPECT_EQ(EventLines(), "event class 3 \"01\"\nevent closing\n");
  EXPECT_EQ(world_.log.Count("tree clear"), 0u);
}

TEST_F(ControlEvents, ReportTheEndOnceAndNothingAfterIt) {
  Start();
  Control().GetGrid().Attach(nullptr);
  Control().Terminate();
  Control().Terminate();
  Control().CommandFailed({-5, u"late", u""});
  EXPECT_EQ(EventLines(), "event closing\n");
}

TEST_F(ControlEvents, ReportAFailedCommand) {
  Start();
  Control().CommandFailed({-5, u"没有连接", u"suite"});
  EXPECT_EQ(EventLines(), "event failed -5 \"没有连接\"\n");
}

TEST_F(ControlEvents, ReportAFailedPrintBeforeItsMessage) {
  Start();
  world_.output.onPrint = [] { throw AutomationError(-5, u"卡纸"); };
  Control().PrintPara();
  EXPECT_EQ(EventLines(), "event failed -5 \"卡纸\"\n");
  EXPECT_EQ(world_.log.Lines().back(), "message information \"岚禾提示\": \"卡纸\"");
}

TEST_F(ControlEvents, ReportItemsThatCannotBeReadBeforeTheirMessage) {
  Start();
  FailStatement(world_.factory, kItemsOf01, -5, u"表被锁定");
  Control().NodeClicked(2);
  const std::string log = world_.log.Text();
  EXPECT_NE(log.find("event failed -5 \"表被锁定\"\n"
                     "message information \"岚禾提示\": \"表被锁定\"\n"),
            std::string::npos)
      << log;
}

TEST_F(ControlEvents, ShowNoMessageOfAFailureWhoseEventEndsTheControl) {
  Start();
  Control().GetGrid().Attach(nullptr);
  world_.output.onPrint = [] { throw AutomationError(-5, u"卡纸"); };
  events_->whenNotified = [this] { Control().Terminate(); };
  Control().PrintPara();
  EXPECT_EQ(EventLines(), "event failed -5 \"卡纸\"\nevent closing\n");
  EXPECT_EQ(world_.Messages(), 0u);
}

TEST_F(ControlEvents, ReportWhatTheFormHasWrittenUntilTheControlEnds) {
  Start();
  for (const bool added : {true, false}) {
    world_.editor.whileShown = [this, added] {
      world_.log.Clear();
      const auto whenSaved = world_.editor.Shown().State().whenSaved;
      whenSaved(added, u"02");
      EXPECT_EQ(EventLines(), added ? "event class 1 \"02\"\n" : "event class 2 \"02\"\n");
      if (added) return;
      Control().GetGrid().Attach(nullptr);
      Control().Terminate();
      world_.log.Clear();
      whenSaved(added, u"02");
      EXPECT_EQ(EventLines(), "");
    };
    (Control().*(added ? &PriceDown::addRecord : &PriceDown::editRecord))();
  }
}

TEST_F(ControlEvents, ReportAFailedLookupOfTheFormBeforeItsMessage) {
  Start();
  world_.factory.Object(u"ZEPEBCGLView.GLView")
      .On(u"AccountLookup", Reply::Failing(-5, u"登录超时"));
  world_.editor.whileShown = [this] {
    world_.log.Clear();
    world_.editor.Shown().LookupRequested(FormField::LossAccount);
    EXPECT_EQ(EventLines(), "event failed -5 \"登录超时\"\n");
    EXPECT_EQ(world_.log.Lines().back(), R"(message no icon "岚禾提示": "\r\n登录超时")");
  };
  for (const auto open : {&PriceDown::editRecord, &PriceDown::addRecord}) {
    (Control().*open)();
    EXPECT_EQ(world_.log.Lines().back(), "editor closed");
  }
}

// The form may outlive the control.
TEST_F(ControlEvents, ReportNoFailureOfTheFormAfterTheEndOfTheControl) {
  Start();
  Control().GetGrid().Attach(nullptr);
  world_.factory.Object(u"ZEPEBCGLView.GLView")
      .On(u"AccountLookup", Reply::Failing(-5, u"登录超时"));
  world_.editor.whileShown = [this] {
    Control().Terminate();
    world_.editor.Shown().LookupRequested(FormField::LossAccount);
  };
  Control().editRecord();
  EXPECT_EQ(EventLines(), "event closing\n");
  EXPECT_EQ(world_.Messages(), 1u);
}

}  // namespace
}  // namespace pricedown::testing
