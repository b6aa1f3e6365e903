// COM's enumerators over a fixed list.
#pragma once

#include <windows.h>

#include <algorithm>
#include <memory>
#include <vector>

#include "windows/com/boundary.h"
#include "windows/com/com_class.h"

namespace pricedown::windows {

// Walks over `Traits::Item`s as they were when it was made. Traits::Copy(item) makes the
// Traits::Element that the caller owns and may throw; Traits::Free(element) releases it.
template <typename Interface, typename Traits>
class Enumerator final : public ComClass<Interface> {
 public:
  using Element = typename Traits::Element;
  using Items = std::shared_ptr<const std::vector<typename Traits::Item>>;

  explicit Enumerator(Items items, std::size_t next = 0) : items_(std::move(items)), next_(next) {}

  STDMETHODIMP Next(ULONG wanted, Element* elements, ULONG* fetched) noexcept override {
    if (fetched != nullptr) *fetched = 0;
    if (elements == nullptr || (fetched == nullptr && wanted != 1)) return E_POINTER;
    const std::size_t count = std::min<std::size_t>(wanted, Left());
    std::size_t copied = 0;
    const HRESULT code = AtBoundary([&] {
      for (; copied < count; ++copied) elements[copied] = Traits::Copy((*items_)[next_ + copied]);
    });
    if (FAILED(code)) {
      while (copied > 0) Traits::Free(elements[--copied]);
      return code;
    }
    next_ += count;
    if (fetched != nullptr) *fetched = static_cast<ULONG>(count);
    return count == wanted ? S_OK : S_FALSE;
  }

  STDMETHODIMP Skip(ULONG count) noexcept override {
    const std::size_t skipped = std::min<std::size_t>(count, Left());
    next_ += skipped;
    return skipped == count ? S_OK : S_FALSE;
  }

  STDMETHODIMP Reset() noexcept override {
    next_ = 0;
    return S_OK;
  }

  STDMETHODIMP Clone(Interface** copy) noexcept override {
    if (copy == nullptr) return E_POINTER;
    *copy = nullptr;
    return AtBoundary([&] { *copy = MakeCom<Enumerator>(items_, next_).release(); });
  }

 private:
  std::size_t Left() const { return items_->size() - next_; }

  Items items_;
  std::size_t next_;
};

}  // namespace pricedown::windows
