// Cache of values that their current users share.
#pragma once

#include <windows.h>

#include <memory>
#include <utility>
#include <vector>

#include "windows/base/exclusive_lock.h"

namespace pricedown::windows {

// Owns no value: a value made for its first user lives until its last one releases it.
template <typename Key, typename T>
class SharedValues {
 public:
  // The value of `key`, made by `make` when there is none. May be called from several threads.
  // Requires: `make` does not call this. Throws what `make` throws.
  template <typename Make>
  std::shared_ptr<T> Get(const Key& key, Make&& make) {
    const ExclusiveLock locked(lock_);
    std::erase_if(values_, [](const auto& value) { return value.second.expired(); });
    for (const auto& [known, value] : values_) {
      // Another key's value may belong to another thread, which alone may release it.
      if (known != key) continue;
      if (std::shared_ptr<T> shared = value.lock()) return shared;
    }
    std::shared_ptr<T> made = std::forward<Make>(make)();
    values_.emplace_back(key, made);
    return made;
  }

 private:
  SRWLOCK lock_ = SRWLOCK_INIT;
  std::vector<std::pair<Key, std::weak_ptr<T>>> values_;
};

}  // namespace pricedown::windows
