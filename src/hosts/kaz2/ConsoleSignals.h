#pragma once

#include <windows.h>

namespace kaz {

// Tells a window what happens in the console that the program was started from: Ctrl+C as WM_CLOSE, which it
// may refuse; the closing of the console as WM_ENDSESSION, since the system ends the process then whatever
// the answer. It does so when its thread that brings the news is back, which therefore waits until this
// object goes, some seconds at most.
class ConsoleSignals {
public:
    explicit ConsoleSignals(HWND window);
    ~ConsoleSignals();
    ConsoleSignals(const ConsoleSignals&) = delete;
    ConsoleSignals& operator=(const ConsoleSignals&) = delete;
};

}  // namespace kaz
