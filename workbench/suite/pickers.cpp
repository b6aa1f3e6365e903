// Pickers that answer from a queue, for programs without a user.
#include "workbench/suite/pickers.h"

namespace workbench {

std::optional<std::u16string> QueuedPickers::PickAccount(Connection&, std::u16string_view) {
  if (accounts.empty()) return std::nullopt;
  std::u16string account = accounts.front();
  accounts.pop_front();
  return account;
}

std::optional<std::vector<std::int32_t>> QueuedPickers::PickItems(Connection&, std::u16string_view,
                                                                  bool) {
  if (items.empty()) return std::nullopt;
  std::vector<std::int32_t> picked = items.front();
  items.pop_front();
  return picked;
}

}  // namespace workbench
