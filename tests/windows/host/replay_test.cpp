// The host with a recording in place of a company.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "platform/error.h"
#include "platform/text.h"
#include "tests/sample/temporary_folder.h"
#include "tests/support/utf8.h"
#include "windows/com/com_object_factory.h"
#include "workbench/host/frame_window.h"

namespace workbench {
namespace {

using pricedown::testing::Utf8;

class HostReplay : public ::testing::Test {
 protected:
  HostReplay() { frame_.Show(SW_SHOW); }
  ~HostReplay() override {
    frame_.CloseChildren();
    // The suite of the process is live again.
    frame_.Settings()->Call(u"Replay", {u""});
    OleUninitialize();
  }

  std::wstring FileOf(const char* lines) {
    const std::filesystem::path path(pricedown::FromUtf8(folder_.PathOf("recording.jsonl")));
    std::ofstream(path, std::ios::binary) << lines;
    return path.wstring();
  }

  const HRESULT ole_ = OleInitialize(nullptr);
  testing::TemporaryFolder folder_;
  pricedown::windows::ComObjectFactory factory_;
  FrameWindow frame_{GetModuleHandleW(nullptr), factory_.Create(u"ZEPWorkbench.Settings")};
};

TEST_F(HostReplay, AnotherFileIsRefused) {
  const std::wstring file = FileOf("hello\n");
  try {
    frame_.ReplayRecording(file);
    FAIL() << "this is no recording";
  } catch (const pricedown::AutomationError& error) {
    EXPECT_EQ("这不是调用记录，或版本不同。", Utf8(error.Description()));
  }
}

}  // namespace
}  // namespace workbench
