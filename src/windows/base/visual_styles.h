// The activation context by which windows created inside a Scope use version 6 of the common
// controls in every host.
#pragma once

#include <windows.h>

namespace pricedown::windows {

class VisualStyles {
 public:
  // Uses manifest resource 2 of `module`; without one the host's context stays.
  explicit VisualStyles(HINSTANCE module);
  ~VisualStyles();
  VisualStyles(const VisualStyles&) = delete;
  VisualStyles& operator=(const VisualStyles&) = delete;

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
  HANDLE context_;
};

}  // namespace pricedown::windows
