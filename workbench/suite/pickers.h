// The suite's pickers of accounts and items, as far as their callers see them.
// The windows are in workbench/pickers; here are the port and the one that answers from a queue.
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
  // The number of the chosen account; nothing when cancelled. `text` is what to look for first.
  virtual std::optional<std::u16string> PickAccount(Connection& company,
                                                    std::u16string_view text) = 0;
  // The ids of the chosen items, offered under an SQL condition on the item table x2 (may be
  // empty); nothing when cancelled. Throws DatabaseError when the database refuses.
  virtual std::optional<std::vector<std::int32_t>> PickItems(Connection& company,
                                                             std::u16string_view condition,
                                                             bool several) = 0;
};

// Answers with what was queued before, in order: an empty text and no ids mean cancelled. When the
// queue is empty it asks the next pickers; without any that means cancelled too.
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
