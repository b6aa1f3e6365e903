// The activation context by which windows created inside a Scope use version 6 of the common
// controls in every host.
#pragma once

#include <windows.h>

#include <memory>

namespace pricedown::windows {

class VisualStyles {
 public:
  // Uses manifest resource 2 of `module`; without one the host's context stays.
  explicit VisualStyles(HINSTANCE module);

  class Scope {
   public:
    explicit Scope(const VisualStyles& styles);
    ~Scope();
    Scope(const Scope&) = delete;
    Scope& operator=(const Scope&) = delete;

   private:
    bool active_ = false;
    ULONG_PTR cookie_ = 0;
  };

 private:
  std::shared_ptr<void> context_;  // the context's handle
};

}  // namespace pricedown::windows
