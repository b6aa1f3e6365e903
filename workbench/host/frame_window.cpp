// The frame: menus, toolbar, status line, MDI client. Children report their merges to it.
#include "workbench/host/frame_window.h"

#include <commctrl.h>

#include "platform/convert.h"
#include "platform/skip.h"
#include "platform/text.h"
#include "windows/base/dpi.h"
#include "windows/base/painting.h"
#include "windows/com/system_error.h"
#include "windows/com/wide_text.h"
#include "workbench/company/location.h"
#include "workbench/host/messages.h"
#include "workbench/host/open_company_dialog.h"
#include "workbench/host/recent_companies.h"
#include "workbench/host/resource_ids.h"
#include "workbench/host/settings_dialog.h"
#include "workbench/host/window_icon.h"

namespace workbench {

using pricedown::ObjectPtr;
using pricedown::ToText;
using pricedown::windows::FromWide;
using pricedown::windows::ToWide;

namespace {

constexpr const wchar_t* kFrameClass = L"WorkbenchFrame";
constexpr const wchar_t* kTitle = L"岚禾工作台";
constexpr int kBusinessMenuPosition = 1;
constexpr int kWindowMenuPosition = 3;

std::wstring Shown(const std::wstring& location) {
  return ToWide(pricedown::FromUtf8(ShownLocation(pricedown::ToUtf8(FromWide(location)))));
}

}  // namespace

FrameWindow::FrameWindow(HINSTANCE module, ObjectPtr settings)
    : module_(module), settings_(std::move(settings)) {
  WNDCLASSEXW description{};
  description.cbSize = sizeof(description);
  description.lpfnWndProc = Procedure;
  description.hInstance = module;
  description.hCursor = LoadCursorW(nullptr, IDC_ARROW);
  description.hIcon = WindowIcon(SM_CXICON);
  description.hIconSm = WindowIcon(SM_CXSMICON);
  description.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);
  description.lpszMenuName = MAKEINTRESOURCEW(IDR_FRAME);
  description.lpszClassName = kFrameClass;
  RegisterClassExW(&description);
  ChildWindow::RegisterClass(module);
  accelerators_ = LoadAcceleratorsW(module, MAKEINTRESOURCEW(IDR_FRAME));
  const auto dpi = pricedown::windows::Dpi::Of(nullptr);
  if (CreateWindowExW(0, kFrameClass, kTitle, WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, CW_USEDEFAULT,
                      0, dpi.Scale(1100), dpi.Scale(720), nullptr, nullptr, module,
                      this) == nullptr) {
    pricedown::windows::ThrowLastError();
  }
}

FrameWindow::~FrameWindow() {
  if (window_ != nullptr) DestroyWindow(window_);
}

void FrameWindow::Show(int command) {
  ShowWindow(window_, command);
  UpdateWindow(window_);
}

int FrameWindow::Run() {
  while (GetMessageW(&handled_, nullptr, 0, 0) > 0) {
    ChildWindow* child = ActiveChild();
    const bool key = handled_.message >= WM_KEYFIRST && handled_.message <= WM_KEYLAST;
    if (TranslateMDISysAccel(client_, &handled_)) continue;
    if (TranslateAcceleratorW(window_, accelerators_, &handled_) != 0) continue;
    if (key && child != nullptr && child->TranslateKey(handled_)) continue;
    TranslateMessage(&handled_);
    DispatchMessageW(&handled_);
  }
  return static_cast<int>(handled_.wParam);
}

void FrameWindow::OpenCompany(const std::wstring& location) {
  ShowStatusText(L"正在打开公司：" + Shown(location));
  try {
    SetCursor(LoadCursorW(nullptr, IDC_WAIT));
    settings_->Call(u"Connect", {FromWide(location)});
    // A window that closes stores its selection in the company that it shows.
    CloseChildren();
    settings_->Call(u"OpenConnected");
  } catch (...) {
    ShowStatusText(L"公司没有打开：" + Shown(location));
    throw;
  }
  // The company is open also when its period cannot be read.
  if (!pricedown::SkipFailing([this] { ShowStatus(); })) {
    ShowStatusText(L"公司：" + Shown(location));
  }
}

bool FrameWindow::OpenCompanyOrAsk(std::wstring location) {
  for (;;) {
    try {
      OpenCompany(location);
      AddRecentCompany(location);
      return true;
    } catch (...) {
      if (!AskAfterFailure(window_, pricedown::CurrentFailure(), L"要打开别的公司吗？")) break;
    }
    const auto chosen = AskForCompany(module_, window_, location);
    if (!chosen) break;
    location = *chosen;
  }
  // The previous company and its windows are still open.
  pricedown::SkipFailing([this] {
    if (!ToText(settings_->Get(u"Location")).empty()) ShowStatus();
  });
  return false;
}

void FrameWindow::ReplayRecording(const std::wstring& file) {
  settings_->Call(u"Replay", {FromWide(file)});
  ShowStatusText(L"回放记录：" + file);
  OpenChild(kItemClassesCaption);
}

