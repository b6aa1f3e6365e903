// Plays the user of a picker: steps that a timer runs one after the other while the modal window
// runs its own message loop.
#pragma once

#include <windows.h>

#include <deque>
#include <functional>
#include <string>
#include <string_view>

namespace workbench::testing {

class PickerUser {
 public:
  PickerUser();
  // Fails the test if a step was never reached.
  ~PickerUser();
  PickerUser(const PickerUser&) = delete;
  PickerUser& operator=(const PickerUser&) = delete;

  // The steps, in the order of the calls.
  PickerUser& Type(std::u16string_view text);
  PickerUser& Press(WPARAM key);
  PickerUser& PressWithControl(WPARAM key);
  // At a row's text or, further left, at its tick.
  PickerUser& Click(int row, int x = 40);
  PickerUser& DoubleClick(int row);
  PickerUser& PressButton(int id);
  // Until the control shows that text.
  PickerUser& Await(int id, std::u16string_view text);
  PickerUser& Then(std::function<void()> look);
  // Writes NAME.png of the whole window into the folder PRICEDOWN_PICTURES.
  PickerUser& CapturePicture(const std::string& name);

  // For steps: the open window and what is in it.
  HWND Dialog() const;
  HWND Control(int id) const { return GetDlgItem(Dialog(), id); }
  std::string Text(int id) const;
  int CurrentRow() const;
  std::string Cell(int row, int column) const;
  bool IsTicked(int row) const;
  // Whether any picker was seen.
  bool SawWindow() const { return seen_; }

 private:
  static void CALLBACK OnTimer(HWND window, UINT message, UINT_PTR timer, DWORD time);
  void Next();
  PickerUser& Add(std::function<bool()> step);

  std::deque<std::function<bool()>> steps_;
  bool seen_ = false;
  bool running_ = false;
  int waited_ = 0;
  UINT_PTR timer_;
};

// An ordinary window that owns the pickers and can have the focus.
class OwnerWindow {
 public:
  OwnerWindow();
  ~OwnerWindow();
  OwnerWindow(const OwnerWindow&) = delete;
  OwnerWindow& operator=(const OwnerWindow&) = delete;

  HWND Handle() const { return handle_; }
  HWND Field() const { return field_; }

 private:
  HWND handle_;
  HWND field_;
};

}  // namespace workbench::testing
