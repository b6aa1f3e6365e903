// The suite's pickers of accounts and items: the port, and an implementation that answers from a
// queue. The windows are in workbench/pickers.
#pragma once

#include <cstdint>
#include <deque>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace workbench {

class Connection;

class Pickers {
 public:
  virtual ~Pickers() = default;
  // Returns the number of the chosen account; nothing when cancelled. `text` is the initial search
  // text.
  virtual std::optional<std::u16string> PickAccount(Connection& company,
                                                    std::u16string_view text) = 0;
  // Returns the ids of the chosen items; nothing when cancelled. `condition` is an SQL condition on
  // the item table x2 and may be empty. Throws DatabaseError.
  virtual std::optional<std::vector<std::int32_t>> PickItems(Connection& company,
                                                             std::u16string_view condition,
                                                             bool several) = 0;
};

// Returns the queued answers in order; an empty text or no ids means cancelled. With an empty queue
// it asks the next pickers, or cancels if there are none.
class QueuedPickers : public Pickers {
 public:
  explicit QueuedPickers(std::unique_ptr<Pickers> next = nullptr) : next_(std::move(next)) {}

  std::deque<std::u16string> accounts;
  std::deque<std::vector<std::int32_t>> items;

  std::optional<std::u16string> PickAccount(Connection& company, std::u16string_view text) override;
  std::optional<std::vector<std::int32_t>> PickItems(Connection& company,
                                                     std::u16string_view condition,
                                                     bool several) override;

 private:
  std::unique_ptr<Pickers> next_;
};

}  // namespace workbench
