// Tests of member tables and IDispatch::Invoke.
#include "windows/com/dispatch_table.h"

#include <gtest/gtest.h>

#include <array>

#include "platform/error.h"
#include "tests/support/utf8.h"
#include "tests/windows/raw_call.h"
#include "tests/windows/simple_object.h"
#include "windows/com/bstr.h"
#include "windows/com/com_class.h"
#include "windows/com/variant_value.h"

namespace pricedown::testing {
namespace {

using windows::Bstr;
using windows::Coercion;
using windows::ComClass;
using windows::ComPtr;
using windows::DispatchArguments;
using windows::DispatchParameter;
using windows::DispatchRow;

struct Target {
  std::string log;
};

using Row = DispatchRow<Target>;

constexpr std::array kParameters{DispatchParameter{u"name", Coercion::Text},
                                 DispatchParameter{u"count", Coercion::Int16, true},
                                 DispatchParameter{u"object", Coercion::Object, true},
                                 DispatchParameter{u"truth", Coercion::Boolean, true},
                                 DispatchParameter{u"any", Coercion::Any, true}};
constexpr std::array kOne{DispatchParameter{u"value", Coercion::Int16}};

Value Note(Target& target, DispatchArguments arguments) {
  target.log += "run " + Arguments(arguments);
  return u"ran";
}

constexpr std::array kRows{
    Row{{u"Run", 1, DISPATCH_METHOD, kParameters}, Note},
    Row{{u"Size", 2, DISPATCH_PROPERTYPUT, kOne}, Note},
    Row{{u"Both", 3, DISPATCH_METHOD, {}},
        [](Target& target, DispatchArguments) {
          target.log += "operation";
          return Value();
        }},
    Row{{u"Both", 3, DISPATCH_PROPERTYGET, {}},
        [](Target&, DispatchArguments) { return Value(7); }},
    Row{{u"Fail", 4, DISPATCH_METHOD, {}},
        [](Target&, DispatchArguments) -> Value {
          throw AutomationError(ErrorNumber::UnknownName, u"里面的名字", u"inner");
        }},
};

// The table as an object.
class TableObject final : public ComClass<IDispatch> {
 public:
  Target target;

  STDMETHODIMP GetTypeInfoCount(UINT*) noexcept override { return E_NOTIMPL; }
  STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) noexcept override { return E_NOTIMPL; }
  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID,
                             DISPID* ids) noexcept override {
    return windows::TableNamesToIds(std::span<const Row>(kRows), names, count, ids);
  }
  STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                      EXCEPINFO* record, UINT* badArgument) noexcept override {
    return windows::InvokeTable(std::span<const Row>(kRows), target, id, flags, parameters, result,
                                record, badArgument);
  }
};

class CallingATable : public ::testing::Test {
 protected:
  ComPtr<TableObject> object = windows::MakeCom<TableObject>();
  const Bstr text{u"12"};
  const Bstr word{u"甲"};
};

TEST_F(CallingATable, ArgumentsAreConvertedToTheMembersTypes) {
  EXPECT_EQ(Expression(object.get(), L"run",
                       {Number(5), Text(text.get()), ObjectOf(nullptr), Number(1), Number(9)}),
            R"(S_OK "ran")");
  EXPECT_EQ(object->target.log, R"(run "5", int16 12, Nothing, True, 9)");
}

TEST_F(CallingATable, OptionalArgumentsAreMissing) {
  EXPECT_EQ(Statement(object.get(), L"Run", {Text(word.get()), Omitted(), ObjectOf(nullptr)}),
            "S_OK");
  EXPECT_EQ(object->target.log, R"(run "甲", Missing, Nothing, Missing, Missing)");
}

TEST_F(CallingATable, ReferencesAreFollowed) {
  VARIANT variable = Number(5);
  BSTR held = word.get();
  short count = 3;
  EXPECT_EQ(Statement(object.get(), L"Run", {Reference(VT_BSTR, &held), Reference(VT_I2, &count)}),
            "S_OK");
  EXPECT_EQ(Statement(object.get(), L"Run", {Reference(VT_VARIANT, &variable)}), "S_OK");
  EXPECT_EQ(
      object->target.log,
      R"(run "甲", int16 3, Missing, Missing, Missingrun "5", Missing, Missing, Missing, Missing)");
}

