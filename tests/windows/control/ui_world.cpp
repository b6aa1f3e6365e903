// The host window, the scripted company and simulated input.
// Input is posted to this thread's queue; modifier keys are set in its keyboard state.
#include "tests/windows/control/ui_world.h"

#include <array>
#include <cstring>
#include <utility>
#include <vector>

#include "platform/convert.h"
#include "store/statements.h"
#include "windows/base/control_ids.h"

namespace pricedown::testing {
namespace {

namespace ids = windows::control_ids;

constexpr std::array<std::u16string_view, 12> kClassNames{
    u"原材料", u"辅助材料",   u"包装物", u"低值易耗品", u"外购半成品", u"自制半成品",
    u"产成品", u"电子元器件", u"紧固件", u"化工原料",   u"劳保用品",   u"备品备件"};

constexpr std::array<std::pair<const char16_t*, const char16_t*>, 8> kItems{{
    {u"六角头螺栓", u"M8×40 GB/T 5782"},
    {u"冷轧钢板", u"1.5mm×1250mm×2500mm"},
    {u"深沟球轴承", u"6205-2RS"},
    {u"三相异步电动机", u"Y132M-4 7.5kW"},
    {u"工业齿轮油", u"L-CKC 220 170kg/桶"},
    {u"交流接触器", u"CJX2-2510 AC220V"},
    {u"无缝钢管", u"φ57×3.5 20#"},
    {u"耐油橡胶密封圈", u"φ35×3.1"},
}};

std::u16string TwoDigits(int number) {
  return (number < 10 ? u"0" : u"") + NumberText(std::int32_t{number});
}

}  // namespace

HostWindow::HostWindow(int width, int height) {
  WNDCLASSW description{};
  description.lpfnWndProc = &Procedure;
  description.hInstance = GetModuleHandleW(nullptr);
  description.hCursor = LoadCursorW(nullptr, IDC_ARROW);
  description.lpszClassName = L"TestHost";
  RegisterClassW(&description);
  RECT area{0, 0, width, height};
  AdjustWindowRect(&area, WS_OVERLAPPEDWINDOW, FALSE);
  handle_ = CreateWindowW(L"TestHost", L"物料类别维护", WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, 20,
                          20, area.right - area.left, area.bottom - area.top, nullptr, nullptr,
                          description.hInstance, nullptr);
  SetWindowLongPtrW(handle_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
  ShowWindow(handle_, SW_SHOWNORMAL);
  SetForegroundWindow(handle_);
  RunMessages();
}

HostWindow::~HostWindow() {
  if (handle_ != nullptr) DestroyWindow(handle_);
}

RECT HostWindow::Inside() const {
  RECT area{};
  GetClientRect(handle_, &area);
  return area;
}

LRESULT CALLBACK HostWindow::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_NCDESTROY) {
    if (auto* host = reinterpret_cast<HostWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA))) {
      host->handle_ = nullptr;
    }
  }
  return DefWindowProcW(window, message, wParam, lParam);
}

UiWorld::UiWorld(int width, int height) : host(width, height) {
  // The first query returns the fixture's own two classes.
  const ObjectPtr connection = suite.factory.Create(u"ZEPConnection.AppConnection");
  connection->Call(u"Execute", {statements::ClassTree()});
  connection->Call(u"Execute", {statements::ItemsOfClass(u"01")});
  std::vector<std::vector<Value>> classes;
  for (int i = 0; i < static_cast<int>(kClassNames.size()); ++i) {
    const std::u16string number = TwoDigits(i + 1);
    classes.push_back({number, kClassNames[static_cast<std::size_t>(i)]});
    ScriptItems(number, i == 2 ? 0 : 6 + 11 * i);
  }
  AnswerStatement(suite.factory, statements::ClassTree(),
                  Rows({u"FitemClassNumber", u"FitemClassName"}, std::move(classes)));
  window = std::make_unique<windows::ControlWindow>(GetModuleHandleW(nullptr), automation);
  screen = std::make_unique<windows::WindowsScreen>(*window);
}

UiWorld::~UiWorld() {
  if (window != nullptr) window->Attach(nullptr);
  control.reset();
  window.reset();
  RunMessages();
}

void UiWorld::ScriptItems(std::u16string_view classNumber, int count) {
  std::vector<std::vector<Value>> rows;
  for (int i = 0; i < count; ++i) {
    const auto& [name, model] = kItems[static_cast<std::size_t>(i) % kItems.size()];
    const std::u16string code = std::u16string(classNumber) + u"." + TwoDigits(i / 100 + 1) + u"." +
                                NumberText(std::int32_t{1000 + i}).substr(1);
    rows.push_back({code, code.substr(3), name, model, classNumber, u"类"});
  }
  AnswerStatement(suite.factory, statements::ItemsOfClass(classNumber),
                  Rows({u"FNumber", u"FShortNumber", u"FName", u"FModel", u"FItemClassNumber",
                        u"FItemClassName"},
                       std::move(rows)));
}

