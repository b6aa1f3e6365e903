// What a control of the system tells its parent while it handles a message, kept until it has
// handled it: the report to the core may end everything.
#pragma once

#include <windows.h>

#include <memory>
#include <utility>

namespace pricedown::windows {

template <typename Report>
class PendingReport {
 public:
  Report& Value() { return shared_->report; }

  // Runs the default handling of a message, which may destroy this object. Returns its result and
  // the report that is due: an empty one inside another message, and once this object is gone.
  template <typename Handling>
  std::pair<LRESULT, Report> After(Handling&& handle) {
    const std::shared_ptr<Shared> shared = shared_;
    ++shared->depth;
    const LRESULT result = handle();
    if (--shared->depth > 0 || shared.use_count() == 1) return {result, Report{}};
    return {result, std::exchange(shared->report, Report{})};
  }

 private:
  struct Shared {
    int depth = 0;
    Report report{};
  };
  std::shared_ptr<Shared> shared_ = std::make_shared<Shared>();
};

}  // namespace pricedown::windows
