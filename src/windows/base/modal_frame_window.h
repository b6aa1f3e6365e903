// A top-level window shown modally over another: the base of form and preview.
#pragma once

#include <windows.h>

#include <array>
#include <functional>
#include <optional>
#include <string_view>

#include "windows/base/bound_window.h"
#include "windows/base/command_window.h"
#include "windows/base/dpi.h"
#include "windows/base/fonts.h"
#include "windows/base/image_list.h"

namespace pricedown::windows {

// An object may be shown any number of times; its windows live for one showing. Sizes are pixels.
class ModalFrameWindow : public CommandWindow, protected BoundWindow {
 public:
  // CommandWindow
  HWND Window() const override { return Handle(); }
  HWND DialogOwner() const override;
  void SetWaiting(bool waiting) override;

 protected:
  // `icon` is a resource id, platform/icon_ids.h.
  ModalFrameWindow(HINSTANCE module, int icon) : module_(module), icon_(icon) {}
  // Requires: the derived class has destroyed the window in its own destructor.
  ~ModalFrameWindow() override = default;

  HINSTANCE Module() const { return module_; }
  // Null before the first showing.
  HFONT TextFont() const { return font_.Get(); }

  // Creates the window with its children, hidden and without a size; `owner` may be null. Throws
  // AutomationError, and then there is no window.
  void CreateFrame(const wchar_t* className, HWND owner, std::u16string_view title = {});
  // The outer size for that inner one.
  SIZE OuterSize(SIZE client) const;
  // See AreaOfOwner.
  std::optional<RECT> OwnerArea() const;
  // Places the window with that outer size over its owner, inside the owner's screen.
  void Centre(SIZE size);
  void LayOut();
  // Whether the message is for this window or one in it.
  bool IsOurs(const MSG& message) const;
  void FocusNext(bool backwards);

  bool IsBusy() const { return busy_; }
  // Runs a command of the user and reports its failure in a message; ignored while another command
  // runs. `showsWait` for a command that may take long. The window may be destroyed when this
  // returns.
  void RunCommand(bool showsWait, const std::function<void()>& command);
  // Closes the window, once a running command has ended. A no-op without a window.
  void RequestClose();

  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  // In tab order. Throws AutomationError.
  virtual void CreateChildren() = 0;
  virtual void SetFonts(HFONT font) = 0;
  // Updates pictures and measures for that resolution; fonts and places follow.
  virtual void UpdateResolution(Dpi dpi) = 0;
  virtual void PlaceChildren(SIZE client, Dpi dpi) = 0;
  // The least inner size of the window.
  virtual SIZE MinimumSize(Dpi dpi) const = 0;
  // Those that draw in the system's colours and theme; null where there is none.
  virtual std::array<HWND, 2> ThemedChildren() const = 0;
  virtual void FocusFirst() = 0;

  virtual void OnEscape() = 0;
  virtual void OnEnter() = 0;
  virtual void OnChildCommand(HWND child, int id, int code) = 0;
  virtual LRESULT OnNotify(NMHDR& header) = 0;
  // Ends the showing without a question. Requires: no command runs.
  virtual void Close() = 0;
  // A command has ended, failed or not.
  virtual void CommandEnded() {}
  // The window is destroyed together with its owner.
  virtual void OnDestroy() = 0;

  void MakeFont();
  void MakeIcons();
  void OnCommand(WPARAM wParam, LPARAM lParam);
  void OnActivate(bool active);
  void OnDpiChanged(const RECT& suggested);
  void OnSystemChange(UINT message, WPARAM wParam, LPARAM lParam);

  HINSTANCE module_;
  int icon_;
  IconHandle smallIcon_;
  IconHandle largeIcon_;
  // Outlives the children of derived classes, which show it.
  FontHandle font_;
  HWND owner_ = nullptr;  // of the showing; may be null
  HWND lastFocus_ = nullptr;
  bool waiting_ = false;
  bool busy_ = false;  // a command runs
  bool closeRequested_ = false;
};

}  // namespace pricedown::windows
