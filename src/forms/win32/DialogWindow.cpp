#include "forms/win32/DialogWindow.h"

#include "base/RuntimeError.h"
#include "forms/win32/ModalRun.h"
#include "forms/win32/ScreenPlacement.h"
#include "forms/win32/StockControls.h"
#include "forms/win32/Tooltips.h"
#include "resources/resource.h"
#include "win32/ActivationContext.h"
#include "win32/Text.h"

#include <algorithm>

namespace kaz {

namespace {

constexpr wchar_t kProperty[] = L"kaz.DialogWindow";

// Private messages: what was raised while a key was translated; what waits for the window's activation; what
// the system must have rescaled before; what comes after a click.
constexpr UINT kRaiseLater = WM_APP + 1;
constexpr UINT kFocusNow = WM_APP + 2;
constexpr UINT kDpiHasChanged = WM_APP + 3;
constexpr UINT kTrayMouse = WM_APP + 4;
constexpr UINT kSelectNow = WM_APP + 5;

// The icon belongs to the module and is not destroyed.
void SetIcon(HWND window, HINSTANCE module, WPARAM kind, int width, int height) {
    const HANDLE icon = LoadImageW(module, MAKEINTRESOURCEW(IDI_KAZ), IMAGE_ICON, GetSystemMetrics(width),
                                   GetSystemMetrics(height), LR_SHARED);
    if (icon) SendMessageW(window, WM_SETICON, kind, reinterpret_cast<LPARAM>(icon));
}

constexpr UINT kOrderOnly = SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE | SWP_NOOWNERZORDER;

bool IsTopMost(HWND window) { return (GetWindowLongPtrW(window, GWL_EXSTYLE) & WS_EX_TOPMOST) != 0; }

BOOL CALLBACK RaiseTopMost(HWND window, LPARAM other) {
    if (window != reinterpret_cast<HWND>(other) && IsTopMost(window) && DialogWindow::Of(window))
        SetWindowPos(window, HWND_TOPMOST, 0, 0, 0, 0, kOrderOnly);
    return TRUE;
}

BOOL CALLBACK ReleaseOwned(HWND window, LPARAM owner) {
    if (GetWindow(window, GW_OWNER) == reinterpret_cast<HWND>(owner) && DialogWindow::Of(window))
        SetWindowLongPtrW(window, GWLP_HWNDPARENT, 0);
    return TRUE;
}

}  // namespace

DialogWindow::DialogWindow(HINSTANCE module, int dialog) : DialogControls(module) {
    const ActivationContext context(module);
    INITCOMMONCONTROLSEX classes{sizeof classes, ICC_STANDARD_CLASSES | ICC_WIN95_CLASSES | ICC_DATE_CLASSES};
    InitCommonControlsEx(&classes);
    CreateDialogParamW(module, MAKEINTRESOURCEW(dialog), nullptr, Procedure, reinterpret_cast<LPARAM>(this));
    if (!window_) throw RuntimeError(ErrorNumber::InternalError);
    keys_.Load(module, dialog);
    PrepareControls(dialog);
    // The small one first: with only the big one set, Wine makes a small one of it for the window manager.
    SetIcon(window_, module, ICON_SMALL, SM_CXSMICON, SM_CYSMICON);
    SetIcon(window_, module, ICON_BIG, SM_CXICON, SM_CYICON);
}

DialogWindow::~DialogWindow() {
    listener_ = nullptr;
    tray_.reset();
    if (modal_) {
        modal_->End(IDCANCEL);
        modal_->Forget();
    }
    // The system destroys a window's owned ones with it, but they have owners of their own here.
    EnumThreadWindows(GetCurrentThreadId(), ReleaseOwned, reinterpret_cast<LPARAM>(window_));
    DestroyWindow(window_);
}

void DialogWindow::Show(Activation activation) {
    if (!placed_) PlaceWindow(window_, GetWindow(window_, GW_OWNER));
    placed_ = true;
    work_ = activation == Activation::TakeFocus;
    if (!work_) {
        ShowWindow(window_, SW_SHOWNOACTIVATE);
        return;
    }
    int how = IsIconic(window_) ? SW_RESTORE : SW_SHOW;
    if (stateWhenShown_ == WindowState::Normal) how = SW_SHOWNORMAL;
    if (stateWhenShown_ == WindowState::Minimised) how = SW_SHOWMINIMIZED;
    if (stateWhenShown_ == WindowState::Maximised) how = SW_SHOWMAXIMIZED;
    stateWhenShown_.reset();
    ShowWindow(window_, how);
    if (how == SW_SHOWMINIMIZED) return;
    // The dialog that waits for its answer, if there is one; it came without an
    // owner while this one was hidden.
    HWND front = GetLastActivePopup(window_);
    if (!IsWindowEnabled(front)) front = WorkWindow(front);
    SetForegroundWindow(front ? front : window_);
}

void DialogWindow::Hide() { ShowWindow(window_, SW_HIDE); }

bool DialogWindow::IsVisible() const { return IsWindowVisible(window_) != FALSE; }

void DialogWindow::BringToFront() {
    if (!IsVisible()) return;
    if (IsIconic(window_)) ShowWindow(window_, SW_SHOWNOACTIVATE);
    const bool topMost = IsTopMost(window_);
    // The system does not let a program in the background raise its window directly; by way of the top-most
    // ones it does.
    SetWindowPos(window_, HWND_TOPMOST, 0, 0, 0, 0, kOrderOnly);
    if (!topMost) {
        // An alarm that this one has passed on its way goes over it again while both are top-most. Afterwards
        // the order would be right as well, but not every screen is painted anew in it.
        EnumThreadWindows(GetCurrentThreadId(), RaiseTopMost, reinterpret_cast<LPARAM>(window_));
        SetWindowPos(window_, HWND_NOTOPMOST, 0, 0, 0, 0, kOrderOnly);
    }
    if (GetForegroundWindow() == window_) return;
    FLASHWINFO flash{sizeof flash, window_, FLASHW_ALL, 3, 0};
    FlashWindowEx(&flash);
}

void DialogWindow::SetTopMost(bool topMost) {
    SetWindowPos(window_, topMost ? HWND_TOPMOST : HWND_NOTOPMOST, 0, 0, 0, 0,
                 SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
}

WindowState DialogWindow::State() const {
    if (stateWhenShown_) return *stateWhenShown_;
    if (IsIconic(window_)) return WindowState::Minimised;
    return IsZoomed(window_) ? WindowState::Maximised : WindowState::Normal;
}

void DialogWindow::SetState(WindowState state) {
    // The system shows a hidden window together with a change of its state.
    if (!IsVisible()) {
        stateWhenShown_ = state;
        return;
    }
    if (state == State()) return;
    if (state == WindowState::Minimised) ShowWindow(window_, SW_MINIMIZE);
    if (state == WindowState::Maximised) ShowWindow(window_, SW_MAXIMIZE);
    if (state != WindowState::Normal) return;
    // A window that was maximised before it was minimised takes two steps.
    ShowWindow(window_, SW_RESTORE);
    if (IsZoomed(window_)) ShowWindow(window_, SW_RESTORE);
}

WindowSize DialogWindow::Size() const { return OuterSize(window_); }
void DialogWindow::SetSize(WindowSize size) { SetOuterSize(window_, size); }
void DialogWindow::SetInnerSize(WindowSize size) { SetClientSize(window_, size); }
WindowSize DialogWindow::ScreenSize() const { return MonitorSize(window_); }

void DialogWindow::SayWhySaving(const std::string& reason) {
    if (reason.empty())
        ShutdownBlockReasonDestroy(window_);
    else
        ShutdownBlockReasonCreate(window_, ToWide(reason).c_str());
}

int DialogWindow::ShowModal() {
    ModalRun run(window_);
    modal_ = &run;
    placed_ = false;
    Show(Activation::TakeFocus);
    const int result = run.Loop();
    // The window may have been destroyed meanwhile, and this object with it.
    if (run.Forgotten()) return result;
    modal_ = nullptr;
    Hide();
    return result;
}

void DialogWindow::EndModal(int result) {
    if (modal_) modal_->End(result);
}

// A click that gives the box the keyboard puts the caret where it points to, and only afterwards.
void DialogWindow::SelectText(int control) {
    PostMessageW(window_, kSelectNow, static_cast<WPARAM>(control), 0);
}

void DialogWindow::StartTimer(int timer, int milliseconds) {
    SetTimer(window_, static_cast<UINT_PTR>(timer), static_cast<UINT>(std::max(milliseconds, 1)), nullptr);
}

void DialogWindow::AskForResumes() {
    if (!resumes_)
        resumes_ = PowerNotification(RegisterSuspendResumeNotification(window_, DEVICE_NOTIFY_WINDOW_HANDLE));
}

void DialogWindow::StopTimer(int timer) { KillTimer(window_, static_cast<UINT_PTR>(timer)); }

DialogWindow* DialogWindow::Of(HWND window) {
    return static_cast<DialogWindow*>(GetPropW(window, kProperty));
}

INT_PTR CALLBACK DialogWindow::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_INITDIALOG) {
        auto* self = reinterpret_cast<DialogWindow*>(lParam);
        self->window_ = window;
        SetPropW(window, kProperty, self);
        SetWindowLongPtrW(window, DWLP_USER, lParam);
        return FALSE;  // a window that is made hidden must not take the focus
    }
    if (message == WM_NCDESTROY) {
        RemovePropW(window, kProperty);
        SetWindowLongPtrW(window, DWLP_USER, 0);
    }
    // Not by the property: a list asks hundreds of times for each page that it paints.
    auto* self = reinterpret_cast<DialogWindow*>(GetWindowLongPtrW(window, DWLP_USER));
    return self ? self->OnMessage(message, wParam, lParam) : FALSE;
}

