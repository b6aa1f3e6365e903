// Several steps of which each runs whatever became of the others, and whose first failure counts.
// Where failures are skipped altogether, platform/skip.h is used instead.
#pragma once

#include <exception>
#include <utility>

namespace pricedown {

class FirstFailure {
 public:
  // Runs the step; a failure ends the step and is kept when it is the first.
  template <typename Step>
  void Run(Step&& step) {
    try {
      std::forward<Step>(step)();
    } catch (...) {
      if (first_ == nullptr) first_ = std::current_exception();
    }
  }

  // Throws the first failure, if there was one.
  void Rethrow() const {
    if (first_ != nullptr) std::rethrow_exception(first_);
  }

 private:
  std::exception_ptr first_;
};

}  // namespace pricedown
