#include "forms/win32/BoxSize.h"

#include "win32/Gdi.h"

#include <string>

namespace kaz {

void GrowBy(HWND window, int width, int height) {
    RECT frame{};
    GetWindowRect(window, &frame);
    SetWindowPos(window, nullptr, 0, 0, frame.right - frame.left + width, frame.bottom - frame.top + height,
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void GrowForLabel(HWND window, int label) {
    const HWND control = GetDlgItem(window, label);
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(control)) + 1, L'\0');
    GetWindowTextW(control, text.data(), static_cast<int>(text.size()));
    RECT place{};
    GetClientRect(control, &place);
    RECT needed = place;
    const ControlContext device(control);
    DrawTextW(device.Get(), text.c_str(), -1, &needed,
              DT_CALCRECT | DT_WORDBREAK | DT_EXPANDTABS | DT_NOPREFIX);
    if (needed.bottom > place.bottom) GrowBy(window, 0, needed.bottom - place.bottom);
}

}  // namespace kaz
