// The suite's pickers as modal windows over the caller's active window.
#pragma once

#include <windows.h>

#include "workbench/suite/pickers.h"

namespace workbench {

// Throws DatabaseError when a statement fails, also while the window is open, which then closes.
class DialogPickers final : public Pickers {
 public:
  // `module` carries the manifest of the common controls, as resource 2.
  explicit DialogPickers(HINSTANCE module) : module_(module) {}

  std::optional<std::u16string> PickAccount(Connection& company, std::u16string_view text) override;
  std::optional<std::vector<std::int32_t>> PickItems(Connection& company,
                                                     std::u16string_view condition,
                                                     bool several) override;

 private:
  HINSTANCE module_;
};

}  // namespace workbench
