#include "ModalDriver.h"

#include <cstdio>

namespace kaz {

namespace {

ModalDriver* theDriver = nullptr;
constexpr DWORD kPatience = 30000;  // milliseconds

DWORD WINAPI Watch(void* ended) {
    if (WaitForSingleObject(ended, kPatience) == WAIT_OBJECT_0) return 0;
    std::fputs("A box stayed open\n", stderr);
    TerminateProcess(GetCurrentProcess(), 86);
    return 0;
}

}  // namespace

ModalDriver::ModalDriver() {
    theDriver = this;
    timer_ = SetTimer(nullptr, 0, 30, Tick);
    ended_ = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    watchdog_ = CreateThread(nullptr, 0, Watch, ended_, 0, nullptr);
}

ModalDriver::~ModalDriver() {
    KillTimer(nullptr, timer_);
    SetEvent(ended_);
    WaitForSingleObject(watchdog_, INFINITE);
    CloseHandle(watchdog_);
    CloseHandle(ended_);
    theDriver = nullptr;
}

void ModalDriver::Then(Step step) {
    planned_ = true;
    seen_.clear();
    while (HWND known = NewBox())
        seen_.insert(known);
    steps_.push_back(std::move(step));
}

HWND ModalDriver::NewBox() {
    next_ = nullptr;
    EnumThreadWindows(GetCurrentThreadId(), Look, reinterpret_cast<LPARAM>(this));
    return next_;
}

void ModalDriver::Press(int button) {
    Then([button](HWND box) { PostMessageW(GetDlgItem(box, button), BM_CLICK, 0, 0); });
}

BOOL CALLBACK ModalDriver::Look(HWND window, LPARAM parameter) {
    auto* self = reinterpret_cast<ModalDriver*>(parameter);
    wchar_t name[16] = L"";
    GetClassNameW(window, name, 16);
    const bool isBox = lstrcmpW(name, L"#32770") == 0 && IsWindowVisible(window) && IsWindowEnabled(window);
    if (isBox && !self->seen_.contains(window)) self->next_ = window;
    return TRUE;
}

void CALLBACK ModalDriver::Tick(HWND, UINT, UINT_PTR, DWORD) {
    if (!theDriver) return;
    const HWND box = theDriver->NewBox();
    if (!box) return;
    theDriver->seen_.insert(box);
    if (theDriver->steps_.empty()) {
        if (!theDriver->planned_) return;  // a window of the test itself, shown before the first box
        ++theDriver->surprises_;
        PostMessageW(box, WM_CLOSE, 0, 0);
        return;
    }
    const Step step = std::move(theDriver->steps_.front());
    theDriver->steps_.pop_front();
    step(box);
}

}  // namespace kaz
