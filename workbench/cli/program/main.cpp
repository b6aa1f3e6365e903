// The entry of the `workbench` program: words in UTF-8, console in UTF-8.
#include <iostream>
#include <string>
#include <vector>

#include "workbench/cli/commands.h"

#ifdef _WIN32
#include <windows.h>

#include <shellapi.h>

namespace {

std::string ToUtf8(const wchar_t* text) {
  const int size = WideCharToMultiByte(CP_UTF8, 0, text, -1, nullptr, 0, nullptr, nullptr);
  if (size <= 1) return {};
  std::string utf8(static_cast<std::size_t>(size), '\0');
  WideCharToMultiByte(CP_UTF8, 0, text, -1, utf8.data(), size, nullptr, nullptr);
  utf8.pop_back();  // the terminator
  return utf8;
}

// The words of main() are in the system's code page, which cannot hold every file name.
std::vector<std::string> CommandLineWords() {
  std::vector<std::string> words;
  int count = 0;
  wchar_t** wide = CommandLineToArgvW(GetCommandLineW(), &count);
  for (int i = 1; wide != nullptr && i < count; ++i) words.push_back(ToUtf8(wide[i]));
  LocalFree(wide);
  return words;
}

// The console keeps the code page after the program has ended, so restore it.
class Utf8Console {
 public:
  Utf8Console() { SetConsoleOutputCP(CP_UTF8); }
  ~Utf8Console() { SetConsoleOutputCP(before_); }
  Utf8Console(const Utf8Console&) = delete;
  Utf8Console& operator=(const Utf8Console&) = delete;

 private:
  UINT before_ = GetConsoleOutputCP();
};

}  // namespace

int main() {
  const Utf8Console console;
  const int code = workbench::RunCommand(CommandLineWords(), std::cout, std::cerr);
  std::cout.flush();
  return std::cout ? code : workbench::kFailed;
}

#else

int main(int argc, char** argv) {
  const std::vector<std::string> words(argv + (argc > 0 ? 1 : 0), argv + argc);
  const int code = workbench::RunCommand(words, std::cout, std::cerr);
  std::cout.flush();
  return std::cout ? code : workbench::kFailed;
}

#endif
