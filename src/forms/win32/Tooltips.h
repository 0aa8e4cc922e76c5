#pragma once

#include <windows.h>

#include <string>

namespace kaz {

// Gives each control its tooltip, the string IDS_TOOLTIP + its id of the module's resources. The tooltips go
// with the window.
void AddTooltips(HWND window, HINSTANCE module);

// A tooltip for one control whose text changes: makes it, or gives `tooltip` the text.
void SetTooltip(HWND& tooltip, HWND window, HINSTANCE module, HWND control, std::wstring text);

}  // namespace kaz
