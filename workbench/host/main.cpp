// The host program: reads its command line, opens the company, shows the frame, runs messages.
//   WorkbenchHost.exe --company LOCATION [--tour FOLDER | --keys FOLDER]
#include <windows.h>

#include <commctrl.h>
#include <objbase.h>
#include <shellapi.h>

#include <optional>
#include <string>

#include "platform/error.h"
#include "windows/com/com_object_factory.h"
#include "windows/com/failure.h"
#include "workbench/host/frame_window.h"
#include "workbench/host/messages.h"
#include "workbench/host/tour.h"

namespace workbench {
namespace {

struct Options {
  std::wstring company;
  std::wstring tour;
  std::wstring keys;  // the tour with the keyboard alone
};

// Nothing for a bad command line.
std::optional<Options> ReadCommandLine() {
  Options options;
  int count = 0;
  wchar_t** words = CommandLineToArgvW(GetCommandLineW(), &count);
  bool understood = words != nullptr;
  for (int i = 1; understood && i < count; i += 2) {
    const std::wstring option = words[i];
    std::wstring* target = option == L"--company" ? &options.company
                           : option == L"--tour"  ? &options.tour
                           : option == L"--keys"  ? &options.keys
                                                  : nullptr;
    understood = target != nullptr && i + 1 < count;
    if (understood) *target = words[i + 1];
  }
  LocalFree(words);
  if (!understood) return std::nullopt;
  return options;
}

struct Ole {
  HRESULT result = OleInitialize(nullptr);
  ~Ole() {
    if (SUCCEEDED(result)) OleUninitialize();
  }
};

int RunHost(HINSTANCE module, int show, const Options& options) {
  pricedown::windows::ComObjectFactory factory;
  FrameWindow frame(module, factory.Create(u"ZEPWorkbench.Settings"));
  frame.Show(show);
  if (options.company.empty()) return frame.Run();
  const bool isWhole = !options.tour.empty();
  if (isWhole || !options.keys.empty()) {
    frame.OpenCompany(options.company);
    Tour tour(frame, isWhole ? options.tour : options.keys,
              isWhole ? Tour::Kind::Whole : Tour::Kind::KeysOnly);
    const int code = frame.Run();
    return tour.Finished() ? code : 3;
  }
  if (frame.OpenCompanyOrAsk(options.company)) frame.OpenChild(kItemClassesCaption);
  return frame.Run();
}

}  // namespace
}  // namespace workbench

// NOLINTNEXTLINE(readability-inconsistent-declaration-parameter-name)
int WINAPI wWinMain(HINSTANCE module, HINSTANCE, PWSTR, int show) {
  const auto options = workbench::ReadCommandLine();
  if (!options) {
    MessageBoxW(nullptr,
                L"WorkbenchHost.exe --company 公司文件或连接串 [--tour 文件夹 | --keys 文件夹]",
                L"工作台", MB_OK | MB_ICONINFORMATION);
    return 2;
  }
  const workbench::Ole ole;
  INITCOMMONCONTROLSEX controls{sizeof(controls), ICC_WIN95_CLASSES | ICC_STANDARD_CLASSES};
  InitCommonControlsEx(&controls);
  try {
    return workbench::RunHost(module, show, *options);
  } catch (...) {
    workbench::ShowFailure(nullptr, pricedown::CurrentFailure());
    return 1;
  }
}
