// What caller and suite see of a recorded object: its identity, arguments, answers and failures.
#include "workbench/recording/com/recorded_object.h"

#include <gtest/gtest.h>

#include <ole2.h>

#include <dispex.h>

#include <algorithm>
#include <nlohmann/json.hpp>
#include <optional>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include "tests/sample/temporary_folder.h"
#include "tests/windows/recorder/called_object.h"
#include "windows/com/variant.h"
#include "workbench/recording/com/real_suite.h"

namespace workbench {
namespace {

using pricedown::windows::ComPtr;
using pricedown::windows::Variant;

// The folder of this program's recording; it ends after the recorder, which holds its file open.
class RecordingFolder : public ::testing::Environment {
 public:
  void SetUp() override {
    OleInitialize(nullptr);
    folder.emplace();
    SetEnvironmentVariableW(L"SUITE_RECORDER_FOLDER",
                            PathFromUtf8(folder->PathOf("")).wstring().c_str());
    SetEnvironmentVariableW(L"SUITE_RECORDER_VALUES", L"1");
  }
  void TearDown() override { OleUninitialize(); }

  static std::vector<Json> Lines() {
    std::vector<Json> lines;
    for (const std::string& name : folder->Names()) {
      std::istringstream stream(folder->Read(name));
      for (std::string line; std::getline(stream, line);) lines.push_back(Json::parse(line));
    }
    return lines;
  }

