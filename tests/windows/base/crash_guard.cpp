// Ends the test program at the first crash: Windows and Wine may swallow an access violation that
// happens inside a window procedure, and the test would continue silently.
#include <windows.h>
#include <gtest/gtest.h>

#include <cstdio>

namespace pricedown::testing {
namespace {

constexpr UINT kCrashed = 3;

LONG CALLBACK OnException(EXCEPTION_POINTERS* information) {
  const DWORD code = information->ExceptionRecord->ExceptionCode;
  if (code != EXCEPTION_ACCESS_VIOLATION && code != EXCEPTION_ILLEGAL_INSTRUCTION &&
      code != EXCEPTION_STACK_OVERFLOW && code != EXCEPTION_INT_DIVIDE_BY_ZERO) {
    return EXCEPTION_CONTINUE_SEARCH;
  }
  std::printf("[  FAILED  ] crash: exception %lx at %p\n", code,
              information->ExceptionRecord->ExceptionAddress);
  std::fflush(stdout);
  TerminateProcess(GetCurrentProcess(), kCrashed);
  return EXCEPTION_CONTINUE_SEARCH;
}

class CrashGuard : public ::testing::Environment {
 public:
  void SetUp() override { AddVectoredExceptionHandler(1, &OnException); }
};

[[maybe_unused]] const ::testing::Environment* const guard =
    ::testing::AddGlobalTestEnvironment(new CrashGuard);

}  // namespace
}  // namespace pricedown::testing
