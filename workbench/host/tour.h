// A guided tour: drives the host by real messages, one step at a time, and takes pictures, for
// people who want to see the program without a screen.
#pragma once

#include <windows.h>

#include <functional>
#include <string>
#include <vector>

#include "workbench/host/frame_window.h"

namespace workbench {

class Tour {
 public:
  enum class Kind { Whole, KeysOnly };
  // Needs the sample company of seed 1. Starts with the message loop and closes the frame at its
  // end. Pictures go to `folder`.
  Tour(FrameWindow& frame, std::wstring folder, Kind kind);
  ~Tour();
  // Writes the reason (UTF-8) into `folder` for a person who looks there for the pictures.
  static void SaveFailure(const std::wstring& folder, const std::string& reason) noexcept;

  Tour(const Tour&) = delete;
  Tour& operator=(const Tour&) = delete;

  // Whether every step ran and every picture was written.
  bool Finished() const { return next_ == steps_.size(); }

 private:
  static constexpr int kLastClass = 0;
  // Of the sample company of seed 1, and of no other seed.
  static constexpr std::int32_t kSampleClassRows = 2493;
  static constexpr std::int32_t kSampleProvisionRows = 3111;

  struct Step {
    // Empty: no picture of this step.
    const wchar_t* picture;
    // Throws if the step is not yet possible, and then has no effect.
    std::function<void()> action;
  };

  static void CALLBACK OnTimer(HWND window, UINT message, UINT_PTR id, DWORD time) noexcept;
  void Advance();
  // Saves the reason (UTF-8) and a picture of the screen and ends the program, which a modal window
  // would keep running.
  [[noreturn]] void Abort(const char* reason) noexcept;
  void RequireSampleCompany();
  void AddAll();
  void AddBrowsing();
  void AddSplitter();
  void AddOtherMode();
  void AddEditing();
  void AddRemoving();
  void AddMenus();
  void AddToolbar();
  void AddRefusals();
  void AddPrinting();
  void AddFinding();
  // With the keyboard alone.
  void AddKeys();
  void AddClassByKeys();
  void ChangeClassByKeys();
  void DeleteClassByKeys();
  void PreviewByBarAndKeys();
  void FindClassByKeys(const wchar_t* text);
  void GoToGridByKeys();
  void LeaveGridByKeys();
  void TypePriceByKeys();
  void CopyByKeys(std::u16string_view classNumber, const char16_t* price);
  void FindItemsByKeys();
  void PrintByKeys();
  void UseOtherModeByKeys();
  // The find bar's count begins so: "1 / " at its first hit.
  void ExpectHit(std::wstring_view start);
  void ExpectRows(std::u16string_view condition, std::int32_t count);
  // Waits for a message box whose text begins with `text` and presses its button.
  void ExpectBox(const wchar_t* picture, const std::wstring& text, int button);

  HWND Child(int controlId) const;
  HWND Grid() const;
  // Throws unless that part of the control has the focus.
  void RequireFocus(int controlId) const;
  void RequireGridFocus() const;
  // Position from 1; kLastClass for the one at the end. The point is the tree's.
  POINT ClassPoint(int position) const;
  void SelectClass(int position);
  void Drag(HWND window, int distance);
  void ClickTool(std::u16string_view name);
  // Presses a button of the control's tool strip, position from 1; posted, because its command may
  // show a modal window.
  void PressStrip(std::size_t position);
  // Presses a button of the merged toolbar, position from 1.
  void PressMerged(int position);
  // Grants the current user exactly these rights to the commands.
  void GrantRights(std::int32_t mask);

  FrameWindow& frame_;
  std::wstring folder_;
  std::vector<Step> steps_;
  std::size_t next_ = 0;
  bool pictureDue_ = false;
  bool inStep_ = false;  // a modal window is open in it
  int ticksOfStep_ = 0;
  UINT_PTR timer_ = 0;
};

}  // namespace workbench
