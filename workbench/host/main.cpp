// The host program: reads its command line, opens the company, shows the frame, runs messages.
#include <windows.h>

#include <commctrl.h>
#include <objbase.h>
#include <shellapi.h>

#include <string>
#include <vector>

#include "platform/text.h"
#include "windows/com/com_object_factory.h"
#include "workbench/host/command_line.h"
#include "workbench/host/frame_window.h"
#include "workbench/host/messages.h"
#include "workbench/host/tour.h"

namespace workbench {
namespace {

std::vector<std::wstring> Words() {
  int count = 0;
  wchar_t** words = CommandLineToArgvW(GetCommandLineW(), &count);
  if (words == nullptr) return {};
  std::vector<std::wstring> copied(words + 1, words + count);
  LocalFree(words);
  return copied;
}

struct Ole {
  HRESULT result = OleInitialize(nullptr);
  ~Ole() {
    if (SUCCEEDED(result)) OleUninitialize();
  }
};

int RunFrame(FrameWindow& frame, const CommandLine& options) {
  if (!options.replay.empty()) {
    frame.ReplayRecording(options.replay);
    return frame.Run();
  }
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

int RunHost(HINSTANCE module, int show, const CommandLine& options) {
  // A ghost of a window that waits for a server would take the key that cancels.
  DisableProcessWindowsGhosting();
  pricedown::windows::ComObjectFactory factory;
  FrameWindow frame(module, factory.Create(u"ZEPWorkbench.Settings"));
  SetTimeouts(*frame.Settings(), options);
  frame.Show(show);
  try {
    return RunFrame(frame, options);
  } catch (...) {
    const pricedown::Failure failure = pricedown::CurrentFailure();
    const std::wstring& folder = options.tour.empty() ? options.keys : options.tour;
    if (folder.empty()) {
      ShowFailure(frame.Handle(), failure);
    } else {
      // No user is there to close a message box.
      Tour::SaveFailure(folder, pricedown::ToUtf8(failure.description));
    }
    return 1;
  }
}

}  // namespace
}  // namespace workbench

// NOLINTNEXTLINE(readability-inconsistent-declaration-parameter-name)
int WINAPI wWinMain(HINSTANCE module, HINSTANCE, PWSTR, int show) {
  const auto options = workbench::ParseCommandLine(workbench::Words());
  if (!options) {
    MessageBoxW(nullptr, workbench::kUsage, L"工作台", MB_OK | MB_ICONINFORMATION);
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
