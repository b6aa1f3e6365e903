// The steps of the tour. Each acts through the control's windows and the host's commands, then
// the next tick saves the picture, so that everything has been painted.
#include "workbench/host/tour.h"

#include <commctrl.h>

#include <cstring>
#include <filesystem>
#include <fstream>

#include "platform/convert.h"
#include "platform/error.h"
#include "platform/skip.h"
#include "windows/base/control_ids.h"
#include "workbench/host/resource_ids.h"
#include "workbench/host/screenshot.h"
#include "workbench/host/tour_input.h"

namespace workbench {

namespace ids = pricedown::windows::control_ids;

namespace {

constexpr UINT kTickMilliseconds = 250;
// For a step that is not yet possible, and for one that has not returned.
constexpr int kMaximumTicksOfStep = 120;
constexpr UINT kFailed = 3;
Tour* runningTour = nullptr;

}  // namespace

Tour::Tour(FrameWindow& frame, std::wstring folder, Kind kind)
    : frame_(frame), folder_(std::move(folder)) {
  RequireSampleCompany();
  if (kind == Kind::KeysOnly) {
    AddKeys();
  } else {
    AddAll();
  }
  runningTour = this;
  timer_ = SetTimer(nullptr, 0, kTickMilliseconds, OnTimer);
}

void Tour::AddAll() {
  AddBrowsing();
  AddSplitter();
  AddOtherMode();
  AddEditing();
  AddRemoving();
  AddMenus();
  AddToolbar();
  AddRefusals();
  AddPrinting();
  AddFinding();
}

Tour::~Tour() {
  KillTimer(nullptr, timer_);
  runningTour = nullptr;
}

void CALLBACK Tour::OnTimer(HWND, UINT, UINT_PTR, DWORD) noexcept {
  Tour* tour = runningTour;
  if (tour == nullptr) return;
  try {
    tour->Advance();
  } catch (const std::exception& error) {
    // A message box would stay: there is no user to close it.
    tour->Abort(error.what());
  }
}

void Tour::SaveFailure(const std::wstring& folder, const std::string& reason) noexcept {
  pricedown::SkipFailing(
      [&] { std::ofstream(std::filesystem::path(folder) / L"failed.txt") << reason << '\n'; });
}

void Tour::Abort(const char* reason) noexcept {
  pricedown::SkipFailing([this, reason] {
    SaveFailure(folder_, "step " + std::to_string(next_) + ": " + reason);
    SaveScreenshot(GetDesktopWindow(), std::filesystem::path(folder_) / L"failed.png");
  });
  ExitProcess(kFailed);
}

// The steps name classes and items of one company.
void Tour::RequireSampleCompany() {
  const auto isNumber = [this](std::u16string_view question, std::int32_t number) {
    return pricedown::ToInt32(frame_.Settings()->Call(u"Query", {question})) == number;
  };
  if (isNumber(u"select count(*) from icPriceDownClass", kSampleClassRows) &&
      isNumber(u"select count(*) from ICPriceDownPrepare", kSampleProvisionRows)) {
    return;
  }
  Abort("巡览需要种子为 1 的示例公司: workbench create FILE --seed 1");
}

void Tour::Advance() {
  if (pictureDue_) {
    pictureDue_ = false;
    SaveScreenshot(frame_.Handle(), folder_ + L"\\" + steps_[next_].picture + L".png");
    ++next_;
    return;
  }
  if (next_ == steps_.size()) {
    KillTimer(nullptr, timer_);
    PostMessageW(frame_.Handle(), WM_CLOSE, 0, 0);
    return;
  }
  const bool isLast = ++ticksOfStep_ == kMaximumTicksOfStep;
  if (inStep_) {
    if (isLast) Abort("it does not return");
    return;
  }
  inStep_ = true;
  try {
    steps_[next_].action();
  } catch (const std::exception&) {
    // The window may not be there yet: try again at the next tick.
    if (isLast) throw;
    inStep_ = false;
    return;
  }
  inStep_ = false;
  ticksOfStep_ = 0;
  if (steps_[next_].picture == nullptr) {
    ++next_;
  } else {
    pictureDue_ = true;
  }
}

HWND Tour::Child(int controlId) const {
  RequireReady(frame_.Handle());
  // The control lets messages run while it works; keys that arrive there are not translated.
  const MSG& handled = frame_.Handled();
  Require(handled.hwnd == nullptr && handled.message == WM_TIMER, u"控件正忙。");
  const ChildWindow* child = frame_.ActiveChild();
  const HWND control = child == nullptr ? nullptr : child->ControlHandle();
  return RequireWindow(control == nullptr ? nullptr : GetDlgItem(control, controlId));
}

POINT Tour::ClassPoint(int position) const {
  const HWND tree = Child(ids::kTree);
  LRESULT item = SendMessageW(tree, TVM_GETNEXTITEM, TVGN_ROOT, 0);
  item = SendMessageW(tree, TVM_GETNEXTITEM, TVGN_CHILD, item);
  for (int i = 1; item != 0 && i != position; ++i) {
    const LRESULT next = SendMessageW(tree, TVM_GETNEXTITEM, TVGN_NEXT, item);
    if (next == 0 && position == kLastClass) break;
    item = next;
  }
  SendMessageW(tree, TVM_ENSUREVISIBLE, 0, item);
  // The message reads the item from the rectangle's first bytes.
  RECT area{};
  std::memcpy(&area, &item, sizeof(item));
  Require(
      item != 0 && SendMessageW(tree, TVM_GETITEMRECT, TRUE, reinterpret_cast<LPARAM>(&area)) != 0,
      u"没有这个类别。");
  return {area.left + 4, (area.top + area.bottom) / 2};
}

void Tour::SelectClass(int position) {
  const POINT place = ClassPoint(position);
  const LPARAM point = MAKELPARAM(place.x, place.y);
  PostMessageW(Child(ids::kTree), WM_LBUTTONDOWN, MK_LBUTTON, point);
  PostMessageW(Child(ids::kTree), WM_LBUTTONUP, 0, point);
}

void Tour::Drag(HWND window, int distance) {
  PostMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(1, 40));
  PostMessageW(window, WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(distance / 2, 40));
  PostMessageW(window, WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(distance, 40));
  PostMessageW(window, WM_LBUTTONUP, 0, MAKELPARAM(distance, 40));
}

