// One whole control on a scripted suite, in a host with a recording window.
// The suite is that of a company in the third period of 2008 with two classes; tests change it
// before they create the control.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "control/price_down.h"
#include "tests/browser/browser_fixture.h"
#include "tests/browser/recording_output.h"
#include "tests/control/button.h"
#include "tests/control/recording_control_views.h"

namespace pricedown::testing {

inline constexpr std::u16string_view kModeStatement =
    u"Select FValue From t_systemprofile where Fkey like 'PriceDownPrepare'";

// The scripted suite's answers.
struct Company {
  Value properties = u"P";
  Value useShortNumber = u"0";
  Value mode = u"1";
  Value year = u"2008";
  Value period = u"3";
  Value nodeSetting = u"gi01";
  Value gridFont = u"";
  Value reportSize = u"9";
  std::string grantedMasks = "all";  // " 65536 131072 " and so on, blanks around each
};

// A suite, windows and a control, created for each scenario.
class ControlWorld {
 public:
  explicit ControlWorld(Company theCompany = {}) : company(std::move(theCompany)) {
    ScriptProfiles();
    ScriptUserSettings();
    ScriptStatements();
    AllowRecordsets(factory);
  }

  void Create() {
    control = std::make_unique<PriceDown>(PriceDownPorts{factory,
                                                         state,
                                                         questions,
                                                         screen,
                                                         container,
                                                         view,
                                                         treeView,
                                                         fontView,
                                                         u"Host",
                                                         factory.NewObject(u"form"),
                                                         editor,
                                                         output,
                                                         hold,
                                                         {},
                                                         events});
  }
  void CreateAndInitialize() {
    Create();
    control->Initialize();
  }
  void ShowIn(const ObjectPtr& parent) { control->Show(parent); }
  ObjectPtr NewParent() {
    factory.Object(u"parent").On(u"MergeToolBar", Value());
    return factory.NewObject(u"parent");
  }
  // A tool of the host's own toolbar.
  ObjectPtr NewTool(std::u16string_view name, bool checked = true) {
    toolChecked = checked;
    factory.Object(u"tool")
        .On(u"Name", Reply::From([name = std::u16string(name)](auto) { return name; }))
        .On(u"Checked", Reply::From([this](auto) { return toolChecked; }))
        .AllowPut(u"Checked");
    return factory.NewObject(u"tool");
  }
  std::size_t Messages() const {
    std::size_t count = 0;
    for (const std::string& line : log.Lines()) count += line.starts_with("message ");
    return count;
  }

  Company company;
  bool toolChecked = true;
  CallLog log;
  RecordingFactory factory{log};
  RecordingQuestions questions{log};
  RecordingScreen screen{factory.GetRecorder()};
  RecordingContainer container{factory.GetRecorder()};
  RecordingPriceDownView view{factory.GetRecorder()};
  RecordingTreeView treeView{factory.GetRecorder()};
  RecordingFontView fontView{factory.GetRecorder()};
  ThreadState state;
  // The process owns the form.
  Environment formEnvironment{factory, state, questions, screen, u"Host"};
  RecordingEditor editor{formEnvironment, factory.GetRecorder(), log};
  std::function<std::shared_ptr<void>()> hold;
  std::shared_ptr<HostEvents> events;
  RecordingOutput output{factory.GetRecorder()};
  std::unique_ptr<PriceDown> control;

 private:
  void ScriptProfiles() {
    factory.Object(u"ZEPPropsMgr.ShareProps").On(u"GetProperty", Reply::From([this](auto) {
                                                   return company.properties;
                                                 }));
    factory.Object(u"ZEPEBSBase.SystemProfile")
        .On(u"GetProfile", Reply::From([this](auto arguments) {
              const std::string key = Readable(arguments[1]) + Readable(arguments[2]);
              if (key == R"("IC""UseShortNumber")") return company.useShortNumber;
              if (key == R"("ic""CurrentYear")") return company.year;
              if (key == R"("ic""CurrentPeriod")") return company.period;
              if (key == R"("IC""CurrentYear")") return company.year;
              if (key == R"("IC""CurrentPeriod")") return company.period;
              ADD_FAILURE() << "not in the profile: " << key;
              return Value();
            }));
    factory.Object(u"ZEPCBSSystemData.AisInfo")
        .AllowPut(u"PropsString")
        .On(u"CBGetPeriodCount", 12)
        .On(u"GetPeriodDate", u"2008-03-01");
    factory.Object(u"ZEPFrmRes.FrmResLoader").On(u"GetQ7FontProps", factory.Answering(u"q7font"));
    factory.Object(u"q7font").On(u"", R"("Font.Name")", u"宋体").On(u"", R"("Font.Charset")", 134);
    factory.Object(u"ZEPEBCGLView.GLData").On(u"AccessCheck", Reply::From([this](auto arguments) {
                                                const std::string mask =
                                                    " " + Readable(arguments[2]) + " ";
                                                return company.grantedMasks == "all" ||
                                                       company.grantedMasks.find(mask) !=
                                                           std::string::npos;
                                              }));
  }

  void ScriptUserSettings() {
    const auto setting = [this](const char* arguments, Value Company::*answer) {
      factory.Object(u"dictionary").On(u"GetValue", arguments, Reply::From([this, answer](auto) {
                                         return company.*answer;
                                       }));
    };
    factory.Object(u"ZEPEBCBASE.UserProfile")
        .On(u"Load", Value())
        .On(u"Save", Value())
        .On(u"Dictionary", factory.Answering(u"dictionary"));
    factory.Object(u"dictionary").AllowPut(u"");
    setting(R"("NodeSel1", "gc0")", &Company::nodeSetting);
    setting(R"("NodeSel2", "gc0")", &Company::nodeSetting);
    setting(R"("GridFont", "")", &Company::gridFont);
    setting(R"("RptFontSize", 9)", &Company::reportSize);
  }

  void ScriptStatements() {
    factory.Object(u"ZEPConnection.AppConnection")
        .On(u"Execute", Arguments({kModeStatement}), Reply::From([this](auto) {
              return NewScriptedRecordset(factory.GetRecorder(),
                                          Rows({u"FValue"}, {{company.mode}}));
            }));
    AnswerStatement(factory, kTreeStatement,
                    ClassRows({{u"01", u"原料"}, {u"01", u"原料"}, {u"02", u"成品"}}));
    AnswerStatement(factory, kItemsOf01, ItemRows(kTwoItems));
    AnswerStatement(factory, kItemsOfRoot, ItemRows({}));
    AnswerStatement(factory, kAllItems, ItemRows(kTwoItems));
  }
};

}  // namespace pricedown::testing
