// Tests of invalid calls, systematically, on both classes: count, kind, number, type and omission
// of arguments, and the error information of failures on both interfaces.
#include <gtest/gtest.h>

#include <limits>
#include <vector>

#include "platform/error.h"
#include "tests/windows/raw_call.h"
#include "tests/windows/server/control_host.h"
#include "windows/com/bstr.h"
#include "windows/com/variant_value.h"

namespace pricedown::testing {
namespace {

using windows::Bstr;
using windows::ComPtr;

constexpr char kBadCount[] = "8002000E";
constexpr char kNoMember[] = "80020003";
constexpr char kNotOptional[] = "8002000F";
constexpr char kBadType[] = "80020005";

// A method as the type library describes it.
struct Method {
  const wchar_t* name;
  std::size_t least;
  std::size_t most;
};

constexpr Method kMethods[] = {{L"NotifyMessage", 2, 2}, {L"RefreshToolbar", 0, 0},
                               {L"Show", 1, 1},          {L"ParentWindow_ToolBarClick", 2, 2},
                               {L"SelBlock", 1, 5},      {L"PreviewPara", 0, 0},
                               {L"PrintPara", 0, 0},     {L"ModelCurrent", 0, 0},
                               {L"addRecord", 0, 0},     {L"editRecord", 0, 0},
                               {L"delRecord", 0, 0}};

std::string CodeOf(const std::string& answer) { return answer.substr(0, 8); }

class WrongCalls : public ::testing::Test {
 protected:
  WrongCalls() {
    host.Open();
    host.world.log.Clear();
  }
  // None of them has had an effect.
  ~WrongCalls() override { EXPECT_EQ(host.world.log.Text(), ""); }

  IDispatch* Control() const { return host.control.get(); }

