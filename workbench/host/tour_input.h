// What a user's hand does in a tour: keys, texts and clicks, posted to windows of this thread; for
// menus the mouse itself, because a menu asks where it is.
// Nothing is waited for; the next tick of the tour sees what came of it.
#pragma once

#include <windows.h>

#include <string>

namespace workbench {

// Throws AutomationError when `window` is null: the step expects one that is not there.
HWND RequireWindow(HWND window);

void PostKey(HWND window, WPARAM key);
void PostText(HWND window, const wchar_t* text);
// A mouse click in the middle of a tool bar's button, index from 0.
void PressButton(HWND toolBar, int index);
// The button of the message box that is active now.
void PressBoxButton(int button);
// The text of that message box.
std::wstring BoxText();
// The right mouse button at a point of the window, by the mouse itself.
void RightClick(HWND window, POINT point);
// The line, from 0, of the menu that is open now, by the mouse itself.
void PressMenuLine(int line);

}  // namespace workbench
