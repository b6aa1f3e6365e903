// Answers message boxes of the test's thread with OK as soon as they appear.
#pragma once

#include <windows.h>

namespace pricedown::testing {

class DialogCloser {
 public:
  // Only one at a time.
  DialogCloser();
  ~DialogCloser();
  DialogCloser(const DialogCloser&) = delete;
  DialogCloser& operator=(const DialogCloser&) = delete;

  int Closed() const;

 private:
  HHOOK hook_;
};

}  // namespace pricedown::testing
