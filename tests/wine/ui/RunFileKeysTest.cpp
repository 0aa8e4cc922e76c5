#include "core/Application.h"
#include "fakes/FakePlatform.h"
#include "platform/win32/DialogWindow.h"
#include "platform/win32/Win32MessagePump.h"
#include "platform/win32/Win32WindowFactory.h"

#include <windows.h>
#include <gtest/gtest.h>

#include <optional>

namespace kaz {
namespace {

// A user who types into another window when the question comes.
class RunFileKeys : public testing::Test {
protected:
    RunFileKeys() {
        typing.Show(Activation::TakeFocus);
        pump.ProcessPending();
    }

    Platform Services() {
        machine.UseWindows(factory);
        return machine.Services();
    }
    void Ask(const std::string& file) {
        answer.reset();
        app.reminderWindows.Ask({"Bob", "Run me", file, [this](bool yes) { answer = yes; }});
        pump.ProcessPending();
        handle = FindWindowW(nullptr, L"KAZ - Run a file of another user?");
        ASSERT_TRUE(handle);
    }
    void Turn() {
        SetForegroundWindow(handle);
        pump.ProcessPending();
        ASSERT_EQ(GetForegroundWindow(), handle);
    }
    void Wait(DWORD milliseconds) {
        for (const ULONGLONG end = GetTickCount64() + milliseconds; GetTickCount64() < end; Sleep(10))
            pump.ProcessPending();
    }
    void Press(UINT message, int key, LPARAM detail = 1) {
        PostMessageW(GetFocus(), message, static_cast<WPARAM>(key), detail);
        pump.ProcessPending();
    }
    void PressLetters() {
        for (const char letter : {'y', 'n', ' '})
            Press(WM_CHAR, letter);
    }
    bool IsOpen() const { return !answer && IsWindowVisible(handle); }

    static constexpr LPARAM kWithAlt = 1 << 29;
    FakePlatform machine;
    Win32WindowFactory factory{GetModuleHandleW(nullptr)};
    Application app{Services()};
    Win32MessagePump pump;
    DialogWindow typing{GetModuleHandleW(nullptr), IDD_INPUTBOX};
    HWND handle = nullptr;
    std::optional<bool> answer;
};

TEST_F(RunFileKeys, AnswerNothingInTheFirstSecondAndEnterIsANoAfterwards) {
    const HWND before = GetForegroundWindow();
    ASSERT_EQ(before, typing.Handle());
    Ask("C:\\tools\\report.exe");
    EXPECT_EQ(GetForegroundWindow(), before);
    EXPECT_EQ(LOWORD(SendMessageW(handle, DM_GETDEFID, 0, 0)), IDC_cmdNo);
    HWND above = before;
    while (above && above != handle)
        above = GetWindow(above, GW_HWNDPREV);
    EXPECT_EQ(above, handle);

    Turn();
    const auto pressEverything = [this] {
        PressLetters();
        for (const int key : {VK_RETURN, VK_ESCAPE})
            Press(WM_KEYDOWN, key);
        for (const char letter : {'y', 'n'})
            Press(WM_SYSCHAR, letter, kWithAlt);
        Press(WM_SYSKEYDOWN, VK_F4, kWithAlt);
    };
    pressEverything();
    EXPECT_TRUE(IsOpen());
    // Time that it has stood behind another window is none for who comes to it by a key.
    typing.Show(Activation::TakeFocus);
    Wait(1200);
    Turn();
    pressEverything();
    EXPECT_TRUE(IsOpen());
    Wait(1200);
    PressLetters();
    EXPECT_TRUE(IsOpen());
    Press(WM_KEYDOWN, VK_RETURN);
    EXPECT_EQ(answer, false);
    EXPECT_FALSE(IsWindowVisible(handle));
}

TEST_F(RunFileKeys, AltAndItsLetterIsAYesAndALongPathIsWholeOnTheScreen) {
    const std::string file = "\\\\server\\share\\" + std::string(1000, 'x') + ".bat";
    Ask(file);
    EXPECT_EQ(DialogWindow::Of(handle)->Text(IDC_txtFile), file);
    RECT frame{}, work{}, common{};
    GetWindowRect(handle, &frame);
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &work, 0);
    IntersectRect(&common, &frame, &work);
    EXPECT_TRUE(EqualRect(&common, &frame));
    // Broken into lines, of which all are to be seen.
    const HWND box = GetDlgItem(handle, IDC_txtFile);
    RECT lines{};
    SendMessageW(box, EM_GETRECT, 0, reinterpret_cast<LPARAM>(&lines));
    const LRESULT end = SendMessageW(box, EM_POSFROMCHAR, file.size() - 1, 0);
    EXPECT_GT(SendMessageW(box, EM_GETLINECOUNT, 0, 0), 5);
    EXPECT_LT(static_cast<short>(HIWORD(end)), lines.bottom);
    EXPECT_LT(static_cast<short>(LOWORD(end)), lines.right);
    Turn();
    Wait(1200);
    Press(WM_SYSCHAR, 'y', kWithAlt);
    EXPECT_EQ(answer, true);
}

}  // namespace
}  // namespace kaz
