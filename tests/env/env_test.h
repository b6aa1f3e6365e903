// What the tests of the environment share: a log, a factory and the suite's properties string.
#pragma once

#include <gtest/gtest.h>

#include "tests/support/failure.h"
#include "tests/support/recording_factory.h"
#include "tests/support/recording_questions.h"
#include "tests/support/utf8.h"

namespace pricedown::testing {

inline constexpr std::u16string_view kShareProps = u"ZEPPropsMgr.ShareProps";

// Every request for "PropsString" is answered in the argument by reference.
inline void SetProperties(RecordingFactory& factory, std::u16string_view properties) {
  factory.Object(kShareProps)
      .On(u"GetProperty", R"("PropsString", ref Empty)", Reply(Value()).Writing(1, properties));
}

class EnvTest : public ::testing::Test {
 protected:
  CallLog log;
  RecordingFactory factory{log};
};

}  // namespace pricedown::testing
