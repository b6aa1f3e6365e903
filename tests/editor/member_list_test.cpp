// The layout of the member list, and fields that follow the current row.
#include "editor/member_list.h"

#include <gmock/gmock.h>

#include "tests/editor/editor_test.h"

namespace pricedown {
namespace {

using namespace pricedown::testing;
using ::testing::ElementsAre;

class MemberList : public EditorTest {};

TEST_F(MemberList, HasFifteenNullableFieldsInOrder) {
  const Recordset members = Recordset::Create(factory);
  AppendMemberFields(members);
  std::vector<std::string> fields;
  for (const FieldDefinition& field : members.Fields()) {
    EXPECT_EQ(field.attributes, 0x20);
    fields.push_back(Utf8(field.name) + " " + std::to_string(field.type) + " " +
                     std::to_string(field.definedSize));
  }
  // Types: 3 integer, 5 double, 202 text.
  EXPECT_THAT(
      fields,
      ElementsAre("FItemID 3 0", "FNumber 202 80", "FShortNumber 202 80", "FName 202 80",
                  "FModel 202 255", "FItemClassID 3 0", "FItemClassNumber 202 80",
                  "FItemClassName 202 80", "FAPAccID 3 0", "FAPNumber 202 80", "FARAccID 3 0",
                  "FARNumber 202 80", "FPencentPrepare 5 0", "FYear 3 0", "FPeriod 3 0"));
}

TEST_F(MemberList, LeavesUnsetColumnsEmpty) {
  const Recordset members = Members(RawMaterials(), BoltAndNut());
  EXPECT_TRUE(members.Field(u"FShortNumber").IsNothing());
  EXPECT_TRUE(members.Field(u"FItemClassID").IsNothing());
  EXPECT_TRUE(members.Field(u"FAPAccID").IsNothing());
  EXPECT_TRUE(members.Field(u"FARAccID").IsNothing());
  EXPECT_TRUE(members.Field(u"FYear").IsNothing());
  EXPECT_TRUE(members.Field(u"FPeriod").IsNothing());
}

TEST_F(MemberList, HasNoRowsWhenThereIsNoRecordset) {
  EXPECT_EQ(RowCountOf(Recordset()), 0);
  EXPECT_EQ(RowCountOf(Members(RawMaterials(), BoltAndNut())), 2);
}

}  // namespace
}  // namespace pricedown
