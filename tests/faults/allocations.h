// Counts the program's allocations and makes any one of them fail.
// Linking it replaces operator new and delete of the whole program.
#pragma once

namespace pricedown::testing {

// The n-th allocation from now on throws std::bad_alloc, once; 0 switches that off.
void FailAllocation(int n);
// Allocations since FailAllocation was called.
int AllocationCount();

}  // namespace pricedown::testing
