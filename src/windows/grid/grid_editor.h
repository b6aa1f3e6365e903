// The field over a cell of the grid into which a number is typed.
// Which cells may be edited, and what becomes of the number, is the grid's window's business.
#pragma once

#include <windows.h>

#include <string>
#include <string_view>

#include "windows/base/bound_window.h"

namespace pricedown::windows {

// What the editor tells the window that it belongs to.
class EditorEvents {
 public:
  // The text is a number with two decimals, or empty. `key` is the key that ended the editing, 0
  // when it was something else.
  virtual void EditingAccepted(std::u16string_view text, WPARAM key) = 0;
  virtual void EditingCancelled() = 0;
  // F5, which is not the editor's.
  virtual void FunctionKeyPressed(WPARAM key) = 0;

 protected:
  ~EditorEvents() = default;
};

class GridEditor final : public BoundWindow {
 public:
  explicit GridEditor(EditorEvents& events) : events_(events) {}

  struct Start {
    RECT area;  // the cell, in the parent's coordinates
    HFONT font;
    int lineHeight;  // of the font
    int margin;
    std::u16string_view text;
    bool selectAll;
    double upperBound;
  };
  // Requires: not active. Throws AutomationError.
  void Begin(HWND parent, HINSTANCE module, const Start& start);
  bool IsActive() const { return Handle() != nullptr; }
  // Ends the editing: the number is accepted when it is one, else dropped.
  void Finish(WPARAM key);
  void Cancel();

 private:
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
  // True when the key was used up.
  bool OnKeyDown(WPARAM key);
  bool OnChar(WPARAM character);
  void OnPaste();
  bool Allows(std::u16string_view inserted) const;
  void Close();

  EditorEvents& events_;
  double upperBound_ = 0;
  bool closing_ = false;
};

}  // namespace pricedown::windows
