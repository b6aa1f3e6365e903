// Steps of AddItem. Nothing checks the choice: the exclusion keeps an item in one class.
#include "editor/item_lookup.h"

#include <array>

#include "editor/general_ledger.h"
#include "platform/cell_text.h"
#include "platform/row_reader.h"
#include "platform/skip.h"
#include "platform/text.h"
#include "store/connection.h"
#include "store/statements.h"
#include "store/tables.h"

namespace pricedown {
namespace {

// The lookup's base-data type of items.
constexpr std::int32_t kItemType = 4;

ObjectPtr MakeParameters(const Environment& environment) {
  ObjectPtr parameters = environment.factory.Create(u"ZEPEBCBASE.Dictionary");
  const auto add = [&parameters](std::u16string_view key, Value value) {
    parameters->CallForEffect(u"Add", {key, std::move(value)});
  };
  add(u"BeShortNumber", false);
  add(u"GetDataType", std::int16_t{1});
  add(u"Search", u"");
  add(u"Multislt", std::int16_t{1});
  add(u"Refresh", true);
  return parameters;
}

// The class columns of new rows.
constexpr std::array kHeaderColumns{columns::kItemClassNumber, columns::kItemClassName,
                                    columns::kLossAccountNumber, columns::kReserveAccountNumber,
                                    columns::kPercentage};
using RowHeader = std::array<Value, kHeaderColumns.size()>;

// The header of the first row, so that later edits of the fields do not reach new rows.
RowHeader HeaderOfNewRows(const FormContext& form) {
  const Recordset& members = form.state.memberList;
  if (members.RecordCount() == 0) {
    const TypedHeader header = ReadHeader(form.view);
    return {header.number, header.name, header.lossAccount, header.reserveAccount,
            header.percentage};
  }
  members.MoveFirst();
  RowHeader header;
  for (std::size_t i = 0; i < header.size(); ++i) header[i] = members.Field(kHeaderColumns[i]);
  return header;
}

void ReadOtherClasses(FormContext& form) {
  Recordset others = Connection(form.environment.factory)
                         .Execute(statements::ItemsOfOtherClasses(form.state.openingNumber));
  // The call may have run messages in which the form ended.
  if (!form.HasEnded()) form.state.otherClasses = std::move(others);
}

void AppendItemIds(std::u16string& list, const Recordset& items) {
  if (items.RecordCount() == 0) return;
  items.MoveFirst();
  RowReader rows(items, {columns::kItemId});
  std::u16string scratch;
  while (rows.Next()) {
    list += CellText(rows.Field(0), scratch);
    list += u',';
  }
}

// The condition on the picker's item table; empty when every item may be chosen.
std::u16string Condition(const FormState& state) {
  std::u16string list;
  AppendItemIds(list, state.otherClasses);
  AppendItemIds(list, state.memberList);
  if (list.empty()) return {};
  list.pop_back();
  return Concatenate({u"x2.FItemid not in(", list, u")"});
}

ObjectPtr LookUpItems(FormContext& form, const std::u16string& condition, ObjectPtr parameters) {
  Value dictionary(std::move(parameters));
  return RequireObject(
      GeneralLedger(form.environment)
          ->Call(u"ItemLookUp", {kItemType, Missing{}, condition, Value::ByReference(dictionary)}),
      u"ItemLookUp");
}

void AppendItem(const Recordset& members, const RowHeader& header, AutomationObject& item) {
  const auto property = [&item](std::u16string_view name) {
    return item.Call(u"Properties", {name});
  };
  // Read before the row is begun, so that an item that fails leaves none.
  const Value id = property(columns::kItemId);
  const Value code = property(columns::kNumber);
  const Value name = property(columns::kName);
  const Value model = property(columns::kModel);
  members.AddNew();
  try {
    members.SetField(columns::kItemId, id);
    members.SetField(columns::kNumber, code);
    members.SetField(columns::kName, name);
    members.SetField(columns::kModel, model.Is(Value::Kind::Null) ? Value(u"") : model);
    for (std::size_t i = 0; i < header.size(); ++i) members.SetField(kHeaderColumns[i], header[i]);
    members.Update();
  } catch (...) {
    SkipFailing([&members] { members.CancelUpdate(); });
    throw;
  }
}

// An answer of a kind that is no Boolean, such as Null or an empty text, cancels.
bool IsConfirmed(AutomationObject& result) {
  const Value answer = result.Get(u"ReturnOK");
  bool confirmed = false;
  SkipFailing([&] { confirmed = ToBoolean(answer); });
  return confirmed;
}

// Several items have an empty text in place of the single value; Null and objects are no texts.
bool NamesSeveral(const Value& value) {
  return value.Is(Value::Kind::Empty) || (value.Is(Value::Kind::Text) && value.Text().empty());
}

void AppendChosen(FormContext& form, const RowHeader& header, AutomationObject& result) {
  const Recordset members = form.state.memberList;
  const bool several = NamesSeveral(result.Get(u"ReturnValue"));
  const Value answer = result.Get(u"ReturnObject");
  // Confirmed with nothing chosen.
  if (answer.IsNothing() || answer == Value(nullptr)) return;
  const ObjectPtr chosen = RequireObject(answer, u"ReturnObject");
  if (!several) {
    AppendItem(members, header, *chosen);
    return;
  }
  const std::int32_t size = ToInt32(chosen->Get(u"Size"));
  for (std::int32_t number = 1; number <= size; ++number) {
    AppendItem(members, header, *RequireObject(chosen->Call(u"", {number}), u"ReturnObject"));
  }
  form.environment.screen.RunPendingMessages();
}

}  // namespace

void AddItems(FormContext& form) {
  ObjectPtr parameters = MakeParameters(form.environment);
  const RowHeader header = HeaderOfNewRows(form);
  ReadOtherClasses(form);
  if (form.HasEnded()) return;
  const std::u16string condition = Condition(form.state);
  {
    const ObjectPtr result = LookUpItems(form, condition, std::move(parameters));
    try {
      if (IsConfirmed(*result)) AppendChosen(form, header, *result);
    } catch (...) {
      // The rows appended before stay: a save would write them, so the user sees them.
      SkipFailing([&form] { CountRows(form); });
      throw;
    }
  }
  CountRows(form);
}

}  // namespace pricedown