ChildWindow* FrameWindow::ActiveChild() const {
  return ChildWindow::Of(reinterpret_cast<HWND>(SendMessageW(client_, WM_MDIGETACTIVE, 0, 0)));
}

ChildWindow* FrameWindow::OpenChild(const wchar_t* caption) {
  for (HWND window = GetWindow(client_, GW_CHILD); window != nullptr;
       window = GetWindow(window, GW_HWNDNEXT)) {
    ChildWindow* child = ChildWindow::Of(window);
    if (child != nullptr && child->Caption() == caption) {
      SendMessageW(client_, WM_MDIACTIVATE, reinterpret_cast<WPARAM>(window), 0);
      return child;
    }
  }
  const HWND active = reinterpret_cast<HWND>(SendMessageW(client_, WM_MDIGETACTIVE, 0, 0));
  // The first child is maximized, later ones are like the active one.
  const bool maximized = active == nullptr || IsZoomed(active) != FALSE;
  try {
    ChildWindow* child = ChildWindow::Open(*this, module_, client_, caption);
    if (child != nullptr && maximized) {
      SendMessageW(client_, WM_MDIMAXIMIZE, reinterpret_cast<WPARAM>(child->Handle()), 0);
    }
    return child;
  } catch (...) {
    ShowFailure(window_, pricedown::CurrentFailure());
    return nullptr;
  }
}

void FrameWindow::CloseChildren() {
  while (ChildWindow* child = ActiveChild()) {
    SendMessageW(client_, WM_MDIDESTROY, reinterpret_cast<WPARAM>(child->Handle()), 0);
  }
}

void FrameWindow::ClickTool(ChildWindow& child, std::u16string_view name) {
  const ObjectPtr tool = toolbar_->ToolNamed(name);
  if (tool != nullptr) child.ClickTool(tool);
}

void FrameWindow::ChildActivated(ChildWindow* child) {
  merged_ = child;
  toolbar_->Merge(child == nullptr ? nullptr : child->Bar());
  LayOut();
  DrawMenuBar(window_);
}

void FrameWindow::ChildMerged(ChildWindow& child) {
  if (merged_ == nullptr || merged_ == &child) ChildActivated(&child);
}

void FrameWindow::ChildToolChanged(ChildWindow& child) {
  if (merged_ == &child) toolbar_->RefreshStates();
}

void FrameWindow::ChildClosed(ChildWindow& child) {
  if (merged_ == &child) ChildActivated(nullptr);
}

LRESULT CALLBACK FrameWindow::Procedure(HWND window, UINT message, WPARAM wParam,
                                        LPARAM lParam) noexcept {
  auto* frame = reinterpret_cast<FrameWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (message == WM_NCCREATE) {
    frame = static_cast<FrameWindow*>(reinterpret_cast<CREATESTRUCTW*>(lParam)->lpCreateParams);
    frame->window_ = window;
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(frame));
  }
  if (frame == nullptr) return DefWindowProcW(window, message, wParam, lParam);
  try {
    return frame->OnMessage(message, wParam, lParam);
  } catch (...) {
    ShowFailure(window, pricedown::CurrentFailure());
    return message == WM_CREATE ? -1 : 0;
  }
}

LRESULT FrameWindow::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_CREATE:
      OnCreate();
      return 0;
    case WM_SIZE:
      LayOut();
      return 0;
    case WM_COMMAND:
      OnCommand(LOWORD(wParam), wParam, lParam);
      return 0;
    case WM_INITMENUPOPUP:
      RebuildEditMenu(reinterpret_cast<HMENU>(wParam));
      break;
    case WM_NOTIFY:
      return OnNotify(*reinterpret_cast<NMHDR*>(lParam));
    case WM_SYSCOLORCHANGE:
      // The control in a child gets it from its own top-level window.
      for (const HWND bar : {toolbar_->Handle(), status_}) SendMessageW(bar, message, 0, 0);
      break;
    case WM_CLOSE:
      CloseChildren();
      break;
    case WM_DESTROY:
      PostQuitMessage(0);
      return 0;
    case WM_NCDESTROY:
      SetWindowLongPtrW(window_, GWLP_USERDATA, 0);
      window_ = nullptr;
      return 0;
    default:
      break;
  }
  return DefFrameProcW(window_, client_, message, wParam, lParam);
}

void FrameWindow::OnCreate() {
  toolbar_ = std::make_unique<MergedToolbar>(module_, window_);
  status_ = CreateWindowExW(0, STATUSCLASSNAMEW, L"", WS_CHILD | WS_VISIBLE | SBARS_SIZEGRIP, 0, 0,
                            0, 0, window_, nullptr, module_, nullptr);
  CLIENTCREATESTRUCT creation{};
  // Stored, because a maximized child shifts the menus.
  businessMenu_ = GetSubMenu(GetMenu(window_), kBusinessMenuPosition);
  creation.hWindowMenu = GetSubMenu(GetMenu(window_), kWindowMenuPosition);
  creation.idFirstChild = IDM_FIRST_CHILD;
  client_ =
      CreateWindowExW(WS_EX_CLIENTEDGE, L"MDICLIENT", L"", WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN,
                      0, 0, 0, 0, window_, nullptr, module_, &creation);
  if (client_ == nullptr || status_ == nullptr) pricedown::windows::ThrowLastError();
}

