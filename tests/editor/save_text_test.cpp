// The text of a save: one insert per row, each with the row's own columns.
#include "editor/save.h"

#include "tests/editor/editor_test.h"

namespace pricedown::testing {
namespace {

class SaveTextTest : public EditorTest {
 protected:
  SaveTextTest() {
    state_.openingNumber = u"A1";
    state_.lossAccountId = 1051;
    state_.reserveAccountId = 1023;
    state_.memberList = Members(RawMaterials(), {});
  }
  void AddRow(const Value& id, const ClassHeader& header, const Value& percentage) {
    const Recordset& members = state_.memberList;
    members.AddNew();
    members.SetField(u"FItemID", id);
    members.SetField(u"FItemClassNumber", header.number);
    members.SetField(u"FItemClassName", header.name);
    members.SetField(u"FAPNumber", header.lossAccount);
    members.SetField(u"FARNumber", header.reserveAccount);
    members.SetField(u"FPencentPrepare", percentage);
    members.Update();
  }
  // The differing part of a row: from after "( " to the row's end.
  std::string Rows() {
    if (state_.memberList.RecordCount() > 0) state_.memberList.MoveFirst();
    std::string text = Utf8(SaveText(state_));
    const std::string begin =
        " INSERT INTO icPriceDownClass(FItemID,FItemClassNumber,FItemClassName,FAPAccID,"
        "FAPNumber,FARAccID,FARNumber,FPencentPrepare)VALUES\r\n( ";
    for (std::size_t at = 0; (at = text.find(begin)) != std::string::npos;) {
      text.replace(at, begin.size(), "\n");
    }
    std::erase(text, '\r');
    return text;
  }

  FormState state_;
};

TEST_F(SaveTextTest, WritesTheColumnsOfEachRow) {
  const ClassHeader a{u"A1", u"原材料", u"5711", u"1281.1", 0};
  ClassHeader number = a;
  number.number = u"A2";
  ClassHeader name = a;
  name.name = u"材料";
  ClassHeader loss = a;
  loss.lossAccount = u"";
  ClassHeader reserve = a;
  reserve.reserveAccount = u"1281.10";
  AddRow(1, a, 12.5);
  AddRow(2, a, 12.5);
  AddRow(1000000, number, 12.5);
  AddRow(4, name, 12.5);
  AddRow(5, loss, 12.5);
  AddRow(6, reserve, 12.5);
  AddRow(7, a, 0.0);
  AddRow(8, a, Null{});
  AddRow(Null{}, a, 12.5);
  EXPECT_EQ(Rows(),
            "delete from icPriceDownClass where  FItemClassNumber='A1'\n"
            "1,'A1','原材料',\n1051,'5711',1023,'1281.1',12.5)\n\n"
            "2,'A1','原材料',\n1051,'5711',1023,'1281.1',12.5)\n\n"
            "1000000,'A2','原材料',\n1051,'5711',1023,'1281.1',12.5)\n\n"
            "4,'A1','材料',\n1051,'5711',1023,'1281.1',12.5)\n\n"
            "5,'A1','原材料',\n1051,'',1023,'1281.1',12.5)\n\n"
            "6,'A1','原材料',\n1051,'5711',1023,'1281.10',12.5)\n\n"
            "7,'A1','原材料',\n1051,'5711',1023,'1281.1',0)\n\n"
            "8,'A1','原材料',\n1051,'5711',1023,'1281.1',)\n\n"
            ",'A1','原材料',\n1051,'5711',1023,'1281.1',12.5)\n");
}

// As in a company whose percentage column is text.
TEST_F(SaveTextTest, WritesTextPercentagesUnchanged) {
  std::vector<std::vector<Value>> rows;
  int id = 0;
  for (const std::u16string_view percentage : {u"12.50", u"12.50", u"7", u""}) {
    rows.push_back({++id, u"A1", u"原材料", u"5711", u"1281.1", percentage});
  }
  state_.memberList = Recordset(NewScriptedRecordset(
      factory.GetRecorder(), testing::Rows({u"FItemID", u"FItemClassNumber", u"FItemClassName",
                                            u"FAPNumber", u"FARNumber", u"FPencentPrepare"},
                                           std::move(rows))));
  EXPECT_EQ(Rows(),
            "delete from icPriceDownClass where  FItemClassNumber='A1'\n"
            "1,'A1','原材料',\n1051,'5711',1023,'1281.1',12.50)\n\n"
            "2,'A1','原材料',\n1051,'5711',1023,'1281.1',12.50)\n\n"
            "3,'A1','原材料',\n1051,'5711',1023,'1281.1',7)\n\n"
            "4,'A1','原材料',\n1051,'5711',1023,'1281.1',)\n");
}

TEST_F(SaveTextTest, IsOnlyTheDeleteWithoutRows) {
  EXPECT_EQ(Rows(), "delete from icPriceDownClass where  FItemClassNumber='A1'");
}

TEST_F(SaveTextTest, BeginsAtTheCurrentRowOfTheList) {
  const ClassHeader a{u"A1", u"原材料", u"5711", u"1281.1", 0};
  AddRow(1, a, 12.5);
  AddRow(2, a, 12.5);
  state_.memberList.MoveFirst();
  state_.memberList.MoveNext();
  const std::string text = Utf8(SaveText(state_));
  EXPECT_EQ(text.find("( 1,"), std::string::npos);
  EXPECT_NE(text.find("( 2,"), std::string::npos);
}

}  // namespace
}  // namespace pricedown::testing
