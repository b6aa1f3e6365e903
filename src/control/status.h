// The texts of the status bar, and when work takes long enough for the progress bar.
#pragma once

#include <chrono>
#include <string>

#include "browser/browser_state.h"

namespace pricedown {

// The current class and the number of items; asks for a class while the form holds the rows.
std::u16string StatusText(const BrowserState& browser, const NodeCollection& nodes,
                          std::int32_t items);

// "用时 0.35 秒": hundredths of a second, at least one.
std::u16string ElapsedText(std::chrono::nanoseconds elapsed);

// Measures waits under the hourglass and fills of the tree.
class LongWork {
 public:
  using Time = std::chrono::steady_clock::time_point;

  // Returns whether the wait is expected to be long, judged by the previous one.
  bool BeginWait(Time now);
  // Returns how long the wait took.
  std::chrono::nanoseconds EndWait(Time now);
  bool Waiting() const { return waiting_; }
  bool WaitIsLong(Time now) const { return waiting_ && IsLong(now - waitBegan_); }

  void BeginFill(Time now) { fillBegan_ = now; }
  bool FillIsLong(Time now) const { return IsLong(now - fillBegan_); }

 private:
  static bool IsLong(std::chrono::nanoseconds time) {
    return time > std::chrono::milliseconds(300);
  }

  bool waiting_ = false;
  Time waitBegan_;
  std::chrono::nanoseconds lastWait_{};
  Time fillBegan_;
};

}  // namespace pricedown