TEST_F(CallingATable, NamedArgumentsMapToTheirPositions) {
  std::wstring member = L"RUN";
  std::wstring last = L"Any";
  std::wstring first = L"Name";
  LPOLESTR names[] = {member.data(), last.data(), first.data()};
  DISPID ids[] = {0, 0, 0};
  ASSERT_EQ(object->GetIDsOfNames(IID{}, names, 3, 0, ids), S_OK);
  EXPECT_EQ(ids[1], 4);
  EXPECT_EQ(ids[2], 0);
  EXPECT_EQ(Send(object.get(), ids[0],
                 {.arguments = {Text(word.get()), Number(9)}, .namedIds = {ids[1], ids[2]}}),
            R"(S_OK "ran")");
  EXPECT_EQ(object->target.log, R"(run "甲", Missing, Missing, Missing, 9)");
}

TEST_F(CallingATable, UnknownParameterNamesAreReported) {
  std::wstring member = L"Run";
  std::wstring parameter = L"nothing";
  LPOLESTR names[] = {member.data(), parameter.data()};
  DISPID ids[] = {0, 0};
  EXPECT_EQ(object->GetIDsOfNames(IID{}, names, 2, 0, ids), DISP_E_UNKNOWNNAME);
  EXPECT_EQ(ids[0], 1);
}

TEST_F(CallingATable, WrongCountsAreRefused) {
  EXPECT_EQ(Statement(object.get(), L"Run").substr(0, 8), "8002000E");
  EXPECT_EQ(Statement(object.get(), L"Run", std::vector<VARIANT>(6, Number(1))).substr(0, 8),
            "8002000E");
  EXPECT_EQ(Statement(object.get(), L"Both", {Number(1)}).substr(0, 8), "8002000E");
  EXPECT_EQ(object->target.log, "");
}

TEST_F(CallingATable, AnOmittedArgumentThatIsNeededIsNamed) {
  EXPECT_EQ(Statement(object.get(), L"Run", {Omitted(), Number(1)}).substr(0, 19),
            "8002000F argument 1");
}

TEST_F(CallingATable, WrongTypesAreRefusedWithTheirPlace) {
  EXPECT_EQ(Statement(object.get(), L"Run", {Text(word.get()), Text(word.get())}).substr(0, 19),
            "80020005 argument 0");
  EXPECT_EQ(Statement(object.get(), L"Run", {Text(word.get()), Number(40000)}).substr(0, 19),
            "8002000A argument 0");
  EXPECT_EQ(Statement(object.get(), L"Run", {Text(word.get()), Number(1), Number(1), Number(1)})
                .substr(0, 19),
            "80020005 argument 1");
  EXPECT_EQ(Statement(object.get(), L"Run", {ObjectOf(nullptr)}).substr(0, 8), "80020005");
  EXPECT_EQ(object->target.log, "");
}

TEST_F(CallingATable, PropertiesArePutOnly) {
  EXPECT_EQ(Assignment(object.get(), L"Size", Text(text.get())), "S_OK");
  EXPECT_EQ(object->target.log, "run int16 12");
  EXPECT_EQ(Expression(object.get(), L"Size"), "80020003");
  EXPECT_EQ(Statement(object.get(), L"Size"), "80020003");
}

TEST_F(CallingATable, MethodsAreNotPut) {
  EXPECT_EQ(Assignment(object.get(), L"Run", Number(1)), "80020003");
}

TEST_F(CallingATable, OneNameIsAnOperationAsAStatementAndAPropertyInAnExpression) {
  EXPECT_EQ(Statement(object.get(), L"Both"), "S_OK");
  EXPECT_EQ(object->target.log, "operation");
  EXPECT_EQ(Expression(object.get(), L"Both"), "S_OK 7");
  EXPECT_EQ(Send(object.get(), 3, {.flags = DISPATCH_PROPERTYGET}), "S_OK 7");
  EXPECT_EQ(object->target.log, "operation");
}

// Some script engines request a result for every statement; others allow property reads in each.
TEST_F(CallingATable, OneNameIsAnOperationForEveryStatement) {
  EXPECT_EQ(Send(object.get(), 3, {.flags = DISPATCH_METHOD}), "S_OK Empty");
  EXPECT_EQ(Send(object.get(), 3,
                 {.flags = DISPATCH_METHOD | DISPATCH_PROPERTYGET, .wantsResult = false}),
            "S_OK");
  EXPECT_EQ(object->target.log, "operationoperation");
}

TEST_F(CallingATable, FailuresOfMembersAreNeverRefusalsOfTheCall) {
  EXPECT_EQ(Statement(object.get(), L"Fail"),
            "exception 80020006 inner: 里面的名字, info: inner: 里面的名字");
}

}  // namespace
}  // namespace pricedown::testing
