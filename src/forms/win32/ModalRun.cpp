#include "forms/win32/ModalRun.h"

#include "forms/win32/DialogWindow.h"

namespace kaz {

namespace {

BOOL CALLBACK Collect(HWND window, LPARAM parameter) {
    const DialogWindow* dialog = DialogWindow::Of(window);
    if (dialog && dialog->IsAtHand() && IsWindowEnabled(window))
        reinterpret_cast<std::vector<HWND>*>(parameter)->push_back(window);
    return TRUE;
}

// From the uppermost down.
std::vector<HWND> WorkWindows(HWND except) {
    std::vector<HWND> windows;
    EnumThreadWindows(GetCurrentThreadId(), Collect, reinterpret_cast<LPARAM>(&windows));
    std::erase(windows, except);
    return windows;
}

}  // namespace

HWND WorkWindow(HWND except) {
    std::vector<HWND> windows = WorkWindows(except);
    // Over a hidden one a box would have no button in the taskbar.
    std::erase_if(windows, [](HWND window) { return !IsWindowVisible(window); });
    const HWND active = GetActiveWindow();
    for (const HWND window : windows)
        if (window == active) return active;
    return windows.empty() ? nullptr : windows.front();
}

ModalRun::ModalRun(HWND window)
    : window_(window),
      owner_(WorkWindow(window)),
      disabled_(WorkWindows(window)) {
    SetWindowLongPtrW(window_, GWLP_HWNDPARENT, reinterpret_cast<LONG_PTR>(owner_));
    for (const HWND other : disabled_)
        EnableWindow(other, FALSE);
}

int ModalRun::Loop() {
    while (!ended_) {
        MSG message{};
        const BOOL got = GetMessageW(&message, nullptr, 0, 0);
        if (got <= 0) {
            if (got == 0) PostQuitMessage(static_cast<int>(message.wParam));
            End(IDCANCEL);
            break;
        }
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    return result_;
}

void ModalRun::End(int result) {
    if (ended_) return;
    ended_ = true;
    result_ = result;
    for (const HWND other : disabled_)
        EnableWindow(other, TRUE);
    // The loop may be waiting for a message.
    PostThreadMessageW(GetCurrentThreadId(), WM_NULL, 0, 0);
}

}  // namespace kaz
