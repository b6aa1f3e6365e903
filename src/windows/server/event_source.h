// The control's events: the sinks of its connection point and the one listener.
#pragma once

#include <ocidl.h>

#include <initializer_list>
#include <string_view>
#include <vector>

#include "env/host_events.h"
#include "platform/automation.h"
#include "windows/com/com_ptr.h"

namespace pricedown::windows {

class EventSource final : public HostEvents {
 public:
  struct Sink {
    DWORD cookie = 0;
    ComPtr<IDispatch> object;
  };

  // The cookie of a new sink, never 0.
  DWORD Add(ComPtr<IDispatch> sink);
  // False when there is no such sink.
  bool Remove(DWORD cookie);
  const std::vector<Sink>& Sinks() const { return sinks_; }

  // An object with any of the methods, called by name; null for none.
  const ObjectPtr& Listener() const { return listener_; }
  void SetListener(ObjectPtr listener) { std::swap(listener_, listener); }

  // Events between Freeze(true) and its Freeze(false) are dropped.
  void Freeze(bool freeze) { frozen_ += freeze ? 1 : frozen_ > 0 ? -1 : 0; }
  // Ends all freezes.
  void Unfreeze() { frozen_ = 0; }

  // HostEvents
  bool HasListeners() const override {
    return frozen_ == 0 && (!sinks_.empty() || listener_ != nullptr);
  }
  void SelectionChanged(std::u16string_view classNumber) override;
  void ClassChanged(ClassChange change, std::u16string_view classNumber) override;
  void Closing() override;
  void Failed(const Failure& failure) override;

 private:
  std::vector<Sink>::iterator Find(DWORD cookie);
  // Calls the sinks that are connected at the beginning and still are at their turn; their failures
  // are ignored.
  void Send(DISPID id, std::u16string_view name, std::initializer_list<Value> arguments) noexcept;

  std::vector<Sink> sinks_;
  DWORD lastCookie_ = 0;
  ObjectPtr listener_;
  int frozen_ = 0;
};

}  // namespace pricedown::windows
