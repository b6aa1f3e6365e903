// A user's input in a tour: keys, texts and clicks, posted to windows of this thread; for menus
// real mouse movements, because a menu asks for the position.
// No function waits: one that does not find its window throws without an effect, and the tour tries
// again.
#pragma once

#include <windows.h>

#include <string_view>

namespace workbench {

// Throws AutomationError with that text unless the condition holds.
void Require(bool condition, std::u16string_view otherwise);
// Throws when `window` is null.
HWND RequireWindow(HWND window);
// Throws too when a modal window is open in front of it.
HWND RequireReady(HWND window);

void PostKey(HWND window, WPARAM key);
// Keys and characters at the keyboard itself: they go to the window with the focus.
void PressWithControl(WORD key, bool shift);
void PressWithShift(WORD key);
void Press(WORD key);
void PressText(const wchar_t* text);
void PostText(HWND window, const wchar_t* text);
// A mouse click in the middle of a tool strip's button, index from 0.
void PressButton(HWND toolBar, int index);
// The item class form; throws unless it is open, nothing is open in front of it, and no command
// runs.
HWND RequireForm();
// The delete command's question without the class number.
inline constexpr const wchar_t* kDeleteQuestion = L"确定要删除当前记录? 当前的物料类别代码为:";
// Throws unless a message box is active whose text begins with `text`.
void RequireBox(std::wstring_view text);
// The button of the message box that is active now.
void PressBoxButton(int button);
// Start of a picker's result text, with and without a text to look for.
inline constexpr const wchar_t* kPickerFound = L"找到 ";
inline constexpr const wchar_t* kPickerAll = L"共 ";
// Throws unless a picker of the suite is active and reports `found`.
void RequirePicker(std::wstring_view found);
// The right mouse button at a point of the window, by the mouse itself.
void RightClick(HWND window, POINT point);
// Throws unless a context menu is open; its window.
HWND RequireMenu();
// The line, from 0, of that menu, by the mouse itself.
void PressMenuLine(int line);

}  // namespace workbench
