#pragma once

#include <windows.h>

namespace kaz {

// Turns Ctrl+C, and the closing of the console that the program was started from, into WM_CLOSE for a window.
// The system's thread that brings the signal waits until this object goes, some seconds at most: it ends the
// process when it is back.
class ConsoleSignals {
public:
    explicit ConsoleSignals(HWND window);
    ~ConsoleSignals();
    ConsoleSignals(const ConsoleSignals&) = delete;
    ConsoleSignals& operator=(const ConsoleSignals&) = delete;
};

}  // namespace kaz
