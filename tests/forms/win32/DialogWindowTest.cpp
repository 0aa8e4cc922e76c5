#include "RealWindow.h"
#include "WindowFixture.h"
#include "base/RuntimeError.h"
#include "resources/resource.h"

#include <string>

namespace kaz {
namespace {

class DialogWindowTest : public WindowFixture {
protected:
    // The first press has to reach the menu, or a later tick ends it.
    static void CALLBACK PressInMenu(HWND, UINT, UINT_PTR, DWORD) {
        if (++ticks > 1) EndMenu();
        PostMessageW(GetFocus(), WM_KEYDOWN, VK_F5, 1);
        PostMessageW(GetFocus(), WM_KEYDOWN, VK_ESCAPE, 1);
    }
    static inline int ticks = 0;
};

TEST_F(DialogWindowTest, TheKeyboardWorksInAPlainMessageLoop) {
    Show();
    window->SetFocus(IDC_NAME);
    EXPECT_EQ(At(IDC_NAME), GetFocus());
    Key(At(IDC_NAME), VK_TAB);
    EXPECT_EQ(At(IDC_REPORT), GetFocus());
    Key(At(IDC_REPORT), VK_F5);
    Key(At(IDC_REPORT), VK_DELETE);
    Key(At(IDC_REPORT), VK_ESCAPE);
    EXPECT_THAT(raised,
                ElementsAre(RaisedEvent{IDM_GO, Raised::Click}, RaisedEvent{IDM_REMOVE, Raised::Click},
                            RaisedEvent{0, Raised::CloseBox, kByEscape}));
}

TEST_F(DialogWindowTest, PlainKeysBelongToTheTextBeingTyped) {
    Show();
    window->SetText(IDC_NAME, "abc");
    window->SetFocus(IDC_NAME);
    SendMessageW(At(IDC_NAME), EM_SETSEL, 0, 1);
    Key(At(IDC_NAME), VK_DELETE);
    EXPECT_EQ("bc", window->Text(IDC_NAME));
    EXPECT_THAT(raised, ElementsAre(RaisedEvent{IDC_NAME, Raised::Change}));
    raised.clear();
    Key(At(IDC_NAME), VK_F5);
    EXPECT_THAT(raised, ElementsAre(RaisedEvent{IDM_GO, Raised::Click}));
}

TEST_F(DialogWindowTest, TheKeysOfAnOpenMenuAreNotTheWindows) {
    Show();
    const HMENU menu = CreatePopupMenu();
    AppendMenuW(menu, MF_STRING, 1, L"One");
    ticks = 0;
    const UINT_PTR timer = SetTimer(nullptr, 0, 50, PressInMenu);
    EXPECT_FALSE(TrackPopupMenu(menu, TPM_RETURNCMD, 0, 0, 0, window->Handle(), nullptr));
    KillTimer(nullptr, timer);
    DestroyMenu(menu);
    Settle();
    EXPECT_THAT(raised, IsEmpty());
    EXPECT_EQ(1, ticks);
}

TEST_F(DialogWindowTest, TellsOfTheSystem) {
    const HWND handle = window->Handle();
    EXPECT_NE(0, SendMessageW(handle, WM_QUERYENDSESSION, 0, 0));
    SendMessageW(handle, WM_ENDSESSION, FALSE, 0);
    EXPECT_THAT(raised, IsEmpty());
    SendMessageW(handle, WM_ENDSESSION, TRUE, 0);
    SendMessageW(handle, WM_TIMECHANGE, 0, 0);
    window->AskForResumes();
    SendMessageW(handle, WM_POWERBROADCAST, PBT_APMSUSPEND, 0);
    SendMessageW(handle, WM_POWERBROADCAST, PBT_APMRESUMEAUTOMATIC, 0);
    SendMessageW(handle, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(At(IDC_REPORT)), MAKELPARAM(10, 10));
    EXPECT_THAT(raised,
                ElementsAre(RaisedEvent{0, Raised::SessionEnd}, RaisedEvent{0, Raised::ClockChanged},
                            RaisedEvent{0, Raised::Resumed}, RaisedEvent{IDC_REPORT, Raised::RightClick}));
}

TEST_F(DialogWindowTest, ControlsFollowTheWindowAndItHasASmallestSize) {
    Show();
    const RECT list = Place(At(IDC_REPORT));
    const RECT button = Place(At(IDC_BUTTON));
    const RECT name = Place(At(IDC_NAME));
    const WindowSize size = window->Size();
    window->SetSize({size.width + 100, size.height + 50});
    const RECT frame = Place(window->Handle());
    EXPECT_EQ(size.width + 100, frame.right - frame.left);
    const int x = Place(At(IDC_NAME)).left - name.left;  // the window itself may have moved
    const int y = Place(At(IDC_NAME)).top - name.top;
    EXPECT_EQ(list.right + 100 + x, Place(At(IDC_REPORT)).right);
    EXPECT_EQ(list.bottom + 50 + y, Place(At(IDC_REPORT)).bottom);
    EXPECT_EQ(list.left + x, Place(At(IDC_REPORT)).left);
    EXPECT_EQ(button.left + 100 + x, Place(At(IDC_BUTTON)).left);
    EXPECT_EQ(button.bottom + 50 + y, Place(At(IDC_BUTTON)).bottom);

    window->SetSize({10, 10});
    EXPECT_GT(window->Size().width, 150);
    EXPECT_GT(window->Size().height, 100);
    RECT client{};
    GetClientRect(window->Handle(), &client);
    EXPECT_LT(Place(At(IDC_NAME)).bottom, Place(At(IDC_REPORT)).bottom);
    EXPECT_LT(client.right, list.right - list.left + 40);
}

TEST_F(DialogWindowTest, HeadingsAreLargeAndBold) {
    const auto heightOf = [this](int control) {
        LOGFONTW font{};
        GetObjectW(reinterpret_cast<HFONT>(SendMessageW(At(control), WM_GETFONT, 0, 0)), sizeof font, &font);
        return font;
    };
    EXPECT_EQ(LONG{FW_BOLD}, heightOf(IDC_TITLE).lfWeight);
    EXPECT_EQ(2 * heightOf(IDC_NAME).lfHeight, heightOf(IDC_TITLE).lfHeight);
    // By hand, since no such monitor is there; what the window made itself must follow.
    RECT suggested = Place(window->Handle());
    SendMessageW(window->Handle(), WM_DPICHANGED, MAKEWPARAM(96, 96), reinterpret_cast<LPARAM>(&suggested));
    Settle();
    EXPECT_THAT(raised, Contains(RaisedEvent{0, Raised::DpiChanged}));
    EXPECT_EQ(2 * heightOf(IDC_NAME).lfHeight, heightOf(IDC_TITLE).lfHeight);
}

TEST_F(DialogWindowTest, StaysOnAScreenThatExists) {
    Show();
    SetWindowPos(window->Handle(), nullptr, 5000, -3000, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    window->SetSize({400, 300});
    RECT work{};
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &work, 0);
    const RECT frame = Place(window->Handle());
    EXPECT_GE(frame.left, work.left);
    EXPECT_GE(frame.top, work.top);
    EXPECT_LE(frame.right, work.right);
    EXPECT_LE(frame.bottom, work.bottom);
    window->SetSize({9000, 9000});
    EXPECT_LE(window->Size().width, window->ScreenSize().width);
}

TEST_F(DialogWindowTest, ComesToTheFrontWithoutTakingTheKeyboard) {
    DialogWindow other(GetModuleHandleW(nullptr), IDD_SMALL);
    other.Show(Activation::KeepFocus);
    Show();
    window->SetFocus(IDC_NAME);
    ASSERT_EQ(window->Handle(), GetForegroundWindow());
    other.Hide();
    other.Show(Activation::KeepFocus);
    other.BringToFront();
    other.SetFocus(IDOK);
    other.SetTopMost(true);
    Settle();
    EXPECT_EQ(window->Handle(), GetForegroundWindow());
    EXPECT_EQ(At(IDC_NAME), GetFocus());
    other.SetTopMost(false);

    other.BringToFront();
    EXPECT_TRUE(IsAbove(other.Handle(), window->Handle()));

    // Two that come up one after the other do not hide each other.
    DialogWindow third(GetModuleHandleW(nullptr), IDD_SMALL);
    third.Show(Activation::KeepFocus);
    EXPECT_NE(Place(other.Handle()).top, Place(third.Handle()).top);
}

TEST_F(DialogWindowTest, TheClickThatActivatesItPressesTheButtonAlthoughAFocusWaits) {
    window->SetFocus(IDC_NAME);
    window->Show(Activation::TakeFocus);
    SendMessageW(At(IDC_BUTTON), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 5));
    Settle();
    SendMessageW(At(IDC_BUTTON), WM_LBUTTONUP, 0, MAKELPARAM(5, 5));
    EXPECT_THAT(raised, Contains(RaisedEvent{IDC_BUTTON, Raised::Click}));
}

TEST_F(DialogWindowTest, AnAlarmStaysOnTopOfAWindowThatComesToTheFront) {
    DialogWindow alarm(GetModuleHandleW(nullptr), IDD_SMALL);
    alarm.Show(Activation::KeepFocus);
    alarm.SetTopMost(true);
    Show();
    const RECT place = Place(alarm.Handle());
    SetWindowPos(window->Handle(), nullptr, place.left - 20, place.top - 20, 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    alarm.BringToFront();
    window->BringToFront();
    Settle();
    EXPECT_FALSE(GetWindowLongPtrW(window->Handle(), GWL_EXSTYLE) & WS_EX_TOPMOST);
    EXPECT_TRUE(IsAbove(alarm.Handle(), window->Handle()));
    // The screen too, which Wine can leave in another order.
    const COLORREF own = RGB(1, 2, 3);
    POINT point{3, 3};
    POINT seen = point;
    ClientToScreen(alarm.Handle(), &seen);
    const HDC screen = GetDC(nullptr);
    // A slow screen can still be painting over it.
    for (int look = 0; look < 100 && GetPixel(screen, seen.x, seen.y) != own; ++look) {
        const HDC device = GetDC(alarm.Handle());
        SetPixel(device, point.x, point.y, own);
        ReleaseDC(alarm.Handle(), device);
        Settle();
    }
    EXPECT_EQ(own, GetPixel(screen, seen.x, seen.y));
    ReleaseDC(nullptr, screen);
}

TEST_F(DialogWindowTest, AListIsFilledOnceAndKeepsItsPlace) {
    std::vector<std::string> lines;
    for (int i = 0; i < 2000; ++i)
        lines.push_back("Line " + std::to_string(i) + std::string(static_cast<std::size_t>(i % 90), 'x'));
    Show();
    window->SetItems(IDC_LINES, lines);
    SendMessageW(At(IDC_LINES), LB_SETTOPINDEX, 700, 0);
    window->SetItems(IDC_LINES, lines);
    EXPECT_EQ(700, SendMessageW(At(IDC_LINES), LB_GETTOPINDEX, 0, 0));
    EXPECT_EQ(lines, window->Items(IDC_LINES));
    EXPECT_GT(SendMessageW(At(IDC_LINES), LB_GETHORIZONTALEXTENT, 0, 0), 300);
    window->Select(IDC_LINES, 1999);
    EXPECT_EQ(lines.back(), window->Text(IDC_LINES));
    EXPECT_THAT(raised, IsEmpty());
}

TEST_F(DialogWindowTest, ControlsHaveTheirTooltips) {
    HWND tooltips = nullptr;
    // As when the pointer comes over the button.
    SendMessageW(At(IDC_BUTTON), WM_SETCURSOR, reinterpret_cast<WPARAM>(At(IDC_BUTTON)),
                 MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
    while ((tooltips = FindWindowExW(nullptr, tooltips, TOOLTIPS_CLASSW, nullptr)) != nullptr)
        if (GetWindow(tooltips, GW_OWNER) == window->Handle()) break;
    ASSERT_NE(nullptr, tooltips);
    EXPECT_EQ(1, SendMessageW(tooltips, TTM_GETTOOLCOUNT, 0, 0));
    wchar_t text[100] = L"";
    TOOLINFOW tool{};
    tool.cbSize = sizeof tool;
    tool.hwnd = window->Handle();
    tool.uFlags = TTF_IDISHWND;
    tool.uId = reinterpret_cast<UINT_PTR>(At(IDC_BUTTON));
    tool.lpszText = text;
    SendMessageW(tooltips, TTM_GETTEXTW, 100, reinterpret_cast<LPARAM>(&tool));
    EXPECT_EQ(std::wstring(L"What the button does"), text);
}

TEST_F(DialogWindowTest, AControlThatGoesAwayPassesTheKeyboardOn) {
    Show();
    window->SetFocus(IDC_BUTTON);
    window->SetEnabled(IDC_BUTTON, false);
    EXPECT_NE(At(IDC_BUTTON), GetFocus());
    EXPECT_EQ(window->Handle(), GetAncestor(GetFocus(), GA_ROOT));
    EXPECT_THROW(DialogWindow(GetModuleHandleW(nullptr), 65000), RuntimeError);
}

}  // namespace
}  // namespace kaz
