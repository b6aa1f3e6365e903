// The arguments of a recorded call on their way to the suite's object and back.
#pragma once

#include <oaidl.h>

#include <string>
#include <vector>

namespace workbench {

// Passes the caller's arguments themselves; recorded objects among them are replaced by the suite's
// own, in variables only while this object lives.
class ForwardedArguments {
 public:
  // `parameters` may be null. Throws std::bad_alloc and then has changed nothing.
  explicit ForwardedArguments(DISPPARAMS* parameters);
  // Puts back what the callee left, and records the objects that it has put into variables under
  // `name`.
  void Restore(const std::string& name) noexcept;

  DISPPARAMS* get() { return forwarded_; }

 private:
  struct Variable {
    VARIANT* argument;
    IUnknown* before;    // what the caller had in it; borrowed, or owned if it was replaced
    IUnknown* replaced;  // what the callee got instead; null if that was the same
  };

  DISPPARAMS* forwarded_;
  DISPPARAMS copy_{};
  std::vector<VARIANT> values_;  // own nothing
  std::vector<Variable> variables_;
};

// Records the objects in a result, those in an array included.
void RecordObjects(VARIANT& result, const std::string& name) noexcept;

}  // namespace workbench