INT_PTR DialogWindow::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_COMMAND: OnCommand(LOWORD(wParam), HIWORD(wParam), reinterpret_cast<HWND>(lParam)); return TRUE;
    case WM_NOTIFY: return OnNotify(*reinterpret_cast<const NMHDR*>(lParam));
    case WM_DRAWITEM:
        return OnDrawItem(static_cast<int>(wParam), *reinterpret_cast<const DRAWITEMSTRUCT*>(lParam));
    case WM_CTLCOLORSTATIC:
    case WM_CTLCOLORBTN: return OnControlColour(message, wParam, lParam);
    case WM_SYSCOLORCHANGE:
    case WM_THEMECHANGED:
        if (tabs_) tabs_->Repaint();
        return FALSE;
    case WM_TIMER: Raise(static_cast<int>(wParam), Raised::Timer); return TRUE;
    case WM_SIZE: OnSize(); return TRUE;
    case WM_GETMINMAXINFO: {
        if (!layout_) return FALSE;
        const SIZE least = layout_->Minimum();
        reinterpret_cast<MINMAXINFO*>(lParam)->ptMinTrackSize = {least.cx, least.cy};
        return TRUE;
    }
    case WM_SETCURSOR: EnsureTooltips(); return FALSE;
    case WM_CONTEXTMENU: OnContextMenu(reinterpret_cast<HWND>(wParam), lParam); return TRUE;
    case WM_CLOSE: Raise(0, Raised::CloseBox); return TRUE;
    case WM_QUERYENDSESSION: return Answer(TRUE);
    case WM_ENDSESSION:
        if (wParam) Raise(0, Raised::SessionEnd);
        return Answer(0);
    case WM_POWERBROADCAST:
        if (wParam == PBT_APMRESUMEAUTOMATIC) Raise(0, Raised::Resumed);
        return Answer(TRUE);
    case WM_TIMECHANGE: Raise(0, Raised::ClockChanged); return TRUE;
    case WM_DPICHANGED: PostMessageW(window_, kDpiHasChanged, 0, 0); return FALSE;
    case kDpiHasChanged: OnDpiChanged(); return TRUE;
    case WM_ACTIVATE:
        if (LOWORD(wParam) == WA_INACTIVE) return FALSE;
        if (focusWhenActive_) PostMessageW(window_, kFocusNow, 0, 0);
        Raise(0, Raised::Activated, LOWORD(wParam) == WA_CLICKACTIVE ? kByMouse : 0);
        return FALSE;
    case WM_HELP: Raise(0, Raised::Help); return TRUE;
    case WM_HOTKEY: Raise(0, Raised::HotKey); return TRUE;
    case WM_MOUSEWHEEL: OnWheel(GET_WHEEL_DELTA_WPARAM(wParam)); return TRUE;
    case kFocusNow: {
        // A button under the mouse that activated the window would be let go of, and the click lost.
        const int control = std::exchange(focusWhenActive_, 0);
        if (!GetCapture()) SetFocus(control);
        return TRUE;
    }
    case kSelectNow: {
        const HWND box = At(static_cast<int>(wParam));
        if (GetFocus() != box) return TRUE;
        // While the button is down, a hand that is not quite still would select anew.
        if (GetCapture() == box) ReleaseCapture();
        SendMessageW(box, EM_SETSEL, 0, -1);
        return TRUE;
    }
    case kRaiseLater:
        Raise(LOWORD(wParam), static_cast<Raised>(HIWORD(wParam)), static_cast<int>(lParam));
        return TRUE;
    case kTrayMouse: OnTray(LOWORD(lParam)); return TRUE;
    default:
        if (!tray_ || message != TrayIcon::ShellStarted()) return FALSE;
        tray_->Forget();
        Raise(0, Raised::TrayLost);
        return TRUE;
    }
}

