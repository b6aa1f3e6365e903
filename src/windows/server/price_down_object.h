// The COM object `PriceDown`: its parts, and the control behind all of them.
// It adds nothing of its own but its end.
#pragma once

#include "windows/server/class_info_part.h"
#include "windows/server/in_place_part.h"
#include "windows/server/ole_object_part.h"
#include "windows/server/persistence_part.h"
#include "windows/server/price_down_part.h"
#include "windows/server/view_part.h"

namespace pricedown::windows {

class PriceDownObject final : public ComClassOf<PriceDownPart, OleObjectPart, InPlacePart, ViewPart,
                                                PersistencePart, ClassInfoPart> {
 public:
  // Throws AutomationError when the control's window cannot be made.
  PriceDownObject() : control_(*Identity(), *this) {}

 private:
  HostedControl& Hosted() noexcept override { return control_; }

  // A container that forgot to close the control.
  void FinalRelease() noexcept override {
    AtBoundary([&] { control_.Close(); });
  }

  HostedControl control_;
};

}  // namespace pricedown::windows
