// The thread of the call, and waiting for its end.
#include "workbench/company/background_call.h"

#include <exception>
#include <utility>

namespace workbench {

BackgroundCall::BackgroundCall(std::function<void()> call) {
  std::promise<void> promise;
  ended_ = promise.get_future().share();
  thread_ = std::thread([call = std::move(call), promise = std::move(promise)]() mutable {
    std::exception_ptr failure;
    try {
      call();
    } catch (...) {
      failure = std::current_exception();
    }
    call = nullptr;
    if (failure) {
      promise.set_exception(failure);
    } else {
      promise.set_value();
    }
  });
}

BackgroundCall::~BackgroundCall() {
  if (EndsWithin(std::chrono::milliseconds(0))) {
    thread_.join();
  } else {
    thread_.detach();
  }
}

bool BackgroundCall::EndsWithin(std::chrono::milliseconds time) const {
  return ended_.wait_for(time) == std::future_status::ready;
}

}  // namespace workbench
