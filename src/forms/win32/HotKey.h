#pragma once

#include <windows.h>

#include <string>

namespace kaz {

// A key of the whole computer, which the system tells a window by WM_HOTKEY.
class HotKey {
public:
    HotKey() = default;
    ~HotKey() { Set(window_, {}); }
    HotKey(const HotKey&) = delete;
    HotKey& operator=(const HotKey&) = delete;

    // Takes the place of the one before. `keys` is such as "Ctrl+Alt+K": Ctrl, Alt, Shift or Win, then a
    // letter, a digit, "Space" or "F1" to "F12"; empty for none. False for one that another program has, or
    // that is none.
    bool Set(HWND window, const std::string& keys);

private:
    HWND window_ = nullptr;  // null while there is none
};

}  // namespace kaz
