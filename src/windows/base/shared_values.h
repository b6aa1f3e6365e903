// Values that are costly to make and alike for all who use them at a time.
#pragma once

#include <windows.h>

#include <memory>
#include <utility>
#include <vector>

namespace pricedown::windows {

// Owns no value: a value made for its first user lives until its last one releases it.
template <typename Key, typename T>
class SharedValues {
 public:
  // The value of `key`, from `make` when nobody has it. Throws what `make` throws.
  template <typename Make>
  std::shared_ptr<T> Get(const Key& key, Make&& make) {
    AcquireSRWLockExclusive(&lock_);
    const std::unique_ptr<SRWLOCK, Unlock> locked(&lock_);
    std::erase_if(values_, [](const auto& value) { return value.second.expired(); });
    for (const auto& [known, value] : values_) {
      if (std::shared_ptr<T> shared = value.lock(); shared != nullptr && known == key) {
        return shared;
      }
    }
    std::shared_ptr<T> made = std::forward<Make>(make)();
    values_.emplace_back(key, made);
    return made;
  }

 private:
  struct Unlock {
    void operator()(SRWLOCK* lock) const { ReleaseSRWLockExclusive(lock); }
  };

  SRWLOCK lock_ = SRWLOCK_INIT;
  std::vector<std::pair<Key, std::weak_ptr<T>>> values_;
};

}  // namespace pricedown::windows
