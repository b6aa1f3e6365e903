// The control's creation.
#include "control/price_down.h"

#include <algorithm>

#include "platform/error.h"
#include "tests/control/control_fixture.h"
#include "tests/support/failure.h"

namespace pricedown::testing {
namespace {

// The calls that every use of the properties string makes.
constexpr const char* kProperties = R"(create ZEPPropsMgr.ShareProps
ZEPPropsMgr.ShareProps.GetProperty("PropsString", ref Empty)
release ZEPPropsMgr.ShareProps
)";

TEST(Initialize, RunsItsStepsInOrderUnderTheHourglass) {
  ControlWorld world;
  world.CreateAndInitialize();
  const std::string properties = kProperties;
  EXPECT_EQ(world.log.Text(),
            // 1: no texts of another language.
            properties +
                // 2: the full-number flag.
                "create ZEPEBSBase.SystemProfile\n" + properties +
                "ZEPEBSBase.SystemProfile.GetProfile(\"P\", \"IC\", \"UseShortNumber\")\n"
                "release ZEPEBSBase.SystemProfile\n"
                // 3 and 4: hourglass, current period and its dates.
                "screen pointer 11\n"
                "create ZEPEBSBase.SystemProfile\n" +
                properties +
                "ZEPEBSBase.SystemProfile.GetProfile(\"P\", \"ic\", \"CurrentYear\")\n" +
                properties +
                "ZEPEBSBase.SystemProfile.GetProfile(\"P\", \"ic\", \"CurrentPeriod\")\n"
                "release ZEPEBSBase.SystemProfile\n"
                "create ZEPCBSSystemData.AisInfo\n" +
                properties +
                "put ZEPCBSSystemData.AisInfo.PropsString = \"P\"\n"
                "ZEPCBSSystemData.AisInfo.CBGetPeriodCount()\n"
                "ZEPCBSSystemData.AisInfo.GetPeriodDate(2008, 3)\n"
                "ZEPCBSSystemData.AisInfo.GetPeriodDate(2008, 4)\n"
                "release ZEPCBSSystemData.AisInfo\n"
                // 6: the provision mode.
                "create ZEPConnection.AppConnection\n" +
                ExecuteLine(kModeStatement) +
                "\nrelease ZEPConnection.AppConnection\n"
                "release result\n"
                // 7 to 9: layout, period, title font.
                "view place\n"
                "view period \"2008年第3期\"\n"
                "create ZEPFrmRes.FrmResLoader\n" +
                properties +
                "ZEPFrmRes.FrmResLoader.GetQ7FontProps(\"chs\")\n"
                "q7font(\"Font.Name\")\n"
                "q7font(\"Font.Charset\")\n"
                "release q7font\n"
                "release ZEPFrmRes.FrmResLoader\n"
                "view title font \"宋体\" 134 18.0\n"
                "screen pointer 0\n");
  EXPECT_EQ(world.state.currentYear, 2008);
  EXPECT_EQ(world.state.currentPeriod, 3);
  EXPECT_EQ(world.control->Browser().itemClassType, 1);
  EXPECT_TRUE(world.control->Browser().fullNumber);
  EXPECT_EQ(Utf8(world.control->GetGrid().Text(1, kTitleRow)), "物料代码");
  EXPECT_EQ(world.view.placed.splitter.left, kDefaultSplitter);
}

TEST(Initialize, LoadsTextsAndFontOfAnotherLanguage) {
  ControlWorld world;
  world.company.properties = u"x=y;Language=CHT";
  world.factory.Object(u"ZEPFrmRes.FrmResLoader")
      .On(u"NeedMLColumnHeaders", Value())
      .On(u"LoadFrmResStrings", Value());
  world.CreateAndInitialize();
  EXPECT_EQ(world.log.Count("ZEPFrmRes.FrmResLoader.LoadFrmResStrings([form])"), 1u);
  EXPECT_EQ(world.log.Count("ZEPFrmRes.FrmResLoader.GetQ7FontProps(\"CHT\")"), 1u);
}

struct FlagCase {
  const char* name;
  Value given;
  bool fullNumber;
};
void PrintTo(const FlagCase& flag, std::ostream* stream) { *stream << flag.name; }

class FullNumber : public ::testing::TestWithParam<FlagCase> {};

TEST_P(FullNumber, IsTrueUnlessShortNumbersAreUsed) {
  ControlWorld world;
  world.company.useShortNumber = GetParam().given;
  world.CreateAndInitialize();
  EXPECT_EQ(world.control->Browser().fullNumber, GetParam().fullNumber);
}

INSTANTIATE_TEST_SUITE_P(
    Initialize, FullNumber,
    ::testing::Values(FlagCase{"Zero", u"0", true}, FlagCase{"Empty", u"", true},
                      FlagCase{"EmptyValue", Value(), true}, FlagCase{"Null", Null{}, true},
                      FlagCase{"Text", u"no", true}, FlagCase{"Number", 0, true},
                      FlagCase{"One", u"1", false}, FlagCase{"MinusOne", u"-1", false},
                      FlagCase{"Half", u"0.5", false}, FlagCase{"True", true, true}),
    [](const auto& test) { return test.param.name; });

TEST(Initialize, KeepsFullNumbersWhenTheProfileReturnsAnObject) {
  ControlWorld world;
  world.company.useShortNumber = world.factory.NewObject(u"form");
  world.Create();
  EXPECT_THROW(world.control->Initialize(), AutomationError);
  EXPECT_TRUE(world.control->Browser().fullNumber);
}

TEST(Initialize, DisablesTheClassCommandsUnlessProvisionsAreKeptByClass) {
  for (const Value& mode : std::vector<Value>{u"2", u"0", u"", Null{}, u"x"}) {
    ControlWorld world;
    world.company.mode = mode;
    world.CreateAndInitialize();
    const std::string log = world.log.Text();
    EXPECT_NE(log.find("view disable button Add\nview disable button Edit\n"
                       "view disable button Del\nview place\n"),
              std::string::npos)
        << log;
    for (const std::u16string_view tool : {u"iInsert", u"iEdit", u"iCut"}) {
      EXPECT_FALSE(world.control->BarList()->Tool(tool)->Enabled()) << Utf8(tool);
    }
    EXPECT_TRUE(world.control->BarList()->Tool(u"mnuEdit")->Enabled());
  }
}

TEST(Initialize, LeavesTheClassCommandsEnabledWhenProvisionsAreKeptByClass) {
  ControlWorld world;
  world.CreateAndInitialize();
  for (const std::u16string_view tool : {u"iInsert", u"iEdit", u"iCut"}) {
    EXPECT_TRUE(world.control->BarList()->Tool(tool)->Enabled()) << Utf8(tool);
  }
  EXPECT_EQ(world.log.Text().find("view disable button"), std::string::npos);
}

TEST(Initialize, LetsNoHostEnableTheClassToolsThatItDisabled) {
  ControlWorld world;
  world.company.mode = u"2";
  world.CreateAndInitialize();
  const ObjectPtr tools = world.control->BarList()->Get(u"Tools").Object();
  for (const std::u16string_view name : {u"iInsert", u"iEdit", u"iCut"}) {
    const ObjectPtr tool = tools->Call(u"Item", {name}).Object();
    tool->Put(u"Enabled", true);
    EXPECT_EQ(tool->Get(u"Enabled"), Value(false)) << Utf8(name);
  }
  const ObjectPtr menu = tools->Call(u"Item", {u"mnuEdit"}).Object();
  menu->Put(u"Enabled", false);
  menu->Put(u"Enabled", true);
  EXPECT_EQ(menu->Get(u"Enabled"), Value(true));
}

TEST(Initialize, EnablesNothingAgainWhenTheModeChangesLater) {
  ControlWorld world;
  world.company.mode = u"2";
  world.CreateAndInitialize();
  world.log.Clear();
  world.company.mode = u"1";
  EXPECT_EQ(world.control->ModelCurrent(), Value());
  EXPECT_EQ(world.control->Browser().itemClassType, 1);
  EXPECT_FALSE(world.control->BarList()->Tool(u"iInsert")->Enabled());
  EXPECT_EQ(world.log.Text().find("view disable button"), std::string::npos);
}

TEST(Initialize, ForgetsAModeThatCanNoLongerBeRead) {
  ControlWorld world;
  world.CreateAndInitialize();
  world.factory.Refuses(u"ZEPConnection.AppConnection");
  world.control->ModelCurrent();
  EXPECT_EQ(world.control->Browser().itemClassType, 0);
}

TEST(Initialize, LeavesThePeriodEmptyWhenItCannotBeRead) {
  for (const bool year : {true, false}) {
    ControlWorld world;
    (year ? world.company.year : world.company.period) = u"？";
    world.Create();
    EXPECT_THROW(world.control->Initialize(), AutomationError);
    EXPECT_EQ(world.log.Count("view period \"\""), 1u);
  }
}

TEST(Initialize, ShowsAYearOrPeriodThatIsZero) {
  struct Case {
    Value year;
    Value period;
    const char* label;
  };
  for (const Case& example : {Case{u"0", u"0", "0年第0期"}, Case{Value(), Value(), "0年第0期"},
                              Case{u"2008", u"0", "2008年第0期"}}) {
    ControlWorld world;
    world.company.year = example.year;
    world.company.period = example.period;
    world.CreateAndInitialize();
    EXPECT_EQ(world.log.Count(std::string("view period \"") + example.label + "\""), 1u)
        << world.log.Text();
  }
}

TEST(Initialize, ShowsNoPeriodOfAnEarlierControl) {
  ControlWorld world;
  world.CreateAndInitialize();
  world.company.period = u"？";
  world.Create();
  world.log.Clear();
  EXPECT_THROW(world.control->Initialize(), AutomationError);
  EXPECT_EQ(world.log.Count("view period \"\""), 1u);
}

TEST(Initialize, ShowsThePeriodEvenWhenItsDatesFail) {
  ControlWorld world;
  world.factory.Refuses(u"ZEPCBSSystemData.AisInfo");
  world.Create();
  try {
    world.control->Initialize();
    ADD_FAILURE() << "not thrown";
  } catch (const AutomationError& error) {
    EXPECT_EQ(Utf8(error.Source()), "ZEPCBSSystemData.AisInfo");
  }
  EXPECT_EQ(world.log.Count("view period \"2008年第3期\""), 1u);
}

TEST(Initialize, SetsTheTitleSizeEvenWithoutAFontOfTheSuite) {
  ControlWorld world;
  world.factory.Refuses(u"ZEPFrmRes.FrmResLoader");
  world.Create();
  EXPECT_THROW(world.control->Initialize(), AutomationError);
  EXPECT_EQ(world.log.Count("view title font \"\" -1 18.0"), 1u);
  EXPECT_EQ(world.log.Lines().back(), "screen pointer 0");
}

TEST(Initialize, KeepsTheNameOfATitleFontWhoseCharacterSetCannotBeRead) {
  ControlWorld world;
  world.factory.Object(u"q7font").On(u"", R"("Font.Charset")", u"简体");
  world.factory.NewObject(u"q7font")->Call(u"", {u"Font.Charset"});  // the set of the fixture
  world.Create();
  EXPECT_NE(FailureOf([&] { world.control->Initialize(); }), "");
  EXPECT_EQ(world.log.Count("view title font \"宋体\" -1 18.0"), 1u);
}

TEST(Initialize, ReportsTheFirstOfTwoFailures) {
  ControlWorld world;
  world.factory.Refuses(u"ZEPCBSSystemData.AisInfo");
  world.factory.Refuses(u"ZEPFrmRes.FrmResLoader");
  world.Create();
  EXPECT_NE(FailureOf([&] { world.control->Initialize(); }).find("AisInfo"), std::string::npos);
  EXPECT_EQ(world.log.Lines().back(), "screen pointer 0");
}

// Whether a failure of that line must be reported. An unreadable language or mode falls back to its
// default, and restoring the pointer is best effort.
bool IsReported(const std::vector<std::string>& lines, std::size_t failing) {
  const auto isBefore = [&](const char* line) {
    return std::find(lines.begin(), lines.begin() + static_cast<std::ptrdiff_t>(failing), line) !=
           lines.begin() + static_cast<std::ptrdiff_t>(failing);
  };
  const std::string& line = lines[failing];
  const bool ofLanguage =
      line.find("ShareProps") != line.npos &&
      (!isBefore("create ZEPEBSBase.SystemProfile") || isBefore("create ZEPFrmRes.FrmResLoader"));
  const bool ofMode = line.find("AppConnection") != line.npos || line.find("result.") != line.npos;
  return !ofLanguage && !ofMode && line != "screen pointer 0 fails";
}

// Each failure is reported once, and all later steps still run.
TEST(Initialize, CreatesACompleteControlAfterAnyFailure) {
  for (const Value& mode : std::vector<Value>{u"1", u"2"}) {
    FailEachCallInTurn([&](int failingCall) {
      ControlWorld world;
      world.company.mode = mode;
      world.Create();
      world.factory.FailCall(failingCall);
      std::int32_t thrown = 0;
      try {
        world.control->Initialize();
      } catch (const AutomationError& error) {
        thrown = error.Number();
      }
      const int calls = world.factory.CallCount();
      const std::string log = world.log.Text();
      const auto& lines = world.log.Lines();
      const auto failing = std::find_if(lines.begin(), lines.end(), [](const std::string& line) {
        return line.ends_with(" fails");
      });
      EXPECT_EQ(failing != lines.end(), failingCall != 0);
      const bool reported = failing != lines.end() &&
                            IsReported(lines, static_cast<std::size_t>(failing - lines.begin()));
      EXPECT_EQ(thrown, reported ? kInjectedFailure : 0) << log;

      for (const char* step :
           {"create ZEPEBSBase.SystemProfile", "screen pointer 11", "create ZEPConnection",
            "view period ", "create ZEPFrmRes.FrmResLoader", "view title font "}) {
        EXPECT_NE(log.find(step), log.npos) << step << " in\n" << log;
      }
      EXPECT_EQ(Utf8(world.control->GetGrid().Text(4, kTitleRow)), "标准单价");
      EXPECT_NE(log.find("view place") != log.npos, log.find("view size fails") != log.npos);
      EXPECT_EQ(lines.back(), "screen pointer 0");

      world.factory.FailCall(0);
      world.control.reset();
      EXPECT_EQ(world.factory.LiveObjects(), 0);
      return calls;
    });
  }
}

}  // namespace
}  // namespace pricedown::testing
