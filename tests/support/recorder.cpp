// The count of calls and the one failure switch.
#include "tests/support/recorder.h"

#include <gtest/gtest.h>

#include "platform/convert.h"
#include "platform/error.h"
#include "platform/text.h"

namespace pricedown::testing {

void Recorder::Count(const std::string& line, std::u16string_view source, bool logged) {
  ++calls_;
  if (calls_ != failingCall_) {
    if (logged) log_.Add(line);
    return;
  }
  log_.Add(line + " fails");
  throw AutomationError(kInjectedFailure, Concatenate({u"第 ", NumberText(calls_), u" 次调用失败"}),
                        std::u16string(source));
}

void Recorder::Call(const std::string& line, std::u16string_view source) {
  Count(line, source, true);
}

void Recorder::QuietCall(const std::string& line, std::u16string_view source) {
  Count(line, source, logsQuietCalls_);
}

void FailEachCallInTurn(const std::function<int(int failingCall)>& scenario) {
  const int calls = scenario(0);
  EXPECT_GT(calls, 0) << "the scenario makes no call that could fail";
  for (int call = 1; call <= calls; ++call) {
    SCOPED_TRACE("with call " + std::to_string(call) + " failing");
    scenario(call);
  }
}

}  // namespace pricedown::testing
