// A step of a save whose failure says what failed.
#pragma once

#include <string_view>
#include <utility>

#include "env/translation.h"
#include "platform/error.h"
#include "platform/text.h"

namespace pricedown {

// Runs `step` and returns its result. A failure keeps its number and source; its description begins
// with `failed` and `on`, what the step worked on.
template <typename Step>
auto RunSaveStep(std::u16string_view failed, std::u16string_view on, Step&& step) {
  try {
    return std::forward<Step>(step)();
  } catch (const AutomationError& error) {
    throw AutomationError(error.Number(),
                          Concatenate({Translate(failed), on, kLineBreak, error.Description()}),
                          error.Source());
  }
}

}  // namespace pricedown
