// The field over a cell of the grid into which a number is typed. Its window exists while the cell
// is edited.
#pragma once

#include <windows.h>

#include <optional>
#include <string>
#include <string_view>

#include "platform/lifetime.h"
#include "windows/base/bound_window.h"
#include "windows/base/plain_control.h"

namespace pricedown::windows {

// What the editor reports to its parent.
class EditorEvents {
 public:
  // The text is a number with two decimals, or empty. `key` is the key that ended the editing, 0
  // for anything else.
  virtual void EditingAccepted(std::u16string_view text, WPARAM key) = 0;
  // `left`: because another window gets the focus.
  virtual void EditingCancelled(bool left) = 0;
  // Another window got the focus; the editor has ended.
  virtual void EditorLeft(HWND to) = 0;
  // A key whose command runs after the number has been accepted.
  virtual void CommandKeyPressed(WPARAM key) = 0;

 protected:
  ~EditorEvents() = default;
};

class GridEditor final : public BoundWindow {
 public:
  explicit GridEditor(EditorEvents& events) : events_(events) {}
  ~GridEditor() override { object_.End(); }

  struct Start {
    RECT area;  // the cell, in the parent's coordinates
    HFONT font;
    int lineHeight;  // of the font
    int margin;
    std::u16string_view name;  // for screen readers
    std::u16string_view text;
    bool selectAll;
    double upperBound;
  };
  // Requires: not active. Throws AutomationError.
  void Begin(HWND parent, HINSTANCE module, const Start& start);
  bool IsActive() const { return Handle() != nullptr; }
  // While its window is destroyed, which moves the focus.
  bool IsEnding() const { return ending_; }
  // Ends the editing; a text that is no number is dropped.
  void Finish(WPARAM key, bool left = false);
  void Cancel();

 private:
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
  // True when the key was handled.
  bool OnKeyDown(WPARAM key);
  bool OnChar(WPARAM character);
  void OnPaste();
  // Destroys the windows, which moves the focus. False when the host has destroyed this object
  // then.
  bool End();
  bool Allows(std::u16string_view inserted) const;

  EditorEvents& events_;
  // Without a size. The system names a field by the label before it.
  std::optional<PlainControl> label_;
  double upperBound_ = 0;
  bool ending_ = false;
  Lifetime object_;
};

}  // namespace pricedown::windows
