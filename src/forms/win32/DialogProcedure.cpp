#include "base/RuntimeError.h"
#include "forms/win32/DialogWindow.h"
#include "forms/win32/StockControls.h"
#include "forms/win32/Tooltips.h"
#include "win32/Text.h"

namespace kaz {

namespace {

constexpr wchar_t kProperty[] = L"kaz.DialogWindow";

// Private messages: what was raised while a key was translated; what waits for the window's activation; what
// the system must have rescaled before.
constexpr UINT kRaiseLater = WM_APP + 1;
constexpr UINT kFocusNow = WM_APP + 2;
constexpr UINT kDpiHasChanged = WM_APP + 3;
constexpr UINT kTrayMouse = WM_APP + 4;

// A plain key such as Del belongs to the text that is being typed.
bool TypesText(const MSG& message) {
    if (message.message != WM_KEYDOWN || GetKeyState(VK_CONTROL) < 0 || GetKeyState(VK_MENU) < 0)
        return false;
    if (message.wParam >= VK_F1 && message.wParam <= VK_F24) return false;
    return (SendMessageW(message.hwnd, WM_GETDLGCODE, 0, 0) & DLGC_HASSETSEL) != 0;
}

}  // namespace

DialogWindow* DialogWindow::Of(HWND window) {
    return static_cast<DialogWindow*>(GetPropW(window, kProperty));
}

INT_PTR CALLBACK DialogWindow::Procedure(HWND window, UINT message, WPARAM wide, LPARAM narrow) {
    if (message == WM_INITDIALOG) {
        auto* self = reinterpret_cast<DialogWindow*>(narrow);
        self->window_ = window;
        SetPropW(window, kProperty, self);
        SetWindowLongPtrW(window, DWLP_USER, narrow);
        return FALSE;  // a window that is made hidden must not take the focus
    }
    if (message == WM_NCDESTROY) {
        RemovePropW(window, kProperty);
        SetWindowLongPtrW(window, DWLP_USER, 0);
    }
    // Not by the property: a list asks hundreds of times for each page that it paints.
    auto* self = reinterpret_cast<DialogWindow*>(GetWindowLongPtrW(window, DWLP_USER));
    return self ? self->OnMessage(message, wide, narrow) : FALSE;
}

INT_PTR DialogWindow::OnMessage(UINT message, WPARAM wide, LPARAM narrow) {
    switch (message) {
    case WM_COMMAND: OnCommand(LOWORD(wide), HIWORD(wide), reinterpret_cast<HWND>(narrow)); return TRUE;
    case WM_NOTIFY: return OnNotify(*reinterpret_cast<const NMHDR*>(narrow));
    case WM_DRAWITEM: {
        const auto notice = notices_.find(static_cast<int>(wide));
        if (notice == notices_.end()) return FALSE;
        notice->second.Paint(*reinterpret_cast<const DRAWITEMSTRUCT*>(narrow));
        return TRUE;
    }
    case WM_CTLCOLORSTATIC:
    case WM_CTLCOLORBTN: return OnControlColour(message, wide, narrow);
    case WM_SYSCOLORCHANGE:
    case WM_THEMECHANGED:
        if (tabs_) tabs_->Repaint();
        return FALSE;
    case WM_TIMER: Raise(static_cast<int>(wide), Raised::Timer); return TRUE;
    case WM_SIZE:
        if (layout_) layout_->Apply();
        for (auto& [id, report] : reports_)
            report.FitColumns();
        Raise(0, Raised::Resize);
        return TRUE;
    case WM_GETMINMAXINFO: {
        if (!layout_) return FALSE;
        const SIZE least = layout_->Minimum();
        reinterpret_cast<MINMAXINFO*>(narrow)->ptMinTrackSize = {least.cx, least.cy};
        return TRUE;
    }
    case WM_SETCURSOR: EnsureTooltips(); return FALSE;
    case WM_CONTEXTMENU: OnContextMenu(reinterpret_cast<HWND>(wide), narrow); return TRUE;
    case WM_CLOSE: Raise(0, Raised::CloseBox); return TRUE;
    case WM_QUERYENDSESSION: return Answer(TRUE);
    case WM_ENDSESSION:
        if (wide) Raise(0, Raised::SessionEnd);
        return Answer(0);
    case WM_POWERBROADCAST:
        if (wide == PBT_APMRESUMEAUTOMATIC) Raise(0, Raised::Resumed);
        return Answer(TRUE);
    case WM_TIMECHANGE: Raise(0, Raised::ClockChanged); return TRUE;
    case WM_DPICHANGED: PostMessageW(window_, kDpiHasChanged, 0, 0); return FALSE;
    case kDpiHasChanged: OnDpiChanged(); return TRUE;
    case WM_ACTIVATE:
        if (LOWORD(wide) == WA_INACTIVE) return FALSE;
        if (focusWhenActive_) PostMessageW(window_, kFocusNow, 0, 0);
        Raise(0, Raised::Activated, LOWORD(wide) == WA_CLICKACTIVE ? kByMouse : 0);
        return FALSE;
    case WM_MOUSEWHEEL: OnWheel(GET_WHEEL_DELTA_WPARAM(wide)); return TRUE;
    case kFocusNow: {
        // A button under the mouse that activated the window would be let go of, and the click lost.
        const int control = std::exchange(focusWhenActive_, 0);
        if (!GetCapture()) SetFocus(control);
        return TRUE;
    }
    case kRaiseLater:
        Raise(LOWORD(wide), static_cast<Raised>(HIWORD(wide)), static_cast<int>(narrow));
        return TRUE;
    case kTrayMouse: OnTray(LOWORD(narrow)); return TRUE;
    default:
        if (!tray_ || message != TrayIcon::ShellStarted()) return FALSE;
        tray_->Forget();
        Raise(0, Raised::TrayLost);
        return TRUE;
    }
}

INT_PTR DialogWindow::Answer(LRESULT result) {
    SetWindowLongPtrW(window_, DWLP_MSGRESULT, result);
    return TRUE;
}

void DialogWindow::Raise(int control, Raised what, int detail) {
    // No handler runs inside the message hook: it may open a modal window, and the hook would be on the stack
    // until that is closed.
    if (translating_)
        PostMessageW(window_, kRaiseLater, MAKEWPARAM(control, static_cast<int>(what)), detail);
    else if (listener_)
        listener_->OnRaised(control, what, detail);
}

bool DialogWindow::TranslateKey(MSG& message) {
    if (!IsWindowEnabled(window_)) return false;
    // The dialog's default button would get the Enter key, and a row could not be opened by it.
    const bool isEnter = message.message == WM_KEYDOWN && message.wParam == VK_RETURN;
    if (isEnter && reports_.contains(GetDlgCtrlID(message.hwnd))) return false;
    translating_ = true;
    const bool used =
        (accelerators_ && !TypesText(message) && TranslateAcceleratorW(window_, accelerators_, &message)) ||
        IsDialogMessageW(window_, &message);
    translating_ = false;
    return used;
}

void DialogWindow::OnCommand(int id, unsigned notification, HWND control) {
    // A toolbar's button speaks through the toolbar, under the id of its command.
    if (!control || toolbars_.contains(GetDlgCtrlID(control))) {
        // Escape comes as IDCANCEL without a button, Enter as IDOK.
        if (id == IDCANCEL)
            Raise(0, Raised::CloseBox, kByEscape);
        else if (id != IDOK)
            Raise(id, Raised::Click);
        return;
    }
    if (quiet_) return;
    if (const auto what = RaisedByCommand(control, notification)) Raise(id, *what);
}

INT_PTR DialogWindow::OnNotify(const NMHDR& header) {
    const int id = static_cast<int>(header.idFrom);
    if (const auto report = reports_.find(id); report != reports_.end()) {
        const auto answer = report->second.OnNotify(header);
        return answer ? Answer(*answer) : FALSE;
    }
    if (const auto toolbar = toolbars_.find(id); toolbar != toolbars_.end()) {
        const auto answer = toolbar->second.OnNotify(header);
        return answer ? Answer(*answer) : FALSE;
    }
    if (tabs_ && tabs_->OnNotify(header)) return TRUE;
    if (header.code == TCN_SELCHANGE && !quiet_) Raise(id, Raised::Select);
    return FALSE;
}

INT_PTR DialogWindow::OnControlColour(UINT message, WPARAM wide, LPARAM narrow) {
    const auto control = reinterpret_cast<HWND>(narrow);
    const ControlKind kind = KindOf(control);
    if (!tabs_ || (kind != ControlKind::Static && kind != ControlKind::AnyButton)) return FALSE;
    // For the colours of the text.
    DefWindowProcW(window_, message, wide, narrow);
    return reinterpret_cast<INT_PTR>(tabs_->BackgroundOf(control, reinterpret_cast<HDC>(wide)));
}

void DialogWindow::OnContextMenu(HWND control, LPARAM point) {
    const int id = control == window_ ? 0 : GetDlgCtrlID(control);
    menuPoint_ = {static_cast<short>(LOWORD(point)), static_cast<short>(HIWORD(point))};
    const bool byKeyboard = menuPoint_.x == -1 && menuPoint_.y == -1;
    if (byKeyboard) {
        RECT place{};
        GetWindowRect(control, &place);
        menuPoint_ = {place.left, place.top};
        const auto report = reports_.find(id);
        if (report != reports_.end()) menuPoint_ = report->second.MenuPoint();
    }
    // The header of a list is a child of the list and has no menu.
    if (control == window_ || GetParent(control) == window_) Raise(id, Raised::RightClick);
}

// A touchpad turns the wheel by less than a click at a time.
void DialogWindow::OnWheel(int delta) {
    wheel_ += delta;
    const int clicks = wheel_ / WHEEL_DELTA;
    wheel_ -= clicks * WHEEL_DELTA;
    if (clicks != 0) Raise(0, Raised::Wheel, clicks);
}

void DialogWindow::OnTray(UINT mouseMessage) {
    GetCursorPos(&menuPoint_);
    Raise(0, Raised::TrayMouse, static_cast<int>(mouseMessage));
}

// Not before the pointer is there: while controls have tooltips, each message to them takes a detour, and a
// window that opens sends hundreds.
void DialogWindow::EnsureTooltips() {
    if (!std::exchange(hasTooltips_, true)) AddTooltips(window_, module_);
}

void DialogWindow::OnDpiChanged() {
    layout_->MakeHeadings();
    layout_->Apply();
    for (auto& [id, report] : reports_)
        report.OnDpiChanged();
    for (auto& [id, toolbar] : toolbars_)
        toolbar.OnDpiChanged();
    for (auto& [id, notice] : notices_)
        notice.OnDpiChanged();
    Raise(0, Raised::DpiChanged);
}

void DialogWindow::ShowMenu(int menu) {
    const Menu whole(LoadMenuW(module_, MAKEINTRESOURCEW(menu)));
    if (!whole) return;
    // The menu of a window that is not in front, as that of the tray icon, would stay open after a click
    // beside it.
    SetForegroundWindow(window_);
    const UINT side = GetSystemMetrics(SM_MENUDROPALIGNMENT) ? TPM_RIGHTALIGN : TPM_LEFTALIGN;
    const int chosen = TrackPopupMenuEx(GetSubMenu(whole.Get(), 0), TPM_RETURNCMD | TPM_RIGHTBUTTON | side,
                                        menuPoint_.x, menuPoint_.y, window_, nullptr);
    PostMessageW(window_, WM_NULL, 0, 0);
    if (chosen) Raise(chosen, Raised::Click);
}

void DialogWindow::ShowMenuUnder(int toolbar, int command, int menu) {
    if (const auto found = toolbars_.find(toolbar); found != toolbars_.end())
        menuPoint_ = found->second.MenuPointOf(command);
    ShowMenu(menu);
}

void DialogWindow::SetToolbar(int control, const std::vector<ToolButton>& buttons) {
    toolbars_.try_emplace(control, GetDlgItem(window_, control), module_).first->second.SetButtons(buttons);
}

void DialogWindow::ShowTrayIcon(const std::string& tip, bool warns) {
    if (!tray_) tray_.emplace(window_, module_, kTrayMouse);
    if (!tray_->Show(ToWide(tip), warns))
        throw RuntimeError(ErrorNumber::InternalError, "The tray takes no icon");
}

}  // namespace kaz
