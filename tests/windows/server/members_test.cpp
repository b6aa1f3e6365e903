// Tests of the control's public members, called early-bound and late-bound.
#include <gtest/gtest.h>

#include <array>
#include <thread>

#include "platform/convert.h"
#include "platform/error.h"
#include "platform/local_object.h"
#include "tests/browser/recording_views.h"
#include "tests/windows/raw_call.h"
#include "tests/windows/server/control_host.h"
#include "tests/windows/simple_object.h"
#include "windows/com/boundary.h"
#include "windows/com/bstr.h"
#include "windows/com/safe_array.h"
#include "windows/com/variant_value.h"

namespace pricedown::testing {
namespace {

using windows::Bstr;
using windows::ComPtr;
using windows::SafeArray;
using windows::Variant;

// How often the display font was requested again.
std::size_t FontRefreshes(const CallLog& log) {
  return log.Count(R"(dictionary.GetValue("RptFontSize", 9))");
}

class Members : public ::testing::Test {
 protected:
  Members() {
    host.Open();
    host.world.log.Clear();
  }

  IDispatch* Control() const { return host.control.get(); }
  ComPtr<_PriceDown> Early() const { return host.As<_PriceDown>(); }
  // A client's grid of four columns and nine rows.
  ComPtr<IDispatch> Grid() {
    host.world.factory.Object(u"grid")
        .On(u"MaxCols", 4)
        .On(u"MaxRows", 9)
        .AllowPut(u"Col")
        .AllowPut(u"Col2")
        .AllowPut(u"Row")
        .AllowPut(u"Row2");
    return windows::ToDispatch(host.world.factory.NewObject(u"grid"));
  }

