// A shown control with a recording grid window, ready for clicks on its tools.
#pragma once

#include <memory>
#include <string>

#include "platform/error.h"
#include "tests/control/control_fixture.h"

namespace pricedown::testing {

// A tool's key and the mask of the right it needs.
struct RightCase {
  std::u16string_view key;
  const char* mask;
};

class Dispatch : public ::testing::Test {
 protected:
  void Start() {
    world_.CreateAndInitialize();
    world_.control->Show(nullptr);
    world_.control->GetGrid().Attach(&gridView());
    world_.log.Clear();
  }
  RecordingGridView& gridView() {
    if (!gridView_) {
      gridView_ = std::make_unique<RecordingGridView>(world_.factory.GetRecorder(),
                                                      world_.control->GetGrid());
    }
    return *gridView_;
  }
  ~Dispatch() override {
    if (world_.control) world_.control->GetGrid().Attach(nullptr);
  }

  PriceDown& Control() { return *world_.control; }
  // A click on a tool of the host.
  void Click(std::u16string_view name) {
    const ObjectPtr tool = world_.NewTool(name);
    Control().ParentWindow_ToolBarClick(tool);
  }
  // The error that the command throws; empty if none.
  template <typename Command>
  static std::string FailureOf(Command command) {
    try {
      command();
      return {};
    } catch (const AutomationError& error) {
      return Utf8(error.Description());
    }
  }
  // The reload after every command of the tool strip: the tree, and the grid painted without a
  // query.
  static std::string Reload() {
    return "screen pointer 11\n"
           "tree redraw off\n"
           "tree clear\n"
           "create ZEPConnection.AppConnection\n" +
           ExecuteLine(kTreeStatement) +
           "\nrelease ZEPConnection.AppConnection\n"
           "release result\n"
           "tree insert 1 under 0 \"物料\"\n"
           "tree insert 2 under 1 \"01(原料)\"\n"
           "tree insert 3 under 1 \"02(成品)\"\n"
           "tree redraw on\n"
           "screen pointer 0\n"
           "grid changed 2 rows\n";
  }
  static constexpr const char* kRefusal =
      "message information \"岚禾提示\": \"没有权限,请与系统管理员联系\"\n";

  ControlWorld world_;
  std::unique_ptr<RecordingGridView> gridView_;
};

}  // namespace pricedown::testing
