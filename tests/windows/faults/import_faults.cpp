// Replacements for functions of the system, and patching a library's imports.
#include "tests/windows/faults/import_faults.h"

#include <commctrl.h>
#include <oleauto.h>
#include <oleidl.h>

#include <array>
#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <stdexcept>
#include <string>

namespace pricedown::testing {
namespace {

struct Injection {
  FaultKind kind = FaultKind::Windows;
  bool counting = false;
  int calls = 0;
  int failing = 0;
};
Injection injection;

bool Fails(FaultKind kind) {
  if (!injection.counting || injection.kind != kind) return false;
  return ++injection.calls == injection.failing;
}

// `kFailure` is what the function returns if it fails.
template <FaultKind kKind, auto kFunction, auto kFailure>
struct Guarded;

template <FaultKind kKind, typename Result, typename... Arguments,
          Result(WINAPI* kFunction)(Arguments...), auto kFailure>
struct Guarded<kKind, kFunction, kFailure> {
  static Result WINAPI Call(Arguments... arguments) {
    if (!Fails(kKind)) return kFunction(arguments...);
    SetLastError(ERROR_NOT_ENOUGH_MEMORY);
    return static_cast<Result>(kFailure);
  }
};

void* GuardedMalloc(std::size_t size) {
  return Fails(FaultKind::Memory) ? nullptr : std::malloc(size);
}

void* GuardedRealloc(void* block, std::size_t size) {
  return Fails(FaultKind::Memory) ? nullptr : std::realloc(block, size);
}

struct Import {
  const char* name;
  void* guarded;
  void** place = nullptr;
  void* original = nullptr;
};

template <FaultKind kKind, auto kFunction, auto kFailure>
Import Guard(const char* name) {
  return {name, reinterpret_cast<void*>(&Guarded<kKind, kFunction, kFailure>::Call)};
}

#define GUARD(kind, function, failure) Guard<FaultKind::kind, &::function, failure>(#function)

std::array imports{
    GUARD(Windows, CreateWindowExW, nullptr),
    GUARD(Windows, RegisterClassExW, 0),
    GUARD(Windows, CreatePopupMenu, nullptr),
    GUARD(Windows, MessageBoxW, 0),
    GUARD(Windows, BeginDeferWindowPos, nullptr),
    GUARD(Windows, DeferWindowPos, nullptr),
    GUARD(Boundary, SysAllocStringLen, nullptr),
    GUARD(Boundary, SafeArrayCreate, nullptr),
    GUARD(Boundary, SafeArrayCreateVector, nullptr),
    GUARD(Boundary, SafeArrayCopy, E_OUTOFMEMORY),
    GUARD(Boundary, CoTaskMemAlloc, nullptr),
    GUARD(Boundary, CreateErrorInfo, E_OUTOFMEMORY),
    GUARD(Boundary, CreateOleAdviseHolder, E_OUTOFMEMORY),
    GUARD(Drawing, CreateCompatibleBitmap, nullptr),
    GUARD(Drawing, CreateCompatibleDC, nullptr),
    GUARD(Drawing, CreateMetaFileW, nullptr),
    GUARD(Drawing, CloseMetaFile, nullptr),
    GUARD(Drawing, CreateFontIndirectW, nullptr),
    GUARD(Drawing, CreateRectRgnIndirect, nullptr),
    GUARD(Drawing, GetIconInfo, FALSE),
    GUARD(Drawing, GetDIBits, 0),
    GUARD(Drawing, CreateIconIndirect, nullptr),
    GUARD(Drawing, ImageList_Create, nullptr),
    GUARD(Drawing, GlobalAlloc, nullptr),
    Import{"malloc", reinterpret_cast<void*>(&GuardedMalloc)},
    Import{"realloc", reinterpret_cast<void*>(&GuardedRealloc)},
};

#undef GUARD

// The entry of an imported function in the library's import address table.
void** PlaceOf(HMODULE library, const char* name) {
  auto* const base = reinterpret_cast<std::byte*>(library);
  const auto* const dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(base);
  const auto* const headers = reinterpret_cast<const IMAGE_NT_HEADERS*>(base + dos->e_lfanew);
  const auto& directory = headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
  const auto* from =
      reinterpret_cast<const IMAGE_IMPORT_DESCRIPTOR*>(base + directory.VirtualAddress);
  for (; from->Name != 0; ++from) {
    const auto* known = reinterpret_cast<const IMAGE_THUNK_DATA*>(base + from->OriginalFirstThunk);
    auto* place = reinterpret_cast<void**>(base + from->FirstThunk);
    for (; known->u1.AddressOfData != 0; ++known, ++place) {
      if (IMAGE_SNAP_BY_ORDINAL(known->u1.Ordinal)) continue;
      const auto* entry =
          reinterpret_cast<const IMAGE_IMPORT_BY_NAME*>(base + known->u1.AddressOfData);
      if (std::strcmp(reinterpret_cast<const char*>(&entry->Name), name) == 0) return place;
    }
  }
  throw std::runtime_error(std::string("not imported: ") + name);
}

void Put(void** place, void* function) {
  DWORD before = 0;
  VirtualProtect(place, sizeof *place, PAGE_READWRITE, &before);
  *place = function;
  VirtualProtect(place, sizeof *place, before, &before);
}

}  // namespace

ImportFaults::ImportFaults(HMODULE library) {
  for (Import& import : imports) {
    import.place = PlaceOf(library, import.name);
    import.original = *import.place;
    Put(import.place, import.guarded);
  }
}

ImportFaults::~ImportFaults() {
  injection = {};
  for (const Import& import : imports) Put(import.place, import.original);
}

void ImportFaults::Fail(FaultKind kind, int n) { injection = {kind, true, 0, n}; }

int ImportFaults::Stop() {
  injection.counting = false;
  return injection.calls;
}

}  // namespace pricedown::testing
