#include "hosts/kaz2/HostWindow.h"

#include "hosts/kaz2/StartFailure.h"

namespace kaz {

HostWindow::HostWindow(const wchar_t* className, const std::wstring& name, UINT comeForwardMessage,
                       Actions actions)
    : comeForwardMessage_(comeForwardMessage),
      actions_(std::move(actions)) {
    WNDCLASSW description{};
    description.lpfnWndProc = Procedure;
    description.hInstance = GetModuleHandleW(nullptr);
    description.lpszClassName = className;
    RegisterClassW(&description);
    window_ = CreateWindowExW(WS_EX_TOOLWINDOW, className, name.c_str(), WS_POPUP, 0, 0, 0, 0, nullptr,
                              nullptr, description.hInstance, nullptr);
    if (!window_) throw StartFailure{L"KAZ cannot start: the system has no windows left."};
    SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    // A second start with fewer rights than this one may ask too.
    for (const UINT message : {comeForwardMessage_, static_cast<UINT>(WM_COPYDATA)})
        ChangeWindowMessageFilterEx(window_, message, MSGFLT_ALLOW, nullptr);
}

HostWindow::~HostWindow() {
    SetWindowLongPtrW(window_, GWLP_USERDATA, 0);
    DestroyWindow(window_);
}

LRESULT CALLBACK HostWindow::Procedure(HWND window, UINT message, WPARAM first, LPARAM second) {
    // NOLINTNEXTLINE(performance-no-int-to-ptr): a window keeps its owner as a number
    auto* const self = reinterpret_cast<HostWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    return self && self->On(message, first, second) ? 0 : DefWindowProcW(window, message, first, second);
}

bool HostWindow::On(UINT message, WPARAM first, LPARAM second) {
    if (message == comeForwardMessage_)
        actions_.comeForward();
    else if (message == WM_CLOSE)
        actions_.end();
    else if (message == WM_ENDSESSION && first)
        actions_.sessionEnd();
    else if (message == WM_COPYDATA)
        // NOLINTNEXTLINE(performance-no-int-to-ptr): the system hands the asker's window over as a number
        return LineToProgram::Receive(reinterpret_cast<HWND>(first),
                                      *reinterpret_cast<const COPYDATASTRUCT*>(second), actions_.add);
    else
        return false;
    return true;
}

}  // namespace kaz
