// Runs all steps, then rethrows the first failure.
#pragma once

#include <exception>
#include <utility>

namespace pricedown {

class FirstFailure {
 public:
  // Runs the step; keeps its failure when it is the first.
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
