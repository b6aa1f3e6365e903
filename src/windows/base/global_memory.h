// Movable memory as the system's dialogs exchange it: the owner, and the bytes while locked.
#pragma once

#include <windows.h>

#include <cstring>
#include <new>
#include <span>

namespace pricedown::windows {

// May be null.
class GlobalMemory {
 public:
  explicit GlobalMemory(HGLOBAL memory) : memory_(memory) {}
  ~GlobalMemory() {
    if (memory_ != nullptr) GlobalFree(memory_);
  }
  GlobalMemory(const GlobalMemory&) = delete;
  GlobalMemory& operator=(const GlobalMemory&) = delete;
  HGLOBAL Get() const { return memory_; }
  // Takes over what a dialog has replaced it with; frees nothing.
  void Reset(HGLOBAL memory) { memory_ = memory; }

 private:
  HGLOBAL memory_;
};

// The bytes of memory that stays in place for a scope; none for null.
class GlobalBytes {
 public:
  explicit GlobalBytes(HGLOBAL memory)
      : memory_(memory), bytes_(memory == nullptr ? nullptr : GlobalLock(memory)) {}
  ~GlobalBytes() {
    if (bytes_ != nullptr) GlobalUnlock(memory_);
  }
  GlobalBytes(const GlobalBytes&) = delete;
  GlobalBytes& operator=(const GlobalBytes&) = delete;
  std::span<const std::byte> Get() const {
    if (bytes_ == nullptr) return {};
    return {static_cast<const std::byte*>(bytes_), GlobalSize(memory_)};
  }

 private:
  HGLOBAL memory_;
  void* bytes_;
};

// Throws std::bad_alloc.
inline HGLOBAL CopyToGlobal(std::span<const std::byte> bytes) {
  const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, bytes.size());
  void* const target = memory == nullptr ? nullptr : GlobalLock(memory);
  if (target == nullptr) {
    GlobalFree(memory);
    throw std::bad_alloc();
  }
  std::memcpy(target, bytes.data(), bytes.size());
  GlobalUnlock(memory);
  return memory;
}

}  // namespace pricedown::windows
