// The calls to sinks and listener. Each may end the control or change the list.
#include "windows/server/event_source.h"

#include <algorithm>
#include <span>

#include "platform/skip.h"
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

bool EventSource::Remove(DWORD cookie) {
  const auto found = std::find_if(sinks_.begin(), sinks_.end(),
                                  [cookie](const Sink& sink) { return sink.cookie == cookie; });
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
  Send(kFailed, u"Failed", {failure.code, failure.description, failure.source});
}

void EventSource::Send(DISPID id, std::u16string_view name,
                       std::initializer_list<Value> arguments) noexcept {
  if (frozen_ > 0) return;
  SkipFailing([&] {
    std::vector<ComPtr<IDispatch>> sinks;
    for (const Sink& sink : sinks_) sinks.push_back(sink.object.Copy());
    const ObjectPtr listener = listener_;
    std::vector<Value> copies(arguments);
    OutgoingArguments outgoing(copies);
    const std::span<VARIANT> reversed = outgoing.Reversed();
    DISPPARAMS parameters{};
    parameters.rgvarg = reversed.data();
    parameters.cArgs = static_cast<UINT>(reversed.size());
    for (const ComPtr<IDispatch>& sink : sinks) {
      sink->Invoke(id, IID{}, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters, nullptr, nullptr,
                   nullptr);
    }
    if (listener != nullptr) SkipFailing([&] { listener->Call(name, arguments); });
  });
}

}  // namespace pricedown::windows