  ControlHost host;
};

TEST_F(WrongCalls, WithTooManyOrTooFewArgumentsAreRefused) {
  for (const Method& method : kMethods) {
    for (std::size_t count = 0; count < 9; ++count) {
      if (count >= method.least && count <= method.most) continue;
      const std::vector<VARIANT> arguments(count, Nothing(VT_EMPTY));
      EXPECT_EQ(CodeOf(Statement(Control(), method.name, arguments)), kBadCount) << count;
      EXPECT_EQ(CodeOf(Expression(Control(), method.name, arguments)), kBadCount) << count;
    }
  }
  for (const std::size_t count : {std::size_t{0}, std::size_t{2}, std::size_t{3}}) {
    RawCall put{.flags = DISPATCH_PROPERTYPUT,
                .arguments = std::vector<VARIANT>(count, Number(1)),
                .wantsResult = false};
    if (count > 0) put.namedIds = {DISPID_PROPERTYPUT};
    EXPECT_EQ(CodeOf(SendTo(Control(), L"ShowMode", put)), kBadCount) << count;
  }
}

TEST_F(WrongCalls, OfAnotherKindFindNoMember) {
  for (const Method& method : kMethods) {
    const std::vector<VARIANT> arguments(method.least, Nothing(VT_EMPTY));
    for (const int flags : {DISPATCH_PROPERTYPUT, DISPATCH_PROPERTYPUTREF, DISPATCH_PROPERTYGET}) {
      RawCall call{.flags = static_cast<WORD>(flags), .arguments = arguments};
      EXPECT_EQ(CodeOf(SendTo(Control(), method.name, call)), kNoMember) << flags;
    }
  }
  for (const int flags : {DISPATCH_METHOD, DISPATCH_PROPERTYGET, DISPATCH_PROPERTYPUTREF}) {
    RawCall call{.flags = static_cast<WORD>(flags), .arguments = {Number(1)}};
    EXPECT_EQ(CodeOf(SendTo(Control(), L"ShowMode", call)), kNoMember) << flags;
  }
}

TEST_F(WrongCalls, OfUnknownNumbersFindNoMember) {
  for (const DISPID id :
       {DISPID{0}, DISPID{13}, DISPID{-1}, DISPID{DISPID_PROPERTYPUT}, DISPID{DISPID_NEWENUM},
        DISPID{-514}, std::numeric_limits<DISPID>::max(), std::numeric_limits<DISPID>::min()}) {
    for (const int flags : {DISPATCH_METHOD, DISPATCH_PROPERTYGET, DISPATCH_PROPERTYPUT}) {
      EXPECT_EQ(CodeOf(Send(Control(), id, {.flags = static_cast<WORD>(flags)})), kNoMember) << id;
    }
  }
}

TEST_F(WrongCalls, MayOmitTheArgumentThatIsIgnored) {
  EXPECT_EQ(Statement(Control(), L"NotifyMessage", {Nothing(VT_EMPTY), Omitted()}), "S_OK");
}

TEST_F(WrongCalls, WithoutARequiredArgumentNameIt) {
  // The last argument has the index 0.
  EXPECT_EQ(Statement(Control(), L"NotifyMessage", {Omitted(), Nothing(VT_EMPTY)}).substr(0, 19),
            std::string(kNotOptional) + " argument 1");
  EXPECT_EQ(Statement(Control(), L"Show", {Omitted()}).substr(0, 19),
            std::string(kNotOptional) + " argument 0");
  EXPECT_EQ(Statement(Control(), L"ParentWindow_ToolBarClick", {ObjectOf(nullptr), Omitted()})
                .substr(0, 19),
            std::string(kNotOptional) + " argument 0");
  EXPECT_EQ(Statement(Control(), L"SelBlock", {Omitted(), Number(1)}).substr(0, 19),
            std::string(kNotOptional) + " argument 1");
  EXPECT_EQ(Assignment(Control(), L"ShowMode", Omitted()).substr(0, 19),
            std::string(kNotOptional) + " argument 0");
  VARIANT omitted = Omitted();
  EXPECT_EQ(Statement(Control(), L"Show", {Reference(VT_VARIANT, &omitted)}).substr(0, 19),
            std::string(kNotOptional) + " argument 0");
}

TEST_F(WrongCalls, WithArgumentsOfAWrongTypeNameThem) {
  const Bstr word(u"one");
  EXPECT_EQ(Assignment(Control(), L"ShowMode", Text(word.get())).substr(0, 19),
            std::string(kBadType) + " argument 0");
  EXPECT_EQ(Statement(Control(), L"NotifyMessage", {ObjectOf(nullptr), Number(1)}).substr(0, 19),
            std::string(kBadType) + " argument 1");
  EXPECT_EQ(Statement(Control(), L"ParentWindow_ToolBarClick", {Text(word.get()), Truth(true)})
                .substr(0, 19),
            std::string(kBadType) + " argument 1");
  EXPECT_EQ(
      Statement(Control(), L"ParentWindow_ToolBarClick", {ObjectOf(nullptr), Text(word.get())})
          .substr(0, 19),
      std::string(kBadType) + " argument 0");
  for (const VARENUM type : {VT_BSTR, VT_I4, VT_DISPATCH, VT_VARIANT, VT_DECIMAL}) {
    EXPECT_EQ(Assignment(Control(), L"ShowMode", Reference(static_cast<VARTYPE>(type), nullptr))
                  .substr(0, 19),
              std::string(kBadType) + " argument 0");
  }
}

TEST_F(WrongCalls, WithUnknownNamedArgumentsAreRefused) {
  for (const DISPID name : {DISPID{5}, DISPID{63}, DISPID{64}, DISPID{-1}, DISPID{-5000},
                            std::numeric_limits<DISPID>::max()}) {
    const std::string answer = SendTo(
        Control(), L"SelBlock",
        {.arguments = {ObjectOf(nullptr), Number(1)}, .namedIds = {name}, .wantsResult = false});
    EXPECT_TRUE(CodeOf(answer) == kBadCount || CodeOf(answer) == "80020004") << name << answer;
  }
}

TEST(CallsByReference, AreReadInEveryTypeAndLeftUnchanged) {
  ControlHost host;
  host.Open();
  short small = 2;
  LONG number = 2;
  double fraction = 2;
  const Bstr digit(u"2");
  BSTR text = digit.get();
  VARIANT variable = Number(2);
  for (const VARIANT& mode :
       {Reference(VT_I2, &small), Reference(VT_I4, &number), Reference(VT_R8, &fraction),
        Reference(VT_BSTR, &text), Reference(VT_VARIANT, &variable)}) {
    EXPECT_EQ(Assignment(host.control.get(), L"ShowMode", mode), "S_OK") << mode.vt;
  }
  EXPECT_EQ(small, 2);
  EXPECT_EQ(number, 2);
  EXPECT_EQ(fraction, 2);
  EXPECT_EQ(text, digit.get());
  EXPECT_EQ(variable.vt, VT_I4);
  number = 40000;
  EXPECT_EQ(Assignment(host.control.get(), L"ShowMode", Reference(VT_I4, &number)).substr(0, 19),
            "8002000A argument 0");
  IUnknown* tool = nullptr;
  LONG use = 7;
  EXPECT_EQ(Statement(host.control.get(), L"ParentWindow_ToolBarClick",
                      {Reference(VT_UNKNOWN, &tool), Reference(VT_I4, &use)})
                .substr(0, 18),
            "exception 800A005B");
  EXPECT_EQ(use, 7);
}

// A failing member reports the same error on both interfaces.
class FailuresOfMembers : public ::testing::Test {
 protected:
  FailuresOfMembers() {
    host.Open();
    host.world.factory.Object(u"broken").On(u"Name", Failing(0x80040123, u"没有名称"));
    object = windows::ToDispatch(host.world.factory.NewObject(u"broken"));
  }

