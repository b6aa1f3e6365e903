// The calls to sinks and listener. Each may end the control or change the list.
#include "windows/server/event_source.h"

#include <algorithm>
#include <span>

#include "platform/skip.h"
#include "windows/com/boundary.h"
#include "windows/com/outgoing_arguments.h"

namespace pricedown::windows {
namespace {

// As the type library numbers them.
constexpr DISPID kSelectionChanged = 1;
constexpr DISPID kClassChanged = 2;
constexpr DISPID kClosing = 3;
constexpr DISPID kFailed = 4;

}  // namespace

DWORD EventSource::Add(ComPtr<IDispatch> sink) {
  sinks_.push_back({++lastCookie_, std::move(sink)});
  return lastCookie_;
}

std::vector<EventSource::Sink>::iterator EventSource::Find(DWORD cookie) {
  return std::find_if(sinks_.begin(), sinks_.end(),
                      [cookie](const Sink& sink) { return sink.cookie == cookie; });
}

bool EventSource::Remove(DWORD cookie) {
  const auto found = Find(cookie);
  if (found == sinks_.end()) return false;
  // Released last, because that may call back.
  const ComPtr<IDispatch> removed = std::move(found->object);
  sinks_.erase(found);
  return true;
}

void EventSource::SelectionChanged(std::u16string_view classNumber) {
  Send(kSelectionChanged, u"SelectionChanged", {classNumber});
}

void EventSource::ClassChanged(ClassChange change, std::u16string_view classNumber) {
  Send(kClassChanged, u"ClassChanged", {static_cast<std::int32_t>(change), classNumber});
}

void EventSource::Closing() { Send(kClosing, u"Closing", {}); }

void EventSource::Failed(const Failure& failure) {
  Send(kFailed, u"Failed", {failure.code, failure.description, SourceOf(failure)});
}

void EventSource::Send(DISPID id, std::u16string_view name,
                       std::initializer_list<Value> arguments) noexcept {
  if (!HasListeners()) return;
  SkipFailing([&] {
    std::vector<DWORD> cookies;
    for (const Sink& sink : sinks_) cookies.push_back(sink.cookie);
    std::vector<Value> copies(arguments);
    OutgoingArguments outgoing(copies);
    const std::span<VARIANT> reversed = outgoing.Reversed();
    DISPPARAMS parameters{};
    parameters.rgvarg = reversed.data();
    parameters.cArgs = static_cast<UINT>(reversed.size());
    for (const DWORD cookie : cookies) {
      const auto found = Find(cookie);
      // Another sink may have disconnected it, and it may exist no more.
      if (found == sinks_.end()) continue;
      const ComPtr<IDispatch> sink = found->object.Copy();
      sink->Invoke(id, IID{}, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters, nullptr, nullptr,
                   nullptr);
    }
    const ObjectPtr listener = listener_;
    if (listener != nullptr) SkipFailing([&] { listener->Call(name, arguments); });
  });
}

}  // namespace pricedown::windows
