// A control on a company, with the platform's suite and views: silent ones natively, real windows
// and COM on Windows.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "bench/silent_user.h"
#include "control/price_down.h"

namespace bench {

class Stage {
 public:
  virtual ~Stage() = default;
  virtual pricedown::ObjectFactory& Factory() = 0;
  virtual const SilentUser& User() const = 0;
  // A control on the open company, initialised and shown.
  virtual pricedown::PriceDown& Control() = 0;
  // Adds nodes to the platform's tree without the library; BeginRaw clears it.
  virtual void BeginRawTree() = 0;
  virtual void InsertRaw(std::u16string_view text) = 0;
  virtual void EndRawTree() = 0;
  // A client of UI Automation asks the grid for its provider, and listens to nothing. Natively
  // there is none.
  virtual void AskAsClient() = 0;
  // Presses Down that often in the grid and paints each move. Natively the moves alone.
  virtual void MoveDown(int rows) = 0;
};

// Opens the company at `path` (UTF-8) in the suite and makes a control on it.
std::unique_ptr<Stage> MakeStage(const std::string& path);

}  // namespace bench
