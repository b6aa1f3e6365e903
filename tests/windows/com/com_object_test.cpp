// Tests of calls to foreign late-bound objects.
#include "windows/com/com_object.h"

#include <dispex.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/failure.h"
#include "tests/windows/com/stub_dispatch.h"
#include "tests/windows/raw_call.h"
#include "windows/com/boundary.h"
#include "windows/com/bstr.h"
#include "windows/com/variant_value.h"

namespace pricedown::windows {

template <>
struct BasesOf<IDispatchEx> : InterfaceList<IDispatch> {};

}  // namespace pricedown::windows

namespace pricedown::testing {
namespace {

using ::testing::ElementsAre;
using windows::Bstr;
using windows::ComClass;
using windows::ComObject;
using windows::ComPtr;
using windows::MakeCom;

// A stub and the core's view of it.
struct Called {
  explicit Called(StubDispatch::Behaviour behaviour = {})
      : stub(MakeCom<StubDispatch>(std::move(behaviour))),
        object(ComPtr<IDispatch>::Share(stub.get())) {}
  ComPtr<StubDispatch> stub;
  ComObject object;
};

TEST(CallingAnObject, SendsMethodAndGetWithAResult) {
  Called called;
  called.object.Call(u"Member", {1, u"甲", Missing{}});
  EXPECT_THAT(called.stub->log,
              ElementsAre("find Member", R"(7 flags 3 (1, "甲", Missing) result)"));
}

TEST(CallingAnObject, LooksANameUpOnce) {
  Called called;
  called.object.Call(u"Member");
  called.object.Call(u"Member");
  EXPECT_THAT(called.stub->log,
              ElementsAre("find Member", "7 flags 3 () result", "7 flags 3 () result"));
}

TEST(CallingAnObject, PutsWithTheNamedArgument) {
  Called called;
  called.object.Put(u"Member", 5);
  EXPECT_THAT(called.stub->log, ElementsAre("find Member", "7 flags 4 named -3 (5)"));
}

TEST(CallingAnObject, PutsAnIndexedDefaultMember) {
  Called called;
  called.object.PutIndexed(u"", u"key", u"value");
  EXPECT_THAT(called.stub->log, ElementsAre(R"(0 flags 4 named -3 ("key", "value"))"));
}

TEST(CallingAnObject, SetsObjectsByReference) {
  Called called;
  called.object.PutReference(u"Member", nullptr);
  EXPECT_THAT(called.stub->log, ElementsAre("find Member", "7 flags 8 named -3 (Nothing)"));
}

TEST(CallingAnObject, ReturnsItsResult) {
  Called called([](DISPPARAMS&, VARIANT* result, EXCEPINFO*) {
    *result = Number(12);
    return S_OK;
  });
  EXPECT_EQ(called.object.Call(u"Member"), Value(12));
}

TEST(CallingAnObject, PassesReferencesAsVariablesAndReadsThemBack) {
  Called called([](DISPPARAMS& parameters, VARIANT*, EXCEPINFO*) {
    EXPECT_EQ(parameters.rgvarg[0].vt, VT_BYREF | VT_VARIANT);
    *parameters.rgvarg[0].pvarVal = Number(99);
    return S_OK;
  });
  Value answer = u"";
  called.object.Call(u"Member", {u"PropsString", Value::ByReference(answer)});
  EXPECT_EQ(called.stub->log.back(), R"(7 flags 3 ("PropsString", variant& "") result)");
  EXPECT_EQ(answer, Value(99));
}

TEST(CallingAnObject, NamesTheMemberThatItDoesNotHave) {
  Called called;
  EXPECT_EQ(FailureOf([&] { called.object.Call(u"Other"); }),
            "80020006 对象不支持此属性或方法: Other");
}

TEST(CallingAnObject, UsesTheDescriptionOfAnException) {
  Called called([](DISPPARAMS&, VARIANT*, EXCEPINFO* record) {
    record->scode = static_cast<SCODE>(0x80040E14);
    record->bstrDescription = Bstr(u"语法错误").release();
    record->bstrSource = Bstr(u"ZEPConnection").release();
    return DISP_E_EXCEPTION;
  });
  try {
    called.object.Call(u"Member");
    FAIL() << "no exception";
  } catch (const AutomationError& error) {
    EXPECT_EQ(Hexadecimal(error.Number()), "80040E14");
    EXPECT_EQ(Utf8(error.Description()), "语法错误");
    EXPECT_EQ(Utf8(error.Source()), "ZEPConnection");
  }
}

TEST(CallingAnObject, UsesTheErrorNumberOfABasicServer) {
  Called called([](DISPPARAMS&, VARIANT*, EXCEPINFO* record) {
    record->wCode = 91;
    record->bstrDescription = Bstr(u"object not set").release();
    return DISP_E_EXCEPTION;
  });
  EXPECT_EQ(FailureOf([&] { called.object.Call(u"Member"); }), "800A005B object not set");
}

// Not a lambda: its calling convention differs on x86.
HRESULT CALLBACK FillInLater(EXCEPINFO* deferred) {
  deferred->scode = E_ACCESSDENIED;
  deferred->bstrDescription = Bstr(u"later").release();
  return S_OK;
}

TEST(CallingAnObject, RunsTheDeferredFillIn) {
  Called called([](DISPPARAMS&, VARIANT*, EXCEPINFO* record) {
    record->pfnDeferredFillIn = &FillInLater;
    return DISP_E_EXCEPTION;
  });
  EXPECT_EQ(FailureOf([&] { called.object.Call(u"Member"); }), "80070005 later");
}

TEST(CallingAnObject, UsesErrorInfoWithAPlainCode) {
  Called called([](DISPPARAMS&, VARIANT*, EXCEPINFO*) {
    return windows::PublishFailure({E_OUTOFMEMORY, u"太大", u"suite"}, IID_IDispatch);
  });
  EXPECT_EQ(FailureOf([&] { called.object.Call(u"Member"); }), "8007000E 太大");
}

TEST(CallingAnObject, UsesTheSystemsTextWhereTheServerHasNone) {
  Called called([](DISPPARAMS&, VARIANT*, EXCEPINFO*) { return E_ACCESSDENIED; });
  const std::string failure = FailureOf([&] { called.object.Call(u"Member"); });
  EXPECT_EQ(failure.substr(0, 8), "80070005");
  EXPECT_GT(failure.size(), 10U);
}

TEST(CallingAnObject, DropsAnyResultOfAMethod) {
  Called called([](DISPPARAMS&, VARIANT* result, EXCEPINFO*) {
    *result = Nothing(VT_ERROR);
    result->scode = E_FAIL;
    return S_OK;
  });
  std::vector<Value> arguments{u"delete"};
  called.object.Perform(called.object.Find(u"Member"), arguments);
  EXPECT_EQ(called.stub->log.back(), R"(7 flags 3 ("delete") result)");
  EXPECT_EQ(FailureOf([&] { called.object.Call(u"Member"); }).substr(0, 8), "80020005");
}

std::string SourceOf(const std::function<void()>& call) {
  try {
    call();
  } catch (const AutomationError& error) {
    return Utf8(error.Source());
  }
  return "no error";
}

TEST(CallingAnObject, NamesObjectAndMemberAsTheSourceThatTheCalleeDoesNotName) {
  const auto stub =
      MakeCom<StubDispatch>([](DISPPARAMS&, VARIANT*, EXCEPINFO*) { return E_ACCESSDENIED; });
  ComObject named(ComPtr<IDispatch>::Share(stub.get()), u"ZEPConnection.AppConnection");
  EXPECT_EQ(SourceOf([&] { named.Call(u"Member"); }), "ZEPConnection.AppConnection.Member");
  EXPECT_EQ(SourceOf([&] { named.Call(u"Other"); }), "ZEPConnection.AppConnection");
  Called unnamed([](DISPPARAMS&, VARIANT*, EXCEPINFO* record) {
    record->scode = E_FAIL;
    return DISP_E_EXCEPTION;
  });
  EXPECT_EQ(SourceOf([&] { unnamed.object.Call(u"Member"); }), "Member");
  EXPECT_EQ(SourceOf([&] { unnamed.object.Call(u""); }), "_Default");
}

TEST(CallingAnObject, HasWordsForTheRefusalsOfAutomation) {
  for (const HRESULT code : {DISP_E_MEMBERNOTFOUND, DISP_E_TYPEMISMATCH, DISP_E_OVERFLOW}) {
    Called called([&](DISPPARAMS&, VARIANT*, EXCEPINFO*) { return code; });
    const std::string failure = FailureOf([&] { called.object.Call(u"Member"); });
    EXPECT_EQ(failure.substr(0, 9), Hexadecimal(code) + " ");
    EXPECT_NE(failure.substr(9, 2), "0x") << failure;
  }
}

TEST(CallingAnObject, LeavesReferencesAloneWhenTheCallFails) {
  Called called([](DISPPARAMS& parameters, VARIANT*, EXCEPINFO*) {
    *parameters.rgvarg[0].pvarVal = Number(99);
    return E_FAIL;
  });
  Value answer = 1;
  FailureOf([&] { called.object.Call(u"Member", {Value::ByReference(answer)}); });
  EXPECT_EQ(answer, Value(1));
}

TEST(CallingAnObject, SurvivesItsOwnReleaseDuringTheCall) {
  std::shared_ptr<ComObject> object;
  const auto stub = MakeCom<StubDispatch>([&](DISPPARAMS&, VARIANT* result, EXCEPINFO*) {
    object.reset();
    *result = Number(3);
    return S_OK;
  });
  object = std::make_shared<ComObject>(ComPtr<IDispatch>::Share(stub.get()));
  AutomationObject& called = *object;
  EXPECT_EQ(called.Invoke(7, Access::Call, {}), Value(3));
}

// Objects of script languages answer names and calls through IDispatchEx only.
class ScriptObject final : public ComClass<IDispatchEx> {
 public:
  std::string log;

