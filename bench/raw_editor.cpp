// Rows are read in blocks and added whole, as the library does.
#include "bench/raw_editor.h"

#include <array>
#include <vector>

#include "platform/row_reader.h"
#include "platform/text_blocks.h"
#include "store/connection.h"
#include "store/statements.h"
#include "store/tables.h"

namespace bench {
namespace {

using namespace pricedown;

void ReadAll(const Recordset& rows, std::vector<std::u16string_view> columns,
             NullCells nullCells = NullCells::Kept) {
  const std::size_t count = columns.size();
  RowReader reader(rows, std::move(columns), nullCells);
  while (reader.Next()) {
    for (std::size_t column = 0; column < count; ++column) reader.Field(column);
  }
}

Recordset Copied(ObjectFactory& factory, const Recordset& source, bool commitsRows) {
  const std::vector<FieldDefinition> fields = source.Fields();
  const Recordset copy = Recordset::Create(factory);
  std::vector<std::u16string_view> names;
  std::vector<Value> positions;
  for (const FieldDefinition& field : fields) {
    copy.AppendField(field);
    positions.emplace_back(static_cast<std::int32_t>(names.size()));
    names.push_back(field.name);
  }
  copy.Open();
  source.MoveFirst();
  AutomationObject& rows = *copy.Object();
  const MemberId addNew = rows.Find(u"AddNew");
  const MemberId updateBatch = rows.Find(u"UpdateBatch");
  std::array<Value, 2> arguments{rows.Prepared(positions), Value()};
  while (!source.AtEnd()) {
    const CellBlockPtr block = source.GetRows(kRowsPerBlock, names);
    for (std::size_t row = 0; row < block->RowCount(); ++row) {
      arguments[1] = BlockRow{block, row};
      rows.Perform(addNew, arguments);
      if (commitsRows) rows.Perform(updateBatch, {});
    }
  }
  if (!commitsRows) copy.UpdateBatch();
  copy.MoveFirst();
  return copy;
}

}  // namespace

void OpenMembers(ObjectFactory& factory, std::u16string_view classNumber) {
  const Recordset items = Connection(factory).Execute(statements::ItemsOfClass(classNumber));
  const Recordset members = Copied(factory, items, true);
  Copied(factory, members, true);
  members.MoveFirst();
  ReadAll(members, {columns::kNumber, columns::kName, columns::kModel}, NullCells::AsEmptyText);
}

void ReadSavedColumns(const Recordset& members) {
  members.MoveFirst();
  ReadAll(members,
          {columns::kItemId, columns::kItemClassNumber, columns::kItemClassName,
           columns::kLossAccountNumber, columns::kReserveAccountNumber, columns::kPercentage});
}

void SaveMembers(ObjectFactory& factory, const Recordset& members, std::u16string_view classNumber,
                 std::u16string_view account, const std::u16string& text) {
  ReadAll(Connection(factory).Execute(statements::AccountNumbers()), {columns::kNumber});
  ReadAll(Connection(factory).Execute(statements::OtherClassNumbers(classNumber)),
          {columns::kItemClassNumber});
  const Recordset kept = Copied(factory, members, false);
  for (int i = 0; i < 2; ++i) Connection(factory).Execute(statements::AccountId(account));
  ReadSavedColumns(members);
  Connection(factory).Execute(text);
}

}  // namespace bench
