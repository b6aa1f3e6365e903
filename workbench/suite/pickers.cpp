// Pickers that answer from a queue, for programs without a user.
#include "workbench/suite/pickers.h"

namespace workbench {

std::optional<std::u16string> QueuedPickers::PickAccount(Connection& company,
                                                         std::u16string_view text) {
  if (accounts.empty()) return next_ ? next_->PickAccount(company, text) : std::nullopt;
  std::u16string account = std::move(accounts.front());
  accounts.pop_front();
  if (account.empty()) return std::nullopt;
  return account;
}

std::optional<std::vector<std::int32_t>> QueuedPickers::PickItems(Connection& company,
                                                                  std::u16string_view condition,
                                                                  bool several) {
  if (items.empty()) return next_ ? next_->PickItems(company, condition, several) : std::nullopt;
  std::vector<std::int32_t> picked = std::move(items.front());
  items.pop_front();
  if (picked.empty()) return std::nullopt;
  return picked;
}

}  // namespace workbench
