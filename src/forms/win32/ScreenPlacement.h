#pragma once

#include "forms/Window.h"

#include <windows.h>

namespace kaz {

// Between pixels of the window's monitor and units of 1/96 inch.
int ToPixels(HWND window, int units);
int ToUnits(HWND window, int pixels);

WindowSize OuterSize(HWND window);
void SetOuterSize(HWND window, WindowSize size);
void SetClientSize(HWND window, WindowSize size);
WindowSize MonitorSize(HWND window);

// Into the middle of the owner or, without one, of the screen where the user works, one step aside of windows
// of this program that lie just there.
void PlaceWindow(HWND window, HWND owner);

// Moves and, if need be, shrinks the window so that all of it lies on a screen that exists now.
void KeepOnScreen(HWND window);

}  // namespace kaz