  static inline std::optional<testing::TemporaryFolder> folder;
};
[[maybe_unused]] const auto* const recordingFolder =
    ::testing::AddGlobalTestEnvironment(new RecordingFolder);

// The last line of that kind.
Json LastLine(const char* kind) {
  const std::vector<Json> lines = RecordingFolder::Lines();
  const auto found = std::find_if(lines.rbegin(), lines.rend(), [kind](const Json& line) {
    return line.value("kind", "") == kind;
  });
  return found == lines.rend() ? Json() : *found;
}

ComPtr<IDispatch> Recorded(CalledObject& object, const char* name = "Suite.Thing") {
  return RecordedObject::Wrap(&object, name).As<IDispatch>();
}

VARIANT ObjectVariant(IDispatch* object) {
  VARIANT variant;
  VariantInit(&variant);
  variant.vt = VT_DISPATCH;
  variant.pdispVal = object;
  return variant;
}

HRESULT Call(IDispatch& object, VARIANT* arguments = nullptr, UINT count = 0,
             VARIANT* result = nullptr, EXCEPINFO* record = nullptr) {
  DISPPARAMS parameters{arguments, nullptr, count, 0};
  return object.Invoke(7, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters, result,
                       record, nullptr);
}

TEST(RecordedObjectTest, OneObjectHasOneIdentity) {
  CalledObject object;
  {
    const auto first = Recorded(object);
    const auto second = Recorded(object, "another way");
    EXPECT_NE(static_cast<IDispatch*>(&object), first.get());
    EXPECT_EQ(first.As<IUnknown>().get(), second.As<IUnknown>().get());
    EXPECT_EQ(first.get(), RecordedObject::Wrap(first.get(), "itself").get());
  }
  EXPECT_EQ(1, object.references);
}

TEST(RecordedObjectTest, ReleasesTheObjectWithItsLastReference) {
  CalledObject object;
  auto recorded = Recorded(object);
  EXPECT_LT(1, object.references);
  const Json before = LastLine("release");
  recorded = {};
  EXPECT_EQ(1, object.references);
  EXPECT_NE(before, LastLine("release"));
  EXPECT_EQ("Suite.Thing", LastLine("release").at("name"));
}

TEST(RecordedObjectTest, ThreadsMayTakeAndReleaseItAtTheSameTime) {
  CalledObject object;
  std::vector<std::thread> threads;
  for (int i = 0; i < 4; ++i) {
    threads.emplace_back([&object] {
      for (int round = 0; round < 500; ++round) {
        const auto recorded = Recorded(object);
        Call(*recorded.get());
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(1, object.references);
}

TEST(RecordedObjectTest, ResultsAreRecordedAndComeBackAsTheSuitesOwn) {
  CalledObject suite;
  CalledObject child;
  suite.onCall = [&child](const CalledObject::Call& call) {
    child.AddRef();
    *call.result = ObjectVariant(&child);
    return S_OK;
  };
  const auto recorded = Recorded(suite);
  Variant result;
  ASSERT_EQ(S_OK, Call(*recorded.get(), nullptr, 0, result.put()));
  EXPECT_NE(static_cast<IDispatch*>(&child), result.get().pdispVal);
  EXPECT_EQ(Recorded(child).get(), result.get().pdispVal);

  IDispatch* seen = nullptr;
  suite.onCall = [&seen](const CalledObject::Call& call) {
    seen = call.parameters->rgvarg[0].pdispVal;
    return S_OK;
  };
  VARIANT argument = ObjectVariant(result.get().pdispVal);
  Call(*recorded.get(), &argument, 1);
  EXPECT_EQ(&child, seen);
  EXPECT_EQ(result.get().pdispVal, argument.pdispVal);
  result = {};
  EXPECT_EQ(1, child.references);
}

TEST(RecordedObjectTest, VariableOfTheCallerKeepsItsObject) {
  CalledObject suite;
  CalledObject child;
  IDispatch* seen = nullptr;
  suite.onCall = [&seen](const CalledObject::Call& call) {
    seen = call.parameters->rgvarg[0].pvarVal->pdispVal;
    return S_OK;
  };
  {
    const auto recorded = Recorded(suite);
    const auto recordedChild = Recorded(child);
    VARIANT variable = ObjectVariant(recordedChild.get());
    VARIANT argument;
    argument.vt = VT_BYREF | VT_VARIANT;
    argument.pvarVal = &variable;
    Call(*recorded.get(), &argument, 1);
    EXPECT_EQ(&child, seen);
    EXPECT_EQ(recordedChild.get(), variable.pdispVal);
  }
  EXPECT_EQ(1, child.references);
}

TEST(RecordedObjectTest, ObjectPutIntoAVariableIsRecorded) {
  CalledObject suite;
  CalledObject before;
  CalledObject after;
  suite.onCall = [&after](const CalledObject::Call& call) {
    VARIANT& variable = *call.parameters->rgvarg[0].pvarVal;
    VariantClear(&variable);
    after.AddRef();
    variable = ObjectVariant(&after);
    return S_OK;
  };
  {
    const auto recorded = Recorded(suite);
    Variant variable;
    variable.attach(ObjectVariant(Recorded(before).release()));
    VARIANT argument;
    argument.vt = VT_BYREF | VT_VARIANT;
    argument.pvarVal = variable.share();
    Call(*recorded.get(), &argument, 1);
    EXPECT_EQ(Recorded(after).get(), variable.get().pdispVal);
    EXPECT_EQ(1, before.references);
  }
  EXPECT_EQ(1, after.references);
}

TEST(RecordedObjectTest, ObjectOfTheCallerStaysInItsVariable) {
  CalledObject suite;
  CalledObject own;
  const auto recorded = Recorded(suite);
  IDispatch* variable = &own;
  VARIANT argument;
  argument.vt = VT_BYREF | VT_DISPATCH;
  argument.ppdispVal = &variable;
  Call(*recorded.get(), &argument, 1);
  EXPECT_EQ(&own, variable);
}

TEST(RecordedObjectTest, ObjectsInAnArrayAreRecorded) {
  CalledObject suite;
  CalledObject child;
  suite.onCall = [&child](const CalledObject::Call& call) {
    SAFEARRAY* array = SafeArrayCreateVector(VT_VARIANT, 0, 2);
    VARIANT element = ObjectVariant(&child);
    LONG index = 1;
    SafeArrayPutElement(array, &index, &element);
    call.result->vt = VT_ARRAY | VT_VARIANT;
    call.result->parray = array;
    return S_OK;
  };
  const auto recorded = Recorded(suite);
  Variant result;
  Call(*recorded.get(), nullptr, 0, result.put());
  LONG index = 1;
  Variant element;
  ASSERT_EQ(S_OK, SafeArrayGetElement(result.get().parray, &index, element.put()));
  EXPECT_EQ(Recorded(child).get(), element.get().pdispVal);
}

TEST(RecordedObjectTest, PassesTheCallersOwnStructures) {
  CalledObject suite;
  CalledObject::Call seen{};
  suite.onCall = [&seen](const CalledObject::Call& call) {
    seen = call;
    return S_OK;
  };
  const auto recorded = Recorded(suite);
  VARIANT argument;
  argument.vt = VT_I4;
  argument.lVal = 5;
  DISPID named = DISPID_PROPERTYPUT;
  DISPPARAMS parameters{&argument, &named, 1, 1};
  VARIANT result{};
  EXCEPINFO record{};
  UINT badArgument = 9;
  recorded->Invoke(7, IID_NULL, 0, DISPATCH_PROPERTYPUT, &parameters, &result, &record,
                   &badArgument);
  EXPECT_EQ(&parameters, seen.parameters);
  EXPECT_EQ(&result, seen.result);
  EXPECT_EQ(&record, seen.record);
  EXPECT_EQ(&badArgument, seen.badArgument);
  recorded->Invoke(7, IID_NULL, 0, DISPATCH_METHOD, &parameters, nullptr, nullptr, nullptr);
  EXPECT_EQ(nullptr, seen.result);
  EXPECT_EQ(nullptr, seen.record);
  EXPECT_EQ(nullptr, seen.badArgument);
}

HRESULT WINAPI NeverFillsIn(EXCEPINFO*) {
  ADD_FAILURE() << "only the caller asks for this";
  return S_OK;
}

TEST(RecordedObjectTest, ExceptionRecordPassesUnchangedAndIsWritten) {
  CalledObject suite;
  BSTR description = SysAllocString(L"语法错误 PWD=secret");
  suite.onCall = [description](const CalledObject::Call& call) {
    call.record->scode = static_cast<SCODE>(0x80040E14);
    call.record->bstrSource = SysAllocString(L"the suite");
    call.record->bstrDescription = description;
    call.record->pfnDeferredFillIn = NeverFillsIn;
    return DISP_E_EXCEPTION;
  };
  const auto recorded = Recorded(suite);
  EXCEPINFO record{};
  EXPECT_EQ(DISP_E_EXCEPTION, Call(*recorded.get(), nullptr, 0, nullptr, &record));
  EXPECT_EQ(description, record.bstrDescription);
  EXPECT_EQ(&NeverFillsIn, record.pfnDeferredFillIn);
  EXPECT_EQ(static_cast<SCODE>(0x80040E14), record.scode);
  SysFreeString(record.bstrSource);
  SysFreeString(record.bstrDescription);
  EXPECT_EQ(R"({"code":"0x80020009","number":"0x80040E14","source":"the suite",)"
            R"("description":"语法错误 PWD=***","deferred":true})",
            LineOf(LastLine("call").at("failure")));
}

TEST(RecordedObjectTest, ErrorInfoAndLastErrorOfTheThreadStay) {
  CalledObject suite;
  ComPtr<ICreateErrorInfo> creation;
  ASSERT_EQ(S_OK, CreateErrorInfo(creation.put()));
  const auto info = creation.As<IErrorInfo>();
  suite.onCall = [&info](const CalledObject::Call&) {
    SetErrorInfo(0, info.get());
    SetLastError(ERROR_DISK_FULL);
    return E_FAIL;
  };
  const auto recorded = Recorded(suite);
  EXPECT_EQ(E_FAIL, Call(*recorded.get()));
  EXPECT_EQ(DWORD{ERROR_DISK_FULL}, GetLastError());
  ComPtr<IErrorInfo> left;
  ASSERT_EQ(S_OK, GetErrorInfo(0, left.put()));
  EXPECT_EQ(info.get(), left.get());
}

TEST(RecordedObjectTest, InnerCallsHaveTheirDepth) {
  CalledObject outer;
  CalledObject inner;
  const auto recorded = Recorded(outer);
  const auto recordedInner = Recorded(inner, "Suite.Inner");
  Json innerLine;
  outer.onCall = [&](const CalledObject::Call&) {
    Call(*recordedInner.get());
    innerLine = LastLine("call");
    return S_OK;
  };
  Call(*recorded.get());
  EXPECT_EQ("Suite.Inner", innerLine.at("name"));
  EXPECT_EQ(1, innerLine.at("depth"));
  EXPECT_EQ("Suite.Thing", LastLine("call").at("name"));
  EXPECT_FALSE(LastLine("call").contains("depth"));
}

TEST(RecordedObjectTest, RowsAreCountedUntilTheRelease) {
  CalledObject suite;
  {
    const auto recorded = Recorded(suite);
    std::wstring name = L"MoveNext";
    LPOLESTR names[] = {name.data()};
    DISPID id = 0;
    ASSERT_EQ(S_OK, recorded->GetIDsOfNames(IID_NULL, names, 1, 0, &id));
    Call(*recorded.get());
    EXPECT_EQ("MoveNext", LastLine("call").at("member"));
    suite.onCall = [](const CalledObject::Call& call) {
      SAFEARRAYBOUND bounds[] = {{2, 0}, {5, 0}};
      call.result->vt = VT_ARRAY | VT_VARIANT;
      call.result->parray = SafeArrayCreate(VT_VARIANT, 2, bounds);
      return S_OK;
    };
    Variant result;
    Call(*recorded.get(), nullptr, 0, result.put());
    EXPECT_EQ(5, LastLine("call").at("rows"));
  }
  EXPECT_EQ(6, LastLine("release").at("rows"));
}

TEST(RecordedObjectTest, UnknownNamesAreWritten) {
  CalledObject suite;
  const auto recorded = Recorded(suite);
  std::wstring name = L"Absent";
  LPOLESTR names[] = {name.data()};
  DISPID id = 0;
  EXPECT_EQ(DISP_E_UNKNOWNNAME, recorded->GetIDsOfNames(IID_NULL, names, 1, 0, &id));
  EXPECT_EQ("Absent", LastLine("name").at("member"));
  EXPECT_EQ("0x80020006", LastLine("name").at("failure").at("number"));
}

TEST(RealSuite, AManifestHasOneContextInTheProcess) {
  const testing::TemporaryFolder folder;
  const std::wstring file = PathFromUtf8(folder.PathOf("suite.manifest")).wstring();
  EXPECT_EQ(INVALID_HANDLE_VALUE, ContextOf(file));
  folder.Write("suite.manifest",
               R"(<assembly xmlns="urn:schemas-microsoft-com:asm.v1" manifestVersion="1.0">)"
               R"(<assemblyIdentity type="win32" name="suite" version="1.0.0.0"/></assembly>)");
  const HANDLE context = ContextOf(file);
  EXPECT_NE(INVALID_HANDLE_VALUE, context) << GetLastError();
  EXPECT_EQ(context, ContextOf(file));
}

TEST(RecordedObjectTest, OtherInterfacesAreThoseOfTheObject) {
  CalledObject suite;
  const auto recorded = Recorded(suite);
  EXPECT_FALSE(recorded.As<IDispatchEx>());
  void* none = &suite;
  EXPECT_EQ(E_NOINTERFACE, recorded->QueryInterface(IID_IPersist, &none));
  EXPECT_EQ(nullptr, none);
}

}  // namespace
}  // namespace workbench
