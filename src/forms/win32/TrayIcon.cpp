#include "forms/win32/TrayIcon.h"

#include <shellapi.h>

#include <iterator>

namespace kaz {

namespace {

constexpr UINT kId = 1;

}  // namespace

TrayIcon::TrayIcon(HWND window, HINSTANCE module, UINT message)
    : window_(window),
      module_(module),
      message_(message) {
    // The shell has fewer rights than a program that runs as administrator.
    ChangeWindowMessageFilterEx(window_, ShellStarted(), MSGFLT_ALLOW, nullptr);
}

bool TrayIcon::Show(const std::wstring& tip, int icon) {
    NOTIFYICONDATAW data{};
    data.cbSize = sizeof data;
    data.hWnd = window_;
    data.uID = kId;
    data.uFlags = NIF_ICON | NIF_MESSAGE | NIF_TIP;
    data.uCallbackMessage = message_;
    data.hIcon = static_cast<HICON>(LoadImageW(module_, MAKEINTRESOURCEW(icon), IMAGE_ICON,
                                               GetSystemMetrics(SM_CXSMICON), GetSystemMetrics(SM_CYSMICON),
                                               LR_SHARED));
    lstrcpynW(data.szTip, tip.c_str(), static_cast<int>(std::size(data.szTip)));
    if (shown_ && Shell_NotifyIconW(NIM_MODIFY, &data)) return true;
    shown_ = Shell_NotifyIconW(NIM_ADD, &data) != FALSE;
    return shown_;
}

void TrayIcon::Say(const std::wstring& title, const std::wstring& text) const {
    if (!shown_) return;
    NOTIFYICONDATAW data{};
    data.cbSize = sizeof data;
    data.hWnd = window_;
    data.uID = kId;
    data.uFlags = NIF_INFO;
    data.dwInfoFlags = NIIF_INFO | NIIF_RESPECT_QUIET_TIME;
    lstrcpynW(data.szInfoTitle, title.c_str(), static_cast<int>(std::size(data.szInfoTitle)));
    lstrcpynW(data.szInfo, text.c_str(), static_cast<int>(std::size(data.szInfo)));
    Shell_NotifyIconW(NIM_MODIFY, &data);
}

void TrayIcon::Remove() {
    if (!shown_) return;
    NOTIFYICONDATAW data{};
    data.cbSize = sizeof data;
    data.hWnd = window_;
    data.uID = kId;
    Shell_NotifyIconW(NIM_DELETE, &data);
    shown_ = false;
}

UINT TrayIcon::ShellStarted() {
    static const UINT kMessage = RegisterWindowMessageW(L"TaskbarCreated");
    return kMessage;
}

}  // namespace kaz
