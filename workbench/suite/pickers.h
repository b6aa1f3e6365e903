// The suite's pickers of accounts and items, as far as their callers see them.
// The dialogs are the host's; here are the port and the one that answers from a queue.
#pragma once

#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace workbench {

class Connection;

class Pickers {
 public:
  virtual ~Pickers() = default;
  // The number of the chosen account; nothing when cancelled.
  virtual std::optional<std::u16string> PickAccount(Connection& company,
                                                    std::u16string_view text) = 0;
  // The ids of the chosen items, offered under an SQL condition on the item table x2 (may be
  // empty); nothing when cancelled.
  virtual std::optional<std::vector<std::int32_t>> PickItems(Connection& company,
                                                             std::u16string_view condition,
                                                             bool several) = 0;
};

// Answers with what was queued before, in order; an empty queue means cancelled.
class QueuedPickers : public Pickers {
 public:
  std::deque<std::u16string> accounts;
  std::deque<std::vector<std::int32_t>> items;

  std::optional<std::u16string> PickAccount(Connection&, std::u16string_view) override;
  std::optional<std::vector<std::int32_t>> PickItems(Connection&, std::u16string_view,
                                                     bool) override;
};

}  // namespace workbench
