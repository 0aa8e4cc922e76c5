#include "hosts/kaz2/ComponentWindows.h"

#include <windows.h>

namespace kaz {

namespace {

// The component's windows are dialogs; those of the host and of input methods are not.
constexpr wchar_t kDialogClass[] = L"#32770";

BOOL CALLBACK FindDialog(HWND window, LPARAM found) {
    wchar_t name[16] = L"";
    GetClassNameW(window, name, 16);
    if (lstrcmpW(name, kDialogClass) != 0) return TRUE;
    *reinterpret_cast<bool*>(found) = true;
    return FALSE;
}

}  // namespace

bool ComponentHasWindows() {
    bool found = false;
    EnumThreadWindows(GetCurrentThreadId(), FindDialog, reinterpret_cast<LPARAM>(&found));
    return found;
}

}  // namespace kaz