  STDMETHODIMP GetTypeInfoCount(UINT*) noexcept override { return E_NOTIMPL; }
  STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) noexcept override { return E_NOTIMPL; }
  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) noexcept override {
    return E_NOTIMPL;
  }
  STDMETHODIMP Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                      UINT*) noexcept override {
    return E_NOTIMPL;
  }
  STDMETHODIMP GetDispID(BSTR name, DWORD flags, DISPID* id) noexcept override {
    EXPECT_EQ(flags, static_cast<DWORD>(fdexNameCaseInsensitive));
    *id = Utf8(windows::FromBstr(name)) == "Member" ? 4 : DISPID_UNKNOWN;
    return *id == 4 ? S_OK : DISP_E_UNKNOWNNAME;
  }
  STDMETHODIMP InvokeEx(DISPID id, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                        EXCEPINFO*, IServiceProvider*) noexcept override {
    log += std::to_string(id) + " flags " + std::to_string(flags) + " arguments " +
           std::to_string(parameters->cArgs) + ";";
    if (result != nullptr) *result = Number(6);
    return S_OK;
  }
  STDMETHODIMP DeleteMemberByName(BSTR, DWORD) noexcept override { return E_NOTIMPL; }
  STDMETHODIMP DeleteMemberByDispID(DISPID) noexcept override { return E_NOTIMPL; }
  STDMETHODIMP GetMemberProperties(DISPID, DWORD, DWORD*) noexcept override { return E_NOTIMPL; }
  STDMETHODIMP GetMemberName(DISPID, BSTR*) noexcept override { return E_NOTIMPL; }
  STDMETHODIMP GetNextDispID(DWORD, DISPID, DISPID*) noexcept override { return E_NOTIMPL; }
  STDMETHODIMP GetNameSpaceParent(IUnknown**) noexcept override { return E_NOTIMPL; }
};

TEST(CallingAScriptsObject, GoesThroughItsOwnInterface) {
  const auto script = MakeCom<ScriptObject>();
  ComObject object(ComPtr<IDispatch>::Share(script.get()));
  EXPECT_EQ(object.Call(u"Member", {1}), Value(6));
  object.Put(u"Member", 2);
  EXPECT_EQ(script->log, "4 flags 3 arguments 1;4 flags 4 arguments 1;");
  EXPECT_EQ(FailureOf([&] { object.Call(u"Other"); }).substr(0, 8), "80020006");
}

TEST(CallingAnObject, KeepsNoReferenceAfterwards) {
  const auto stub = MakeCom<StubDispatch>([](DISPPARAMS&, VARIANT*, EXCEPINFO*) { return S_OK; });
  {
    ComObject object(ComPtr<IDispatch>::Share(stub.get()));
    Value target = ObjectPtr();
    object.Call(u"Member", {windows::FromDispatch(stub.get()), Value::ByReference(target)});
  }
  stub->AddRef();
  EXPECT_EQ(stub->Release(), 1U);
}

}  // namespace
}  // namespace pricedown::testing
