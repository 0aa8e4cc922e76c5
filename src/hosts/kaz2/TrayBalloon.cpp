#include "hosts/kaz2/TrayBalloon.h"

#include <shellapi.h>

#include <algorithm>
#include <string_view>
#include <utility>

namespace kaz {

namespace {

constexpr wchar_t kClass[] = L"KAZ2Balloon";
constexpr UINT kIcon = 1;
constexpr UINT kFromTray = WM_APP;
constexpr UINT kShowNext = WM_APP + 1;
// In case the system shows nothing and says nothing, as while the user plays full screen.
constexpr UINT kLongest = 60 * 1000;  // milliseconds

NOTIFYICONDATAW IconOf(HWND window) {
    NOTIFYICONDATAW icon{};
    icon.cbSize = sizeof icon;
    icon.hWnd = window;
    icon.uID = kIcon;
    return icon;
}

// As much as fits, without half a character at its end.
template <std::size_t Size>
void Copy(std::wstring_view text, wchar_t (&target)[Size]) {
    std::wstring part(text.substr(0, Size - 1));
    if (part.size() < text.size() && IS_HIGH_SURROGATE(part.back())) part.pop_back();
    std::copy_n(part.c_str(), part.size() + 1, target);
}

}  // namespace

TrayBalloon::TrayBalloon(std::wstring fileToOpen) : fileToOpen_(std::move(fileToOpen)) {
    WNDCLASSW description{};
    description.lpfnWndProc = Procedure;
    description.hInstance = GetModuleHandleW(nullptr);
    description.lpszClassName = kClass;
    RegisterClassW(&description);
    window_ =
        CreateWindowExW(0, kClass, L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, description.hInstance, nullptr);
    SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
}

TrayBalloon::~TrayBalloon() {
    Remove();
    SetWindowLongPtrW(window_, GWLP_USERDATA, 0);
    DestroyWindow(window_);
}

void TrayBalloon::Show(std::wstring text) {
    {
        const std::lock_guard lock(mutex_);
        waiting_.push_back(std::move(text));
    }
    PostMessageW(window_, kShowNext, 0, 0);
}

LRESULT CALLBACK TrayBalloon::Procedure(HWND window, UINT message, WPARAM first, LPARAM second) {
    // NOLINTNEXTLINE(performance-no-int-to-ptr): a window keeps its owner as a number
    auto* const self = reinterpret_cast<TrayBalloon*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    return self && self->On(message, first, second) ? 0 : DefWindowProcW(window, message, first, second);
}

bool TrayBalloon::On(UINT message, WPARAM, LPARAM second) {
    if (message == WM_TIMER) {
        ShowNext();
    } else if (message == kShowNext) {
        if (!hasIcon_) ShowNext();
    } else if (message == kFromTray && second == NIN_BALLOONUSERCLICK) {
        ShellExecuteW(nullptr, nullptr, fileToOpen_.c_str(), nullptr, nullptr, SW_SHOWNORMAL);
        ShowNext();
    } else if (message == kFromTray && (second == NIN_BALLOONTIMEOUT || second == NIN_BALLOONHIDE)) {
        ShowNext();
    } else {
        return false;
    }
    return true;
}

// In place of what was shown before, if that is still there.
void TrayBalloon::ShowNext() {
    Remove();
    std::wstring text;
    {
        const std::lock_guard lock(mutex_);
        if (waiting_.empty()) return;
        text = std::move(waiting_.front());
        waiting_.pop_front();
    }
    NOTIFYICONDATAW icon = IconOf(window_);
    icon.uFlags = NIF_ICON | NIF_TIP | NIF_INFO | NIF_MESSAGE;
    icon.uCallbackMessage = kFromTray;
    icon.hIcon = static_cast<HICON>(LoadImageW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(1), IMAGE_ICON,
                                               GetSystemMetrics(SM_CXSMICON), GetSystemMetrics(SM_CYSMICON),
                                               LR_SHARED));
    icon.dwInfoFlags = NIIF_WARNING | NIIF_RESPECT_QUIET_TIME;
    Copy(L"KAZ: mail", icon.szTip);
    Copy(L"KAZ cannot send mail", icon.szInfoTitle);
    Copy(text, icon.szInfo);
    hasIcon_ = Shell_NotifyIconW(NIM_ADD, &icon) != FALSE;
    // Without a tray there is nobody to wait for; the text is in the log.
    if (hasIcon_) SetTimer(window_, kIcon, kLongest, nullptr);
}

void TrayBalloon::Remove() {
    if (!std::exchange(hasIcon_, false)) return;
    KillTimer(window_, kIcon);
    NOTIFYICONDATAW icon = IconOf(window_);
    Shell_NotifyIconW(NIM_DELETE, &icon);
}

}  // namespace kaz
