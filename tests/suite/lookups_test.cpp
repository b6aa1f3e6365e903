// The suite's lookups, answered from the queue as programs without a user do.
// The dialogs of a host are not here.
#include "workbench/suite/lookups.h"

#include <gtest/gtest.h>

#include "platform/error.h"
#include "tests/suite/suite_fixture.h"
#include "tests/support/utf8.h"

namespace workbench {
namespace {

using pricedown::AutomationError;
using pricedown::Missing;
using pricedown::ObjectPtr;
using pricedown::Value;
using pricedown::testing::Readable;

class Lookups : public SuiteFixture {
 protected:
  Lookups() {
    suite_->Execute(
        u"INSERT INTO t_ICItem(FItemID,FNumber,FShortNumber,FName,FModel,FErpClsID)"
        u"VALUES(12,'01.01','01','钢板',NULL,1)"
        u" INSERT INTO t_ICItem(FItemID,FNumber,FShortNumber,FName,FModel,FErpClsID)"
        u"VALUES(15,'01.02','02','铜线','2.5mm',1)"
        u" INSERT INTO t_account(FAccountID,FNumber,FName,FLevel,FParentID,FDetail,FDC)"
        u"VALUES(5,'1471','存货跌价准备',1,0,1,-1)");
  }

  ObjectPtr LookUpItems(Value parameters) {
    return view_
        ->Call(u"ItemLookUp", {std::int32_t{4}, Missing{}, u"", Value::ByReference(parameters)})
        .Object();
  }

  ObjectPtr Parameters() {
    const ObjectPtr parameters = Create(u"ZEPEBCBASE.Dictionary");
    parameters->Call(u"Add", {u"Multislt", std::int16_t{1}});
    return parameters;
  }

  ObjectPtr settings_ = Create(u"ZEPWorkbench.Settings");
  ObjectPtr view_ = Create(u"ZEPEBCGLView.GLView");
};

TEST_F(Lookups, CancelledAccountLookupHasNoObject) {
  const ObjectPtr result = view_->Call(u"AccountLookup", {u"14"}).Object();
  EXPECT_EQ("Empty", Readable(result->Get(u"ReturnObject")));
  EXPECT_EQ("False", Readable(result->Get(u"ReturnOK")));
}

TEST_F(Lookups, ChosenAccountHasItsNumberAndName) {
  settings_->Call(u"QueueAccount", {u"1471"});
  const ObjectPtr account =
      view_->Call(u"AccountLookup", {u""}).Object()->Get(u"ReturnObject").Object();
  EXPECT_EQ("\"1471\"", Readable(account->Get(u"Number")));
  EXPECT_EQ("\"存货跌价准备\"", Readable(account->Get(u"Name")));
}

TEST_F(Lookups, OneChosenItemIsTheObjectItself) {
  settings_->Call(u"QueueItems", {u"12"});
  const ObjectPtr result = LookUpItems(Parameters());
  EXPECT_EQ("True", Readable(result->Get(u"ReturnOK")));
  EXPECT_EQ("\"01.01\"", Readable(result->Get(u"ReturnValue")));
  const ObjectPtr item = result->Get(u"ReturnObject").Object();
  EXPECT_EQ("12", Readable(item->Call(u"Properties", {u"FItemID"})));
  EXPECT_EQ("Null", Readable(item->Call(u"Properties", {u"FModel"})));
}

TEST_F(Lookups, SeveralChosenItemsAreACollectionFromOne) {
  settings_->Call(u"QueueItems", {u"15,12"});
  const ObjectPtr result = LookUpItems(Parameters());
  EXPECT_EQ("\"\"", Readable(result->Get(u"ReturnValue")));
  const ObjectPtr items = result->Get(u"ReturnObject").Object();
  EXPECT_EQ("2", Readable(items->Get(u"Size")));
  const ObjectPtr first = items->Call({}, {std::int32_t{1}}).Object();
  EXPECT_EQ("\"铜线\"", Readable(first->Call(u"Properties", {u"FName"})));
  EXPECT_THROW(items->Call({}, {std::int32_t{3}}), AutomationError);
}

TEST_F(Lookups, CancelledItemLookupIsNotConfirmed) {
  EXPECT_EQ("False", Readable(LookUpItems(Parameters())->Get(u"ReturnOK")));
}

TEST_F(Lookups, ItemLookupRefusesOtherBaseData) {
  Value parameters = Parameters();
  EXPECT_THROW(
      view_->Call(u"ItemLookUp", {std::int32_t{5}, Missing{}, u"", Value::ByReference(parameters)}),
      AutomationError);
}

}  // namespace
}  // namespace workbench
