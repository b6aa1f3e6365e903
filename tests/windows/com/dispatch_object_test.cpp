// Tests of our own objects called through IDispatch, by a plain client.
#include "windows/com/dispatch_object.h"

#include <gtest/gtest.h>

#include "tests/support/utf8.h"
#include "tests/windows/raw_call.h"
#include "tests/windows/simple_object.h"
#include "windows/com/bstr.h"
#include "windows/com/com_object.h"
#include "windows/com/safe_array.h"
#include "windows/com/variant_value.h"

namespace pricedown::testing {
namespace {

using windows::Bstr;
using windows::ComPtr;
using windows::Variant;

class CallingUs : public ::testing::Test {
 protected:
  std::shared_ptr<SimpleObject> object = std::make_shared<SimpleObject>();
  ComPtr<IDispatch> dispatch = windows::ToDispatch(object);
  const Bstr text{u"甲"};
};

TEST_F(CallingUs, NamesDoNotDependOnCase) {
  EXPECT_EQ(IdOf(dispatch.get(), L"sWAP"), "3");
  EXPECT_EQ(IdOf(dispatch.get(), L"Swap"), "3");
  EXPECT_EQ(IdOf(dispatch.get(), L"Nowhere"), "80020006");
}

TEST_F(CallingUs, NamesOfParametersAreUnknown) {
  std::wstring member = L"Join";
  std::wstring parameter = L"a";
  LPOLESTR names[] = {member.data(), parameter.data()};
  DISPID ids[] = {0, 0};
  EXPECT_EQ(dispatch->GetIDsOfNames(IID{}, names, 2, LOCALE_USER_DEFAULT, ids), DISP_E_UNKNOWNNAME);
  EXPECT_EQ(ids[0], 4);
  EXPECT_EQ(ids[1], DISPID_UNKNOWN);
}

TEST_F(CallingUs, ArgumentsArriveInTheirOrder) {
  EXPECT_EQ(Expression(dispatch.get(), L"Join", {Number(1), Text(text.get())}),
            R"(S_OK [1, "甲"])");
}

TEST_F(CallingUs, OmittedArgumentsArriveAsMissing) {
  EXPECT_EQ(Expression(dispatch.get(), L"Join", {Omitted(), Number(2)}), "S_OK [Missing, 2]");
}

TEST_F(CallingUs, AStatementNeedsNoResult) {
  EXPECT_EQ(Statement(dispatch.get(), L"Join", {Number(1)}), "S_OK");
}

TEST_F(CallingUs, PutsReadTheirNamedArgument) {
  EXPECT_EQ(Assignment(dispatch.get(), L"Value", Number(8)), "S_OK");
  EXPECT_EQ(object->value, Value(8));
  EXPECT_EQ(object->lastAccess, Access::Put);
}

TEST_F(CallingUs, PutsWithoutANameAreAcceptedToo) {
  EXPECT_EQ(SendTo(dispatch.get(), L"Value",
                   {.flags = DISPATCH_PROPERTYPUT, .arguments = {Number(8)}, .wantsResult = false}),
            "S_OK");
  EXPECT_EQ(object->value, Value(8));
}

TEST_F(CallingUs, PutsOfObjectsByReferenceAreTheirOwnAccess) {
  EXPECT_EQ(SendTo(dispatch.get(), L"Value",
                   {.flags = DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF,
                    .arguments = {ObjectOf(nullptr)},
                    .namedIds = {DISPID_PROPERTYPUT},
                    .wantsResult = false}),
            "S_OK");
  EXPECT_EQ(object->lastAccess, Access::PutReference);
}

TEST_F(CallingUs, IndexedPutsHaveTheValueLast) {
  EXPECT_EQ(SendTo(dispatch.get(), L"Item",
                   {.flags = DISPATCH_PROPERTYPUT,
                    .arguments = {Text(text.get()), Number(5)},
                    .namedIds = {DISPID_PROPERTYPUT},
                    .wantsResult = false}),
            "S_OK");
  EXPECT_EQ(Readable(object->lastIndex), R"("甲")");
  EXPECT_EQ(object->value, Value(5));
}

TEST_F(CallingUs, TheDefaultMemberHasNumberZero) {
  EXPECT_EQ(Send(dispatch.get(), DISPID{DISPID_VALUE}, {.flags = DISPATCH_PROPERTYGET}),
            R"(S_OK "out")");
}

TEST_F(CallingUs, WrongCountsAndUsesAreRefused) {
  EXPECT_EQ(Expression(dispatch.get(), L"Join").substr(0, 8), "8002000E");
  EXPECT_EQ(Expression(dispatch.get(), L"Self", {Number(1)}).substr(0, 8), "8002000E");
  EXPECT_EQ(Assignment(dispatch.get(), L"Join", Number(1)).substr(0, 8), "80020003");
  EXPECT_EQ(Send(dispatch.get(), 77, {}).substr(0, 8), "80020003");
}

TEST_F(CallingUs, AnUnsupportedArgumentIsIdentified) {
  EXPECT_EQ(Expression(dispatch.get(), L"Join", {Number(1), Nothing(VT_RECORD)}).substr(0, 19),
            "80020005 argument 0");
}

TEST_F(CallingUs, NamedArgumentsThatAreNoPositionsAreRefused) {
  EXPECT_EQ(
      SendTo(dispatch.get(), L"Join", {.arguments = {Number(1)}, .namedIds = {-50}}).substr(0, 8),
      "80020004");
}

TEST_F(CallingUs, ExceptionsBecomeRecordsAndErrorInfo) {
  EXPECT_EQ(Statement(dispatch.get(), L"Fail"),
            "exception 80040123 simple: 坏了, info: simple: 坏了");
}

TEST_F(CallingUs, ExceptionsWithoutARecordAreCodes) {
  DISPPARAMS none{};
  EXPECT_EQ(
      Hexadecimal(dispatch->Invoke(5, IID{}, 0, DISPATCH_METHOD, &none, nullptr, nullptr, nullptr)),
      "80040123");
  EXPECT_EQ(ConsumeErrorInfo(), "simple: 坏了");
}

TEST_F(CallingUs, ErrorInfoIsOfferedForIDispatch) {
  const auto support = dispatch.As<ISupportErrorInfo>();
  ASSERT_TRUE(support);
  EXPECT_EQ(support->InterfaceSupportsErrorInfo(IID_IDispatch), S_OK);
  EXPECT_EQ(support->InterfaceSupportsErrorInfo(IID_IUnknown), S_FALSE);
}

TEST_F(CallingUs, VariablesByReferenceAreWrittenBack) {
  Variant variable = windows::ToVariant(5);
  EXPECT_EQ(Expression(dispatch.get(), L"Swap", {Reference(VT_VARIANT, variable.share())}),
            "S_OK 5");
  EXPECT_EQ(Readable(windows::FromVariant(variable.get())), R"("out")");
}

TEST_F(CallingUs, TypedVariablesAreWrittenBackInTheirType) {
  object->value = u"7";
  LONG number = 1;
  EXPECT_EQ(Expression(dispatch.get(), L"Swap", {Reference(VT_I4, &number)}), "S_OK 1");
  EXPECT_EQ(number, 7);

  Bstr variable(u"old");
  BSTR held = variable.release();
  EXPECT_EQ(Expression(dispatch.get(), L"Swap", {Reference(VT_BSTR, &held)}), R"(S_OK "old")");
  variable.attach(held);
  EXPECT_EQ(Utf8(variable.Text()), "7");

  object->value = true;
  VARIANT_BOOL truth = VARIANT_FALSE;
  EXPECT_EQ(Expression(dispatch.get(), L"Swap", {Reference(VT_BOOL, &truth)}), "S_OK False");
  EXPECT_EQ(truth, VARIANT_TRUE);

  object->value = ObjectPtr(object);
  IDispatch* nothing = nullptr;
  EXPECT_EQ(Expression(dispatch.get(), L"Swap", {Reference(VT_DISPATCH, &nothing)}),
            "S_OK Nothing");
  const auto owner = ComPtr<IDispatch>::Adopt(nothing);
  EXPECT_EQ(windows::FromDispatch(nothing), object);
  object->value = 0;
}

TEST_F(CallingUs, ArraysByReferenceAreLists) {
  windows::SafeArray array;
  array.attach(SafeArrayCreateVector(VT_VARIANT, 0, 1));
  SAFEARRAY* held = array.get();
  EXPECT_EQ(Expression(dispatch.get(), L"Join", {Reference(VT_ARRAY | VT_VARIANT, &held)}),
            "S_OK [[Empty]]");
}

TEST_F(CallingUs, UnchangedVariablesKeepTheirType) {
  VARIANT variable = Nothing(VT_UI1);
  variable.bVal = 200;
  EXPECT_EQ(Expression(dispatch.get(), L"Join", {Reference(VT_VARIANT, &variable)}),
            "S_OK [int16 200]");
  EXPECT_EQ(variable.vt, VT_UI1);
}

TEST_F(CallingUs, AResultThatDoesNotFitTheVariableIsATypeMismatch) {
  LONG number = 1;
  EXPECT_EQ(Statement(dispatch.get(), L"Swap", {Reference(VT_I4, &number)}).substr(0, 8),
            "80020005");
  EXPECT_EQ(number, 1);
}

TEST_F(CallingUs, OwnObjectsAreUnwrapped) {
  const Value self = windows::FromDispatch(dispatch.get());
  EXPECT_EQ(self.Object(), object);
  DISPPARAMS none{};
  Variant result;
  ASSERT_EQ(
      dispatch->Invoke(6, IID{}, 0, DISPATCH_PROPERTYGET, &none, result.put(), nullptr, nullptr),
      S_OK);
  EXPECT_EQ(windows::FromVariant(result.get()).Object(), object);
}

TEST_F(CallingUs, ForeignObjectsAreNotWrappedTwice) {
  const ObjectPtr once = std::make_shared<windows::ComObject>(dispatch.Copy());
  EXPECT_EQ(windows::ToDispatch(once).get(), dispatch.get());
}

TEST_F(CallingUs, TheObjectLivesAsLongAsItsReferences) {
  EXPECT_EQ(object.use_count(), 2);
  dispatch.attach(nullptr);
  EXPECT_EQ(object.use_count(), 1);
}

TEST_F(CallingUs, ThereIsNoTypeInformation) {
  UINT count = 9;
  ITypeInfo* info = nullptr;
  EXPECT_EQ(dispatch->GetTypeInfoCount(&count), S_OK);
  EXPECT_EQ(count, 0U);
  EXPECT_EQ(dispatch->GetTypeInfo(0, 0, &info), E_NOTIMPL);
}

// Three numbers.
class NumberList : public LocalObject<NumberList> {
 public:
  static std::span<const Member<NumberList>> Members() { return {}; }
  std::optional<std::vector<Value>> Elements() override { return std::vector<Value>{1, 2, 3}; }
};

TEST(EnumeratingACollection, WalksOverItsElements) {
  const auto list = windows::ToDispatch(std::make_shared<NumberList>());
  EXPECT_EQ(IdOf(list.get(), L"_newenum"), std::to_string(DISPID_NEWENUM));
  DISPPARAMS none{};
  windows::Variant result;
  ASSERT_EQ(list->Invoke(DISPID_NEWENUM, IID{}, 0, DISPATCH_METHOD | DISPATCH_PROPERTYGET, &none,
                         result.put(), nullptr, nullptr),
            S_OK);
  ASSERT_EQ(result.get().vt, VT_UNKNOWN);
  const auto numbers = windows::ComPtr<IUnknown>::Share(result.get().punkVal).As<IEnumVARIANT>();
  ASSERT_TRUE(numbers);
  VARIANT elements[4];
  ULONG fetched = 9;
  EXPECT_EQ(numbers->Next(1, elements, nullptr), S_OK);
  EXPECT_EQ(elements[0].lVal, 1);
  windows::ComPtr<IEnumVARIANT> copy;
  EXPECT_EQ(numbers->Clone(copy.put()), S_OK);
  EXPECT_EQ(numbers->Next(4, elements, &fetched), S_FALSE);
  EXPECT_EQ(fetched, 2U);
  EXPECT_EQ(elements[1].lVal, 3);
  EXPECT_EQ(numbers->Next(1, elements, &fetched), S_FALSE);
  EXPECT_EQ(fetched, 0U);
  EXPECT_EQ(numbers->Reset(), S_OK);
  EXPECT_EQ(numbers->Skip(3), S_OK);
  EXPECT_EQ(numbers->Skip(1), S_FALSE);
  EXPECT_EQ(copy->Next(1, elements, &fetched), S_OK);
  EXPECT_EQ(elements[0].lVal, 2);
  EXPECT_EQ(copy->Next(2, elements, nullptr), E_POINTER);
  EXPECT_EQ(copy->Next(1, nullptr, &fetched), E_POINTER);
}

TEST(EnumeratingACollection, IsRefusedByOtherObjects) {
  const auto object = windows::ToDispatch(std::make_shared<SimpleObject>());
  EXPECT_EQ(IdOf(object.get(), L"_NewEnum"), "80020006");
  EXPECT_EQ(Send(object.get(), DISPID_NEWENUM, {}).substr(0, 8), "80020003");
}

}  // namespace
}  // namespace pricedown::testing
