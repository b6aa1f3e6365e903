// Port for the events that a control sends to its host.
#pragma once

#include <cstdint>
#include <string_view>

#include "platform/failure.h"

namespace pricedown {

// The numbers are public.
enum class ClassChange : std::int32_t { Added = 1, Changed = 2, Deleted = 3 };

// No method throws. The host may end the control inside each of them.
class HostEvents {
 public:
  virtual ~HostEvents() = default;
  // Whether an event would reach anybody now.
  virtual bool HasListeners() const = 0;
  // Another class is selected; empty for the root. If its items could not be loaded, Failed has
  // been called, and those shown may be of the class before.
  virtual void SelectionChanged(std::u16string_view classNumber) = 0;
  // The class has been written to the company, or deleted from it.
  virtual void ClassChanged(ClassChange change, std::u16string_view classNumber) = 0;
  // The control has ended; its objects of suite and host are released next.
  virtual void Closing() = 0;
  // A command that the user started has failed.
  virtual void Failed(const Failure& failure) = 0;
};

}  // namespace pricedown
