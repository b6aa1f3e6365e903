// The built WorkbenchSuite.dll, loaded by its file: its look-ups show the pickers and answer
// through automation.
#include <windows.h>

#include <gtest/gtest.h>
#include <oaidl.h>

#include "platform/error.h"
#include "tests/pickers/picker_company.h"
#include "tests/support/utf8.h"
#include "tests/windows/pickers/picker_user.h"
#include "windows/com/com_object.h"
#include "windows/com/com_ptr.h"
#include "windows/com/wide_text.h"
#include "workbench/pickers/picker_ids.h"
#include "workbench/suite/com/class_ids.h"
#include "workbench/suite/suite_factory.h"

namespace workbench::testing {
namespace {

namespace ids = picker_ids;
using pricedown::Missing;
using pricedown::ObjectPtr;
using pricedown::Value;
using pricedown::testing::Readable;
using pricedown::windows::ComPtr;

class BuiltSuite : public ::testing::Test {
 protected:
  // The DLL stays loaded; each test opens its own company.
  BuiltSuite() {
    company_.AddItem(900001, u"99.01", u"衬板", u"M8");
    company_.AddItem(900002, u"99.02", u"衬套", u"M10");
    Create(u"ZEPWorkbench.Settings")->Call(u"Open", {Utf16FromUtf8(company_.Path())});
  }
  ~BuiltSuite() override { Create(u"ZEPWorkbench.Settings")->Call(u"Close", {}); }

  ObjectPtr Create(std::u16string_view progId) const {
    using GetClassObject = HRESULT(STDAPICALLTYPE*)(REFCLSID, REFIID, void**);
    static const HMODULE module = LoadLibraryW(L"WorkbenchSuite.dll");
    const auto entry = reinterpret_cast<GetClassObject>(
        reinterpret_cast<void*>(GetProcAddress(module, "DllGetClassObject")));
    const auto classes = SuiteClasses();
    for (std::size_t i = 0; i < classes.size(); ++i) {
      if (classes[i].progId != progId) continue;
      ComPtr<IClassFactory> factory;
      ComPtr<IDispatch> object;
      if (SUCCEEDED(entry(kSuiteClassIds[i], IID_IClassFactory, factory.putVoid())) &&
          SUCCEEDED(factory->CreateInstance(nullptr, IID_IDispatch, object.putVoid()))) {
        return std::make_shared<pricedown::windows::ComObject>(std::move(object));
      }
    }
    throw std::runtime_error("no such class");
  }

  ObjectPtr LookUpItems(std::u16string_view condition) {
    Value parameters = Create(u"ZEPEBCBASE.Dictionary");
    parameters.Object()->Call(u"Add", {u"Multislt", std::int16_t{1}});
    return Create(u"ZEPEBCGLView.GLView")
        ->Call(u"ItemLookUp",
               {std::int32_t{4}, Missing{}, condition, Value::ByReference(parameters)})
        .Object();
  }

  PickerCompany company_;
  OwnerWindow owner_;
  PickerUser user_;
};

TEST_F(BuiltSuite, ItemLookupShowsThePickerAndAnswersTheChosenItems) {
  user_.Await(ids::kFound, u"共 2 种物料").Press(VK_TAB).PressWithControl('A').Press(VK_RETURN);
  const ObjectPtr result = LookUpItems(u"x2.FItemID>900000");
  EXPECT_EQ("True", Readable(result->Get(u"ReturnOK")));
  EXPECT_EQ("\"\"", Readable(result->Get(u"ReturnValue")));
  const ObjectPtr items = result->Get(u"ReturnObject").Object();
  EXPECT_EQ("2", Readable(items->Get(u"Size")));
  const ObjectPtr second = items->Call(u"Item", {std::int32_t{2}}).Object();
  EXPECT_EQ("\"衬套\"", Readable(second->Call(u"Properties", {u"FName"})));
}

TEST_F(BuiltSuite, AccountLookupShowsThePickerAndAnswersTheAccount) {
  user_
      .Then([this] {
        EXPECT_EQ("1471", user_.Text(ids::kSearch));
        EXPECT_EQ(owner_.Handle(), GetWindow(user_.Dialog(), GW_OWNER));
      })
      .Press(VK_RETURN);
  const ObjectPtr result =
      Create(u"ZEPEBCGLView.GLView")->Call(u"AccountLookup", {u"1471"}).Object();
  EXPECT_EQ("\"1471\"", Readable(result->Get(u"ReturnObject").Object()->Get(u"Number")));
}

TEST_F(BuiltSuite, CancelledLookupIsNotConfirmed) {
  user_.Press(VK_ESCAPE);
  EXPECT_EQ("False", Readable(LookUpItems(u"")->Get(u"ReturnOK")));
}

TEST_F(BuiltSuite, QueuedAnswerShowsNoWindow) {
  Create(u"ZEPWorkbench.Settings")->Call(u"QueueItems", {u"900002"});
  EXPECT_EQ("\"99.02\"", Readable(LookUpItems(u"")->Get(u"ReturnValue")));
  EXPECT_FALSE(user_.SawWindow());
}

TEST_F(BuiltSuite, RefusedConditionReturnsTheDatabasesErrorText) {
  try {
    LookUpItems(u"x2.FNoSuch=1");
    ADD_FAILURE() << "accepted";
  } catch (const pricedown::AutomationError& error) {
    EXPECT_NE(std::string::npos, std::string(error.what()).find("列名 'FNoSuch' 无效"))
        << error.what();
  }
  EXPECT_FALSE(user_.SawWindow());
}

}  // namespace
}  // namespace workbench::testing
