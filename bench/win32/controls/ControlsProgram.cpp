// bench_controls
//
// The main window's template with its columns, buttons and icons, and nothing behind them: what the controls
// of any program with this window cost. It ends when it is closed.
#include "BareList.h"
#include "resources/resource.h"

#include <windows.h>
#include <commctrl.h>

namespace {

constexpr int kButtons = 12;

INT_PTR CALLBACK Procedure(HWND window, UINT message, WPARAM, LPARAM) {
    return message == WM_CLOSE && DestroyWindow(window);
}

void AddButtons(HWND toolbar) {
    SendMessageW(toolbar, TB_BUTTONSTRUCTSIZE, sizeof(TBBUTTON), 0);
    SendMessageW(toolbar, TB_SETEXTENDEDSTYLE, 0, TBSTYLE_EX_MIXEDBUTTONS | TBSTYLE_EX_DOUBLEBUFFER);
    SendMessageW(toolbar, TB_LOADIMAGES, IDB_STD_SMALL_COLOR, reinterpret_cast<LPARAM>(HINST_COMMCTRL));
    TBBUTTON buttons[kButtons]{};
    for (int at = 0; at < kButtons; ++at)
        buttons[at] = {at, at + 1, TBSTATE_ENABLED, BTNS_BUTTON, {}, 0, 0};
    SendMessageW(toolbar, TB_ADDBUTTONSW, kButtons, reinterpret_cast<LPARAM>(buttons));
}

}  // namespace

int WINAPI wWinMain(HINSTANCE module, HINSTANCE, LPWSTR, int) {
    InitCommonControls();
    const HWND window = CreateDialogParamW(module, MAKEINTRESOURCEW(IDD_MAIN), nullptr, Procedure, 0);
    const LPARAM icon = reinterpret_cast<LPARAM>(LoadIconW(module, MAKEINTRESOURCEW(IDI_KAZ)));
    SendMessageW(window, WM_SETICON, ICON_SMALL, icon);
    SendMessageW(window, WM_SETICON, ICON_BIG, icon);
    kaz::BareList::AddColumns(GetDlgItem(window, IDC_ListEvents));
    AddButtons(GetDlgItem(window, IDC_Toolbar1));
    ShowWindow(window, SW_SHOW);
    MSG message;
    while (IsWindow(window) && GetMessageW(&message, nullptr, 0, 0) > 0) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    return 0;
}
