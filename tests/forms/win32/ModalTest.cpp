#include "ModalDriver.h"
#include "WindowFixture.h"
#include "forms/win32/Win32Dialogs.h"
#include "resources/resource.h"
#include "win32/Text.h"

namespace kaz {
namespace {

class ModalTest : public WindowFixture {
protected:
    static std::string TextOf(HWND box, int control) {
        wchar_t text[300] = L"";
        GetDlgItemTextW(box, control, text, 300);
        return ToUtf8(text);
    }

    ModalDriver user;
    Win32Dialogs dialogs{GetModuleHandleW(nullptr)};
};

TEST_F(ModalTest, DisablesTheWindowOfWorkAndNotTheOneThatCameByItself) {
    DialogWindow reminder(GetModuleHandleW(nullptr), IDD_SMALL);
    DialogWindow box(GetModuleHandleW(nullptr), IDD_SMALL);
    Show();
    reminder.Show(Activation::KeepFocus);
    Settle();
    bool workEnabled = true;
    bool reminderEnabled = false;
    HWND owner = nullptr;
    user.Then([&](HWND shown) {
        workEnabled = IsWindowEnabled(window->Handle());
        reminderEnabled = IsWindowEnabled(reminder.Handle());
        owner = GetWindow(shown, GW_OWNER);
        box.EndModal(42);
    });
    EXPECT_EQ(42, box.ShowModal());
    EXPECT_FALSE(workEnabled);
    EXPECT_TRUE(reminderEnabled);
    EXPECT_EQ(window->Handle(), owner);
    EXPECT_TRUE(IsWindowEnabled(window->Handle()));
    EXPECT_FALSE(box.IsVisible());
    EXPECT_EQ(window->Handle(), GetActiveWindow());

    user.Then([&](HWND) { box.EndModal(7); });
    EXPECT_EQ(7, box.ShowModal());
}

// As when a host opens the options while the main window is hidden: its icon must not end the program then.
TEST_F(ModalTest, BlocksTheHiddenWindowInTheTrayWhichLeadsToTheBox) {
    window->ShowTrayIcon("KAZ", IDI_KAZ);
    DialogWindow box(GetModuleHandleW(nullptr), IDD_SMALL);
    bool enabled = true;
    HWND owner = nullptr;
    HWND active = nullptr;
    user.Then([&](HWND shown) {
        enabled = window->Enabled(0);
        owner = GetWindow(shown, GW_OWNER);
        window->Show(Activation::TakeFocus);
        active = GetActiveWindow();
        box.EndModal(1);
    });
    EXPECT_EQ(1, box.ShowModal());
    EXPECT_FALSE(enabled);
    EXPECT_EQ(nullptr, owner);
    EXPECT_EQ(box.Handle(), active);
    EXPECT_TRUE(window->Enabled(0));
}

TEST_F(ModalTest, EndsWhenItsWindowIsDestroyedOrTheProgramIsToldToQuit) {
    Show();
    auto box = std::make_unique<DialogWindow>(GetModuleHandleW(nullptr), IDD_SMALL);
    user.Then([&](HWND) { box.reset(); });
    EXPECT_EQ(IDCANCEL, box->ShowModal());
    EXPECT_TRUE(IsWindowEnabled(window->Handle()));

    box = std::make_unique<DialogWindow>(GetModuleHandleW(nullptr), IDD_SMALL);
    user.Then([](HWND) { PostQuitMessage(3); });
    EXPECT_EQ(IDCANCEL, box->ShowModal());
    MSG message{};
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
    }
    EXPECT_EQ(3U, message.wParam);
}

TEST_F(ModalTest, AHandlerOfAKeyMayOpenABox) {
    Show();
    std::optional<std::string> answer;
    handler = [&](int control, Raised what) {
        if (control == IDM_GO && what == Raised::Click)
            answer = dialogs.InputBox("Search", "Enter search term", "cat");
    };
    user.Then([&](HWND box) {
        wchar_t title[20] = L"";
        GetWindowTextW(box, title, 20);
        EXPECT_EQ(std::wstring(L"Search"), title);
        EXPECT_EQ("Enter search term", TextOf(box, IDC_lblPrompt));
        EXPECT_EQ("cat", TextOf(box, IDC_txtAnswer));
        SetDlgItemTextW(box, IDC_txtAnswer, L"dog");
        PostMessageW(GetDlgItem(box, IDC_txtAnswer), WM_KEYDOWN, VK_RETURN, 1);
    });
    Key(At(IDC_REPORT), VK_F5);
    EXPECT_EQ("dog", answer);
    EXPECT_TRUE(user.Done());
}

TEST_F(ModalTest, TheInputBoxTakesEveryLetterAndNoHalfOne) {
    Show();
    user.Then([&](HWND box) {
        SetDlgItemTextW(box, IDC_txtAnswer, L"\x041F \xD83C\xDF82 \xD83C.");
        PostMessageW(GetDlgItem(box, IDOK), BM_CLICK, 0, 0);
    });
    EXPECT_EQ("П 🎂 \uFFFD.", dialogs.InputBox("Title", "A prompt\r\nof two lines", ""));

    user.Then([](HWND shown) { PostMessageW(shown, WM_CLOSE, 0, 0); });
    EXPECT_EQ(std::nullopt, dialogs.InputBox("Title", "Prompt", "kept"));
    user.Press(IDCANCEL);
    EXPECT_EQ(std::nullopt, dialogs.InputBox("Title", "Prompt", "kept"));
}

TEST_F(ModalTest, MessagesAndQuestions) {
    Show();
    std::wstring title(20, L'\0');
    user.Then([&](HWND box) {
        title.resize(static_cast<std::size_t>(GetWindowTextW(box, title.data(), 20)));
        EXPECT_EQ("café", TextOf(box, 0xFFFF));
        EXPECT_EQ(window->Handle(), GetWindow(box, GW_OWNER));
        PostMessageW(box, WM_COMMAND, IDOK, 0);
    });
    dialogs.Message("café");
    EXPECT_EQ(L"KAZ", title);
    user.Press(IDYES);
    EXPECT_TRUE(dialogs.AskYesNo("Sure?"));
    user.Press(IDNO);
    EXPECT_FALSE(dialogs.AskYesNo("Sure?"));
}

TEST_F(ModalTest, PicksADate) {
    Show();
    user.Press(IDOK);
    EXPECT_EQ(DateValue::FromCivil(2024, 2, 29),
              dialogs.PickDate("Due on:", DateValue::FromCivil(2024, 2, 29)));
    user.Press(IDCANCEL);
    EXPECT_EQ(std::nullopt, dialogs.PickDate("Due on:", DateValue::FromCivil(2024, 2, 29)));
    user.Then([](HWND box) {
        SYSTEMTIME day{};
        day.wYear = 2025;
        day.wMonth = 12;
        day.wDay = 24;
        SendDlgItemMessageW(box, IDC_calDate, MCM_SETCURSEL, 0, reinterpret_cast<LPARAM>(&day));
        PostMessageW(GetDlgItem(box, IDOK), BM_CLICK, 0, 0);
    });
    EXPECT_EQ(DateValue::FromCivil(2025, 12, 24), dialogs.PickDate("", DateValue::FromCivil(100, 1, 1)));
    // By two clicks in the middle of the calendar, where there is always a day.
    user.Then([](HWND box) {
        const HWND calendar = GetDlgItem(box, IDC_calDate);
        RECT place{};
        GetClientRect(calendar, &place);
        const LPARAM middle = MAKELPARAM(place.right / 2, place.bottom / 2);
        for (int click = 0; click < 2; ++click) {
            PostMessageW(calendar, WM_LBUTTONDOWN, MK_LBUTTON, middle);
            PostMessageW(calendar, WM_LBUTTONUP, 0, middle);
        }
    });
    const auto clicked = dialogs.PickDate("", DateValue::FromCivil(2024, 2, 1));
    ASSERT_TRUE(clicked);
    EXPECT_EQ(2, clicked->Civil().month);
    EXPECT_NE(1, clicked->Civil().day);
}

}  // namespace
}  // namespace kaz
