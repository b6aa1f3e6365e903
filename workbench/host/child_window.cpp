// A child window: makes the control in an AtlAxWin container, shows it, forwards its events.
#include "workbench/host/child_window.h"

#include <oleidl.h>

#include "platform/convert.h"
#include "platform/error.h"
#include "platform/skip.h"
#include "windows/base/plain_control.h"
#include "windows/com/com_object.h"
#include "windows/com/wide_text.h"
#include "workbench/host/atl_container.h"
#include "workbench/host/messages.h"
#include "workbench/host/window_icon.h"

namespace workbench {

using pricedown::ObjectPtr;
using pricedown::ToText;
using pricedown::Value;
using pricedown::windows::ComPtr;

namespace {

constexpr const wchar_t* kChildClass = L"WorkbenchChild";
constexpr const wchar_t* kControlProgId = L"ZEPPriceDownPrepare.PriceDown";

}  // namespace

void ChildWindow::RegisterClass(HINSTANCE module) {
  WNDCLASSEXW description{};
  description.cbSize = sizeof(description);
  // Maximizing would keep pixels of the window that was in front.
  description.style = CS_HREDRAW | CS_VREDRAW;
  description.lpfnWndProc = Procedure;
  description.hInstance = module;
  description.hCursor = LoadCursorW(nullptr, IDC_ARROW);
  description.hIcon = WindowIcon(SM_CXICON);
  description.hIconSm = WindowIcon(SM_CXSMICON);
  description.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);
  description.lpszClassName = kChildClass;
  RegisterClassExW(&description);
}

ChildWindow* ChildWindow::Of(HWND window) {
  wchar_t name[32] = {};
  if (window == nullptr || GetClassNameW(window, name, 32) == 0 || wcscmp(name, kChildClass) != 0) {
    return nullptr;
  }
  return reinterpret_cast<ChildWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
}

ChildWindow* ChildWindow::Open(ChildWindowEvents& frame, HINSTANCE module, HWND client,
                               const std::wstring& caption) {
  auto* child = new ChildWindow(frame, module);
  MDICREATESTRUCTW creation{};
  creation.szClass = kChildClass;
  creation.szTitle = caption.c_str();
  creation.hOwner = module;
  creation.x = creation.y = creation.cx = creation.cy = CW_USEDEFAULT;
  creation.lParam = reinterpret_cast<LPARAM>(child);
  const auto window = reinterpret_cast<HWND>(
      SendMessageW(client, WM_MDICREATE, 0, reinterpret_cast<LPARAM>(&creation)));
  if (window == nullptr) {
    // The window deletes the object; without one it is still ours.
    if (child->window_ == nullptr) delete child;
    throw pricedown::AutomationError(pricedown::ErrorNumber::Unspecified, u"无法打开窗口。",
                                     u"WorkbenchHost");
  }
  try {
    child->CreateControl();
    child->ShowControl();
  } catch (const std::exception&) {
    SendMessageW(client, WM_MDIDESTROY, reinterpret_cast<WPARAM>(window), 0);
    throw;
  }
  return IsWindow(window) != FALSE ? child : nullptr;
}

ChildWindow::~ChildWindow() {
  if (parent_ != nullptr) parent_->Detach();
}

void ChildWindow::CreateControl() {
  container_ = CreateAtlContainer(module_, window_, kControlProgId);
  RECT area;
  GetClientRect(window_, &area);
  MoveWindow(container_, 0, 0, area.right, area.bottom, TRUE);
  controlObject_ = ControlOf(container_);
  control_ = std::make_shared<pricedown::windows::ComObject>(controlObject_.As<IDispatch>());
}

void ChildWindow::ShowControl() {
  parent_ = std::make_shared<ParentWindow>(*this);
  Value parent{ObjectPtr(parent_)};
  const ObjectPtr control = control_;
  const HWND window = window_;
  control->Put(u"ShowMode", std::int16_t{0});
  control->Call(u"Show", {Value::ByReference(parent)});
  // Showing runs pending messages, and one of them may have closed this window.
  if (IsWindow(window) == FALSE) return;
  shown_ = true;
  Notify(u"FirstShow");
  FocusControl();
}

