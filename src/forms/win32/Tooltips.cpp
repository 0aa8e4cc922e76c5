#include "forms/win32/Tooltips.h"

#include "forms/win32/ScreenPlacement.h"
#include "resources/resource.h"

#include <commctrl.h>

#include <string>

namespace kaz {

namespace {

std::wstring TextOf(HINSTANCE module, int control) {
    const wchar_t* text = nullptr;
    const int length =
        LoadStringW(module, static_cast<UINT>(IDS_TOOLTIP + control), reinterpret_cast<wchar_t*>(&text), 0);
    return length > 0 ? std::wstring(text, static_cast<std::size_t>(length)) : std::wstring();
}

constexpr int kLineWidth = 480;  // in units of 1/96 inch

HWND MakeTooltips(HWND window, HINSTANCE module) {
    const HWND tooltips =
        CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX, 0,
                        0, 0, 0, window, nullptr, module, nullptr);
    // With a width, a text gets as many lines as it needs.
    SendMessageW(tooltips, TTM_SETMAXTIPWIDTH, 0, ToPixels(window, kLineWidth));
    SendMessageW(tooltips, TTM_SETDELAYTIME, TTDT_AUTOPOP, MAXSHORT);
    return tooltips;
}

void Send(HWND tooltips, UINT message, HWND window, HWND control, std::wstring& text) {
    TOOLINFOW tool{};
    tool.cbSize = sizeof tool;
    tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
    tool.hwnd = window;
    tool.uId = reinterpret_cast<UINT_PTR>(control);
    tool.lpszText = text.data();
    SendMessageW(tooltips, message, 0, reinterpret_cast<LPARAM>(&tool));
}

// A control that is grey lets the mouse through to its window, so the tip belongs to that place there: it
// says why it is grey.
void AddToPlace(HWND tooltips, HWND window, HWND control, std::wstring& text) {
    TOOLINFOW tool{};
    tool.cbSize = sizeof tool;
    tool.uFlags = TTF_SUBCLASS;
    tool.hwnd = window;
    tool.uId = static_cast<UINT_PTR>(GetDlgCtrlID(control));
    tool.lpszText = text.data();
    GetWindowRect(control, &tool.rect);
    MapWindowPoints(nullptr, window, reinterpret_cast<POINT*>(&tool.rect), 2);
    SendMessageW(tooltips, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
}

}  // namespace

void AddTooltips(HWND window, HINSTANCE module) {
    HWND tooltips = nullptr;
    for (HWND control = GetWindow(window, GW_CHILD); control; control = GetWindow(control, GW_HWNDNEXT)) {
        const int id = GetDlgCtrlID(control);
        std::wstring text = id > 0 ? TextOf(module, id) : std::wstring();
        if (text.empty()) continue;
        if (!tooltips) tooltips = MakeTooltips(window, module);
        Send(tooltips, TTM_ADDTOOLW, window, control, text);
        if (!IsWindowEnabled(control)) AddToPlace(tooltips, window, control, text);
    }
}

void SetTooltip(HWND& tooltip, HWND window, HINSTANCE module, HWND control, std::wstring text) {
    const bool isNew = !tooltip;
    if (isNew) tooltip = MakeTooltips(window, module);
    Send(tooltip, isNew ? TTM_ADDTOOLW : TTM_UPDATETIPTEXTW, window, control, text);
}

}  // namespace kaz