  static Reply Failing(std::uint32_t number, const char16_t* description) {
    return Reply::From([=](auto) -> Value {
      throw AutomationError(static_cast<std::int32_t>(number), description, u"broken");
    });
  }
  ComPtr<_PriceDown> Early() const { return host.As<_PriceDown>(); }

  ControlHost host;
  ComPtr<IDispatch> object;
};

TEST_F(FailuresOfMembers, AreEqualOnBothInterfaces) {
  EXPECT_EQ(Statement(host.control.get(), L"ParentWindow_ToolBarClick",
                      {ObjectOf(object.get()), Truth(true)}),
            "exception 80040123 broken: 没有名称, info: broken: 没有名称");
  IDispatch* held = object.get();
  VARIANT_BOOL use = VARIANT_TRUE;
  EXPECT_EQ(Hexadecimal(Early()->ParentWindow_ToolBarClick(&held, &use)), "80040123");
  EXPECT_EQ(ConsumeErrorInfo(), "broken: 没有名称");

  const auto parent = windows::ToDispatch(host.world.NewParent());
  EXPECT_EQ(Expression(host.control.get(), L"Show", {ObjectOf(parent.get())}), "S_OK True");
  host.world.factory.Object(u"parent").On(u"MergeToolBar", Failing(0x80040124, u"不能合并"));
  EXPECT_EQ(Statement(host.control.get(), L"RefreshToolbar"),
            "exception 80040124 broken: 不能合并, info: broken: 不能合并");
  EXPECT_EQ(Hexadecimal(Early()->RefreshToolbar()), "80040124");
  EXPECT_EQ(ConsumeErrorInfo(), "broken: 不能合并");
}

TEST_F(FailuresOfMembers, OfACallerWithoutARecordAreTheCode) {
  DISPID id = 5;
  VARIANT arguments[] = {Truth(true), ObjectOf(object.get())};
  DISPPARAMS parameters{arguments, nullptr, 2, 0};
  EXPECT_EQ(Hexadecimal(host.control->Invoke(id, IID{}, LOCALE_USER_DEFAULT, DISPATCH_METHOD,
                                             &parameters, nullptr, nullptr, nullptr)),
            "80040123");
  EXPECT_EQ(ConsumeErrorInfo(), "broken: 没有名称");
}

TEST_F(FailuresOfMembers, NameTheInterfaceOfTheCall) {
  IDispatch* held = object.get();
  VARIANT_BOOL use = VARIANT_TRUE;
  Early()->ParentWindow_ToolBarClick(&held, &use);
  ComPtr<IErrorInfo> info;
  ASSERT_EQ(GetErrorInfo(0, info.put()), S_OK);
  GUID id{};
  EXPECT_EQ(info->GetGUID(&id), S_OK);
  EXPECT_TRUE(IsEqualGUID(id, IID__PriceDown));
}

TEST(UpdatePriceCalls, ThatAreWrongAreRefusedToo) {
  ControlWorld world;
  const SuiteScope suite(world.factory);
  const Library library;
  const auto price = library.NewUpdatePrice();
  for (std::size_t count = 1; count < 5; ++count) {
    const std::vector<VARIANT> arguments(count, Nothing(VT_EMPTY));
    EXPECT_EQ(CodeOf(Statement(price.get(), L"ItemClassType", arguments)), kBadCount);
    EXPECT_EQ(CodeOf(Expression(price.get(), L"ItemClassType", arguments)), kBadCount);
  }
  for (const DISPID id : {DISPID{0}, DISPID{2}, DISPID{-1}}) {
    EXPECT_EQ(CodeOf(Send(price.get(), id, {})), kNoMember);
  }
  EXPECT_EQ(IdOf(price.get(), L"itemCLASStype"), "1");
  EXPECT_EQ(IdOf(price.get(), L"Item"), "80020006");
  const auto support = price.As<ISupportErrorInfo>();
  EXPECT_EQ(support->InterfaceSupportsErrorInfo(IID__updatePrice), S_OK);
  EXPECT_EQ(support->InterfaceSupportsErrorInfo(IID_IDispatch), S_OK);
  EXPECT_EQ(support->InterfaceSupportsErrorInfo(IID__PriceDown), S_FALSE);
  EXPECT_EQ(world.factory.CallCount(), 0);
}

}  // namespace
}  // namespace pricedown::testing