  ControlHost host;
  const Bstr activate{u"Activate"};
  const Bstr other{u"QueryUnload"};
};

TEST_F(Members, HaveNamesInAnyCase) {
  EXPECT_EQ(IdOf(Control(), L"notifymessage"), "1");
  EXPECT_EQ(IdOf(Control(), L"REFRESHTOOLBAR"), "2");
  EXPECT_EQ(IdOf(Control(), L"show"), "3");
  EXPECT_EQ(IdOf(Control(), L"showmode"), "4");
  EXPECT_EQ(IdOf(Control(), L"parentwindow_toolbarclick"), "5");
  EXPECT_EQ(IdOf(Control(), L"selblock"), "6");
  EXPECT_EQ(IdOf(Control(), L"PREVIEWPARA"), "7");
  EXPECT_EQ(IdOf(Control(), L"printpara"), "8");
  EXPECT_EQ(IdOf(Control(), L"modelcurrent"), "9");
  EXPECT_EQ(IdOf(Control(), L"AddRecord"), "10");
  EXPECT_EQ(IdOf(Control(), L"EDITRECORD"), "11");
  EXPECT_EQ(IdOf(Control(), L"delrecord"), "12");
  EXPECT_EQ(IdOf(Control(), L"LoadClassTree"), "80020006");
}

TEST_F(Members, NotifyMessageAcceptsAnArrayByReference) {
  SafeArray array;
  array.attach(SafeArrayCreateVector(VT_VARIANT, 0, 2));
  SAFEARRAY* held = array.get();
  EXPECT_EQ(Statement(Control(), L"NotifyMessage",
                      {Text(activate.get()), Reference(VT_ARRAY | VT_VARIANT, &held)}),
            "S_OK");
  EXPECT_EQ(FontRefreshes(host.world.log), 1U);
  EXPECT_EQ(Early()->NotifyMessage(activate.get(), &held), S_OK);
  EXPECT_EQ(FontRefreshes(host.world.log), 2U);
}

TEST_F(Members, NotifyMessageAcceptsAVariable) {
  VARIANT message = Text(activate.get());
  VARIANT nothing = Nothing(VT_EMPTY);
  EXPECT_EQ(Statement(Control(), L"NotifyMessage",
                      {Reference(VT_VARIANT, &message), Reference(VT_VARIANT, &nothing)}),
            "S_OK");
  EXPECT_EQ(FontRefreshes(host.world.log), 1U);
  EXPECT_EQ(nothing.vt, VT_EMPTY);
}

TEST_F(Members, NotifyMessageNeverConvertsItsArray) {
  SafeArray cube;
  SAFEARRAYBOUND bounds[] = {{1, 0}, {1, 0}, {1, 0}};
  cube.attach(SafeArrayCreate(VT_VARIANT, 3, bounds));
  SAFEARRAY* held = cube.get();
  VARIANT error = Nothing(VT_ERROR);
  error.scode = E_FAIL;
  for (const VARIANT& params : {Reference(VT_ARRAY | VT_VARIANT, &held), error, Omitted()}) {
    EXPECT_EQ(Statement(Control(), L"NotifyMessage", {Text(activate.get()), params}), "S_OK");
  }
  EXPECT_EQ(FontRefreshes(host.world.log), 3U);
}

TEST_F(Members, NotifyMessageHasTwoArguments) {
  EXPECT_EQ(Statement(Control(), L"NotifyMessage", {Text(activate.get())}).substr(0, 8),
            "8002000E");
  EXPECT_EQ(Statement(Control(), L"NotifyMessage",
                      {Text(activate.get()), Nothing(VT_EMPTY), Nothing(VT_EMPTY)})
                .substr(0, 8),
            "8002000E");
}

// An object without automation merges nothing and fails nothing.
TEST_F(Members, ShowReturnsTrueForAnObjectWithoutAutomation) {
  VARIANT object;
  VariantInit(&object);
  object.vt = VT_UNKNOWN;
  const auto factory = host.library.ClassObject(CLSID_updatePrice);
  object.punkVal = factory.get();
  EXPECT_EQ(Expression(Control(), L"Show", {object}), "S_OK True");
  EXPECT_EQ(host.world.log.Count("MergeToolBar"), 0U);
}

TEST_F(Members, RefuseAnotherThread) {
  HRESULT late = S_OK;
  HRESULT early = S_OK;
  HRESULT site = S_OK;
  HRESULT extent = S_OK;
  HRESULT point = S_OK;
  const auto container = host.As<IConnectionPointContainer>();
  std::thread([&] {
    SIZEL size{};
    extent = host.As<IOleObject>()->GetExtent(DVASPECT_CONTENT, &size);
    IConnectionPoint* events = nullptr;
    point = container->FindConnectionPoint(DIID__PriceDownEvents, &events);
    DISPPARAMS none{};
    late = Control()->Invoke(2, IID{}, 0, DISPATCH_METHOD, &none, nullptr, nullptr, nullptr);
    early = Early()->RefreshToolbar();
    site = host.As<IOleObject>()->Close(OLECLOSE_NOSAVE);
  }).join();
  EXPECT_EQ(late, RPC_E_WRONG_THREAD);
  EXPECT_EQ(early, RPC_E_WRONG_THREAD);
  EXPECT_EQ(site, RPC_E_WRONG_THREAD);
  EXPECT_EQ(extent, RPC_E_WRONG_THREAD);
  EXPECT_EQ(point, RPC_E_WRONG_THREAD);
  EXPECT_EQ(Early()->RefreshToolbar(), S_OK);
}

// The answer leaves no error info of an earlier call behind.
TEST_F(Members, OfTheBarRefuseAnotherThread) {
  ComPtr<IDispatch> bar;
  host.world.factory.Object(u"parent").On(u"MergeToolBar", Reply::From([&](auto arguments) {
                                            bar = windows::ToDispatch(arguments[0].Object());
                                            return Value();
                                          }));
  const auto window = windows::ToDispatch(host.world.factory.NewObject(u"parent"));
  EXPECT_EQ(Expression(Control(), L"Show", {ObjectOf(window.get())}), "S_OK True");
  ASSERT_TRUE(bar);
  std::vector<std::string> answers;
  std::thread([&] {
    for (IDispatch* object : {bar.get(), Control()}) {
      windows::PublishFailure({E_FAIL, u"stale", u"stale"}, IID_IDispatch);
      DISPPARAMS none{};
      const HRESULT code = object->Invoke(1, IID{}, 0, DISPATCH_METHOD | DISPATCH_PROPERTYGET,
                                          &none, nullptr, nullptr, nullptr);
      answers.push_back(Hexadecimal(code) + " " + ConsumeErrorInfo());
    }
  }).join();
  EXPECT_EQ(answers, std::vector<std::string>(2, Hexadecimal(RPC_E_WRONG_THREAD) + " "));
}

TEST_F(Members, NameTheLibraryInFailuresWithoutASource) {
  const std::string failure =
      Statement(Control(), L"ParentWindow_ToolBarClick", {ObjectOf(nullptr), Truth(true)});
  EXPECT_EQ(failure,
            "exception 800A005B ZEPPriceDownPrepare: 未设置对象: Tool, info: "
            "ZEPPriceDownPrepare: 未设置对象: Tool");
  IDispatch* none = nullptr;
  VARIANT_BOOL use = VARIANT_TRUE;
  SetErrorInfo(0, nullptr);
  EXPECT_EQ(Early()->ParentWindow_ToolBarClick(&none, &use),
            static_cast<HRESULT>(ErrorNumber::ObjectNotSet));
  EXPECT_EQ(ConsumeErrorInfo(), "ZEPPriceDownPrepare: 未设置对象: Tool");
}

TEST_F(Members, NotifyMessageIgnoresOtherMessages) {
  EXPECT_EQ(Statement(Control(), L"NotifyMessage", {Text(other.get()), Nothing(VT_EMPTY)}), "S_OK");
  EXPECT_EQ(host.world.log.Text(), "");
}

TEST_F(Members, RefreshToolbarMergesAgain) {
  const ObjectPtr parent = host.world.NewParent();
  const auto window = windows::ToDispatch(parent);
  EXPECT_EQ(Expression(Control(), L"Show", {ObjectOf(window.get())}), "S_OK True");
  EXPECT_EQ(host.world.log.Count("parent.MergeToolBar([object])"), 1U);
  EXPECT_EQ(Statement(Control(), L"RefreshToolbar"), "S_OK");
  EXPECT_EQ(Early()->RefreshToolbar(), S_OK);
  EXPECT_EQ(host.world.log.Count("parent.MergeToolBar([object])"), 3U);
}

TEST_F(Members, ShowAcceptsItsParentHoweverItIsPassed) {
  const auto window = windows::ToDispatch(host.world.NewParent());
  IDispatch* held = window.get();
  VARIANT variable = ObjectOf(held);
  EXPECT_EQ(Expression(Control(), L"Show", {Reference(VT_DISPATCH, &held)}), "S_OK True");
  EXPECT_EQ(Expression(Control(), L"Show", {Reference(VT_VARIANT, &variable)}), "S_OK True");
  VARIANT_BOOL shown = VARIANT_FALSE;
  EXPECT_EQ(Early()->Show(&held, &shown), S_OK);
  EXPECT_EQ(shown, VARIANT_TRUE);
  EXPECT_EQ(held, window.get());
  EXPECT_EQ(host.world.log.Count("parent.MergeToolBar([object])"), 3U);
}

TEST_F(Members, ShowNeedsNoObject) {
  EXPECT_EQ(Expression(Control(), L"Show", {Nothing(VT_EMPTY)}), "S_OK True");
  EXPECT_EQ(Expression(Control(), L"Show", {Number(5)}), "S_OK True");
  EXPECT_EQ(Statement(Control(), L"Show", {ObjectOf(nullptr)}), "S_OK");
  VARIANT_BOOL shown = VARIANT_FALSE;
  EXPECT_EQ(Early()->Show(nullptr, &shown), S_OK);
  EXPECT_EQ(shown, VARIANT_TRUE);
  EXPECT_EQ(Early()->Show(nullptr, nullptr), E_POINTER);
}

TEST_F(Members, ShowModeIsWriteOnly) {
  EXPECT_EQ(Assignment(Control(), L"ShowMode", Number(2)), "S_OK");
  const Bstr text(u"3");
  EXPECT_EQ(Assignment(Control(), L"ShowMode", Text(text.get())), "S_OK");
  EXPECT_EQ(Early()->put_ShowMode(1), S_OK);
  EXPECT_EQ(Expression(Control(), L"ShowMode").substr(0, 8), "80020003");
  EXPECT_EQ(Assignment(Control(), L"ShowMode", Number(40000)).substr(0, 19), "8002000A argument 0");
  EXPECT_EQ(Assignment(Control(), L"ShowMode", ObjectOf(nullptr)).substr(0, 8), "80020005");
}

TEST_F(Members, ToolClicksReachTheHostsWindow) {
  const auto tool = windows::ToDispatch(host.world.NewTool(u"iExit"));
  VARIANT_BOOL use = VARIANT_TRUE;
  IDispatch* held = tool.get();
  EXPECT_EQ(Statement(Control(), L"ParentWindow_ToolBarClick",
                      {Reference(VT_DISPATCH, &held), Reference(VT_BOOL, &use)}),
            "S_OK");
  EXPECT_EQ(host.world.log.Count("host WM_CLOSE 0 0"), 1U);
  EXPECT_EQ(use, VARIANT_TRUE);
  EXPECT_EQ(Early()->ParentWindow_ToolBarClick(&held, &use), S_OK);
  EXPECT_EQ(host.world.log.Count("host WM_CLOSE 0 0"), 2U);
  EXPECT_EQ(
      Statement(Control(), L"ParentWindow_ToolBarClick", {Number(1), Truth(true)}).substr(0, 19),
      "80020005 argument 1");
}

TEST_F(Members, SelBlockSetsTheGridsBlock) {
  const ComPtr<IDispatch> grid = Grid();
  EXPECT_EQ(
      Statement(Control(), L"SelBlock", {ObjectOf(grid.get()), Number(2), Omitted(), Number(3)}),
      "S_OK");
  EXPECT_EQ(host.world.log.Text(), Lines(R"(
      put grid.Col = 2
      grid.MaxCols()
      put grid.Col2 = 4
      put grid.Row = 3
      grid.MaxRows()
      put grid.Row2 = 9
      )"));
  host.world.log.Clear();
  EXPECT_EQ(Early()->SelBlock(grid.get(), Number(1), Number(2), Number(3), Number(4)), S_OK);
  EXPECT_EQ(host.world.log.Count("put grid.Row2 = 4"), 1U);
  EXPECT_EQ(Statement(Control(), L"SelBlock").substr(0, 8), "8002000E");
  EXPECT_EQ(Statement(Control(), L"SelBlock", {Number(1)}).substr(0, 8), "80020005");
}

TEST_F(Members, SelBlockLeavesOutWhatItCannotConvert) {
  const ComPtr<IDispatch> grid = Grid();
  VARIANT error = Nothing(VT_ERROR);
  error.scode = E_FAIL;
  const std::string expected = Lines(R"(
      put grid.Col = 2
      put grid.Row = 3
      grid.MaxRows()
      put grid.Row2 = 9
      )");
  EXPECT_EQ(Statement(Control(), L"SelBlock", {ObjectOf(grid.get()), Number(2), error, Number(3)}),
            "S_OK");
  EXPECT_EQ(host.world.log.Text(), expected);
  host.world.log.Clear();
  EXPECT_EQ(Early()->SelBlock(grid.get(), Number(2), error, Number(3), Omitted()), S_OK);
  EXPECT_EQ(host.world.log.Text(), expected);
}

TEST_F(Members, SelBlockPassesNullOn) {
  const ComPtr<IDispatch> grid = Grid();
  const VARIANT null = Nothing(VT_NULL);
  EXPECT_EQ(Statement(Control(), L"SelBlock", {ObjectOf(grid.get()), Number(2), null, Number(3)}),
            "S_OK");
  EXPECT_EQ(Early()->SelBlock(grid.get(), Number(2), null, Number(3), Omitted()), S_OK);
  EXPECT_EQ(host.world.log.Count("put grid.Col2 = Null"), 2U);
}

TEST_F(Members, SelBlockAcceptsNamedArguments) {
  const ComPtr<IDispatch> grid = Grid();
  std::wstring member = L"SelBlock";
  std::wstring last = L"lRow2";
  std::wstring row = L"lrow";
  LPOLESTR names[] = {member.data(), last.data(), row.data()};
  DISPID ids[3] = {};
  ASSERT_EQ(Control()->GetIDsOfNames(IID{}, names, 3, LOCALE_USER_DEFAULT, ids), S_OK);
  EXPECT_EQ(Send(Control(), ids[0],
                 {.arguments = {ObjectOf(grid.get()), Number(5), Number(7)},
                  .namedIds = {ids[1], ids[2]},
                  .wantsResult = false}),
            "S_OK");
  EXPECT_EQ(host.world.log.Count("put grid.Row = 5"), 1U);
  EXPECT_EQ(host.world.log.Count("put grid.Row2 = 7"), 1U);
}

TEST_F(Members, ModelCurrentReadsTheSettingAgain) {
  Variant result;
  EXPECT_EQ(Expression(Control(), L"ModelCurrent"), "S_OK Empty");
  EXPECT_EQ(Early()->ModelCurrent(result.put()), S_OK);
  EXPECT_EQ(result.get().vt, VT_EMPTY);
  EXPECT_EQ(host.world.log.Count(ExecuteLine(kModeStatement)), 2U);
  EXPECT_EQ(Early()->ModelCurrent(nullptr), E_POINTER);
}

TEST_F(Members, WithoutParametersRefuseArguments) {
  for (const wchar_t* name : {L"RefreshToolbar", L"PreviewPara", L"PrintPara", L"ModelCurrent",
                              L"addRecord", L"editRecord", L"delRecord"}) {
    EXPECT_EQ(Statement(Control(), name, {Number(1)}).substr(0, 8), "8002000E");
  }
  EXPECT_EQ(host.world.log.Text(), "");
}

TEST_F(Members, FailuresArriveOnBothInterfaces) {
  const auto tool = windows::ToDispatch(host.world.NewTool(u"iExit"));
  host.world.factory.FailCall(1);
  EXPECT_EQ(Statement(Control(), L"ParentWindow_ToolBarClick", {ObjectOf(tool.get()), Truth(true)})
                .substr(0, 18),
            "exception 8004FA11");
  host.world.factory.FailCall(1);
  IDispatch* held = tool.get();
  VARIANT_BOOL use = VARIANT_TRUE;
  EXPECT_EQ(Hexadecimal(Early()->ParentWindow_ToolBarClick(&held, &use)), "8004FA11");
  EXPECT_NE(ConsumeErrorInfo(), "");
  const auto support = host.As<ISupportErrorInfo>();
  EXPECT_EQ(support->InterfaceSupportsErrorInfo(IID__PriceDown), S_OK);
  EXPECT_EQ(support->InterfaceSupportsErrorInfo(IID_IDispatch), S_OK);
  EXPECT_EQ(support->InterfaceSupportsErrorInfo(IID_IViewObject), S_FALSE);
}

// Records the bar that it receives for merging.
class KeepingParent : public LocalObject<KeepingParent> {
 public:
  static std::span<const Member<KeepingParent>> Members() {
    static const std::array members{
        Member<KeepingParent>{u"MergeToolBar", MemberKind::Method,
                              [](KeepingParent& parent, Access, std::span<Value> arguments) {
                                parent.bar = arguments[0].Resolved().Object();
                                return Value();
                              },
                              1, 1}};
    return members;
  }

  ObjectPtr bar;
};

TEST(TheCommandBar, KeepsTheLibraryLoadedAsLongAsAHostHasIt) {
  const auto parent = std::make_shared<KeepingParent>();
  ControlHost host;
  host.SetSite();
  EXPECT_EQ(Expression(host.control.get(), L"Show", {ObjectOf(windows::ToDispatch(parent).get())}),
            "S_OK True");
  ASSERT_NE(parent->bar, nullptr);
  host.Close();
  host.Release();
  EXPECT_FALSE(host.library.CanUnload());
  EXPECT_EQ(ToText(parent->bar->Call(u"Tools", {u"iEdit"}).Object()->Get(u"Caption")), u"修改");
  // Clicks after the control's end have no effect.
  parent->bar->Call(u"Click", {u"iInsert"});
  parent->bar.reset();
  EXPECT_TRUE(host.library.CanUnload());
}

TEST(TheState, SaysWhetherTheCreationHasSucceeded) {
  ControlHost host;
  const auto state = host.As<_PriceDownState>();
  VARIANT_BOOL ready = VARIANT_TRUE;
  EXPECT_EQ(state->get_Ready(&ready), S_OK);
  EXPECT_EQ(ready, VARIANT_FALSE);
  host.SetSite();
  EXPECT_EQ(state->get_Ready(&ready), S_OK);
  EXPECT_EQ(ready, VARIANT_TRUE);
  EXPECT_EQ(Expression(host.control.get(), L"ready"), "S_OK True");
  EXPECT_EQ(Expression(host.control.get(), L"CreationError"), "S_OK \"\"");
  host.Close();
  EXPECT_EQ(Expression(host.control.get(), L"Ready"), "S_OK False");
}

TEST(TheState, SaysWhyTheCreationFailed) {
  ControlHost host;
  host.world.factory.Refuses(u"ZEPCBSSystemData.AisInfo");
  EXPECT_NE(host.SetSite(), S_OK);
  EXPECT_EQ(Expression(host.control.get(), L"Ready"), "S_OK False");
  const std::string why = Expression(host.control.get(), L"CreationError");
  EXPECT_NE(why.find("ZEPCBSSystemData.AisInfo"), std::string::npos) << why;
  windows::Bstr text;
  EXPECT_EQ(host.As<_PriceDownState>()->get_CreationError(text.put()), S_OK);
  EXPECT_EQ("S_OK \"" + Utf8(text.Text()) + "\"", why);
}

TEST(TheState, IsAskedOfTheSuiteNowhere) {
  const ControlHost host;
  EXPECT_EQ(Expression(host.control.get(), L"Ready"), "S_OK False");
  EXPECT_FALSE(host.SuiteWasCalled());
}

TEST(MembersInDesignMode, AreRefusedButShowIsNot) {
  ControlHost host;
  host.site->userMode = false;
  host.SetSite();
  EXPECT_EQ(Statement(host.control.get(), L"ModelCurrent").substr(0, 18), "exception 8000FFFF");
  EXPECT_EQ(Expression(host.control.get(), L"Show", {ObjectOf(nullptr)}), "S_OK True");
  EXPECT_FALSE(host.SuiteWasCalled());
}

}  // namespace
}  // namespace pricedown::testing
