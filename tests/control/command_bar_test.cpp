// The command bar and its collections, as hosts use them.
#include "control/command_bar.h"

#include <gtest/gtest.h>

#include <array>
#include <functional>

#include "platform/convert.h"
#include "platform/error.h"
#include "tests/support/failure.h"
#include "tests/support/utf8.h"

namespace pricedown::testing {
namespace {

// The notifications that a host receives from the bar.
class HostListener : public LocalObject<HostListener> {
 public:
  static std::span<const Member<HostListener>> Members() {
    static constexpr std::array<Member<HostListener>, 2> kMembers{{
        {u"ToolChanged", MemberKind::Method, Receive<kChanged>, 1, 1},
        {u"ToolClicked", MemberKind::Method, Receive<kClicked>, 1, 1},
    }};
    return kMembers;
  }

  std::vector<std::string> received;
  std::function<void()> whenNotified;
  bool fails = false;

 private:
  static constexpr char kChanged[] = "changed ";
  static constexpr char kClicked[] = "clicked ";

  template <const char* what>
  static Value Receive(HostListener& listener, Access, std::span<Value> arguments) {
    const ObjectPtr tool = RequireObject(arguments[0], u"tool");
    const auto is = [&](std::u16string_view state) { return ToBoolean(tool->Get(state)); };
    listener.received.push_back(
        what + Utf8(ToText(tool->Get(u"Name"))) + (is(u"Enabled") ? " on" : " off") +
        (is(u"Checked") ? " checked" : "") + (is(u"Visible") ? "" : " hidden"));
    if (listener.whenNotified) listener.whenNotified();
    if (listener.fails) throw AutomationError(ErrorNumber::Unspecified, u"listener");
    return {};
  }
};

class CommandBarTest : public ::testing::Test {
 protected:
  // A late-bound path: Bands(1).Tools("mnuEdit") is Of(Of(bar, "Bands", {1}), "Tools", {...}).
  static ObjectPtr Of(const ObjectPtr& object, std::u16string_view member,
                      std::initializer_list<Value> arguments = {}) {
    return RequireObject(object->Call(member, arguments), member);
  }
  static std::string TextOf(const ObjectPtr& object, std::u16string_view member) {
    return Readable(object->Get(member));
  }
  static std::string Described(const ObjectPtr& tool) {
    std::string text;
    for (const std::u16string_view member : {u"Name", u"Caption", u"Description", u"Category"}) {
      text += TextOf(tool, member) + " ";
    }
    return text;
  }
  ObjectPtr Tools() const { return Of(bar_, u"Tools"); }

  void End() {
    lifetime_.End();
    bar_->Detach();
  }

