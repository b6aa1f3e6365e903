// Creation, buttons, sizes and messages of the tool strip.
#include "windows/base/tool_strip_window.h"

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

#include "env/translation.h"
#include "platform/icon_ids.h"
#include "platform/skip.h"
#include "windows/base/control_ids.h"
#include "windows/base/fonts.h"
#include "windows/base/keyboard.h"
#include "windows/base/painting.h"
#include "windows/base/plain_control.h"
#include "windows/com/wide_text.h"

namespace pricedown::windows {
namespace {

// Pixels at 96 dpi.
constexpr int kSeparatorWidth = 8;
constexpr int kButtonMargin = 6;  // left and right of picture and caption
constexpr int kPictureGap = 6;    // between the two
// What the system's toolbars leave above and below a picture together, at every resolution.
constexpr int kHeightMargin = 6;

}  // namespace

int ToolStripWindow::IdOf(const Command& button) const {
  const auto found = std::find(buttons_.begin(), buttons_.end(), &button);
  if (Handle() == nullptr || found == buttons_.end()) return 0;
  return IdAt(static_cast<std::size_t>(found - buttons_.begin()) + 1);
}

const Command* ToolStripWindow::ButtonOf(std::size_t id) const {
  const std::size_t index = id - static_cast<std::size_t>(IdAt(1));
  return index < buttons_.size() ? buttons_[index] : nullptr;
}

// In the order of the buttons, separators left out; the arrow's is the last.
std::vector<int> ToolStripWindow::Icons() const {
  std::vector<int> icons;
  for (const Command* button : buttons_) {
    if (button->icon != 0) icons.push_back(button->icon);
  }
  icons.push_back(PRICEDOWN_ICON_MORE);
  return icons;
}

void ToolStripWindow::Create(HWND parent, HINSTANCE module, int id, Dpi dpi,
                             std::u16string_view name) {
  const std::wstring text = ToWide(name);
  Creation creation;
  creation.className = TOOLBARCLASSNAMEW;
  creation.text = text.c_str();
  creation.style = WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS | WS_TABSTOP | TBSTYLE_FLAT |
                   TBSTYLE_LIST | TBSTYLE_TOOLTIPS | CCS_NODIVIDER | CCS_NORESIZE |
                   CCS_NOPARENTALIGN;
  creation.parent = parent;
  creation.id = id;
  creation.module = module;
  CreateControl(creation);
  SendMessageW(Handle(), TB_BUTTONSTRUCTSIZE, sizeof(TBBUTTON), 0);
  // A text that is not shown is the button's name.
  SendMessageW(Handle(), TB_SETEXTENDEDSTYLE, 0, TBSTYLE_EX_DOUBLEBUFFER | TBSTYLE_EX_MIXEDBUTTONS);
  tooltips_.clear();
  UpdateAppearance(dpi);
  AddButtons();
}

void ToolStripWindow::AddButtons() {
  int image = 0;
  std::vector<std::wstring> captions;
  for (const Command* button : buttons_) captions.push_back(ToWide(Translate(button->caption)));
  std::vector<TBBUTTON> descriptions;
  for (std::size_t position = 1; position <= buttons_.size(); ++position) {
    const Command& button = *buttons_[position - 1];
    tooltips_.push_back(TooltipOf(button));
    TBBUTTON& description = descriptions.emplace_back();
    description.idCommand = IdAt(position);
    if (button.separator) {
      description.fsStyle = BTNS_SEP;
      description.iBitmap = dpi_.Scale(kSeparatorWidth);
    } else {
      description.iBitmap = button.icon != 0 ? image++ : I_IMAGENONE;
      description.fsState = TBSTATE_ENABLED;
      description.fsStyle = button.pictureOnly ? BTNS_BUTTON : BTNS_BUTTON | BTNS_SHOWTEXT;
      description.iString = reinterpret_cast<INT_PTR>(captions[position - 1].c_str());
    }
  }
  // At once: a toolbar measures all its buttons whenever it gets one.
  SendMessageW(Handle(), TB_ADDBUTTONSW, descriptions.size(),
               reinterpret_cast<LPARAM>(descriptions.data()));
  shown_ = buttons_.size();
}

int ToolStripWindow::ButtonHeight() const {
  if (Handle() == nullptr || font_ == nullptr) return 0;
  return std::max(IconSize(dpi_), LineHeight(Handle(), font_)) + kHeightMargin;
}

int ToolStripWindow::ButtonsWidth() const {
  return Handle() == nullptr || rightEdges_.empty() ? 0 : rightEdges_.back();
}

RECT ToolStripWindow::ItemArea(std::size_t position) const {
  RECT area{};
  SendMessageW(Handle(), TB_GETITEMRECT, position, reinterpret_cast<LPARAM>(&area));
  return area;
}

std::int32_t ToolStripWindow::MoreWidth() const {
  return 2 * dpi_.Scale(kButtonMargin) + IconSize(dpi_);
}

// As wide as picture and caption need. The system's own sizes differ between its releases and leave
// no room between the buttons.
void ToolStripWindow::SizeButtons() {
  if (Handle() == nullptr || font_ == nullptr) return;
  const int size = IconSize(dpi_);
  SendMessageW(Handle(), TB_SETLISTGAP, static_cast<WPARAM>(dpi_.Scale(kPictureGap)), 0);
  SendMessageW(Handle(), TB_SETBUTTONSIZE, 0, MAKELPARAM(size, ButtonHeight()));
  const WindowContext context(Handle());
  for (const Command* button : buttons_) {
    if (button->separator) continue;
    const int text =
        button->pictureOnly
            ? 0
            : dpi_.Scale(kPictureGap) + TextWidth(context.Get(), font_, ToWide(Caption(*button)));
    TBBUTTONINFOW info{};
    info.cbSize = sizeof info;
    info.dwMask = TBIF_SIZE;
    info.cx = static_cast<WORD>(2 * dpi_.Scale(kButtonMargin) + size + text);
    SendMessageW(Handle(), TB_SETBUTTONINFOW, static_cast<WPARAM>(IdOf(*button)),
                 reinterpret_cast<LPARAM>(&info));
  }
  // Hidden ones have no place to measure.
  rightEdges_.clear();
  for (std::size_t position = 0; position < buttons_.size(); ++position) {
    if (position >= shown_) {
      SendMessageW(Handle(), TB_HIDEBUTTON, static_cast<WPARAM>(IdAt(position + 1)), FALSE);
    }
    rightEdges_.push_back(ItemArea(position).right);
  }
  ShowMore(false);
  shown_ = buttons_.size();
  FitButtons();
}

void ToolStripWindow::UpdateAppearance(Dpi dpi) {
  if (Handle() == nullptr) return;
  dpi_ = dpi;
  ImageList images = ImageListOf(Icons(), IconLook::Normal, dpi);
  const int size = IconSize(dpi);
  SendMessageW(Handle(), TB_SETBITMAPSIZE, 0, MAKELPARAM(size, size));
  SendMessageW(Handle(), TB_SETIMAGELIST, 0, reinterpret_cast<LPARAM>(images.get()));
  SendMessageW(Handle(), TB_SETHOTIMAGELIST, 0, reinterpret_cast<LPARAM>(images.get()));
  images_ = std::move(images);
  if (disabledImages_ != nullptr) LoadDisabledImages();
  SizeButtons();
}

void ToolStripWindow::LoadDisabledImages() {
  ImageList images = ImageListOf(Icons(), IconLook::Disabled, dpi_);
  SendMessageW(Handle(), TB_SETDISABLEDIMAGELIST, 0, reinterpret_cast<LPARAM>(images.get()));
  disabledImages_ = std::move(images);
}

void ToolStripWindow::SetFont(HFONT font) {
  font_ = font;
  SetFontOf(Handle(), font);
  SizeButtons();
}

void ToolStripWindow::SetEnabled(const Command& button, bool enabled) {
  const int id = IdOf(button);
  if (id == 0 || IsEnabled(button) == enabled) return;
  SendMessageW(Handle(), TB_ENABLEBUTTON, static_cast<WPARAM>(id),
               MAKELPARAM(enabled ? TRUE : FALSE, 0));
}

bool ToolStripWindow::IsEnabled(const Command& button) const {
  const int id = IdOf(button);
  return id != 0 && SendMessageW(Handle(), TB_ISBUTTONENABLED, static_cast<WPARAM>(id), 0) != 0;
}

std::u16string ToolStripWindow::Caption(const Command& button) const {
  const int id = IdOf(button);
  std::array<wchar_t, 128> text{};
  TBBUTTONINFOW info{};
  info.cbSize = sizeof info;
  info.dwMask = TBIF_TEXT;
  info.pszText = text.data();
  info.cchText = static_cast<int>(text.size());
  if (id == 0 || SendMessageW(Handle(), TB_GETBUTTONINFOW, static_cast<WPARAM>(id),
                              reinterpret_cast<LPARAM>(&info)) < 0) {
    return {};
  }
  return FromWide(text.data());
}

void ToolStripWindow::SetCaption(const Command& button, std::u16string_view caption) {
  const int id = IdOf(button);
  // An unchanged caption, the usual case, needs no new sizes.
  if (id == 0 || Caption(button) == caption) return;
  std::wstring text = ToWide(caption);
  TBBUTTONINFOW info{};
  info.cbSize = sizeof info;
  info.dwMask = TBIF_TEXT;
  info.pszText = text.data();
  SendMessageW(Handle(), TB_SETBUTTONINFOW, static_cast<WPARAM>(id),
               reinterpret_cast<LPARAM>(&info));
  SizeButtons();
}

void ToolStripWindow::SetTooltip(const Command& button, std::u16string_view tooltip) {
  if (const int id = IdOf(button)) tooltips_[static_cast<std::size_t>(id - IdAt(1))] = tooltip;
}

void ToolStripWindow::Rename(const Command& button, std::u16string_view caption) {
  const int id = IdOf(button);
  if (id == 0 || Caption(button) == caption) return;
  SetCaption(button, caption);
  std::u16string& tip = tooltips_[static_cast<std::size_t>(id - IdAt(1))];
  if (!tip.empty()) tip = WithShortcut(button, caption);
}

void ToolStripWindow::OnCommand(int id) {
  if (id == control_ids::kMoreButtons) pressed_.Value().more = true;
  if (const Command* button = ButtonOf(static_cast<std::size_t>(id))) {
    pressed_.Value().button = button;
  }
}

LRESULT ToolStripWindow::OnNotify(NMHDR& header) const {
  if (header.code == NM_CUSTOMDRAW && header.hwndFrom == Handle()) {
    return OnToolbarDraw(reinterpret_cast<NMTBCUSTOMDRAW&>(header));
  }
  const LRESULT tips = SendMessageW(Handle(), TB_GETTOOLTIPS, 0, 0);
  if (header.code == TTN_GETDISPINFOW && header.hwndFrom == reinterpret_cast<HWND>(tips)) {
    OnTooltip(reinterpret_cast<NMTTDISPINFOW&>(header));
  }
  return 0;
}

void ToolStripWindow::OnTooltip(NMTTDISPINFOW& info) const {
  const std::size_t index = info.hdr.idFrom - static_cast<std::size_t>(IdAt(1));
  const bool isMore = info.hdr.idFrom == static_cast<UINT_PTR>(control_ids::kMoreButtons);
  if (!isMore && index >= tooltips_.size()) return;
  const std::wstring tip = ToWide(isMore ? MoreName() : tooltips_[index]);
  lstrcpynW(info.szText, tip.c_str(), static_cast<int>(std::size(info.szText)));
  info.lpszText = info.szText;
}

// The last step of a message.
void ToolStripWindow::Press(int index) {
  if (index < 0 || !CanPress(index)) return;
  const auto position = static_cast<std::size_t>(index);
  if (position == buttons_.size()) {
    ChooseFromRest();
  } else {
    events_.CommandChosen(*buttons_[position]);
  }
}

// Whether Tab may come from there. The frame has the focus for a moment when it becomes active
// again, and the windows between it and the strip may pass it on.
bool ToolStripWindow::SharesFrameWith(HWND window) const {
  return IsChild(GetAncestor(Handle(), GA_ROOT), window) != FALSE &&
         IsChild(window, Handle()) == FALSE;
}

// The default handling of a message, then the press that it reported.
LRESULT ToolStripWindow::OnSystemPart(UINT message, WPARAM wParam, LPARAM lParam) {
  const auto [result, pressed] = pressed_.After([&] { return Default(message, wParam, lParam); });
  if (pressed.more) {
    ChooseFromRest();
  } else if (pressed.button != nullptr) {
    events_.CommandChosen(*pressed.button);
  }
  return result;
}

LRESULT ToolStripWindow::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_GETDLGCODE:
      return DLGC_WANTARROWS | DLGC_WANTCHARS;
    case WM_KEYDOWN:
      if (OnKeyDown(wParam, IsRepeated(lParam))) return 0;
      break;
    case WM_CHAR:
      return 0;
    case TB_ENABLEBUTTON:
      // Most strips never show them. The system greys a button without them.
      if (LOWORD(lParam) == FALSE && disabledImages_ == nullptr) {
        SkipFailing([&] { LoadDisabledImages(); });
      }
      break;
    case WM_SIZE: {
      const Lifetime strip = WindowLifetime();
      const LRESULT result = OnSystemPart(message, wParam, lParam);
      // An earlier press runs with it and may end everything.
      if (!strip.HasEnded()) FitButtons();
      return result;
    }
    case WM_SETFOCUS: {
      const LRESULT result = Default(message, wParam, lParam);
      const HWND previous = reinterpret_cast<HWND>(wParam);
      if (HotButton() == kNoButton) {
        const bool returns =
            returnsTo_ != kNoButton && !SharesFrameWith(previous) && CanPress(returnsTo_);
        SetHot(returns ? returnsTo_ : NextButton(kNoButton, 1));
      }
      events_.FocusEntered();
      return result;
    }
    case WM_KILLFOCUS: {
      // Back from another window, such as one that a button opened, the keyboard is where it was.
      const HWND next = reinterpret_cast<HWND>(wParam);
      returnsTo_ = SharesFrameWith(next) ? kNoButton : HotButton();
      SendMessageW(Handle(), TB_SETHOTITEM, static_cast<WPARAM>(kNoButton), 0);
      const LRESULT result = Default(message, wParam, lParam);
      events_.FocusLeft(next);
      return result;
    }
    default:
      break;
  }
  return OnSystemPart(message, wParam, lParam);
}

}  // namespace pricedown::windows
