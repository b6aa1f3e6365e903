// The current user's rights and data scope, from the suite's ledger-data object, which is created
// on first use and kept.
#pragma once

#include <cstdint>

#include "env/messages.h"
#include "env/process_state.h"

namespace pricedown {

class Rights {
 public:
  Rights(ObjectFactory& factory, ProcessState& state, Messages& messages)
      : factory_(factory), state_(state), messages_(messages) {}

  // Whether the user has the right; shows a message when not. Throws AutomationError when the suite
  // cannot answer.
  bool Check(std::int32_t objectType, std::int32_t objectNumber, std::int32_t accessMask);

  // Sets the data scope of the state for its object type; it keeps its value when none is granted.
  // Throws AutomationError when the suite cannot answer.
  void ReadDataScope();

 private:
  bool IsGranted(std::int32_t objectType, std::int32_t objectNumber, std::int32_t accessMask);

  ObjectFactory& factory_;
  ProcessState& state_;
  Messages& messages_;
};

}  // namespace pricedown
