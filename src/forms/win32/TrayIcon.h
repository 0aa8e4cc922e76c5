#pragma once

#include <windows.h>

#include <string>

namespace kaz {

// The program's icon beside the clock. Its mouse messages reach the window as `message`, the code of the
// mouse message in the low word of LPARAM.
class TrayIcon {
public:
    TrayIcon(HWND window, HINSTANCE module, UINT message);
    ~TrayIcon() { Remove(); }
    TrayIcon(const TrayIcon&) = delete;
    TrayIcon& operator=(const TrayIcon&) = delete;

    // Adds the icon or, where it is there already, changes its tip and picture. False when the shell refuses.
    bool Show(const std::wstring& tip, int icon);
    // A balloon, where there is an icon and the user is not busy.
    void Say(const std::wstring& title, const std::wstring& text) const;
    void Remove();
    // The shell has started anew and knows nothing of icons.
    void Forget() { shown_ = false; }

    // The message by which a shell that starts tells all windows.
    static UINT ShellStarted();

private:
    HWND window_;
    HINSTANCE module_;
    UINT message_;
    bool shown_ = false;
};

}  // namespace kaz
