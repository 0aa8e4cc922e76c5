#include "hosts/kaz2/ConsoleSignals.h"

#include "win32/Handles.h"

#include <atomic>

namespace kaz {

namespace {

constexpr DWORD kLongestEnd = 5000;  // milliseconds; the system itself does not wait much longer

// The system's handler takes no argument of ours, so what it needs stands here.
std::atomic<HWND> hostWindow = nullptr;
const KernelHandle ended{CreateEventW(nullptr, TRUE, FALSE, nullptr)};

BOOL WINAPI OnSignal(DWORD signal) {
    if (signal == CTRL_C_EVENT || signal == CTRL_BREAK_EVENT) {
        PostMessageW(hostWindow, WM_CLOSE, 0, 0);
        return TRUE;
    }
    PostMessageW(hostWindow, WM_ENDSESSION, TRUE, 0);
    WaitForSingleObject(ended.Get(), kLongestEnd);
    return TRUE;
}

}  // namespace

ConsoleSignals::ConsoleSignals(HWND window) {
    hostWindow = window;
    // A program with windows has no console of its own; it shares the one of the shell that started it.
    AttachConsole(ATTACH_PARENT_PROCESS);
    SetConsoleCtrlHandler(OnSignal, TRUE);
}

ConsoleSignals::~ConsoleSignals() { SetEvent(ended.Get()); }

}  // namespace kaz
