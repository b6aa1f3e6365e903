// What every room above is given of the suite, the user and the screen, in one place.
// It owns the small services built on them; the ports themselves belong to the Windows layer.
#pragma once

#include <string>
#include <utility>

#include "env/messages.h"
#include "env/process_state.h"
#include "env/rights.h"
#include "env/screen.h"
#include "platform/automation.h"
#include "platform/questions.h"

namespace pricedown {

class Environment {
 public:
  // `application` is the host program's name. All references must outlive the environment.
  Environment(ObjectFactory& objects, ProcessState& processState, UserQuestions& userQuestions,
              Screen& theScreen, std::u16string applicationName)
      : factory(objects),
        state(processState),
        screen(theScreen),
        application(std::move(applicationName)),
        messages(userQuestions),
        rights(objects, processState, messages) {}
  Environment(const Environment&) = delete;
  Environment& operator=(const Environment&) = delete;

  ObjectFactory& factory;
  ProcessState& state;
  Screen& screen;
  const std::u16string application;
  Messages messages;
  Rights rights;
};

}  // namespace pricedown
