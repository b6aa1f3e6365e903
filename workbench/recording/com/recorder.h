// The file of this process's recording.
#pragma once

#include <windows.h>

#include <oaidl.h>

#include <atomic>
#include <mutex>
#include <string>

#include "workbench/recording/value_json.h"

namespace workbench {

// Text of an environment variable; empty when it is not set.
std::wstring EnvironmentText(const wchar_t* name);

// Runs what writes a line: whatever happens to it, the call goes on.
template <typename Body>
void WithoutFailing(Body&& body) noexcept {
  try {
    body();
  } catch (...) {
    OutputDebugStringW(L"SuiteRecorder: a line was lost.\n");
  }
}

// All members may be called from any thread. What cannot be written is dropped: a recorder never
// fails a call.
class Recorder {
 public:
  static Recorder& Instance();

  // Whether SUITE_RECORDER_VALUES asks for the values of arguments and results.
  bool WithValues() const { return withValues_; }
  ObjectNumber NextNumber() { return ++number_; }
  // Adds a line and writes it through to the system. The first one creates the file, in the folder
  // of SUITE_RECORDER_FOLDER or else the temporary one.
  void Write(const Json& line) noexcept;

 private:
  Recorder();
  ~Recorder();
  void WriteLine(const Json& line);

  const bool withValues_;
  std::atomic<ObjectNumber> number_ = 0;
  std::mutex mutex_;
  bool opened_ = false;
  HANDLE file_ = INVALID_HANDLE_VALUE;
};

// The time of a call and what is common to all lines. Lives while the call runs.
class CallClock {
 public:
  CallClock();
  ~CallClock();
  CallClock(const CallClock&) = delete;
  CallClock& operator=(const CallClock&) = delete;

  void Stop();
  // "time" of the start, "ms", "thread", and "depth" inside another recorded call of the thread.
  Json Line(const char* kind) const;

 private:
  SYSTEMTIME time_{};
  LARGE_INTEGER started_{};
  LARGE_INTEGER stopped_{};
};

// Keeps what a call has left in the thread, its last error and error info, while a line is written.
class ThreadState {
 public:
  ThreadState();
  ~ThreadState();
  ThreadState(const ThreadState&) = delete;
  ThreadState& operator=(const ThreadState&) = delete;

  // Borrowed; null when there is none.
  IErrorInfo* Info() const { return info_; }

 private:
  DWORD error_;
  IErrorInfo* info_ = nullptr;
};

}  // namespace workbench
