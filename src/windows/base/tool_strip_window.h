// A tool strip, a row of buttons by the system's toolbar: the control's `tbToolBar`, the form's
// `tlbSPCA` and the preview's bars.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "env/command.h"
#include "windows/base/bound_window.h"
#include "windows/base/control_ids.h"
#include "windows/base/dpi.h"
#include "windows/base/image_list.h"
#include "windows/base/pending_report.h"
#include "windows/base/tool_strip_events.h"

namespace pricedown::windows {

// How accessible clients name the only tool strip of a window.
inline constexpr std::u16string_view kToolStripName = u"工具栏";

class ToolStripWindow final : public BoundWindow {
 public:
  // One button per row, in order. The rows must outlive the window.
  ToolStripWindow(ToolStripEvents& events, std::vector<const Command*> buttons)
      : events_(events), buttons_(std::move(buttons)) {}
  // `id` is the window's; a button's command id is control_ids::kFirstButton + its position from 1.
  // Throws AutomationError.
  void Create(HWND parent, HINSTANCE module, int id, Dpi dpi, std::u16string_view name);

  // Rows without a button are ignored: disabled, without a caption.
  void SetEnabled(const Command& button, bool enabled);
  bool IsEnabled(const Command& button) const;
  std::u16string Caption(const Command& button) const;
  void SetCaption(const Command& button, std::u16string_view caption);
  void SetTooltip(const Command& button, std::u16string_view tooltip);
  // Another caption; a tooltip, if there is one, says the same then.
  void Rename(const Command& button, std::u16string_view caption);

  void SetFont(HFONT font);
  // The height, in pixels, at which toolbars draw pictures in the middle.
  int ButtonHeight() const;
  // From the window's left edge to the right one of the last button. Pixels.
  int ButtonsWidth() const;
  void UpdateAppearance(Dpi dpi);

  // Notifications that the toolbar sent to its parent.
  void OnCommand(int id);
  LRESULT OnNotify(NMHDR& header) const;

  // The first button that can be pressed is marked for the keyboard.
  bool AcceptsFocus() const;

 private:
  // What the user pressed while the toolbar handles a message.
  struct Pressed {
    const Command* button = nullptr;
    bool more = false;  // the arrow
  };

  static constexpr int kNoButton = -1;

  // The command id of the button at that position, from 1.
  static int IdAt(std::size_t position) {
    return control_ids::kFirstButton + static_cast<int>(position);
  }
  // Of the arrow, translated.
  static std::u16string MoreName();

  // The row's command id; 0 without a window or button.
  int IdOf(const Command& button) const;
  // The row of a command id; null when there is none.
  const Command* ButtonOf(std::size_t id) const;
  std::vector<int> Icons() const;

  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
  void OnTooltip(NMTTDISPINFOW& info) const;
  LRESULT OnSystemPart(UINT message, WPARAM wParam, LPARAM lParam);
  bool SharesFrameWith(HWND window) const;
  bool OnKeyDown(WPARAM key, bool repeated);
  bool CanPress(int index) const;
  int NextButton(int from, int step) const;
  // Presses the button at that position.
  void Press(int index);
  void ChooseFromRest();
  int HotButton() const;
  void SetHot(int index);
  void AddButtons();
  void LoadDisabledImages();
  void SizeButtons();
  // Leaves out what the window is too narrow for, behind an arrow.
  void FitButtons();
  void ShowMore(bool show);
  bool HasRest() const { return shown_ < buttons_.size(); }
  RECT ItemArea(std::size_t position) const;
  std::int32_t MoreWidth() const;

  ToolStripEvents& events_;
  std::vector<const Command*> buttons_;
  std::vector<std::u16string> tooltips_;  // by position from 0
  Dpi dpi_;
  HFONT font_ = nullptr;                  // the control's
  std::vector<std::int32_t> rightEdges_;  // with all buttons visible
  std::size_t shown_ = 0;                 // buttons, from the first on
  int returnsTo_ = kNoButton;             // hot when the focus went to another window
  ImageList images_;
  ImageList disabledImages_;
  PendingReport<Pressed> pressed_;
};

}  // namespace pricedown::windows