void UiWorld::Start(PrintOutput* output) {
  PrintOutput& used = output != nullptr ? *output : suite.output;
  control = std::make_unique<PriceDown>(
      PriceDownPorts{suite.factory, suite.state, suite.questions, *screen, suite.container, *window,
                     *window, *window, u"Host", window->Form(), suite.editor, used});
  window->Attach(control.get());
  control->Initialize();
  window->MoveInto(host.Handle(), host.Inside());
  control->Show(Value());
  RunMessages();
}

HWND UiWorld::Child(int id) const { return GetDlgItem(window->Handle(), id); }
HWND UiWorld::Tree() const { return Child(ids::kTree); }
HWND UiWorld::Grid() const { return GetDlgItem(Child(ids::kGridPane), ids::kGrid); }
HWND UiWorld::Strip() const { return Child(ids::kToolStrip); }

void Input::Press(WPARAM key) {
  const HWND focus = GetFocus();
  ASSERT_NE(focus, nullptr);
  PostMessageW(focus, WM_KEYDOWN, key, 1);
  RunMessages();
  PostMessageW(GetFocus(), WM_KEYUP, key, static_cast<LPARAM>(0xC0000001));
  RunMessages();
}

void Input::PressWith(int modifier, WPARAM key) {
  std::array<BYTE, 256> before{};
  GetKeyboardState(before.data());
  std::array<BYTE, 256> state = before;
  state[static_cast<std::size_t>(modifier)] = 0x80;
  SetKeyboardState(state.data());
  Press(key);
  SetKeyboardState(before.data());
}

void Input::Type(std::u16string_view text) {
  for (const char16_t unit : text) {
    ASSERT_NE(GetFocus(), nullptr);
    PostMessageW(GetFocus(), WM_CHAR, unit, 1);
    RunMessages();
  }
}

void Input::Click(HWND target, POINT point, WPARAM keys) {
  const LPARAM place = MAKELPARAM(point.x, point.y);
  // The tree queries the pointer's position.
  POINT onScreen = point;
  ClientToScreen(target, &onScreen);
  SetCursorPos(onScreen.x, onScreen.y);
  PostMessageW(target, WM_LBUTTONDOWN, MK_LBUTTON | keys, place);
  PostMessageW(target, WM_LBUTTONUP, keys, place);
  RunMessages();
}

void Input::DoubleClick(HWND target, POINT point) {
  Click(target, point);
  const LPARAM place = MAKELPARAM(point.x, point.y);
  PostMessageW(target, WM_LBUTTONDBLCLK, MK_LBUTTON, place);
  PostMessageW(target, WM_LBUTTONUP, 0, place);
  RunMessages();
}

void Input::MoveCursor(HWND target, POINT to) {
  ClientToScreen(target, &to);
  SetCursorPos(to.x, to.y);
}

void Input::Drag(HWND target, POINT from, POINT to) {
  MoveCursor(target, from);
  PostMessageW(target, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(from.x, from.y));
  RunMessages();
  PostMessageW(target, WM_MOUSEMOVE, MK_LBUTTON,
               MAKELPARAM((from.x + to.x) / 2, (from.y + to.y) / 2));
  MoveCursor(target, to);
  PostMessageW(target, WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(to.x, to.y));
  RunMessages();
  PostMessageW(target, WM_LBUTTONUP, 0, MAKELPARAM(to.x, to.y));
  RunMessages();
}

POINT UiWorld::NodePoint(NodeIndex node) const {
  HTREEITEM item = TreeView_GetRoot(Tree());
  if (node > 1) item = TreeView_GetChild(Tree(), item);
  for (NodeIndex i = 2; i < node; ++i) item = TreeView_GetNextSibling(Tree(), item);
  TreeView_EnsureVisible(Tree(), item);
  RECT area{};
  // The message reads the node from its result buffer.
  std::memcpy(&area, &item, sizeof item);
  SendMessageW(Tree(), TVM_GETITEMRECT, TRUE, reinterpret_cast<LPARAM>(&area));
  return {(area.left + area.right) / 2, (area.top + area.bottom) / 2};
}

POINT UiWorld::ButtonPoint(std::size_t position) const {
  RECT area{};
  SendMessageW(Strip(), TB_GETITEMRECT, position - 1, reinterpret_cast<LPARAM>(&area));
  return {(area.left + area.right) / 2, (area.top + area.bottom) / 2};
}

bool IsHeldWhenAClientEndsIt(UiWorld& world, const std::function<void()>& cause) {
  const auto provider = world.automation.ProviderOf(world.Grid());
  world.automation.log.clear();
  std::weak_ptr<void> held;
  world.window->HoldDuringEvents([&] {
    const auto hold = std::make_shared<int>();
    held = hold;
    return hold;
  });
  bool isHeld = false;
  world.automation.onEvent = [&] {
    if (world.automation.Spoken().empty() || world.window->Handle() == nullptr) return;
    isHeld = !held.expired();
    DestroyWindow(world.window->Handle());
  };
  cause();
  EXPECT_EQ(world.window->Handle(), nullptr);
  world.window->HoldDuringEvents({});
  return isHeld;
}

}  // namespace pricedown::testing
