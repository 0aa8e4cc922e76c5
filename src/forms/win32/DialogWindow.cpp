#include "forms/win32/DialogWindow.h"

#include "base/RuntimeError.h"
#include "forms/win32/ModalRun.h"
#include "forms/win32/ScreenPlacement.h"
#include "resources/resource.h"
#include "win32/ActivationContext.h"
#include "win32/Text.h"

#include <algorithm>

namespace kaz {

namespace {

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

DialogWindow::DialogWindow(HINSTANCE module, int dialog) : module_(module) {
    const ActivationContext context(module);
    INITCOMMONCONTROLSEX classes{sizeof classes, ICC_STANDARD_CLASSES | ICC_WIN95_CLASSES | ICC_DATE_CLASSES};
    InitCommonControlsEx(&classes);
    CreateDialogParamW(module, MAKEINTRESOURCEW(dialog), nullptr, Procedure, reinterpret_cast<LPARAM>(this));
    if (!window_) throw RuntimeError(ErrorNumber::InternalError);
    accelerators_ = LoadAcceleratorsW(module, MAKEINTRESOURCEW(dialog));
    layout_.emplace(window_, module, dialog);
    PrepareControls();
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
    // The dialog that waits for its answer, if there is one; it came without an owner while this one was
    // hidden.
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

void DialogWindow::StartTimer(int timer, int milliseconds) {
    SetTimer(window_, static_cast<UINT_PTR>(timer), static_cast<UINT>(std::max(milliseconds, 1)), nullptr);
}

void DialogWindow::AskForResumes() {
    if (!resumes_)
        resumes_ = PowerNotification(RegisterSuspendResumeNotification(window_, DEVICE_NOTIFY_WINDOW_HANDLE));
}

void DialogWindow::StopTimer(int timer) { KillTimer(window_, static_cast<UINT_PTR>(timer)); }

}  // namespace kaz
