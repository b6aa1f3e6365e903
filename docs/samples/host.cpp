// A minimal host of the control: a window around the system's container, the merged tools in its
// menu, keys, events and the end. It is a sample for other programs and no part of the product.
//
//   host           shows the item classes until the window is closed
//   host --once    the same without a user: clicks some tools, says what happened, closes
//
// Nothing but the system's libraries: ole32, oleaut32, uuid and user32. The source is UTF-8. The
// control is found by its registration or by a manifest beside the program.
#ifndef UNICODE
#define UNICODE
#endif
#include <windows.h>

#include <ole2.h>

#include <cstddef>
#include <cstring>
#include <string>
#include <vector>

#include "late_binding.h"

namespace {

using sample::Print;
using sample::Put;
using sample::Read;
using sample::Variant;

constexpr wchar_t kProgId[] = L"ZEPPriceDownPrepare.PriceDown";
// The caption decides the control's mode.
constexpr wchar_t kCaption[] = L"物料类别维护";
constexpr wchar_t kWindowClass[] = L"SampleHost";
constexpr UINT kFirstTool = 1000;

struct StandardTool {
  const wchar_t* name;
  const wchar_t* caption;
};
// The host's own tools that the control knows by name.
constexpr StandardTool kStandardTools[] = {{L"iRefresh", L"刷新"},
                                           {L"iToolBar", L"工具条"},
                                           {L"mnuViewStatusBar", L"状态栏"},
                                           {L"iExit", L"退出"}};

template <typename Function>
Function FunctionOf(HMODULE library, const char* name) {
  return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(library, name)));
}

// The window with the container; to the control it is the object that is passed to `Show`.
class Host final : public IDispatch {
 public:
  bool Open();
  int Run();
  // Plays a user.
  void Rehearse();

  STDMETHODIMP QueryInterface(REFIID id, void** result) override {
    if (result == nullptr) return E_POINTER;
    const bool known = IsEqualIID(id, IID_IUnknown) || IsEqualIID(id, IID_IDispatch);
    *result = known ? static_cast<IDispatch*>(this) : nullptr;
    return known ? S_OK : E_NOINTERFACE;
  }
  // It lives until the program ends, so references are not counted.
  STDMETHODIMP_(ULONG) AddRef() override { return 2; }
  STDMETHODIMP_(ULONG) Release() override { return 1; }
  STDMETHODIMP GetTypeInfoCount(UINT* count) override {
    if (count == nullptr) return E_POINTER;
    *count = 0;
    return S_OK;
  }
  STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) override {
    if (names == nullptr || ids == nullptr || count != 1) return E_INVALIDARG;
    ids[0] = lstrcmpiW(names[0], L"MergeToolBar") == 0 ? kMerge : DISPID_UNKNOWN;
    return ids[0] == kMerge ? S_OK : DISP_E_UNKNOWNNAME;
  }
  STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* parameters, VARIANT*, EXCEPINFO*,
                      UINT*) override {
    if (id != kMerge) return DISP_E_MEMBERNOTFOUND;
    if (parameters == nullptr || parameters->cArgs != 1) return DISP_E_BADPARAMCOUNT;
    if (parameters->rgvarg[0].vt != VT_DISPATCH) return DISP_E_TYPEMISMATCH;
    Merge(Variant::Object(parameters->rgvarg[0].pdispVal));
    return S_OK;
  }

 private:
  static constexpr DISPID kMerge = 1;

  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam);
  bool MakeWindow();
  bool MakeControl();
  void Merge(const Variant& bar);
  void ShowStates() const;
  void Click(std::size_t position);
  std::size_t PositionOf(const wchar_t* name) const;
  void Notify(const wchar_t* message);
  bool TranslateKey(MSG& message);
  void FocusControl();

  HWND window_ = nullptr;
  HWND container_ = nullptr;
  HMENU menu_ = nullptr;
  bool shown_ = false;
  Variant control_;
  std::vector<Variant> tools_;
};

bool Host::Open() {
  if (!MakeWindow() || !MakeControl()) return false;
  ShowWindow(window_, SW_SHOW);
  // Merges its tools, lists the classes, selects the one of the last time. Always returns True.
  shown_ = Read(control_, L"Show", {Variant::Object(this)}).AsTruth();
  return shown_;
}

