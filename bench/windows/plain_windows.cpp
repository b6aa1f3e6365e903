// The set of windows, created with as few calls as possible.
// The grid is the system's virtual list; the small drawn windows are empty labels.
#include "bench/windows/plain_windows.h"

#include <commctrl.h>

#include "bench/windows/raw_tree.h"
#include "control/commands.h"
#include "windows/base/dpi.h"
#include "windows/base/fonts.h"
#include "windows/com/system_error.h"
#include "windows/com/wide_text.h"

namespace bench {

using namespace pricedown::windows;

namespace {

struct ChildWindow {
  const wchar_t* className;
  DWORD style;
  RECT area;
};

// Two lines, two headings, the splitter, its drag bar and the grid's pane are labels here.
constexpr ChildWindow kChildren[] = {
    {L"STATIC", SS_RIGHT, {632, 22, 792, 39}},
    {L"STATIC", SS_LEFT, {632, 5, 712, 22}},
    {L"STATIC", SS_RIGHT, {712, 5, 792, 22}},
    {L"STATIC", SS_LEFT, {0, 44, 800, 46}},
    {L"STATIC", SS_LEFT, {0, 76, 800, 78}},
    {L"STATIC", SS_LEFT, {0, 78, 200, 98}},
    {L"STATIC", SS_LEFT, {204, 78, 800, 98}},
    {L"STATIC", SS_LEFT, {200, 78, 204, 578}},
    {L"STATIC", SS_LEFT, {200, 78, 204, 578}},
    {L"STATIC", SS_LEFT, {204, 98, 800, 578}},
    {L"STATIC", SS_LEFT, {0, 0, 100, 20}},
    {PROGRESS_CLASSW, PBS_MARQUEE, {650, 582, 790, 596}},
    {STATUSCLASSNAMEW, CCS_NOPARENTALIGN, {0, 578, 800, 600}},
    {WC_LISTVIEWW, LVS_REPORT | LVS_OWNERDATA, {204, 98, 800, 578}},
};
constexpr RECT kTitle{8, 5, 600, 39};
constexpr RECT kToolBar{0, 46, 800, 76};
constexpr RECT kTree{0, 98, 200, 578};
constexpr double kTitlePoints = 18;

}  // namespace

PlainWindows::PlainWindows(HWND parent) {
  const DWORD style = parent == nullptr ? DWORD{WS_POPUP} : WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN;
  frame_ = CreateWindowExW(0, L"STATIC", L"", style, 0, 0, 800, 600, parent, nullptr,
                           GetModuleHandleW(nullptr), nullptr);
  if (frame_ == nullptr) ThrowLastError();
  const Dpi dpi = Dpi::Of(frame_);
  font_ = MakeMessageFont(dpi);
  pricedown::Font title;
  title.size = kTitlePoints;
  titleFont_ = MakeMessageFont(title, dpi);
  SendMessageW(Child(L"STATIC", SS_LEFT, kTitle), WM_SETFONT,
               reinterpret_cast<WPARAM>(titleFont_.Get()), FALSE);
  for (const ChildWindow& child : kChildren) Child(child.className, child.style, child.area);
  FillToolBar(Child(TOOLBARCLASSNAMEW, TBSTYLE_FLAT | TBSTYLE_LIST | CCS_NORESIZE, kToolBar));
  tree_ = Child(WC_TREEVIEWW, TVS_HASLINES | TVS_LINESATROOT | TVS_HASBUTTONS, kTree);
}

PlainWindows::~PlainWindows() { DestroyWindow(frame_); }

HWND PlainWindows::Child(const wchar_t* className, DWORD style, const RECT& area) {
  const HWND child =
      CreateWindowExW(0, className, L"物料类别", WS_CHILD | WS_VISIBLE | style, area.left, area.top,
                      area.right - area.left, area.bottom - area.top, frame_, nullptr,
                      GetModuleHandleW(nullptr), nullptr);
  if (child == nullptr) ThrowLastError();
  SendMessageW(child, WM_SETFONT, reinterpret_cast<WPARAM>(font_.Get()), FALSE);
  return child;
}

void PlainWindows::FillToolBar(HWND bar) {
  SendMessageW(bar, TB_BUTTONSTRUCTSIZE, sizeof(TBBUTTON), 0);
  for (const pricedown::ControlCommand* button :
       pricedown::CommandsOn(pricedown::surface::kToolStrip)) {
    const std::wstring caption = ToWide(button->caption);
    TBBUTTON description{};
    description.iBitmap = I_IMAGENONE;
    description.fsState = TBSTATE_ENABLED;
    description.fsStyle = button->separator ? BTNS_SEP : BTNS_AUTOSIZE;
    description.iString = reinterpret_cast<INT_PTR>(caption.c_str());
    SendMessageW(bar, TB_ADDBUTTONSW, 1, reinterpret_cast<LPARAM>(&description));
  }
}

void PlainWindows::FillTree(const std::vector<std::u16string>& nodes) {
  RawTree tree(tree_);
  tree.Begin();
  for (const std::u16string& node : nodes) tree.Insert(node);
  tree.End();
}

}  // namespace bench
