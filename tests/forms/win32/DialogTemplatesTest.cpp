#include "TestResources.h"
#include "forms/win32/DialogWindow.h"
#include "forms/win32/StockControls.h"
#include "resources/resource.h"
#include "win32/Text.h"

#include <commctrl.h>
#include <gtest/gtest.h>

#include <cwctype>
#include <map>
#include <vector>

namespace kaz {
namespace {

// What holds for each template of the resources, also for one that is added later.
class DialogTemplate : public testing::TestWithParam<int> {
protected:
    DialogTemplate() {
        for (HWND child = GetWindow(dialog.Handle(), GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT))
            controls.push_back(child);
    }
    static LONG_PTR Style(HWND control) { return GetWindowLongPtrW(control, GWL_STYLE); }
    static LONG_PTR Kind(HWND button) { return Style(button) & BS_TYPEMASK; }
    static bool IsShown(HWND control) { return (Style(control) & WS_VISIBLE) != 0; }
    static bool IsFrame(HWND control) {
        return KindOf(control) == ControlKind::TabStrip ||
               (KindOf(control) == ControlKind::AnyButton && Kind(control) == BS_GROUPBOX);
    }
    // Of the event editor, counted from 0; -1 for what is always there.
    static int PageOf(HWND control) {
        const int id = GetDlgCtrlID(control);
        const bool isOnPage = GetParam() == IDD_EVENT && id >= IDC_fraEvent && id < IDC_lblPreview;
        return isOnPage ? (id - IDC_fraEvent) / FRAME_CONTROLS : -1;
    }
    static std::wstring TextOf(HWND control) {
        wchar_t text[512] = L"";
        GetWindowTextW(control, text, 512);
        return text;
    }
    static std::string Described(HWND control) {
        return "control " + std::to_string(GetDlgCtrlID(control)) + " \"" + ToUtf8(TextOf(control)) + "\"";
    }
    RECT PlaceOf(HWND control) {
        RECT place{};
        GetWindowRect(control, &place);
        MapWindowPoints(nullptr, dialog.Handle(), reinterpret_cast<POINT*>(&place), 2);
        return place;
    }
    // The size of the control's text, broken into lines of the control's width where it can be.
    static SIZE TextSize(HWND control, LONG width) {
        const HDC screen = GetDC(control);
        const HGDIOBJ before =
            SelectObject(screen, reinterpret_cast<HFONT>(SendMessageW(control, WM_GETFONT, 0, 0)));
        RECT text{0, 0, width, 0};
        DrawTextW(screen, TextOf(control).c_str(), -1, &text, DT_CALCRECT | DT_WORDBREAK);
        SelectObject(screen, before);
        ReleaseDC(control, screen);
        return {text.right, text.bottom};
    }

    DialogWindow dialog{GetModuleHandleW(nullptr), GetParam()};
    std::vector<HWND> controls;
};

TEST_P(DialogTemplate, HasANameForEveryControlAndNoAccessKeyTwice) {
    std::map<wchar_t, std::map<int, std::string>> keys;
    bool labelled = false;
    for (const HWND control : controls) {
        const std::wstring text = TextOf(control);
        const ControlKind kind = KindOf(control);
        const bool named = kind == ControlKind::Static || !text.empty() || labelled;
        EXPECT_TRUE(named) << Described(control) << " has no name for a screen reader";
        // A label with an id may get its text from the program.
        labelled = kind == ControlKind::Static && (!text.empty() || GetDlgCtrlID(control) > 0);

        const bool taken = kind == ControlKind::Static && (Style(control) & SS_NOPREFIX);
        const std::size_t mark = text.find(L'&');
        if (taken || mark == std::wstring::npos || mark + 1 >= text.size()) continue;
        // Of the pages of the event editor one is there at a time.
        auto& others = keys[static_cast<wchar_t>(towupper(text[mark + 1]))];
        const int page = PageOf(control);
        const auto other = page < 0                ? others.begin()
                           : others.contains(page) ? others.find(page)
                                                   : others.find(-1);
        EXPECT_TRUE(other == others.end())
            << Described(control) << " has the access key of " << other->second;
        others[page] = Described(control);
    }
}

TEST_P(DialogTemplate, FitsASmallScreen) {
    // What can be sized is made smaller by the screen itself.
    if (Style(dialog.Handle()) & WS_THICKFRAME) return;
    RECT frame{};
    GetWindowRect(dialog.Handle(), &frame);
    // 800 x 600 less the task bar; for the editor also 1366 x 768 at 150 %.
    EXPECT_LE(frame.right - frame.left, 800);
    EXPECT_LE(frame.bottom - frame.top, GetParam() == IDD_EVENT ? 464 : 560);
}

TEST_P(DialogTemplate, CutsNothingOffAndLetsNothingOverlap) {
    RECT client{};
    GetClientRect(dialog.Handle(), &client);
    for (std::size_t at = 0; at < controls.size(); ++at) {
        const HWND control = controls[at];
        const RECT place = PlaceOf(control);
        const LONG width = place.right - place.left;
        const bool isButton = KindOf(control) == ControlKind::AnyButton && !IsFrame(control);
        if (isButton || KindOf(control) == ControlKind::Static) {
            // The mark of a check box and the gap behind it; the edges of a push button.
            const bool isPush = isButton && Kind(control) <= BS_DEFPUSHBUTTON;
            const LONG besides = isPush ? 6 : isButton ? GetSystemMetrics(SM_CXMENUCHECK) + 4 : 0;
            const SIZE text = TextSize(control, width - besides);
            EXPECT_LE(text.cx, width - besides) << Described(control);
            EXPECT_LE(text.cy, place.bottom - place.top + 1) << Described(control);
        }
        if (!IsShown(control)) continue;
        EXPECT_TRUE(place.left >= 0 && place.top >= 0 && place.right <= client.right &&
                    place.bottom <= client.bottom)
            << Described(control) << " sticks out of the window";
        if (IsFrame(control)) continue;
        for (std::size_t next = at + 1; next < controls.size(); ++next) {
            const RECT other = PlaceOf(controls[next]);
            RECT common{};
            if (!IsShown(controls[next]) || IsFrame(controls[next])) continue;
            EXPECT_FALSE(IntersectRect(&common, &place, &other))
                << Described(control) << " overlaps " << Described(controls[next]);
        }
    }
}

BOOL CALLBACK Collect(HMODULE, LPCWSTR, LPWSTR name, LONG_PTR found) {
    const auto dialog = static_cast<int>(reinterpret_cast<INT_PTR>(name));
    if (dialog < IDD_TEST) reinterpret_cast<std::vector<int>*>(found)->push_back(dialog);
    return TRUE;
}
std::vector<int> AllDialogs() {
    std::vector<int> found;
    EnumResourceNamesW(nullptr, RT_DIALOG, Collect, reinterpret_cast<LONG_PTR>(&found));
    return found;
}

INSTANTIATE_TEST_SUITE_P(All, DialogTemplate, testing::ValuesIn(AllDialogs()),
                         [](const auto& test) { return "Dialog" + std::to_string(test.param); });

}  // namespace
}  // namespace kaz