bool Host::MakeWindow() {
  WNDCLASSEXW description{};
  description.cbSize = sizeof description;
  description.lpfnWndProc = Procedure;
  description.hInstance = GetModuleHandleW(nullptr);
  description.hCursor = LoadCursorW(nullptr, IDC_ARROW);
  description.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
  description.lpszClassName = kWindowClass;
  RegisterClassExW(&description);
  const HMENU bar = CreateMenu();
  menu_ = CreatePopupMenu();
  AppendMenuW(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(menu_), L"工具(&T)");
  window_ = CreateWindowExW(0, kWindowClass, kCaption, WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN,
                            CW_USEDEFAULT, 0, 1000, 650, nullptr, bar, description.hInstance, this);
  return window_ != nullptr;
}

bool Host::MakeControl() {
  const HMODULE atl = LoadLibraryW(L"atl.dll");
  if (atl == nullptr) return false;
  FunctionOf<BOOL(WINAPI*)()>(atl, "AtlAxWinInit")();
  RECT area{};
  GetClientRect(window_, &area);
  container_ = CreateWindowExW(WS_EX_CONTROLPARENT, L"AtlAxWin", kProgId,
                               WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN, 0, 0, area.right,
                               area.bottom, window_, nullptr, GetModuleHandleW(nullptr), nullptr);
  IUnknown* control = nullptr;
  FunctionOf<HRESULT(WINAPI*)(HWND, IUnknown**)>(atl, "AtlAxGetControl")(container_, &control);
  if (control == nullptr) return false;
  IDispatch* object = nullptr;
  control->QueryInterface(IID_IDispatch, reinterpret_cast<void**>(&object));
  control->Release();
  if (object == nullptr) return false;
  control_ = Variant::Object(object);
  object->Release();
  return true;
}

// The control hands over its bar; the host adds its own tools and shows all of them.
void Host::Merge(const Variant& bar) {
  const Variant tools = Read(bar, L"Tools");
  for (const StandardTool& tool : kStandardTools) {
    Read(tools, L"Add", {Variant::Text(tool.name), Variant::Text(tool.caption)});
  }
  tools_.clear();
  while (DeleteMenu(menu_, 0, MF_BYPOSITION) != FALSE) {
  }
  const LONG count = Read(tools, L"Count").AsNumber();
  for (LONG number = 1; number <= count; ++number) {
    const Variant tool = Read(tools, L"Item", {Variant::Number(number)});
    // "mnuEdit" is a menu and no tool.
    if (Read(tool, L"Category").AsText() == L"Menus") continue;
    const std::wstring caption = Read(tool, L"Caption").AsText();
    AppendMenuW(menu_, MF_STRING, kFirstTool + tools_.size(), caption.c_str());
    tools_.push_back(tool);
  }
}

// Read when the menu opens, because the control may change its tools at any time.
void Host::ShowStates() const {
  for (std::size_t i = 0; i < tools_.size(); ++i) {
    const UINT id = kFirstTool + static_cast<UINT>(i);
    const bool enabled = Read(tools_[i], L"Enabled").AsTruth();
    const bool checked = Read(tools_[i], L"Checked").AsTruth();
    EnableMenuItem(menu_, id, enabled ? UINT{MF_ENABLED} : UINT{MF_GRAYED});
    CheckMenuItem(menu_, id, checked ? UINT{MF_CHECKED} : UINT{MF_UNCHECKED});
  }
}

void Host::Click(std::size_t position) {
  if (position >= tools_.size()) return;
  // Held here, because the command may close the window; nothing of it is touched afterwards.
  const Variant tool = tools_[position];
  const Variant control = control_;
  // This check mark is the host's; the control only follows it.
  if (Read(tool, L"Name").AsText() == L"mnuViewStatusBar") {
    Put(tool, L"Checked", Variant::Truth(!Read(tool, L"Checked").AsTruth()));
  }
  Read(control, L"ParentWindow_ToolBarClick", {tool, Variant::Truth(false)});
}

std::size_t Host::PositionOf(const wchar_t* name) const {
  std::size_t position = 0;
  while (position < tools_.size() && Read(tools_[position], L"Name").AsText() != name) ++position;
  return position;
}

