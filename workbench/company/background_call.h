// A blocking call on a thread of its own, so that its caller can stop waiting for it.
#pragma once

#include <chrono>
#include <functional>
#include <future>
#include <thread>

namespace workbench {

class BackgroundCall {
 public:
  // Starts `call`, which owns all that it uses: it may outlive this object. What it owns is
  // released before the call counts as ended.
  explicit BackgroundCall(std::function<void()> call);
  // Does not wait for a call that has not ended.
  ~BackgroundCall();
  BackgroundCall(const BackgroundCall&) = delete;
  BackgroundCall& operator=(const BackgroundCall&) = delete;

  // Waits up to `time`; returns whether the call has ended.
  bool EndsWithin(std::chrono::milliseconds time) const;
  // Throws what the call threw. Requires: it has ended.
  void Get() const { ended_.get(); }

 private:
  std::shared_future<void> ended_;
  std::thread thread_;
};

}  // namespace workbench
