#pragma once

#include <windows.h>

namespace kaz {

// Makes the window larger or, with negative pixels, smaller; its layout passes that on to the controls.
void GrowBy(HWND window, int width, int height);

// Grows the window so that a label that takes part in its height shows all its lines.
void GrowForLabel(HWND window, int label);

}  // namespace kaz
