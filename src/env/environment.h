// Suite, user, screen and lifetime of one control, passed to all its components.
#pragma once

#include <memory>
#include <string>
#include <utility>

#include "env/host_events.h"
#include "env/messages.h"
#include "env/rights.h"
#include "env/screen.h"
#include "env/thread_state.h"
#include "platform/automation.h"
#include "platform/lifetime.h"
#include "platform/questions.h"

namespace pricedown {

class Environment {
 public:
  // `application` is the host program's name. All references must outlive the environment.
  Environment(ObjectFactory& objects, ThreadState& threadState, UserQuestions& userQuestions,
              Screen& theScreen, std::u16string applicationName, Lifetime controlLifetime = {})
      : factory(objects),
        state(threadState),
        screen(theScreen),
        application(std::move(applicationName)),
        lifetime(std::move(controlLifetime)),
        messages(userQuestions),
        rights(objects, threadState, messages, lifetime) {}
  Environment(const Environment&) = delete;
  Environment& operator=(const Environment&) = delete;

  // Calls a method of HostEvents unless the control has ended or nobody listens. The host may end
  // the control in its handler, or wait there for the user.
  template <typename Event, typename... Arguments>
  void Notify(Event event, const Arguments&... arguments) const {
    const std::shared_ptr<HostEvents> listeners = events;
    if (listeners == nullptr || lifetime.HasEnded() || !listeners->HasListeners()) return;
    screen.SetPainting(true);
    (*listeners.*event)(arguments...);
  }
  void NotifyFailed(const Failure& failure) const { Notify(&HostEvents::Failed, failure); }

  ObjectFactory& factory;
  ThreadState& state;
  Screen& screen;
  const std::u16string application;
  Lifetime lifetime;                   // of the control that this environment serves
  std::shared_ptr<HostEvents> events;  // null without a host
  Messages messages;
  Rights rights;
};

}  // namespace pricedown
