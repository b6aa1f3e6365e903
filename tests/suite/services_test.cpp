// The suite's services by ProgID and member name, on a company of the test.
#include "workbench/suite/services.h"

#include <memory>
#include <vector>

#include <gtest/gtest.h>
#include <sqlite3.h>

#include "platform/convert.h"
#include "platform/error.h"
#include "tests/suite/suite_fixture.h"
#include "tests/support/memory_block.h"
#include "tests/support/utf8.h"
#include "workbench/suite/calendar.h"

namespace workbench {
namespace {

using pricedown::AutomationError;
using pricedown::ObjectPtr;
using pricedown::Value;
using pricedown::testing::Readable;
using pricedown::testing::Utf8;

class Services : public SuiteFixture {};

TEST_F(Services, FactoryKnowsProgIdsInAnyCaseAndNamesUnknownOnes) {
  EXPECT_NE(nullptr, Create(u"zepconnection.APPCONNECTION"));
  try {
    Create(u"No.Such");
    FAIL() << "an unknown ProgID was made";
  } catch (const AutomationError& error) {
    EXPECT_EQ("无法创建对象“No.Such”。", Utf8(error.Description()));
  }
}

TEST_F(Services, ExecuteWithoutACompanyFailsWithAClearText) {
  suite_->company.reset();
  try {
    Create(u"ZEPConnection.AppConnection")
        ->Call(u"Execute", {u"select FValue from t_systemprofile"});
    FAIL() << "there is no company";
  } catch (const AutomationError& error) {
    EXPECT_EQ("没有打开公司数据库。", Utf8(error.Description()));
  }
}

TEST_F(Services, OpeningABadCompanyKeepsThePreviousOne) {
  suite_->SetProfile(u"IC", u"CurrentYear", u"2008");
  EXPECT_THROW(suite_->OpenCompany(u"/no/such/company.db"), AutomationError);
  EXPECT_EQ("\"2008\"", Readable(suite_->Profile(u"IC", u"CurrentYear")));
}

TEST_F(Services, SystemProfileIgnoresCaseAndReturnsEmptyForMissingSettings) {
  suite_->SetProfile(u"IC", u"CurrentYear", u"2008");
  const ObjectPtr profile = Create(u"ZEPEBSBase.SystemProfile");
  EXPECT_EQ("\"2008\"", Readable(profile->Call(u"GetProfile", {u"", u"ic", u"currentyear"})));
  EXPECT_EQ("Empty", Readable(profile->Call(u"GetProfile", {u"", u"IC", u"Absent"})));
}

TEST_F(Services, SharedPropertiesArriveInTheReference) {
  suite_->userId = 42;
  suite_->language = u"cht";
  const ObjectPtr properties = Create(u"ZEPPropsMgr.ShareProps");
  Value answer;
  properties->Call(u"GetProperty", {u"UserID", Value::ByReference(answer)});
  EXPECT_EQ("42", Readable(answer));
  properties->Call(u"GetProperty", {u"PropsString", Value::ByReference(answer)});
  EXPECT_EQ("\"ConnectString={Workbench};UserName=workbench;UserID=42;LANGUAGE=cht\"",
            Readable(answer));
  properties->Call(u"GetProperty", {u"Absent", Value::ByReference(answer)});
  EXPECT_EQ("Empty", Readable(answer));
}

TEST_F(Services, AccessIsGrantedOnlyForEveryBitOfTheMask) {
  suite_->SetRightsMask(1002, 35, 0x28000);
  const ObjectPtr data = Create(u"ZEPEBCGLView.GLData");
  const auto granted = [&](std::int32_t mask) {
    return Readable(data->Call(u"AccessCheck", {std::int32_t{1002}, std::int32_t{35}, mask}));
  };
  EXPECT_EQ("True", granted(0x20000));
  EXPECT_EQ("True", granted(0x28000));
  EXPECT_EQ("False", granted(0x30000));
  suite_->userId = 2;
  EXPECT_EQ("False", granted(0x20000));
}

TEST_F(Services, DictionaryCopiesARowThatTheCallerOwns) {
  const auto block = std::make_shared<pricedown::testing::MemoryBlock>(
      2, std::vector<std::vector<Value>>{{u"01", 5}});
  const ObjectPtr dictionary = Create(u"ZEPEBCBASE.Dictionary");
  dictionary->Call(u"Add", {u"added", Value(pricedown::BlockRow{block, 0})});
  dictionary->PutIndexed({}, u"set", Value(pricedown::BlockRow{block, 0}));
  EXPECT_EQ(block.use_count(), 1);
  for (const char16_t* key : {u"added", u"set"}) {
    EXPECT_EQ(Readable(dictionary->Call(u"GetValue", {key, u""})), R"(["01", 5])");
  }
}

TEST_F(Services, UserProfileKeepsValuesPerUserApplicationAndSection) {
  const auto save = [&](const char16_t* application, const char16_t* value) {
    const ObjectPtr profile = Create(u"ZEPEBCBASE.UserProfile");
    profile->Call(u"Load", {application, u"PriceDown"});
    profile->Get(u"Dictionary").Object()->PutIndexed({}, u"NodeSel1", value);
    profile->Call(u"Save", {application, u"PriceDown"});
  };
  const auto read = [&](const char16_t* application, const char16_t* section) {
    const ObjectPtr profile = Create(u"ZEPEBCBASE.UserProfile");
    profile->Call(u"Load", {application, section});
    const Value answer =
        profile->Get(u"Dictionary").Object()->Call(u"GetValue", {u"nodesel1", u"gc0"});
    return Readable(answer);
  };
  save(u"Host", u"gi'01'");
  save(u"Other", u"gi02");
  EXPECT_EQ("\"gi'01'\"", read(u"Host", u"PriceDown"));
  EXPECT_EQ("\"gi02\"", read(u"Other", u"PriceDown"));
  EXPECT_EQ("\"gc0\"", read(u"Host", u"Elsewhere"));
  suite_->userId = 2;
  EXPECT_EQ("\"gc0\"", read(u"Host", u"PriceDown"));
}

TEST_F(Services, CalendarReturnsTheFirstDayOfAPeriod) {
  const ObjectPtr info = Create(u"ZEPCBSSystemData.AisInfo");
  info->Put(u"PropsString", u"LANGUAGE=chs");
  EXPECT_EQ("12", Readable(info->Get(u"CBGetPeriodCount")));
  const auto date = [&](std::int32_t year, std::int32_t period) {
    return Utf8(pricedown::ToText(info->Call(u"GetPeriodDate", {year, period})));
  };
  EXPECT_EQ("2008-03-01", date(2008, 3));
  EXPECT_EQ("2009-01-01", date(2009, 1));
  EXPECT_THROW(date(2008, 13), AutomationError);
  EXPECT_THROW(date(2008, 0), AutomationError);
}

TEST_F(Services, CalendarFollowsTheCompanysNumberOfPeriods) {
  suite_->SetProfile(u"General", u"PeriodCount", u"13");
  const ObjectPtr info = Create(u"ZEPCBSSystemData.AisInfo");
  EXPECT_EQ("13", Readable(info->Get(u"CBGetPeriodCount")));
  EXPECT_EQ(
      "2007-01-29",
      Utf8(pricedown::ToText(info->Call(u"GetPeriodDate", {std::int32_t{2007}, std::int32_t{2}}))));
}

TEST_F(Services, TitleFontDependsOnTheLanguage) {
  const ObjectPtr loader = Create(u"ZEPFrmRes.FrmResLoader");
  const auto font = [&](const char16_t* language, const char16_t* key) {
    return Readable(loader->Call(u"GetQ7FontProps", {language}).Object()->Call({}, {key}));
  };
  EXPECT_EQ("\"宋体\"", font(u"chs", u"Font.Name"));
  EXPECT_EQ("134", font(u"chs", u"Font.Charset"));
  EXPECT_EQ("136", font(u"cht", u"Font.Charset"));
  EXPECT_EQ("\"Tahoma\"", font(u"en", u"Font.Name"));
}

TEST_F(Services, SettingsSwitchTheVoucherOfTheCurrentPeriod) {
  const ObjectPtr settings = Create(u"ZEPWorkbench.Settings");
  settings->Put(u"CurrentYear", u"2008");
  settings->Put(u"CurrentPeriod", u"3");
  EXPECT_EQ("False", Readable(settings->Get(u"VoucherPresent")));
  settings->Put(u"VoucherPresent", true);
  settings->Put(u"VoucherPresent", true);
  EXPECT_EQ("1", Readable(Query(u"select count(*) from t_voucher where FYear='2008'and FPeriod='3'"
                                u"and FTranType=820 and FInternalInd='Industry'")));
  settings->Put(u"CurrentPeriod", u"4");
  EXPECT_EQ("False", Readable(settings->Get(u"VoucherPresent")));
  settings->Put(u"CurrentPeriod", u"3");
  settings->Put(u"VoucherPresent", false);
  EXPECT_EQ("0", Readable(Query(u"select count(*) from t_voucher")));
}

TEST_F(Services, SettingsShowTheLocationOfTheCompanyThatIsOpen) {
  const ObjectPtr settings = Create(u"ZEPWorkbench.Settings");
  const std::u16string path = pricedown::FromUtf8(path_);
  settings->Call(u"Open", {path});
  EXPECT_THROW(settings->Call(u"Open", {u"/no/such/company.db"}), AutomationError);
  EXPECT_EQ(path, pricedown::ToText(settings->Get(u"Location")));
  EXPECT_EQ("\"1\"", Readable(Query(u"select '1' as a"))) << "the company before stays open";
  settings->Call(u"Close", {});
  EXPECT_EQ(u"", pricedown::ToText(settings->Get(u"Location")));
}

TEST_F(Services, SettingsOpenACompanyInTwoSteps) {
  const ObjectPtr settings = Create(u"ZEPWorkbench.Settings");
  const std::u16string path = pricedown::FromUtf8(path_);
  EXPECT_THROW(settings->Call(u"OpenConnected"), AutomationError);
  settings->Call(u"Open", {path});
  suite_->Execute(u"INSERT INTO t_user(FUserID,FName)VALUES(2,'王芳')");
  settings->Put(u"UserID", std::int32_t{2});
  const std::u16string second = path + u"2";
  std::filesystem::copy_file(path_, path_ + "2");
  settings->Call(u"Connect", {second});
  EXPECT_EQ(path, pricedown::ToText(settings->Get(u"Location")));
  EXPECT_EQ("2", Readable(settings->Get(u"UserID")));
  EXPECT_EQ("1", Readable(Query(u"select count(*) from t_user")));
  settings->Call(u"OpenConnected");
  EXPECT_EQ(second, pricedown::ToText(settings->Get(u"Location")));
  EXPECT_THROW(settings->Call(u"OpenConnected"), AutomationError) << "opened already";
  EXPECT_THROW(settings->Call(u"Connect", {u"/no/such/company.db"}), AutomationError);
  EXPECT_EQ(second, pricedown::ToText(settings->Get(u"Location")));
  settings->Call(u"Connect", {path});
  settings->Call(u"Close");
  EXPECT_THROW(settings->Call(u"OpenConnected"), AutomationError) << "closed";
}

TEST_F(Services, SettingsRefuseAUserWithoutACompany) {
  const ObjectPtr settings = Create(u"ZEPWorkbench.Settings");
  suite_->Execute(u"INSERT INTO t_user(FUserID,FName)VALUES(2,'王芳')");
  settings->Call(u"Close", {});
  EXPECT_THROW(settings->Put(u"UserID", std::int32_t{2}), AutomationError);
  EXPECT_EQ("1", Readable(settings->Get(u"UserID")));
}

TEST_F(Services, SettingsKeepTheUserOnlyInACompanyThatHasIt) {
  const ObjectPtr settings = Create(u"ZEPWorkbench.Settings");
  const std::u16string path = pricedown::FromUtf8(path_);
  suite_->Execute(u"INSERT INTO t_user(FUserID,FName)VALUES(2,'王芳')");
  settings->Put(u"UserID", std::int32_t{2});
  settings->Call(u"Open", {path});
  EXPECT_EQ("2", Readable(settings->Get(u"UserID")));
  suite_->Execute(u"DELETE FROM t_user");
  settings->Call(u"Open", {path});
  EXPECT_EQ("1", Readable(settings->Get(u"UserID")));
}

TEST_F(Services, SettingsRefuseAUserThatTheCompanyDoesNotHave) {
  const ObjectPtr settings = Create(u"ZEPWorkbench.Settings");
  suite_->Execute(u"INSERT INTO t_user(FUserID,FName)VALUES(2,'王芳')");
  settings->Put(u"UserID", std::int32_t{2});
  try {
    settings->Put(u"UserID", std::int32_t{99});
    ADD_FAILURE() << "99 was taken";
  } catch (const AutomationError& error) {
    EXPECT_EQ("公司中没有编号为 99 的用户。", Utf8(error.Description()));
  }
  EXPECT_EQ("2", Readable(settings->Get(u"UserID")));
}

TEST_F(Services, RestoresAUserWithoutAskingTheCompany) {
  const ObjectPtr settings = Create(u"ZEPWorkbench.Settings");
  suite_->Execute(
      u"INSERT INTO t_user(FUserID,FName)VALUES(2,'王芳')"
      u" INSERT INTO t_user(FUserID,FName)VALUES(3,'李强')");
  settings->Put(u"UserID", std::int32_t{2});
  settings->Put(u"UserID", std::int32_t{3});
  sqlite3* other = nullptr;
  ASSERT_EQ(SQLITE_OK, sqlite3_open(path_.c_str(), &other));
  EXPECT_EQ(SQLITE_OK, sqlite3_exec(other, "DROP TABLE t_user", nullptr, nullptr, nullptr));
  sqlite3_close(other);
  for (const std::int32_t user : {3, 1, 2, 3}) {
    settings->Put(u"UserID", user);
    EXPECT_EQ(std::to_string(user), Readable(settings->Get(u"UserID")));
  }
  EXPECT_THROW(settings->Put(u"UserID", std::int32_t{4}), AutomationError);
}

TEST_F(Services, SettingsOfATransactionAreStoredTogetherOrNotAtAll) {
  const ObjectPtr settings = Create(u"ZEPWorkbench.Settings");
  settings->Put(u"CurrentYear", u"2008");
  settings->Call(u"Begin", {});
  settings->Put(u"CurrentYear", u"2009");
  settings->Put(u"UseShortNumber", u"1");
  settings->Call(u"Rollback", {});
  EXPECT_EQ("\"2008\"", Readable(settings->Get(u"CurrentYear")));
  EXPECT_EQ("Null", Readable(settings->Get(u"UseShortNumber")));
  settings->Call(u"Begin", {});
  settings->Put(u"CurrentYear", u"2010");
  settings->Call(u"Commit", {});
  settings->Call(u"Rollback", {});
  EXPECT_EQ("\"2010\"", Readable(settings->Get(u"CurrentYear")));
}

TEST_F(Services, SettingsRefuseANegativeTimeout) {
  const ObjectPtr settings = Create(u"ZEPWorkbench.Settings");
  EXPECT_EQ("15", Readable(settings->Get(u"LoginTimeout")));
  EXPECT_EQ("60", Readable(settings->Get(u"StatementTimeout")));
  settings->Put(u"StatementTimeout", std::int32_t{5});
  EXPECT_THROW(settings->Put(u"StatementTimeout", std::int32_t{-1}), AutomationError);
  EXPECT_EQ(5, suite_->options.statementTimeout.count());
}

TEST_F(Services, RightsMayBeKeptAsDecimalNumbers) {
  suite_->Execute(
      u"INSERT INTO t_UserRight(FUserID,FObjectType,FObjectID,FAccessMask)"
      u"VALUES(1,10,151,4194304.0)");
  EXPECT_EQ(4194304, suite_->RightsMask(10, 151));
}

TEST_F(Services, SettingsListUsers) {
  suite_->Execute(
      u"INSERT INTO t_user(FUserID,FName)VALUES(2,'王芳;3=\n李')"
      u" INSERT INTO t_user(FUserID,FName)VALUES(1,'管理员')");
  EXPECT_EQ("\"1=管理员\\n2=王芳;3= 李\"",
            Readable(Create(u"ZEPWorkbench.Settings")->Get(u"Users")));
}

}  // namespace
}  // namespace workbench
