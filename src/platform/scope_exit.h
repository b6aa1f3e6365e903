// Runs an action at the end of a scope, also when an exception leaves it.
#pragma once

#include <utility>

namespace pricedown {

// The action must not throw.
template <typename Action>
class ScopeExit {
 public:
  explicit ScopeExit(Action action) : action_(std::move(action)) {}
  ~ScopeExit() { action_(); }
  ScopeExit(const ScopeExit&) = delete;
  ScopeExit& operator=(const ScopeExit&) = delete;

 private:
  Action action_;
};

}  // namespace pricedown
