// The program's operator new with a counter. Not thread-safe.
#include "tests/faults/allocations.h"

#include <cstdlib>
#include <new>

namespace {

int count = 0;
int failing = 0;

void* Allocate(std::size_t size) {
  if (++count == failing) throw std::bad_alloc();
  if (void* memory = std::malloc(size == 0 ? 1 : size)) return memory;
  throw std::bad_alloc();
}

}  // namespace

void* operator new(std::size_t size) { return Allocate(size); }
void* operator new[](std::size_t size) { return Allocate(size); }
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete[](void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }
void operator delete[](void* memory, std::size_t) noexcept { std::free(memory); }

namespace pricedown::testing {

void FailAllocation(int n) {
  count = 0;
  failing = n;
}

int AllocationCount() { return count; }

}  // namespace pricedown::testing
