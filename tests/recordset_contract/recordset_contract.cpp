// What the contract's tests share: the source, the fixture and its rows.
#include "tests/recordset_contract/recordset_contract.h"

#include <ostream>
#include <utility>

#include "platform/convert.h"
#include "tests/support/utf8.h"

namespace pricedown::testing {

RecordsetSource::RecordsetSource(std::string name, FactoryMaker makeFactory)
    : name_(std::move(name)), makeFactory_(std::move(makeFactory)) {}

void PrintTo(const RecordsetSource& source, std::ostream* stream) { *stream << source.Name(); }

RecordsetContract::RecordsetContract() : factory_(GetParam().MakeFactory()) {}

Recordset RecordsetContract::Closed() {
  Recordset recordset = Recordset::Create(*factory_);
  recordset.AppendField(NullableField(u"FItemID", ado::kInteger));
  recordset.AppendField(NullableField(u"FNumber", ado::kVarWChar, 80));
  recordset.AppendField(NullableField(u"FPencentPrepare", ado::kDouble));
  return recordset;
}

Recordset RecordsetContract::WithRows(int count) {
  Recordset recordset = Closed();
  recordset.Open();
  for (int number = 1; number <= count; ++number) {
    recordset.AddNew();
    recordset.SetField(u"FItemID", number);
    recordset.SetField(u"FNumber", u"A0" + NumberText(number));
    recordset.SetField(u"FPencentPrepare", number + 0.5);
    recordset.Update();
  }
  return recordset;
}

std::vector<std::int32_t> RecordsetContract::ItemIds(const Recordset& recordset) {
  std::vector<std::int32_t> ids;
  if (recordset.RecordCount() == 0) return ids;
  for (recordset.MoveFirst(); !recordset.AtEnd(); recordset.MoveNext()) {
    ids.push_back(ToInt32(recordset.Field(u"FItemID")));
  }
  return ids;
}

FieldDefinition RecordsetContract::NullableField(std::u16string name, std::int32_t type,
                                                 std::int32_t size) {
  return {std::move(name), type, size, ado::kFieldIsNullable};
}

std::string RecordsetContract::TextOf(const Recordset& recordset, std::u16string_view field) {
  return Utf8(ToText(recordset.Field(field)));
}

}  // namespace pricedown::testing