void Host::Notify(const wchar_t* message) {
  if (shown_) Read(control_, L"NotifyMessage", {Variant::Text(message), Variant()});
}

// The control's own keys, while the focus is in it.
bool Host::TranslateKey(MSG& message) {
  if (message.message < WM_KEYFIRST || message.message > WM_KEYLAST) return false;
  if (control_.AsObject() == nullptr || IsChild(container_, GetFocus()) == FALSE) return false;
  IOleInPlaceActiveObject* active = nullptr;
  control_.AsObject()->QueryInterface(IID_IOleInPlaceActiveObject,
                                      reinterpret_cast<void**>(&active));
  if (active == nullptr) return false;
  const bool used = active->TranslateAccelerator(&message) == S_OK;
  active->Release();
  return used;
}

// To the control's own window: a container need not pass the focus on.
void Host::FocusControl() {
  if (control_.AsObject() == nullptr) return;
  IOleWindow* object = nullptr;
  control_.AsObject()->QueryInterface(IID_IOleWindow, reinterpret_cast<void**>(&object));
  if (object == nullptr) return;
  HWND window = nullptr;
  if (object->GetWindow(&window) == S_OK) SetFocus(window);
  object->Release();
}

LRESULT Host::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_SIZE:
      if (container_ != nullptr) {
        MoveWindow(container_, 0, 0, LOWORD(lParam), HIWORD(lParam), TRUE);
      }
      return 0;
    case WM_SETFOCUS:
      FocusControl();
      return 0;
    case WM_ACTIVATE:
      if (LOWORD(wParam) != WA_INACTIVE) Notify(L"Activate");
      break;
    case WM_INITMENUPOPUP:
      if (reinterpret_cast<HMENU>(wParam) == menu_) ShowStates();
      break;
    case WM_COMMAND: {
      const UINT id = LOWORD(wParam);
      if (id >= kFirstTool) Click(id - kFirstTool);
      return 0;
    }
    case WM_CLOSE:
      // "Exit" of the control sends this message, too.
      Notify(L"QueryUnload");
      break;
    case WM_DESTROY:
      // The container ends the control with its own window.
      shown_ = false;
      tools_.clear();
      control_ = Variant();
      PostQuitMessage(0);
      return 0;
    default:
      break;
  }
  return DefWindowProcW(window_, message, wParam, lParam);
}

LRESULT CALLBACK Host::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  auto* host = reinterpret_cast<Host*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (message == WM_NCCREATE) {
    const auto* creation = reinterpret_cast<const CREATESTRUCTW*>(lParam);
    host = static_cast<Host*>(creation->lpCreateParams);
    host->window_ = window;
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(host));
  }
  if (host == nullptr) return DefWindowProcW(window, message, wParam, lParam);
  return host->OnMessage(message, wParam, lParam);
}

int Host::Run() {
  MSG message{};
  while (GetMessageW(&message, nullptr, 0, 0) > 0) {
    if (TranslateKey(message)) continue;
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
  return sample::failedCalls == 0 ? 0 : 1;
}

void Host::Rehearse() {
  std::wstring captions = L"tools:";
  for (const Variant& tool : tools_) captions += L" " + Read(tool, L"Caption").AsText();
  Print(captions);
  const std::size_t toolStrip = PositionOf(L"iToolBar");
  if (toolStrip == tools_.size()) {
    // Without tools there is nothing to click.
    PostMessageW(window_, WM_CLOSE, 0, 0);
    return;
  }
  for (int i = 0; i < 2; ++i) {
    Click(toolStrip);
    Print(Read(tools_[toolStrip], L"Checked").AsTruth() ? L"tool strip: on" : L"tool strip: off");
  }
  Click(PositionOf(L"iRefresh"));
  Click(PositionOf(L"iExit"));
  Print(IsWindow(window_) != FALSE ? L"still open" : L"closed");
}

}  // namespace

int main(int count, char** arguments) {
  if (FAILED(OleInitialize(nullptr))) return 2;
  int result = 2;
  {
    Host host;
    if (host.Open()) {
      if (count > 1 && std::strcmp(arguments[1], "--once") == 0) host.Rehearse();
      result = host.Run();
    } else {
      Print(L"the control could not be made");
    }
  }
  OleUninitialize();
  return result;
}
