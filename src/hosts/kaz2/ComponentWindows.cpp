#include "hosts/kaz2/ComponentWindows.h"

#include <windows.h>

namespace kaz {

namespace {

// The component's windows are dialogs; those of the host and of input methods are not.
constexpr wchar_t kDialogClass[] = L"#32770";

struct Windows {
    bool any = false;
    bool anyDisabled = false;
};

BOOL CALLBACK Note(HWND window, LPARAM found) {
    wchar_t name[16] = L"";
    GetClassNameW(window, name, 16);
    if (lstrcmpW(name, kDialogClass) != 0) return TRUE;
    auto& all = *reinterpret_cast<Windows*>(found);
    all.any = true;
    all.anyDisabled = all.anyDisabled || !IsWindowEnabled(window);
    return TRUE;
}

Windows ComponentWindows() {
    Windows windows;
    EnumThreadWindows(GetCurrentThreadId(), Note, reinterpret_cast<LPARAM>(&windows));
    return windows;
}

}  // namespace

bool ComponentHasWindows() { return ComponentWindows().any; }

bool ComponentAsks() { return ComponentWindows().anyDisabled; }

}  // namespace kaz
