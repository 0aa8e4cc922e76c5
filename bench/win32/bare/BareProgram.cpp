// bench_bare
//
// A window with an empty list of nine columns, and nothing else; it ends when it is closed.
#include "BareList.h"

#include <commctrl.h>

int WINAPI wWinMain(HINSTANCE, HINSTANCE, LPWSTR, int) {
    InitCommonControls();
    const kaz::BareList list(760, 400, kaz::BareList::Rows::AskedFor);
    MSG message;
    while (IsWindow(list.List()) && GetMessageW(&message, nullptr, 0, 0) > 0) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    return 0;
}
