// The suite's lookups, answered from a queue as in programs without a user.
#include "workbench/suite/lookups.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <utility>

#include "platform/convert.h"
#include "platform/error.h"
#include "platform/text.h"
#include "tests/suite/suite_fixture.h"
#include "tests/support/utf8.h"

namespace workbench {
namespace {

using pricedown::AutomationError;
using pricedown::Concatenate;
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

// An empty ReturnValue would say that several were chosen.
TEST_F(Lookups, OneChosenItemWithoutACodeIsReturnedAsOne) {
  suite_->Execute(
      u"INSERT INTO t_ICItem(FItemID,FNumber,FShortNumber,FName,FModel,FErpClsID)"
      u"VALUES(16,'','','散料',NULL,1)"
      u" INSERT INTO t_ICItem(FItemID,FNumber,FShortNumber,FName,FModel,FErpClsID)"
      u"VALUES(17,NULL,NULL,'废料',NULL,1)");
  for (const auto& [id, name] : {std::pair{u"16", "散料"}, std::pair{u"17", "废料"}}) {
    settings_->Call(u"QueueItems", {id});
    const ObjectPtr result = LookUpItems(Parameters());
    EXPECT_EQ("True", Readable(result->Get(u"ReturnOK")));
    EXPECT_EQ("\"" + pricedown::ToUtf8(id) + "\"", Readable(result->Get(u"ReturnValue")));
    const ObjectPtr item = result->Get(u"ReturnObject").Object();
    EXPECT_EQ("\"" + std::string(name) + "\"", Readable(item->Call(u"Properties", {u"FName"})));
  }
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

TEST_F(Lookups, QueuedEmptyTextIsACancelledLookup) {
  settings_->Call(u"QueueAccount", {u""});
  settings_->Call(u"QueueAccount", {u"1471"});
  const auto confirmed = [&] {
    return Readable(view_->Call(u"AccountLookup", {u""}).Object()->Get(u"ReturnOK"));
  };
  EXPECT_EQ("False", confirmed());
  EXPECT_EQ("True", confirmed());
}

// Forwards calls to the company, and queries the company itself.
class AskingPickers : public Pickers {
 public:
  std::optional<std::u16string> PickAccount(Connection&, std::u16string_view text) override {
    asked = text;
    return std::nullopt;
  }
  std::optional<std::vector<std::int32_t>> PickItems(Connection& company,
                                                     std::u16string_view condition,
                                                     bool several) override {
    asked = Concatenate({condition, several ? u" several" : u" one"});
    if (whileAsked) whileAsked();
    const ResultSet rows =
        company.Execute(Concatenate({u"SELECT x2.FItemID FROM t_ICItem x2 WHERE ", condition}));
    std::vector<std::int32_t> ids;
    for (std::size_t row = 0; row < rows.RowCount(); ++row) {
      ids.push_back(static_cast<std::int32_t>(rows.At(row, 0).Integer()));
    }
    return ids;
  }

  std::u16string asked;
  std::function<void()> whileAsked;
};

class AskedLookups : public Lookups {
 protected:
  AskedLookups() {
    auto pickers = std::make_unique<AskingPickers>();
    asking_ = pickers.get();
    suite_->pickers = std::make_unique<QueuedPickers>(std::move(pickers));
  }

  ObjectPtr LookUpUnder(std::u16string_view condition, Value parameters) {
    return view_
        ->Call(u"ItemLookUp",
               {std::int32_t{4}, Missing{}, condition, Value::ByReference(parameters)})
        .Object();
  }

  AskingPickers* asking_;
};

TEST_F(AskedLookups, PickersAreShownWhenTheQueueIsEmpty) {
  view_->Call(u"AccountLookup", {u"14"});
  EXPECT_EQ("14", pricedown::ToUtf8(asking_->asked));
  EXPECT_EQ("True",
            Readable(LookUpUnder(u"x2.FItemid not in(12)", Parameters())->Get(u"ReturnOK")));
  EXPECT_EQ("x2.FItemid not in(12) several", pricedown::ToUtf8(asking_->asked));
}

TEST_F(AskedLookups, PickersGoOnWithACompanyThatIsClosedMeanwhile) {
  asking_->whileAsked = [this] { settings_->Call(u"Close"); };
  EXPECT_THROW(LookUpUnder(u"x2.FItemid>0", Parameters()), AutomationError);
  EXPECT_EQ(u"x2.FItemid>0 several", asking_->asked);
}

TEST_F(AskedLookups, QueuedAnswersComeBeforeTheOtherPickers) {
  settings_->Call(u"QueueItems", {u""});
  EXPECT_EQ("False", Readable(LookUpUnder(u"x2.FItemid>0", Parameters())->Get(u"ReturnOK")));
  EXPECT_EQ("", pricedown::ToUtf8(asking_->asked));
}

TEST_F(AskedLookups, OneItemIsRequestedUnlessSeveralAreAllowed) {
  LookUpUnder(u"x2.FItemid=12", Value());
  EXPECT_EQ("x2.FItemid=12 one", pricedown::ToUtf8(asking_->asked));
}

TEST_F(AskedLookups, RefusedConditionReturnsTheDatabasesErrorText) {
  try {
    LookUpUnder(u"x2.FNoSuch=1", Parameters());
    ADD_FAILURE() << "accepted";
  } catch (const AutomationError& error) {
    EXPECT_NE(std::string::npos, std::string(error.what()).find("列名 'FNoSuch' 无效"))
        << error.what();
    EXPECT_EQ("ZEPEBCGLView.GLView", pricedown::ToUtf8(error.Source()));
  }
}

TEST_F(AskedLookups, ManyChosenItemsKeepTheirOrder) {
  std::u16string inserts;
  std::vector<std::int32_t> ids;
  for (std::int32_t id = 2100; id > 100; --id) {
    const std::u16string number = pricedown::NumberText(id);
    inserts += Concatenate({u"INSERT INTO t_ICItem(FItemID,FNumber,FErpClsID)VALUES(", number,
                            u",'", number, u"',1) "});
    ids.push_back(id);
  }
  suite_->Execute(inserts);
  dynamic_cast<QueuedPickers&>(*suite_->pickers).items.push_back(ids);
  const ObjectPtr items = LookUpUnder(u"", Parameters())->Get(u"ReturnObject").Object();
  ASSERT_EQ("2000", Readable(items->Get(u"Size")));
  for (const std::int32_t number : {1, 500, 501, 2000}) {
    const ObjectPtr item = items->Call({}, {number}).Object();
    EXPECT_EQ(Readable(Value(2101 - number)), Readable(item->Call(u"Properties", {u"FItemID"})));
  }
}

TEST_F(Lookups, ItemLookupRefusesOtherBaseData) {
  Value parameters = Parameters();
  EXPECT_THROW(
      view_->Call(u"ItemLookUp", {std::int32_t{5}, Missing{}, u"", Value::ByReference(parameters)}),
      AutomationError);
}

}  // namespace
}  // namespace workbench
