// The message loop of a test.
#pragma once

namespace pricedown::testing {

// Processes all pending messages of this thread.
void RunMessages();

}  // namespace pricedown::testing
