#pragma once

#include <windows.h>

namespace kaz {

// Gives each control its tooltip, the string IDS_TOOLTIP + its id of the module's resources. The tooltips go
// with the window.
void AddTooltips(HWND window, HINSTANCE module);

}  // namespace kaz
