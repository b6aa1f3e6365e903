// Texts of the member list: reading, searching, copying.
#include "editor/member_rows.h"

#include "tests/editor/editor_test.h"

namespace pricedown {
namespace {

using namespace pricedown::testing;

class MemberRowsTest : public EditorTest {
 protected:
  MemberRows Read(const std::vector<MemberItem>& items) {
    const Recordset members = Members(RawMaterials(), items);
    if (!items.empty()) members.MoveFirst();
    MemberRows rows;
    rows.SetCount(static_cast<std::int32_t>(items.size()) + 1);
    rows.Read(members);
    return rows;
  }
  static std::string Text(const MemberRows& rows, std::int32_t column, std::int32_t row) {
    return Utf8(std::u16string(rows.Text(column, row)));
  }
};

TEST_F(MemberRowsTest, HoldTheTitlesAndOneRowPerItem) {
  const MemberRows rows = Read(BoltAndNut());
  EXPECT_EQ(rows.Items(), 2);
  EXPECT_EQ(Text(rows, member_columns::kCode, 1), "物料代码");
  EXPECT_EQ(Text(rows, member_columns::kName, 1), "物料名称");
  EXPECT_EQ(Text(rows, member_columns::kModel, 1), "规格型号");
  EXPECT_EQ(Text(rows, member_columns::kCode, 2), "01.001");
  EXPECT_EQ(Text(rows, member_columns::kName, 3), "螺母");
  EXPECT_EQ(Text(rows, member_columns::kModel, 3), "") << "a null model";
}

TEST_F(MemberRowsTest, HoldTheTitlesAloneForAnEmptyList) {
  const MemberRows rows = Read({});
  EXPECT_EQ(rows.Items(), 0);
  EXPECT_EQ(Text(rows, member_columns::kCode, 1), "物料代码");
}

TEST_F(MemberRowsTest, KeepACellWholeWithAnyContent) {
  const MemberRows rows = Read({{7, u"01|7", u"a|b|", u"|"}});
  EXPECT_EQ(Text(rows, member_columns::kCode, 2), "01|7");
  EXPECT_EQ(Text(rows, member_columns::kName, 2), "a|b|");
  EXPECT_EQ(Text(rows, member_columns::kModel, 2), "|");
}

TEST_F(MemberRowsTest, AreEmptyBesideTheirColumnsAndRows) {
  const MemberRows rows = Read(BoltAndNut());
  for (const auto& [column, row] : {std::pair{0, 2}, {4, 2}, {1, 0}, {1, 4}, {1, -1}}) {
    EXPECT_EQ(Text(rows, column, row), "") << column << " " << row;
  }
}

TEST_F(MemberRowsTest, AreReadFromTheRecordsetsCurrentRow) {
  const Recordset members = Members(RawMaterials(), BoltAndNut());
  members.MoveFirst();
  members.MoveNext();
  MemberRows rows;
  rows.SetCount(3);
  rows.Read(members);
  EXPECT_EQ(rows.Items(), 1);
  EXPECT_EQ(Text(rows, member_columns::kCode, 2), "01.002");
  EXPECT_EQ(rows.Count(), 3) << "the count stays";
}

TEST_F(MemberRowsTest, AreNeverMoreThanCounted) {
  const Recordset members = Members(RawMaterials(), BoltAndNut());
  members.MoveFirst();
  MemberRows rows;
  rows.SetCount(2);
  rows.Read(members);
  EXPECT_EQ(rows.Items(), 1);
}

TEST_F(MemberRowsTest, AreDueUntilTheyAreRead) {
  MemberRows rows = Read(BoltAndNut());
  EXPECT_FALSE(rows.IsDue());
  rows.Reload();
  EXPECT_TRUE(rows.IsDue());
  EXPECT_EQ(rows.Items(), 2) << "the old ones stay until then";
}

TEST_F(MemberRowsTest, AreNotReadAgainAfterARemoval) {
  MemberRows rows =
      Read({{1, u"A", u"", u""}, {2, u"B", u"", u""}, {3, u"C", u"", u""}, {4, u"D", u"", u""}});
  rows.Remove(2);
  rows.Remove(4);
  rows.Remove(6);  // no such row
  EXPECT_EQ(rows.Items(), 4) << "until the next read";
  rows.SetCount(3);
  rows.Read(Recordset());
  EXPECT_EQ(rows.Items(), 2);
  EXPECT_EQ(Text(rows, member_columns::kCode, 1), "物料代码");
  EXPECT_EQ(Text(rows, member_columns::kCode, 2), "B");
  rows.Remove(2);
  rows.SetCount(2);
  rows.Read(Recordset());
  EXPECT_EQ(rows.Items(), 1);
  EXPECT_EQ(Text(rows, member_columns::kCode, 2), "D") << "by their places at the time";
}

TEST_F(MemberRowsTest, AreReadAgainWhenARemovalDoesNotExplainTheCount) {
  MemberRows rows = Read(BoltAndNut());
  const Recordset members = Members(RawMaterials(), {{7, u"C7", u"", u""}, {8, u"C8", u"", u""}});
  members.MoveFirst();
  rows.Remove(2);
  rows.SetCount(3);
  rows.Read(members);
  EXPECT_EQ(Text(rows, member_columns::kCode, 2), "C7");
  EXPECT_EQ(Text(rows, member_columns::kCode, 3), "C8");
  rows.Remove(2);
  rows.SetCount(2);
  rows.Read(Recordset());
  EXPECT_EQ(Text(rows, member_columns::kCode, 2), "C8") << "the next removal is the only one";
}

TEST_F(MemberRowsTest, AreReadFieldByFieldWithoutBlocks) {
  MemberRows rows;
  rows.SetCount(3);
  rows.Read(Recordset(NewScriptedRecordset(
      factory.GetRecorder(),
      testing::Rows({u"FNumber", u"FName", u"FModel"}, {{u"1", u"a", Null{}}, {2, u"b", u"m"}})
          .WithoutGetRows())));
  EXPECT_EQ(Text(rows, member_columns::kModel, 2), "");
  EXPECT_EQ(Text(rows, member_columns::kCode, 3), "2");
}

TEST_F(MemberRowsTest, KeepWhatWasReadBeforeAFailure) {
  EditorWorld world;
  const Recordset members = world.Members(RawMaterials(), BoltAndNut());
  members.MoveFirst();
  MemberRows rows;
  rows.SetCount(3);
  world.factory.FailCall(1);
  EXPECT_EQ(ErrorOf([&] { rows.Read(members); }), kInjectedFailure);
  EXPECT_EQ(rows.Items(), 0);
  EXPECT_EQ(Text(rows, member_columns::kCode, 1), "物料代码");
  EXPECT_FALSE(rows.IsDue()) << "a failure is reported once";
}

TEST_F(MemberRowsTest, FindTheNextCodeThatBeginsWithTheText) {
  const MemberRows rows = Read({{1, u"A1", u"", u""}, {2, u"B1", u"", u""}, {3, u"a2", u"", u""}});
  EXPECT_EQ(rows.Find(u"a", 2), 2);
  EXPECT_EQ(rows.Find(u"a", 3), 4) << "in any case";
  EXPECT_EQ(rows.Find(u"b", 4), 3) << "around the end";
  EXPECT_EQ(rows.Find(u"A1x", 2), std::nullopt);
  EXPECT_EQ(Read({}).Find(u"a", 2), std::nullopt);
}

TEST_F(MemberRowsTest, AreCopiedWithTabsBetweenColumnsAndALineBreakBehindEachRow) {
  const MemberRows rows = Read(BoltAndNut());
  const std::vector<std::int32_t> both{2, 3};
  EXPECT_EQ(Utf8(rows.Copied(both, false).text), "01.001\t螺钉\tM4\r\n01.002\t螺母\t\r\n");
  EXPECT_EQ(Utf8(rows.Copied({}, false).text), "");
  EXPECT_EQ(Utf8(rows.Copied({{3}}, true).text),
            "物料代码\t物料名称\t规格型号\r\n01.002\t螺母\t\r\n");
}

}  // namespace
}  // namespace pricedown
