// Ends the test program at the first crash: Windows and Wine may swallow an access violation that
// happens inside a window procedure, and the test would continue silently.
#include <windows.h>
#include <gtest/gtest.h>

#include <cstdio>
#include <cstring>

namespace pricedown::testing {
namespace {

constexpr UINT kCrashed = 3;

HMODULE ModuleOf(const void* address) {
  HMODULE module = nullptr;
  GetModuleHandleExW(
      GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
      static_cast<const wchar_t*>(address), &module);
  return module;
}

void PrintPlace(const void* address) {
  char path[MAX_PATH] = {};
  const HMODULE module = ModuleOf(address);
  if (module != nullptr) GetModuleFileNameA(module, path, MAX_PATH);
  const char* name = std::strrchr(path, '\\');
  std::printf(" %s+%llx\n", name == nullptr ? "" : name + 1,
              static_cast<unsigned long long>(reinterpret_cast<UINT_PTR>(address) -
                                              reinterpret_cast<UINT_PTR>(module)));
}

UINT_PTR StackOf(const CONTEXT& context) {
#ifdef _WIN64
  return context.Rsp;
#else
  return context.Esp;
#endif
}

LONG CALLBACK OnException(EXCEPTION_POINTERS* information) {
  const DWORD code = information->ExceptionRecord->ExceptionCode;
  if (code != EXCEPTION_ACCESS_VIOLATION && code != EXCEPTION_ILLEGAL_INSTRUCTION &&
      code != EXCEPTION_STACK_OVERFLOW && code != EXCEPTION_INT_DIVIDE_BY_ZERO) {
    return EXCEPTION_CONTINUE_SEARCH;
  }
  std::printf("[  FAILED  ] crash: exception %lx at", code);
  PrintPlace(information->ExceptionRecord->ExceptionAddress);
  std::printf("stack:");
  const auto* stack = reinterpret_cast<void* const*>(StackOf(*information->ContextRecord));
  constexpr int kWords = 400;
  for (int i = 0; i < kWords; ++i) {
    if (ModuleOf(stack[i]) != nullptr) PrintPlace(stack[i]);
  }
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
