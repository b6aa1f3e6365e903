// Opens a picker per request. The database is queried before the window opens, so a bad condition
// shows no window.
#include "workbench/pickers/dialog/dialog_pickers.h"

#include "workbench/company/connection.h"
#include "workbench/pickers/dialog/picker_dialog.h"

namespace workbench {

std::optional<std::u16string> DialogPickers::PickAccount(Connection& company,
                                                         std::u16string_view text) {
  Picking picking(company, AccountPicker(), {}, false);
  PickerDialog dialog(module_, picking);
  const auto ids = dialog.Show(GetActiveWindow(), text);
  if (ids.empty()) return std::nullopt;
  const ResultSet rows = company.Execute(RowsStatement(AccountTable(), ids));
  if (rows.RowCount() == 0 || rows.At(0, 1).Kind() != CellKind::Text) return std::nullopt;
  return std::u16string(rows.At(0, 1).Text());
}

std::optional<std::vector<std::int32_t>> DialogPickers::PickItems(Connection& company,
                                                                  std::u16string_view condition,
                                                                  bool several) {
  Picking picking(company, ItemPicker(), condition, several);
  PickerDialog dialog(module_, picking);
  auto ids = dialog.Show(GetActiveWindow(), {});
  if (ids.empty()) return std::nullopt;
  return ids;
}

}  // namespace workbench
