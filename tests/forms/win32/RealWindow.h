#pragma once

#include "forms/win32/DialogWindow.h"

namespace kaz {

// What a user meets behind a window of the real stage.
inline HWND HandleOf(Window& window) { return dynamic_cast<DialogWindow&>(window).Handle(); }
inline HWND ControlOf(Window& window, int control) { return GetDlgItem(HandleOf(window), control); }
inline bool IsAbove(HWND upper, HWND lower) {
    while (lower && lower != upper)
        lower = GetWindow(lower, GW_HWNDPREV);
    return lower != nullptr;
}

}  // namespace kaz
