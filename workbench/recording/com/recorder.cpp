// Creating the file, and one write per line.
#include "workbench/recording/com/recorder.h"

#include <oleauto.h>

#include <array>
#include <cstdio>
#include <nlohmann/json.hpp>

namespace workbench {
namespace {

thread_local int callsRunning = 0;

std::string TimeText(const SYSTEMTIME& time) {
  std::array<char, 64> text{};
  // NOLINTNEXTLINE(cppcoreguidelines-pro-type-vararg)
  const int length = std::snprintf(text.data(), text.size(), "%04u-%02u-%02uT%02u:%02u:%02u.%03uZ",
                                   time.wYear, time.wMonth, time.wDay, time.wHour, time.wMinute,
                                   time.wSecond, time.wMilliseconds);
  return {text.data(), static_cast<std::size_t>(length)};
}

std::wstring Folder() {
  std::wstring folder = EnvironmentText(L"SUITE_RECORDER_FOLDER");
  if (folder.empty()) {
    std::array<wchar_t, MAX_PATH + 1> temporary{};
    folder.assign(temporary.data(), GetTempPathW(MAX_PATH, temporary.data()));
  }
  if (!folder.empty() && folder.back() != L'\\' && folder.back() != L'/') folder += L'\\';
  return folder;
}

// A new name for each process and time, so that no recording is overwritten.
std::wstring FileName(const SYSTEMTIME& now) {
  std::string time = TimeText(now);
  std::erase_if(time, [](char one) { return one == '-' || one == ':' || one == '.'; });
  const std::string name =
      "SuiteRecorder-" + time + "-" + std::to_string(GetCurrentProcessId()) + ".jsonl";
  return std::wstring(name.begin(), name.end());
}

}  // namespace

std::wstring EnvironmentText(const wchar_t* name) {
  std::wstring text(GetEnvironmentVariableW(name, nullptr, 0), L'\0');
  if (!text.empty()) {
    text.resize(GetEnvironmentVariableW(name, text.data(), static_cast<DWORD>(text.size())));
  }
  return text;
}

Recorder& Recorder::Instance() {
  static Recorder recorder;
  return recorder;
}

Recorder::Recorder() : withValues_(EnvironmentText(L"SUITE_RECORDER_VALUES") == L"1") {}

Recorder::~Recorder() {
  if (file_ != INVALID_HANDLE_VALUE) CloseHandle(file_);
}

void Recorder::Write(const Json& line) noexcept {
  try {
    const std::scoped_lock lock(mutex_);
    if (!opened_) {
      opened_ = true;
      SYSTEMTIME now;
      GetSystemTime(&now);
      file_ = CreateFileW((Folder() + FileName(now)).c_str(), FILE_APPEND_DATA, FILE_SHARE_READ,
                          nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr);
      if (file_ == INVALID_HANDLE_VALUE) {
        OutputDebugStringW(L"SuiteRecorder: the file cannot be created; nothing is recorded.\n");
      }
      Json first;
      first["recording"] = 1;
      first["values"] = withValues_;
      first["time"] = TimeText(now);
      first["process"] = GetCurrentProcessId();
      WriteLine(first);
    }
    WriteLine(line);
  } catch (...) {
    OutputDebugStringW(L"SuiteRecorder: a line was lost.\n");
  }
}

// Requires: the mutex is held.
void Recorder::WriteLine(const Json& line) {
  if (file_ == INVALID_HANDLE_VALUE) return;
  const std::string bytes = LineOf(line) + "\r\n";
  DWORD written = 0;
  WriteFile(file_, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
}

CallClock::CallClock() {
  ++callsRunning;
  GetSystemTime(&time_);
  QueryPerformanceCounter(&started_);
}

CallClock::~CallClock() { --callsRunning; }

void CallClock::Stop() { QueryPerformanceCounter(&stopped_); }

Json CallClock::Line(const char* kind) const {
  LARGE_INTEGER frequency;
  QueryPerformanceFrequency(&frequency);
  const auto ticks = static_cast<double>(stopped_.QuadPart - started_.QuadPart);
  const double microseconds = ticks * 1e6 / static_cast<double>(frequency.QuadPart);
  Json line;
  line["time"] = TimeText(time_);
  line["ms"] = static_cast<double>(static_cast<std::int64_t>(microseconds)) / 1000;
  line["thread"] = GetCurrentThreadId();
  if (callsRunning > 1) line["depth"] = callsRunning - 1;
  line["kind"] = kind;
  return line;
}

ThreadState::ThreadState() : error_(GetLastError()) {
  if (GetErrorInfo(0, &info_) != S_OK) info_ = nullptr;
}

ThreadState::~ThreadState() {
  SetErrorInfo(0, info_);
  if (info_ != nullptr) info_->Release();
  SetLastError(error_);
}

}  // namespace workbench