void Tour::ClickTool(std::u16string_view name) {
  ChildWindow* child = frame_.ActiveChild();
  if (child != nullptr) frame_.ClickTool(*child, name);
}

void Tour::PressStrip(std::size_t position) {
  PressButton(Child(ids::kToolStrip), static_cast<int>(position) - 1);
}

void Tour::AddBrowsing() {
  steps_.push_back({L"01-opened", [this] { frame_.OpenChild(kItemClassesCaption); }});
  steps_.push_back({L"02-class-selected", [this] { SelectClass(1); }});
  steps_.push_back({L"03-another-class", [this] { SelectClass(5); }});
  steps_.push_back({L"04-grid-by-keyboard", [this] {
                      const HWND pane = Child(ids::kGridPane);
                      const HWND grid = GetDlgItem(pane, ids::kGrid);
                      SetFocus(grid != nullptr ? grid : pane);
                      for (int i = 0; i < 3; ++i) {
                        PostMessageW(GetFocus(), WM_KEYDOWN, VK_DOWN, 0);
                      }
                      PostMessageW(GetFocus(), WM_KEYDOWN, VK_RIGHT, 0);
                    }});
}

void Tour::AddSplitter() {
  steps_.push_back({L"05-splitter-dragged", [this] { Drag(Child(ids::kSplitter), 120); }});
  steps_.push_back({L"06-splitter-at-its-limit", [this] { Drag(Child(ids::kSplitter), -900); }});
  steps_.push_back({L"07-strip-hidden", [this] { ClickTool(u"iToolBar"); }});
  steps_.push_back({L"08-strip-shown-again", [this] { ClickTool(u"iToolBar"); }});
}

void Tour::AddOtherMode() {
  steps_.push_back({L"09-other-mode", [this] { frame_.OpenChild(kPriceDownCaption); }});
  steps_.push_back(
      {L"10-tiled", [this] { SendMessageW(frame_.Handle(), WM_COMMAND, IDM_WINDOW_TILE, 0); }});
  steps_.push_back({L"11-by-item", [this] {
                      frame_.CloseChildren();
                      frame_.Settings()->Put(u"ItemClassType", u"2");
                      frame_.OpenChild(kItemClassesCaption);
                    }});
  steps_.push_back({L"12-closed", [this] {
                      frame_.Settings()->Put(u"ItemClassType", u"1");
                      frame_.CloseChildren();
                    }});
}

}  // namespace workbench