void DialogWindow::Raise(int control, Raised what, int detail) {
    if (keys_.IsTranslating())
        PostMessageW(window_, kRaiseLater, MAKEWPARAM(control, static_cast<int>(what)), detail);
    else if (listener_)
        listener_->OnRaised(control, what, detail);
}

void DialogWindow::OnCommand(int id, unsigned notification, HWND control) {
    // A toolbar's button speaks through the toolbar, under the id of its command.
    if (!control || IsToolbar(control)) {
        // Escape comes as IDCANCEL without a button, Enter as IDOK.
        if (id == IDCANCEL)
            Raise(0, Raised::CloseBox, kByEscape);
        else if (id != IDOK)
            Raise(id, Raised::Click);
        else if (KindOf(At(Focused())) == ControlKind::Edit)
            Raise(Focused(), Raised::Enter);
        return;
    }
    if (quiet_) return;
    if (const auto what = RaisedByCommand(control, notification)) Raise(id, *what);
}

void DialogWindow::OnContextMenu(HWND control, LPARAM point) {
    menuPoint_ = {static_cast<short>(LOWORD(point)), static_cast<short>(HIWORD(point))};
    const bool byKeyboard = menuPoint_.x == -1 && menuPoint_.y == -1;
    if (byKeyboard) menuPoint_ = MenuPointOf(control);
    // The header of a list is a child of the list.
    if (const HWND list = GetParent(control); IsReport(list) && list != control)
        Raise(GetDlgCtrlID(list), Raised::HeaderMenu);
    else if (control == window_ || GetParent(control) == window_)
        Raise(control == window_ ? 0 : GetDlgCtrlID(control), Raised::RightClick);
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

void DialogWindow::ShowMenu(int menu) {
    const Menu whole(LoadMenuW(module_, MAKEINTRESOURCEW(menu)));
    if (!whole) return;
    for (const auto& [command, shown] : commands_) {
        const auto id = static_cast<UINT>(command);
        if (GetMenuState(whole.Get(), id, MF_BYCOMMAND) == static_cast<UINT>(-1)) continue;
        const UINT state = shown.second ? 0 : static_cast<UINT>(MF_GRAYED);
        ModifyMenuW(whole.Get(), id, MF_BYCOMMAND | MF_STRING | state, id, ToWide(shown.first).c_str());
    }
    for (const auto& [command, marked] : marked_)
        CheckMenuItem(whole.Get(), static_cast<UINT>(command),
                      MF_BYCOMMAND | static_cast<UINT>(marked ? MF_CHECKED : MF_UNCHECKED));
    // The menu of a window that is not in front, as that of the tray icon, would stay open after a click
    // beside it.
    SetForegroundWindow(window_);
    const UINT side = GetSystemMetrics(SM_MENUDROPALIGNMENT) ? TPM_RIGHTALIGN : TPM_LEFTALIGN;
    const int chosen = TrackPopupMenuEx(GetSubMenu(whole.Get(), 0), TPM_RETURNCMD | TPM_RIGHTBUTTON | side,
                                        menuPoint_.x, menuPoint_.y, window_, nullptr);
    PostMessageW(window_, WM_NULL, 0, 0);
    if (chosen) Raise(chosen, Raised::Click);
}

void DialogWindow::ShowMenuUnder(int control, int command, int menu) {
    if (const auto found = toolbars_.find(control); found != toolbars_.end())
        menuPoint_ = found->second.MenuPointOf(command);
    else
        menuPoint_ = PointUnder(control);
    ShowMenu(menu);
}

void DialogWindow::ShowTrayIcon(const std::string& tip, int icon) {
    if (!tray_) tray_.emplace(window_, module_, kTrayMouse);
    if (!tray_->Show(ToWide(tip), icon))
        throw RuntimeError(ErrorNumber::InternalError, "The tray takes no icon");
}

void DialogWindow::ShowBalloon(const std::string& title, const std::string& text) {
    if (tray_) tray_->Say(ToWide(title), ToWide(text));
}

// The dialog's default button would get the Enter key, and a row could not be opened by it.
bool DialogWindow::TranslateKey(MSG& message) {
    const bool isEnter = message.message == WM_KEYDOWN && message.wParam == VK_RETURN;
    return IsWindowEnabled(window_) && !(isEnter && IsReport(message.hwnd)) &&
           keys_.Translate(window_, message);
}

}  // namespace kaz