  Lifetime lifetime_;
  std::shared_ptr<CommandBar> bar_ = std::make_shared<CommandBar>(lifetime_);
  std::shared_ptr<HostListener> listener_ = std::make_shared<HostListener>();
};

TEST_F(CommandBarTest, HoldsTheDesignedBandMenuAndTools) {
  EXPECT_EQ(TextOf(Of(bar_, u"Bands"), u"Count"), "1");
  const ObjectPtr band = Of(bar_, u"Bands", {1});
  EXPECT_EQ(TextOf(band, u"Name"), "\"MnuBand1\"");
  const ObjectPtr tools = Of(band, u"Tools");
  ASSERT_EQ(TextOf(tools, u"Count"), "4");
  EXPECT_EQ(Described(Of(tools, u"Item", {1})), R"("mnuEdit" "编辑" "" "Menus" )");
  EXPECT_EQ(Described(Of(tools, u"Item", {2})), R"("iInsert" "新增" "" "" )");
  EXPECT_EQ(Described(Of(tools, u"Item", {3})), R"("iEdit" "修改" "修改物料类别属性" "" )");
  EXPECT_EQ(Described(Of(tools, u"Item", {4})), R"("iCut" "删除" "删除物料类别" "" )");
}

TEST_F(CommandBarTest, FindsBandsAndToolsByIndexOrName) {
  EXPECT_EQ(TextOf(Of(bar_, u"bands", {u"MnuBand1"}), u"Name"), "\"MnuBand1\"");
  EXPECT_EQ(TextOf(Of(Of(bar_, u"Bands"), u"Item", {std::int16_t{1}}), u"Name"), "\"MnuBand1\"");
  EXPECT_EQ(TextOf(Of(bar_, u"Tools", {u"iCut"}), u"Name"), "\"iCut\"");
  EXPECT_EQ(TextOf(Of(Tools(), u"", {2.0}), u"Name"), "\"iInsert\"");
  EXPECT_EQ(TextOf(Of(Of(bar_, u"Bands", {1}), u"Tools", {u"iEdit"}), u""), "\"iEdit\"");
  Value index(3);
  EXPECT_EQ(TextOf(Of(Tools(), u"Item", {Value::ByReference(index)}), u"Name"), "\"iEdit\"");
}

TEST_F(CommandBarTest, FindsNamesWithoutRegardToCase) {
  EXPECT_EQ(TextOf(Of(bar_, u"Tools", {u"ICUT"}), u"Name"), "\"iCut\"");
  EXPECT_EQ(TextOf(Of(bar_, u"Bands", {u"mnuband1"}), u"Name"), "\"MnuBand1\"");
  Of(Tools(), u"Add", {u"IEDIT", u"别名"});
  EXPECT_EQ(TextOf(Tools(), u"Count"), "4");
  int clicks = 0;
  bar_->OnClick([&](const ObjectPtr&) { ++clicks; });
  bar_->Call(u"Click", {u"iinsert"});
  EXPECT_EQ(clicks, 1);
}

TEST_F(CommandBarTest, EnumeratesBandsAndTools) {
  const auto names = [](const ObjectPtr& collection) {
    std::string text;
    const auto elements = collection->Elements();
    for (const Value& element : elements.value()) {
      text += TextOf(element.Object(), u"Name") + " ";
    }
    return text;
  };
  Of(Tools(), u"Add", {u"iPrint"});
  EXPECT_EQ(names(Of(bar_, u"Bands")), "\"MnuBand1\" ");
  EXPECT_EQ(names(Tools()), R"("mnuEdit" "iInsert" "iEdit" "iCut" "iPrint" )");
  EXPECT_EQ(names(Of(Of(bar_, u"Bands", {1}), u"Tools")), R"("mnuEdit" "iInsert" "iEdit" "iCut" )");
  EXPECT_FALSE(bar_->Elements().has_value());
}

TEST_F(CommandBarTest, ReturnsTheCollectionWithoutAnIndex) {
  EXPECT_EQ(TextOf(Of(bar_, u"Tools", {Missing{}}), u"Count"), "4");
}

TEST_F(CommandBarTest, RefusesUnknownBandsAndTools) {
  for (const Value& wrong : std::vector<Value>{0, 5, -1, u"", u"iPaste"}) {
    EXPECT_THROW(Tools()->Call(u"Item", {wrong}), AutomationError) << Readable(wrong);
  }
  for (const Value& wrong : std::vector<Value>{0, 2, u"MnuBand2"}) {
    EXPECT_THROW(bar_->Call(u"Bands", {wrong}), AutomationError) << Readable(wrong);
  }
  EXPECT_EQ(FailureOf([&] { Tools()->Call(u"Item", {u"iPaste"}); }),
            "80070057 命令栏没有该项: iPaste");
  EXPECT_THROW(Tools()->Call(u"Item"), AutomationError);
  EXPECT_THROW(Tools()->Call(u"Item", {Null{}}), AutomationError);
  EXPECT_THROW(bar_->Get(u"Menus"), AutomationError);
}

TEST_F(CommandBarTest, RefusesOtherCountsOfArguments) {
  const ObjectPtr bands = Of(bar_, u"Bands");
  const ObjectPtr band = Of(bar_, u"Bands", {1});
  const ObjectPtr tools = Tools();
  const auto failure = [](const ObjectPtr& object, std::u16string_view member, std::size_t count) {
    std::vector<Value> arguments(count, Value(1));
    return FailureOf([&] { object->Perform(object->Find(member), arguments); });
  };
  EXPECT_EQ(failure(bar_, u"Bands", 2), "8002000E 参数个数错误: Bands (2)");
  EXPECT_EQ(failure(bar_, u"Tools", 2), "8002000E 参数个数错误: Tools (2)");
  EXPECT_EQ(failure(bar_, u"Click", 0), "8002000E 参数个数错误: Click (0)");
  EXPECT_EQ(failure(bar_, u"Click", 2), "8002000E 参数个数错误: Click (2)");
  EXPECT_EQ(failure(bands, u"Item", 0), "8002000E 参数个数错误: Item (0)");
  EXPECT_EQ(failure(bands, u"Item", 2), "8002000E 参数个数错误: Item (2)");
  EXPECT_EQ(failure(band, u"Name", 1), "8002000E 参数个数错误: Name (1)");
  EXPECT_EQ(failure(band, u"Tools", 2), "8002000E 参数个数错误: Tools (2)");
  EXPECT_EQ(failure(tools, u"Item", 2), "8002000E 参数个数错误: Item (2)");
  EXPECT_EQ(failure(tools, u"Add", 0), "8002000E 参数个数错误: Add (0)");
  EXPECT_EQ(failure(tools, u"Add", 4), "8002000E 参数个数错误: Add (4)");
}

TEST_F(CommandBarTest, KeepsTheTextsOfAToolThatIsAddedAgain) {
  const ObjectPtr tool = Of(Tools(), u"Add", {u"iToolBar", u"工具条", u"查看"});
  Of(Tools(), u"Add", {u"iToolBar", u"别名", u"文件"});
  EXPECT_EQ(Described(tool), R"("iToolBar" "工具条" "" "查看" )");
  Of(Tools(), u"Add", {u"iInsert", u"别名", u"文件"});
  EXPECT_EQ(Described(Of(Tools(), u"Item", {u"iInsert"})), R"("iInsert" "新增" "" "" )");
}

TEST_F(CommandBarTest, AddsAToolToTheBandOfTheCollection) {
  const ObjectPtr tools = Of(Of(bar_, u"Bands", {1}), u"Tools");
  const ObjectPtr added = Of(tools, u"Add", {u"iRefresh", u"刷新"});
  EXPECT_EQ(TextOf(tools, u"Count"), "5");
  EXPECT_EQ(Of(tools, u"Item", {u"iRefresh"}), added);
  EXPECT_EQ(Of(bar_, u"Tools", {u"iRefresh"}), added);
  // One of the bar's own comes into the band as well, and only once.
  const ObjectPtr print = Of(Tools(), u"Add", {u"iPrint"});
  EXPECT_EQ(Of(tools, u"Add", {u"iPrint"}), print);
  Of(tools, u"Add", {u"iPrint"});
  EXPECT_EQ(TextOf(tools, u"Count"), "6");
  EXPECT_EQ(TextOf(Tools(), u"Count"), "6");
}

TEST_F(CommandBarTest, KeepsTheStatesOfTheCheckToolsBeforeTheyAreAdded) {
  EXPECT_TRUE(bar_->CheckTool(u"iToolBar")->Checked());
  EXPECT_TRUE(bar_->CheckTool(u"mnuViewStatusBar")->Checked());
  bar_->CheckTool(u"iToolBar")->SetChecked(false);
  EXPECT_EQ(TextOf(Tools(), u"Count"), "4");
  EXPECT_EQ(TextOf(Of(Tools(), u"Add", {u"iToolBar"}), u"Checked"), "False");
  EXPECT_EQ(TextOf(Of(Tools(), u"Add", {u"mnuViewStatusBar"}), u"Checked"), "True");
}

TEST_F(CommandBarTest, AcceptsToolsOfTheHostWithoutChangingItsBand) {
  const ObjectPtr added = Of(Tools(), u"Add", {u"iToolBar", u"工具栏", u"查看"});
  EXPECT_EQ(Described(added), R"("iToolBar" "工具栏" "" "查看" )");
  EXPECT_EQ(TextOf(Tools(), u"Count"), "5");
  EXPECT_EQ(TextOf(Of(Of(bar_, u"Bands", {1}), u"Tools"), u"Count"), "4");
  EXPECT_EQ(Described(Of(Tools(), u"Add", {u"iPrint"})), R"("iPrint" "" "" "" )");
}

TEST_F(CommandBarTest, KeepsAToolThatIsAddedAgain) {
  bar_->Tool(u"iCut")->SetEnabled(false);
  const ObjectPtr again = Of(Tools(), u"Add", {u"iCut", u"别的", u"别处"});
  EXPECT_EQ(again, ObjectPtr(bar_->Tool(u"iCut")));
  EXPECT_EQ(TextOf(again, u"Caption"), "\"删除\"");
  EXPECT_EQ(TextOf(again, u"Enabled"), "False");
  EXPECT_EQ(TextOf(Tools(), u"Count"), "4");
}

TEST_F(CommandBarTest, LetsHostsChangeTheStatesOnly) {
  const ObjectPtr tool = Of(bar_, u"Tools", {u"iEdit"});
  EXPECT_EQ(TextOf(tool, u"Enabled") + TextOf(tool, u"Checked") + TextOf(tool, u"Visible"),
            "TrueFalseTrue");
  tool->Put(u"Enabled", 0);
  tool->Put(u"checked", true);
  tool->Put(u"VISIBLE", u"False");
  EXPECT_EQ(TextOf(tool, u"Enabled") + TextOf(tool, u"Checked") + TextOf(tool, u"Visible"),
            "FalseTrueFalse");
  for (const std::u16string_view fixed : {u"Name", u"Caption", u"Description", u"Category"}) {
    EXPECT_THROW(tool->Put(fixed, u"x"), AutomationError) << Utf8(fixed);
  }
  EXPECT_THROW(tool->Put(u"Checked", u"maybe"), AutomationError);
}

TEST_F(CommandBarTest, NotifiesTheListenerOfEachChangeOfAnyToolEvenAddedLater) {
  bar_->PutReference(u"Listener", listener_);
  const ObjectPtr cut = Of(bar_, u"Tools", {u"iCut"});
  cut->Put(u"Enabled", false);
  cut->Put(u"Enabled", false);  // no change
  Of(Tools(), u"Add", {u"iRefresh"})->Put(u"Checked", true);
  cut->Put(u"Visible", false);
  Of(Tools(), u"Add", {u"iToolBar"})->Put(u"Checked", false);
  EXPECT_EQ(listener_->received,
            (std::vector<std::string>{"changed iCut off", "changed iRefresh on checked",
                                      "changed iCut off hidden", "changed iToolBar on"}));
}

TEST_F(CommandBarTest, NotifiesTheListenerOfAClickAfterItsCommand) {
  bar_->OnClick([&](const ObjectPtr&) { listener_->received.push_back("command"); });
  bar_->PutReference(u"Listener", listener_);
  bar_->Call(u"Click", {u"iEdit"});
  Of(bar_, u"Tools", {u"iCut"})->Call(u"Click");
  EXPECT_EQ(listener_->received, (std::vector<std::string>{"command", "clicked iEdit on", "command",
                                                           "clicked iCut on"}));
}

TEST_F(CommandBarTest, NotifiesNoListenerOfAClickThatDoesNothingOrFails) {
  bar_->PutReference(u"Listener", listener_);
  bar_->Call(u"Click", {u"iEdit"});  // no handler yet
  bar_->OnClick([](const ObjectPtr&) { throw AutomationError(ErrorNumber::Unspecified, u"no"); });
  EXPECT_THROW(bar_->Call(u"Click", {u"iEdit"}), AutomationError);
  bar_->Tool(u"iEdit")->DisableForGood();
  bar_->Call(u"Click", {u"iEdit"});
  EXPECT_EQ(listener_->received, std::vector<std::string>{"changed iEdit off"});
}

TEST_F(CommandBarTest, ChangesAndClicksEvenIfTheListenerFailsOrLacksTheMethod) {
  int commands = 0;
  bar_->OnClick([&](const ObjectPtr&) { ++commands; });
  const ObjectPtr tool = Of(bar_, u"Tools", {u"iEdit"});
  bar_->PutReference(u"Listener", tool);  // an object without the methods
  listener_->fails = true;
  tool->Put(u"Checked", true);
  bar_->PutReference(u"Listener", listener_);
  tool->Put(u"Visible", false);
  tool->Call(u"Click");
  EXPECT_EQ(TextOf(tool, u"Checked") + TextOf(tool, u"Visible"), "TrueFalse");
  EXPECT_EQ(commands, 1);
  EXPECT_EQ(listener_->received.size(), 2u);
}

TEST_F(CommandBarTest, HasOneListenerUntilItGetsAnotherOrNone) {
  EXPECT_EQ(TextOf(bar_, u"Listener"), Readable(Value(ObjectPtr())));
  bar_->PutReference(u"Listener", listener_);
  EXPECT_EQ(Of(bar_, u"Listener"), ObjectPtr(listener_));
  const auto other = std::make_shared<HostListener>();
  bar_->Put(u"Listener", Value(ObjectPtr(other)));
  bar_->Tool(u"iCut")->SetChecked(true);
  bar_->PutReference(u"Listener", nullptr);
  bar_->Tool(u"iCut")->SetChecked(false);
  EXPECT_EQ(other->received, std::vector<std::string>{"changed iCut on checked"});
  EXPECT_EQ(listener_->received, std::vector<std::string>{});
  for (const Value& wrong : std::vector<Value>{1, u"x", Missing{}, Value()}) {
    EXPECT_THROW(bar_->Put(u"Listener", wrong), AutomationError) << Readable(wrong);
  }
}

TEST_F(CommandBarTest, IgnoresAClickOnAToolOfNoBar) {
  const auto tool =
      std::make_shared<CommandBarTool>(CommandBarTool::Definition{u"iPrint", {}, {}, {}});
  tool->SetChecked(true);
  EXPECT_NO_THROW(tool->Click());
  EXPECT_TRUE(tool->Checked());
}

TEST_F(CommandBarTest, ReleasesItsListenerWhenItIsDetached) {
  bar_->PutReference(u"Listener", listener_);
  End();
  EXPECT_EQ(listener_.use_count(), 1);
  bar_->PutReference(u"Listener", listener_);
  bar_->Tool(u"iCut")->SetChecked(true);
  EXPECT_EQ(listener_.use_count(), 1);
  EXPECT_EQ(listener_->received, std::vector<std::string>{});
}

TEST_F(CommandBarTest, MayGetAnotherListenerInsideACall) {
  const auto next = std::make_shared<HostListener>();
  listener_->whenNotified = [&] { bar_->PutReference(u"Listener", next); };
  bar_->PutReference(u"Listener", listener_);
  const std::weak_ptr<HostListener> first = listener_;
  listener_.reset();
  bar_->Tool(u"iCut")->SetChecked(true);
  EXPECT_TRUE(first.expired());
  bar_->Tool(u"iCut")->SetChecked(false);
  EXPECT_EQ(next->received, std::vector<std::string>{"changed iCut on"});
}

TEST_F(CommandBarTest, PassesAClickedToolToItsHandler) {
  std::vector<ObjectPtr> clicked;
  bar_->OnClick([&](const ObjectPtr& tool) { clicked.push_back(tool); });
  bar_->Call(u"Click", {u"iEdit"});
  EXPECT_EQ(clicked, std::vector<ObjectPtr>{bar_->Tool(u"iEdit")});
  EXPECT_EQ(FailureOf([&] { bar_->Call(u"Click", {u"iPaste"}); }),
            "80070057 命令栏没有该工具: iPaste");
  bar_->Tool(u"iEdit")->SetEnabled(false);
  bar_->Call(u"Click", {u"iEdit"});
  EXPECT_EQ(clicked.size(), 1u);
}

TEST_F(CommandBarTest, LetsHostsClickAToolItself) {
  std::vector<ObjectPtr> clicked;
  bar_->OnClick([&](const ObjectPtr& tool) { clicked.push_back(tool); });
  const ObjectPtr designed = Of(bar_, u"Tools", {u"iCut"});
  const ObjectPtr added = Of(Tools(), u"Add", {u"iRefresh"});
  designed->Call(u"Click");
  added->Call(u"Click");
  EXPECT_EQ(clicked, (std::vector<ObjectPtr>{designed, added}));
  designed->Put(u"Enabled", false);
  designed->Call(u"Click");
  End();
  added->Call(u"Click");
  EXPECT_EQ(clicked.size(), 2u);
}

TEST_F(CommandBarTest, MayBeDetachedByTheClickThatItHandles) {
  int clicks = 0;
  // The copied state is used after Detach, so a destroyed handler would show.
  const auto token = std::make_shared<int>(5);
  bar_->OnClick([&clicks, token, this](const ObjectPtr&) {
    End();
    clicks += *token;
  });
  bar_->Click(u"iEdit");
  bar_->Click(u"iEdit");
  EXPECT_EQ(clicks, 5);
  EXPECT_EQ(token.use_count(), 1);
}

TEST_F(CommandBarTest, LivesAsLongAsItsCollections) {
  const ObjectPtr band = Of(bar_, u"Bands", {1});
  const std::weak_ptr<CommandBar> bar = bar_;
  bar_.reset();
  EXPECT_EQ(TextOf(Of(band, u"Tools", {u"iCut"}), u"Caption"), "\"删除\"");
  EXPECT_FALSE(bar.expired());
}

TEST_F(CommandBarTest, AddsACheckToolWithItsNameInAnyCase) {
  EXPECT_EQ(Of(Tools(), u"Add", {u"itoolbar"}), bar_->CheckTool(u"iToolBar"));
  EXPECT_EQ(Of(Tools(), u"Add", {u"MNUVIEWSTATUSBAR"}), bar_->CheckTool(u"mnuViewStatusBar"));
  EXPECT_EQ(TextOf(Of(Tools(), u"Item", {u"iToolBar"}), u"Checked"), "True");
}

TEST_F(CommandBarTest, ChecksTheHostsCheckToolsWhenTheyAreAdded) {
  for (const std::u16string_view name : {u"iToolBar", u"mnuViewStatusBar"}) {
    EXPECT_EQ(TextOf(Of(Tools(), u"Add", {name}), u"Checked"), "True");
  }
  EXPECT_EQ(TextOf(Of(Tools(), u"Add", {u"iPrint"}), u"Checked"), "False");
}

}  // namespace
}  // namespace pricedown::testing
