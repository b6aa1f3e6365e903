// The window 打印预览: buttons, page number, zoom and the page itself.
#pragma once

#include <windows.h>

#include <array>
#include <functional>
#include <memory>

#include "env/font.h"
#include "print/font_dialog.h"
#include "print/preview_commands.h"
#include "print/preview_layout.h"
#include "print/preview_state.h"
#include "windows/base/modal_frame_window.h"
#include "windows/print/preview_pages.h"
#include "windows/print/preview_pane.h"

namespace pricedown::windows {

struct PreviewChildren;

// One object serves any number of showings; the system's windows live for one.
class PreviewWindow final : public ModalFrameWindow, private PaneEvents {
 public:
  // `pages` must outlive the window.
  PreviewWindow(HINSTANCE module, PreviewPages& pages);
  ~PreviewWindow() override;

  // Makes the windows, hidden, for the next showing; `owner` may be null. Throws AutomationError.
  // Requires: the pages were made; `fonts` outlives the showing.
  void Create(HWND owner, FontDialog& fonts);
  // `closing` is called while the window is still there.
  void Show(std::function<void()> closing);
  using ModalFrameWindow::RequestClose;
  // Sets the document's font and makes the pages again. Throws AutomationError; font and pages stay
  // as they were when the pages could not be made, and are the new ones when the current page could
  // not be shown.
  void ApplyFont(const Font& font);
  // Handles a message of the modal loop; returns whether it was handled.
  bool TranslateKey(MSG& message);

 private:
  // ModalFrameWindow
  void CreateChildren() override;
  void SetFonts(HFONT font) override;
  void UpdateResolution(Dpi dpi) override;
  void PlaceChildren(SIZE client, Dpi dpi) override;
  SIZE MinimumSize(Dpi dpi) const override;
  std::array<HWND, 2> ThemedChildren() const override;
  void FocusFirst() override;
  void OnEscape() override { Run(PreviewCommand::Close); }
  void OnEnter() override;
  void OnChildCommand(HWND child, int id, int code) override;
  LRESULT OnNotify(NMHDR& header) override;
  void Close() override;
  void CommandEnded() override { ShowState(); }
  void OnDestroy() override;
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

  // PaneEvents
  void PaneChanges(const std::function<void()>& change) override;
  void PaneCommand(PreviewCommand command) override { Run(command); }

  bool OnKeyDown(const MSG& message);
  void Run(PreviewCommand command);
  void Execute(PreviewCommand command);
  void ChooseFont();
  void RemakePages();
  PreviewFocus FocusOf(HWND window) const;
  void EnterPage();
  void GoToTypedPage();
  void ApplyZoomChoice();
  void ApplyTypedZoom();

  void MakeChildren();
  PreviewMeasures Measures() const;
  SIZE FirstSize() const;
  // Shows the state in all children.
  void ShowState();
  void ShowPageNumber();
  void ShowZoom();

  PreviewPages& pages_;
  PreviewState state_;
  std::unique_ptr<PreviewChildren> children_;
  FontDialog* fonts_ = nullptr;
  std::function<void()> closing_;
  // All children are there and in their places.
  bool complete_ = false;
};

}  // namespace pricedown::windows
