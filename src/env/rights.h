// The current user's rights and data scope, from the suite's ledger-data object, which is created
// on first use and kept.
#pragma once

#include <cstdint>
#include <utility>

#include "env/messages.h"
#include "env/thread_state.h"
#include "platform/lifetime.h"

namespace pricedown {

class Rights {
 public:
  // `lifetime` is that of the control, which may end inside the suite's calls.
  Rights(ObjectFactory& factory, ThreadState& state, Messages& messages, Lifetime lifetime = {})
      : factory_(factory), state_(state), messages_(messages), lifetime_(std::move(lifetime)) {}

  // Whether the user has the right; shows a message when not. False without a message once the
  // control has ended. Throws AutomationError when the suite cannot answer.
  bool Check(std::int32_t accessMask);

  // Sets the data scope of the state for its object type; it keeps its value when none is granted.
  // Throws AutomationError when the suite cannot answer.
  void ReadDataScope();

 private:
  // False once the control has ended.
  bool IsGranted(std::int32_t objectType, std::int32_t objectNumber, std::int32_t accessMask);

  ObjectFactory& factory_;
  ThreadState& state_;
  Messages& messages_;
  Lifetime lifetime_;
};

}  // namespace pricedown