void FrameWindow::LayOut() {
  if (client_ == nullptr) return;
  SendMessageW(status_, WM_SIZE, 0, 0);
  RECT area, bar, line;
  GetClientRect(window_, &area);
  toolbar_->FitInto(area.right);
  GetWindowRect(toolbar_->Handle(), &bar);
  GetWindowRect(status_, &line);
  const LONG top = bar.bottom - bar.top;
  const LONG bottom = line.bottom - line.top;
  MoveWindow(client_, 0, top, area.right, area.bottom - top - bottom, TRUE);
}

void FrameWindow::OnCommand(int id, WPARAM wParam, LPARAM lParam) {
  if (lParam != 0 && reinterpret_cast<HWND>(lParam) == toolbar_->Handle()) {
    // Posted, because the command may remove the button while the toolbar still handles the click.
    PostMessageW(window_, WM_COMMAND, MAKEWPARAM(id, 0), 0);
    return;
  }
  switch (id) {
    case IDM_FILE_OPEN:
      return ChooseCompany();
    case IDM_FILE_EXIT:
      PostMessageW(window_, WM_CLOSE, 0, 0);
      return;
    case IDM_ITEM_CLASSES:
      OpenChild(kItemClassesCaption);
      return;
    case IDM_PRICE_DOWN:
      OpenChild(kPriceDownCaption);
      return;
    case IDM_SETTINGS:
      return ChangeSettings();
    case IDM_WINDOW_CASCADE:
      SendMessageW(client_, WM_MDICASCADE, 0, 0);
      return;
    case IDM_WINDOW_TILE:
      SendMessageW(client_, WM_MDITILE, MDITILE_VERTICAL, 0);
      return;
    default:
      break;
  }
  const ObjectPtr tool = toolbar_->ToolOf(id);
  if (tool == nullptr) {
    DefFrameProcW(window_, client_, WM_COMMAND, wParam, lParam);
    return;
  }
  if (ChildWindow* child = ActiveChild()) child->ClickTool(tool);
}

LRESULT FrameWindow::OnNotify(NMHDR& header) const {
  if (toolbar_ == nullptr) return 0;
  if (header.code == NM_CUSTOMDRAW && header.hwndFrom == toolbar_->Handle()) {
    return pricedown::windows::OnToolbarDraw(reinterpret_cast<NMTBCUSTOMDRAW&>(header));
  }
  if (header.code == TTN_GETDISPINFOW) {
    auto& info = reinterpret_cast<NMTTDISPINFOW&>(header);
    const std::wstring tip = toolbar_->TipOf(static_cast<int>(header.idFrom));
    lstrcpynW(info.szText, tip.c_str(), static_cast<int>(std::size(info.szText)));
  }
  return 0;
}

void FrameWindow::RebuildEditMenu(HMENU menu) {
  if (menu != businessMenu_) return;
  constexpr int kOwnItems = 2;
  while (GetMenuItemCount(menu) > kOwnItems) DeleteMenu(menu, kOwnItems, MF_BYPOSITION);
  if (merged_ == nullptr) return;
  AppendMenuW(menu, MF_SEPARATOR, 0, nullptr);
  toolbar_->AppendTo(menu);
}

void FrameWindow::ChooseCompany() {
  if (const auto chosen = AskForCompany(module_, window_, {})) OpenCompanyOrAsk(*chosen);
}

void FrameWindow::ChangeSettings() {
  if (!ShowSettings(module_, window_, settings_)) return;
  // A control reads its settings when it is created, so open children are reopened.
  std::vector<std::wstring> captions;
  for (HWND window = GetWindow(client_, GW_CHILD); window != nullptr;
       window = GetWindow(window, GW_HWNDNEXT)) {
    if (const ChildWindow* child = ChildWindow::Of(window)) captions.push_back(child->Caption());
  }
  CloseChildren();
  for (auto caption = captions.rbegin(); caption != captions.rend(); ++caption) {
    OpenChild(caption->c_str());
  }
  ShowStatus();
}

void FrameWindow::ShowStatus() {
  const std::u16string text =
      pricedown::Concatenate({u"公司：", ToText(settings_->Get(u"Location")), u"    当前期间：",
                              ToText(settings_->Get(u"CurrentYear")), u"年第",
                              ToText(settings_->Get(u"CurrentPeriod")), u"期"});
  ShowStatusText(ToWide(text));
}

void FrameWindow::ShowStatusText(const std::wstring& text) {
  SetWindowTextW(status_, text.c_str());
  UpdateWindow(status_);
}

}  // namespace workbench