std::wstring ChildWindow::Caption() const {
  return pricedown::windows::ToWide(pricedown::windows::TextOf(window_));
}

HWND ChildWindow::ControlHandle() const {
  const auto ole = controlObject_.As<IOleWindow>();
  HWND window = nullptr;
  if (ole) ole->GetWindow(&window);
  return window;
}

void ChildWindow::FocusControl() const {
  if (const HWND control = ControlHandle()) SetFocus(control);
}

void ChildWindow::MergeToolBar(const ObjectPtr& bar) {
  AddStandardTools(bar);
  bar->PutReference(u"Listener", parent_);
  bar_ = bar;
  frame_.ChildMerged(*this);
}

void ChildWindow::ToolChanged() { frame_.ChildToolChanged(*this); }

void ChildWindow::ClickTool(const ObjectPtr& tool) {
  // The host keeps the state of this check tool; the control follows it.
  if (ToText(tool->Get(u"Name")) == u"mnuViewStatusBar") {
    tool->Put(u"Checked", !pricedown::ToBoolean(tool->Get(u"Checked")));
  }
  Value toolArgument{tool};
  Value used{false};
  // The command may close this window: nothing of it is touched afterwards.
  const ObjectPtr control = control_;
  control->Call(u"ParentWindow_ToolBarClick",
                {Value::ByReference(toolArgument), Value::ByReference(used)});
}

bool ChildWindow::TranslateKey(MSG& message) {
  // Without a focus inside the control its keys are the host's.
  const HWND control = ControlHandle();
  const HWND focus = GetFocus();
  if (control == nullptr || (focus != control && !IsChild(control, focus))) return false;
  const auto active = controlObject_.As<IOleInPlaceActiveObject>();
  return active && active->TranslateAccelerator(&message) == S_OK;
}

void ChildWindow::Notify(std::u16string_view message) {
  if (control_ == nullptr) return;
  Value parameters{std::vector<Value>{}};
  pricedown::SkipFailing([&] {
    control_->Call(u"NotifyMessage", {message, Value::ByReference(parameters)});
  });
}

LRESULT CALLBACK ChildWindow::Procedure(HWND window, UINT message, WPARAM wParam,
                                        LPARAM lParam) noexcept {
  auto* child = reinterpret_cast<ChildWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (message == WM_NCCREATE) {
    const auto* creation = reinterpret_cast<CREATESTRUCTW*>(lParam);
    const auto* mdi = static_cast<MDICREATESTRUCTW*>(creation->lpCreateParams);
    child = reinterpret_cast<ChildWindow*>(mdi->lParam);
    child->window_ = window;
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(child));
  }
  if (child == nullptr) return DefMDIChildProcW(window, message, wParam, lParam);
  try {
    if (message == WM_NCDESTROY) {
      SetWindowLongPtrW(window, GWLP_USERDATA, 0);
      const LRESULT result = DefMDIChildProcW(window, message, wParam, lParam);
      delete child;
      return result;
    }
    return child->OnMessage(message, wParam, lParam);
  } catch (...) {
    ShowFailure(window, pricedown::CurrentFailure());
    return 0;
  }
}

LRESULT ChildWindow::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_SIZE:
      if (container_ != nullptr) {
        MoveWindow(container_, 0, 0, LOWORD(lParam), HIWORD(lParam), TRUE);
      }
      break;
    case WM_SETFOCUS:
      FocusControl();
      break;
    case WM_MDIACTIVATE: {
      const bool active = reinterpret_cast<HWND>(lParam) == window_;
      frame_.ChildActivated(active ? this : nullptr);
      if (active && shown_) {
        Notify(u"Activate");
        FocusControl();
      }
      break;
    }
    case WM_CLOSE:
      Notify(u"QueryUnload");
      break;
    case WM_DESTROY:
      frame_.ChildClosed(*this);
      bar_ = nullptr;
      control_ = nullptr;
      controlObject_ = {};
      break;
    default:
      break;
  }
  return DefMDIChildProcW(window_, message, wParam, lParam);
}

}  // namespace workbench
