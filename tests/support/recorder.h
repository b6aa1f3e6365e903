// What all recording fakes of one test share: log, count of calls, failure switch, live objects.
// It replies nothing itself; the fakes ask it before they reply.
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

  // Counts one call and logs its line. Throws AutomationError (kInjectedFailure) when it is the
  // turn of this call to fail; the line then ends with " fails".
  void Call(const std::string& line, std::u16string_view source);
  // The same, but logged only when it fails or when quiet calls are to be logged.
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

// Runs `scenario` undisturbed once (with 0), and then once for each of its calls with the number
// of the call that is to fail. The scenario makes its own factory, hands the number to FailCall,
// checks what must hold, and answers the factory's CallCount.
void FailEachCallInTurn(const std::function<int(int failingCall)>& scenario);

}  // namespace pricedown::testing
