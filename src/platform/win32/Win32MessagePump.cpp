#include "platform/win32/Win32MessagePump.h"

#include <windows.h>

namespace kaz {

void Win32MessagePump::ProcessPending() {
    // A window that paints itself over and over always has one more message.
    constexpr int kMost = 4000;
    MSG message{};
    for (int count = 0; count < kMost && PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE); ++count) {
        if (message.message == WM_QUIT) {
            // It is meant for the host's own loop.
            PostQuitMessage(static_cast<int>(message.wParam));
            return;
        }
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

void Win32MessagePump::Wait(int milliseconds) { Sleep(static_cast<DWORD>(milliseconds)); }

// The window under the pointer sets its own again as soon as messages are processed.
void Win32MessagePump::ShowBusy(bool busy) noexcept {
    SetCursor(LoadCursorW(nullptr, busy ? IDC_WAIT : IDC_ARROW));
}

}  // namespace kaz
