#include "forms/win32/MessageHook.h"

#include "forms/win32/DialogWindow.h"

#include <map>
#include <mutex>

namespace kaz {

namespace {

struct Installed {
    HHOOK hook = nullptr;
    int users = 0;
};

// One hook a thread, however many windows: every hook costs each message some time.
std::mutex hooksGuard;
std::map<DWORD, Installed> hooks;

// An open menu takes its keys with a loop of its own, which the hook sees too.
bool IsInMenu() {
    GUITHREADINFO thread{};
    thread.cbSize = sizeof thread;
    return GetGUIThreadInfo(GetCurrentThreadId(), &thread) && (thread.flags & GUI_INMENUMODE);
}

LRESULT CALLBACK OnMessage(int code, WPARAM removed, LPARAM parameter) {
    auto& message = *reinterpret_cast<MSG*>(parameter);
    if (code == HC_ACTION && removed == PM_REMOVE && message.message >= WM_KEYFIRST &&
        message.message <= WM_KEYLAST) {
        DialogWindow* window = DialogWindow::Of(GetAncestor(message.hwnd, GA_ROOT));
        // What was handled here must not reach the host's own translation once more.
        if (window && !IsInMenu() && window->TranslateKey(message)) message.message = WM_NULL;
    }
    return CallNextHookEx(nullptr, code, removed, parameter);
}

}  // namespace

MessageHook::MessageHook() : thread_(GetCurrentThreadId()) {
    const std::lock_guard lock(hooksGuard);
    Installed& installed = hooks[thread_];
    if (installed.users++ == 0)
        installed.hook = SetWindowsHookExW(WH_GETMESSAGE, OnMessage, nullptr, thread_);
}

MessageHook::~MessageHook() {
    const std::lock_guard lock(hooksGuard);
    const auto found = hooks.find(thread_);
    if (--found->second.users > 0) return;
    if (found->second.hook) UnhookWindowsHookEx(found->second.hook);
    hooks.erase(found);
}

}  // namespace kaz
