// A program that creates and shows whole controls, and the same windows without a control. Natively
// both are without windows.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "platform/automation.h"

namespace bench {

class Host {
 public:
  virtual ~Host() = default;
  virtual pricedown::ObjectFactory& Factory() = 0;

  // Creates that many controls, then ends them all. Throws if one fails.
  virtual void MakeControls(int count) = 0;
  // Creates as many sets of a control's windows, then destroys them all.
  virtual void MakePlain(int count) = 0;

  // Creates a control in the host's window, shows and paints it. Returns the number of tree nodes.
  virtual std::size_t ShowControl() = 0;
  // The same for a set of windows, with `nodes` under one root in its tree.
  virtual std::size_t ShowPlain(const std::vector<std::u16string>& nodes) = 0;
  // Ends the shown control or windows.
  virtual void EndShown() = 0;
};

// Opens the company at `path` (UTF-8) in the suite.
std::unique_ptr<Host> MakeHost(const std::string& path);

}  // namespace bench
