// State shared by all recording fakes of a test: log, count of calls, failure switch, live objects.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "tests/support/call_log.h"

namespace pricedown::testing {

// The error number of the failure switch, used by nothing else.
inline constexpr std::int32_t kInjectedFailure = static_cast<std::int32_t>(0x8004FA11);

class Recorder {
 public:
  explicit Recorder(CallLog log) : log_(std::move(log)) {}

  // Counts one call and logs its line. If this call must fail, throws AutomationError
  // (kInjectedFailure) and the line ends with " fails".
  void Call(const std::string& line, std::u16string_view source);
  // The same, but logged only if it fails or if quiet calls are logged.
  void QuietCall(const std::string& line, std::u16string_view source);
  void LogQuietCalls() { logsQuietCalls_ = true; }
  void Add(std::string line) { log_.Add(std::move(line)); }

  // The n-th call from now on fails, once; 0 switches the failure off.
  void FailCall(int n) { failingCall_ = n == 0 ? 0 : calls_ + n; }
  int CallCount() const { return calls_; }

  void ObjectMade() { ++liveObjects_; }
  void ObjectGone() { --liveObjects_; }
  int LiveObjects() const { return liveObjects_; }

 private:
  void Count(const std::string& line, std::u16string_view source, bool logged);

  CallLog log_;
  int calls_ = 0;
  int failingCall_ = 0;
  int liveObjects_ = 0;
  bool logsQuietCalls_ = false;
};

using RecorderPtr = std::shared_ptr<Recorder>;

// Runs `scenario` once without a failure (with 0), and then once for each of its calls with the
// number of the call that must fail. The scenario makes its own factory, passes the number to
// FailCall, checks what must hold, and returns the factory's CallCount.
void FailEachCallInTurn(const std::function<int(int failingCall)>& scenario);

}  // namespace pricedown::testing
