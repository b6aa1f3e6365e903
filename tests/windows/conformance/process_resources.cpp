// Counts by the system's functions, or by its tables where these return nothing, as in Wine.
#include "tests/windows/conformance/process_resources.h"

#include <windows.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <vector>

#include "tests/windows/support/run_messages.h"
#include "tests/windows/system_call.h"

namespace pricedown::testing {
namespace {

// The process's table of GDI handles, found through its environment block.
struct GdiHandle {
  std::uint64_t object;
  std::uint32_t owner;
  std::uint16_t unique;
  std::uint8_t type;  // 0 when free
  std::uint8_t flags;
  std::uint64_t user;
};
constexpr std::size_t kGdiHandles = 0x4000;
constexpr std::size_t kTableInBlock = sizeof(void*) == 8 ? 0xF8 : 0x94;

long GdiObjectsInTable() {
  static const auto block =
      FunctionOf<const std::byte*(WINAPI*)()>(L"ntdll.dll", "RtlGetCurrentPeb");
  const auto* table = *reinterpret_cast<const GdiHandle* const*>(block() + kTableInBlock);
  if (table == nullptr) throw std::runtime_error("no table of GDI handles");
  long count = 0;
  for (std::size_t i = 0; i < kGdiHandles; ++i) count += table[i].type != 0 ? 1 : 0;
  return count;
}

// The system's table of the handles of all processes.
struct KernelHandle {
  ULONG process;
  BYTE type;
  BYTE flags;
  USHORT handle;
  void* object;
  ULONG access;
};
constexpr ULONG kSystemHandles = 16;
constexpr LONG kTooSmall = static_cast<LONG>(0xC0000004);

long HandlesInTable() {
  static const auto query = FunctionOf<LONG(WINAPI*)(ULONG, void*, ULONG, ULONG*)>(
      L"ntdll.dll", "NtQuerySystemInformation");
  std::vector<KernelHandle> table(1024);
  const auto read = [&table] {
    return query(kSystemHandles, table.data(),
                 static_cast<ULONG>(table.size() * sizeof(KernelHandle)), nullptr);
  };
  LONG code = read();
  while (code == kTooSmall) {
    table.resize(table.size() * 2);
    code = read();
  }
  if (code < 0) throw std::runtime_error("no table of handles");
  // The number of entries comes first, in a pointer-sized field.
  const ULONG count = table.front().process;
  const auto* entry = reinterpret_cast<const KernelHandle*>(
      reinterpret_cast<const std::byte*>(table.data()) + sizeof(void*));
  return static_cast<long>(std::count_if(entry, entry + count, [](const KernelHandle& one) {
    return one.process == GetCurrentProcessId();
  }));
}

BOOL CALLBACK CountChild(HWND, LPARAM count) {
  ++*reinterpret_cast<long*>(count);
  return TRUE;
}

BOOL CALLBACK CountWindow(HWND window, LPARAM count) {
  ++*reinterpret_cast<long*>(count);
  EnumChildWindows(window, CountChild, count);
  return TRUE;
}

long Windows() {
  long count = 0;
  EnumThreadWindows(GetCurrentThreadId(), CountWindow, reinterpret_cast<LPARAM>(&count));
  HWND window = nullptr;
  while ((window = FindWindowExW(HWND_MESSAGE, window, nullptr, nullptr)) != nullptr) {
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    if (process == GetCurrentProcessId()) ++count;
  }
  return count;
}

// The lower half of a handle is enough to find a menu.
long Menus() {
  long count = 0;
  for (ULONG_PTR handle = 0x20; handle < 0xFFF0; handle += 2) {
    if (IsMenu(reinterpret_cast<HMENU>(handle)) != FALSE) ++count;
  }
  return count;
}

long BytesInUse() {
  std::array<HANDLE, 64> heaps{};
  const DWORD count = GetProcessHeaps(static_cast<DWORD>(heaps.size()), heaps.data());
  if (count == 0 || count > heaps.size()) throw std::runtime_error("no list of heaps");
  long bytes = 0;
  for (DWORD i = 0; i < count; ++i) {
    HeapLock(heaps[i]);
    PROCESS_HEAP_ENTRY entry{};
    while (HeapWalk(heaps[i], &entry) != FALSE) {
      if ((entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) != 0) bytes += static_cast<long>(entry.cbData);
    }
    HeapUnlock(heaps[i]);
  }
  return bytes;
}

}  // namespace

ProcessResources ResourcesNow() {
  // Otherwise freed strings would stay cached.
  static const auto keepNoTexts = FunctionOf<void(WINAPI*)()>(L"oleaut32.dll", "SetOaNoCache");
  keepNoTexts();
  RunMessages();
  ProcessResources now;
  DWORD handles = 0;
  GetProcessHandleCount(GetCurrentProcess(), &handles);
  now.handles = handles != 0 ? static_cast<long>(handles) : HandlesInTable();
  now.gdiObjects = static_cast<long>(GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS));
  if (now.gdiObjects == 0) now.gdiObjects = GdiObjectsInTable();
  now.userObjects = static_cast<long>(GetGuiResources(GetCurrentProcess(), GR_USEROBJECTS));
  if (now.userObjects == 0) now.userObjects = Windows() + Menus();
  now.memory = BytesInUse();
  return now;
}

}  // namespace pricedown::testing
