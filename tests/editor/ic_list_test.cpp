// `ICList`: titles, rows, ignored arguments, the shared position.
#include "editor/ic_list.h"

#include "tests/editor/editor_test.h"

namespace pricedown {
namespace {

using namespace pricedown::testing;

class ICListTest : public EditorTest {
 protected:
  ICList list{factory};
};

TEST_F(ICListTest, ReturnsTheTitlesWithTheSameSignAlways) {
  EXPECT_EQ(Utf8(list.FieldTitle()), "物料代码|物料名称|规格型号|");
  EXPECT_EQ(Utf8(list.FieldTitle(u"|")), "物料代码|物料名称|规格型号|");
  EXPECT_EQ(Utf8(list.FieldTitle(u";")), "物料代码|物料名称|规格型号|");
}

TEST_F(ICListTest, ReturnsOneRowPerCallWhateverTheIndex) {
  const Recordset members = Members(RawMaterials(), BoltAndNut());
  members.MoveFirst();
  list.SetRows(members);
  EXPECT_EQ(Utf8(list.FieldData(99, u"|")), "01.001|螺钉|M4|");
  EXPECT_EQ(Utf8(list.FieldData(-1, u"|")), "01.002|螺母||");
  EXPECT_EQ(Utf8(list.FieldData(1, u"|")), "");
  EXPECT_EQ(Utf8(list.FieldData(1, u"|")), "");
}

TEST_F(ICListTest, JoinsARowWithTheSignAskedFor) {
  const Recordset members = Members(RawMaterials(), BoltAndNut());
  members.MoveFirst();
  list.SetRows(members);
  EXPECT_EQ(Utf8(list.FieldData(1, u"; ")), "01.001; 螺钉; M4; ");
  EXPECT_EQ(Utf8(list.FieldData(1)), "01.002螺母");
}

TEST_F(ICListTest, ReadsOnFromTheRecordsetsPosition) {
  const Recordset members = Members(RawMaterials(), BoltAndNut());
  members.MoveFirst();
  list.SetRows(members);
  list.FieldData(1, u"|");
  ICList other(factory);
  other.SetRows(members);
  EXPECT_EQ(Utf8(other.FieldData(1, u"|")), "01.002|螺母||");
}

TEST_F(ICListTest, ReturnsNothingForAnEmptyList) {
  list.SetRows(Members({}, {}));
  EXPECT_EQ(Utf8(list.FieldData(2, u"|")), "");
}

TEST_F(ICListTest, FailsWithoutRows) {
  EXPECT_EQ(ErrorOf([&] { list.FieldData(2, u"|"); }), NumberOf(ErrorNumber::ObjectNotSet));
}

TEST_F(ICListTest, RefreshesFromTheObjectOfTheProgIdAndReturnsFalse) {
  factory.Object(u"Ledger.Service")
      .On(u"GetLdgTitle", Reply::From([this](auto) {
            return NewScriptedRecordset(factory.GetRecorder(), Rows({u"FTitle"}, {}), u"titles");
          }))
      .On(u"GetLdgInfo", Reply::From([this](auto) {
            return NewScriptedRecordset(
                factory.GetRecorder(),
                Rows({u"FNumber", u"FName", u"FModel"}, {{u"1", u"a", u"b"}}), u"info");
          }));
  {
    ICList fresh(factory);
    EXPECT_FALSE(fresh.Refresh(u"dsn", u"Ledger.Service", u"t1"));
    EXPECT_EQ(Utf8(fresh.FieldData(1, u"|")), "1|a|b|");
  }
  EXPECT_EQ(log.Text(), Lines(R"(
      create Ledger.Service
      Ledger.Service.GetLdgTitle("dsn", "t1")
      Ledger.Service.GetLdgInfo("dsn")
      release Ledger.Service
      release info
      release titles
      )"));
}

TEST_F(ICListTest, RefreshFailsWithTheServicesError) {
  factory.Object(u"Ledger.Service").On(u"GetLdgTitle", Reply(nullptr));
  EXPECT_EQ(ErrorOf([&] { list.Refresh(u"dsn", u"Ledger.Service", u"t1"); }),
            NumberOf(ErrorNumber::ObjectNotSet));
  EXPECT_EQ(factory.LiveObjects(), 0);
}

}  // namespace
}  // namespace pricedown
