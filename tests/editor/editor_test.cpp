// Fixture of the editor's tests. The language is the built-in one.
#include "tests/editor/editor_test.h"

#include "editor/member_list.h"
#include "platform/convert.h"
#include "store/tables.h"

namespace pricedown::testing {

ClassHeader RawMaterials() { return {u"01", u"原材料", u"5711", u"1281.1", 12.5}; }

std::vector<MemberItem> BoltAndNut() {
  return {{101, u"01.001", u"螺钉", u"M4"}, {102, u"01.002", u"螺母", Null{}}};
}

void AnswerPeriod(RecordingFactory& factory) {
  factory.Object(u"ZEPEBSBase.SystemProfile")
      .On(u"GetProfile", R"("LANGUAGE=chs", "IC", "CurrentYear")", Reply(u"2008"))
      .On(u"GetProfile", R"("LANGUAGE=chs", "IC", "CurrentPeriod")", Reply(u"3"));
}

EditorWorld::EditorWorld() {
  AllowRecordsets(factory);
  factory.Object(u"ZEPPropsMgr.ShareProps")
      .On(u"GetProperty", Reply(Value()).Writing(1, u"LANGUAGE=chs"));
  view.form = &form;
}

Recordset EditorWorld::Members(const ClassHeader& header, const std::vector<MemberItem>& items) {
  Recordset members = Recordset::Create(factory);
  AppendMemberFields(members);
  members.Open();
  for (const MemberItem& item : items) {
    members.AddNew();
    members.SetField(columns::kItemId, item.id);
    members.SetField(columns::kNumber, item.code);
    members.SetField(columns::kName, item.name);
    members.SetField(columns::kModel, item.model);
    members.SetField(columns::kItemClassNumber, header.number);
    members.SetField(columns::kItemClassName, header.name);
    members.SetField(columns::kLossAccountNumber, header.lossAccount);
    members.SetField(columns::kReserveAccountNumber, header.reserveAccount);
    members.SetField(columns::kPercentage, header.percentage);
    members.Update();
  }
  return members;
}

void EditorWorld::OpenForAdd() {
  form.SetMemberList(Members({}, {}));
  form.SetMode(kAddMode);
  form.Load();
  log.Clear();
}

void EditorWorld::OpenForEdit(const ClassHeader& header, const std::vector<MemberItem>& items) {
  form.SetMode(0);
  form.SetOpeningNumber(header.number);
  form.SetMemberList(Members(header, items));
  form.Load();
  log.Clear();
}

void EditorWorld::Type(const ClassHeader& header, std::u16string_view percentage) {
  view.Type(FormField::ClassNumber, header.number);
  view.Type(FormField::ClassName, header.name);
  view.Type(FormField::LossAccount, header.lossAccount);
  view.Type(FormField::ReserveAccount, header.reserveAccount);
  view.Type(FormField::Percentage, percentage);
  log.Clear();
}

void EditorWorld::AnswerChecks(bool adding, std::vector<std::u16string> otherNumbers) {
  AnswerStatement(factory, u"select FNumber from t_account",
                  Rows({u"FNumber"}, {{u"1281.1"}, {u"1281.10"}, {u"5711"}, {u"5711.02"}}));
  std::vector<std::vector<Value>> rows;
  for (std::u16string& number : otherNumbers) rows.push_back({std::move(number)});
  AnswerStatement(factory,
                  adding ? u"select FItemClassNumber from icPriceDownClass"
                         : u"select FItemClassNumber from icPriceDownClass where "
                           u"FItemClassNumber<>'01'",
                  Rows({u"FItemClassNumber"}, std::move(rows)));
}

void EditorWorld::AnswerAccountIds() {
  AnswerStatement(factory, u"SELECT FAccountID FROM t_account WHERE FNumber='5711'",
                  Rows({u"FAccountID"}, {{1051}}));
  AnswerStatement(factory, u"SELECT FAccountID FROM t_account WHERE FNumber='1281.1'",
                  Rows({u"FAccountID"}, {{1023}}));
}

void EditorWorld::AcceptSaves() { factory.Object(kConnectionId).On(u"Execute", Reply(nullptr)); }

void EditorWorld::ReadRows() {
  AnswerPeriod(factory);
  list.selected.clear();
  form.ToolClicked(FormTool::DelItem);
}

std::vector<std::int32_t> EditorWorld::MemberIds() {
  std::vector<std::int32_t> ids;
  const Recordset& members = form.MemberList();
  if (members.RecordCount() == 0) return ids;
  for (members.MoveFirst(); !members.AtEnd(); members.MoveNext()) {
    ids.push_back(ToInt32(members.Field(columns::kItemId)));
  }
  return ids;
}

std::vector<std::string> EditorWorld::Column(std::u16string_view name) {
  std::vector<std::string> values;
  const Recordset& members = form.MemberList();
  if (members.RecordCount() == 0) return values;
  for (members.MoveFirst(); !members.AtEnd(); members.MoveNext()) {
    values.push_back(Readable(members.Field(name)));
  }
  return values;
}

}  // namespace pricedown::testing
