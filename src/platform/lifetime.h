// Whether a control or a window has ended, for all that may outlive it or runs while it ends.
#pragma once

#include <memory>
#include <utility>

namespace pricedown {

// Copies share one state. Used on one thread.
class Lifetime {
 public:
  // Returns whether this call has ended it: true once.
  bool End() { return !std::exchange(*ended_, true); }
  bool HasEnded() const { return *ended_; }

 private:
  std::shared_ptr<bool> ended_ = std::make_shared<bool>(false);
};

}  // namespace pricedown
