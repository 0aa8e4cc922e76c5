#include "core/Application.h"
#include "fakes/FakePlatform.h"
#include "forms/win32/DialogWindow.h"
#include "forms/win32/Win32WindowFactory.h"
#include "platform/win32/Win32MessagePump.h"

#include <windows.h>
#include <gtest/gtest.h>

#include <optional>

namespace kaz {
namespace {

TEST(RunFileKeys, AQuestionThatComesByItselfTakesNoKeyForAnAnswer) {
    constexpr LPARAM kWithAlt = 1 << 29;
    FakePlatform machine;
    Win32WindowFactory factory(GetModuleHandleW(nullptr));
    machine.UseWindows(factory);
    Application app{machine.Services()};
    Win32MessagePump pump;
    DialogWindow typing(GetModuleHandleW(nullptr), IDD_INPUTBOX);
    HWND handle = nullptr;
    std::optional<bool> answer;
    const auto ask = [&](const std::string& file) {
        answer.reset();
        app.reminderWindows.Ask({"Bob", "Run me", file, [&](bool yes) { answer = yes; }});
        pump.ProcessPending();
        handle = FindWindowW(nullptr, L"KAZ - Run a file of another user?");
    };
    const auto turnTo = [&](HWND window) {
        SetForegroundWindow(window);
        pump.ProcessPending();
        ASSERT_EQ(GetForegroundWindow(), window);
    };
    const auto wait = [&](ULONGLONG milliseconds) {
        for (const ULONGLONG end = GetTickCount64() + milliseconds; GetTickCount64() < end; Sleep(10))
            pump.ProcessPending();
    };
    const auto press = [&](UINT message, std::initializer_list<int> keys, LPARAM detail = 1) {
        for (const int key : keys) {
            PostMessageW(GetFocus(), message, static_cast<WPARAM>(key), detail);
            pump.ProcessPending();
        }
        return answer.has_value();
    };
    const auto pressEverything = [&] {
        press(WM_CHAR, {'y', 'n', ' '});
        press(WM_KEYDOWN, {VK_RETURN, VK_ESCAPE});
        press(WM_SYSCHAR, {'y', 'n'}, kWithAlt);
        return press(WM_SYSKEYDOWN, {VK_F4}, kWithAlt);
    };

    typing.Show(Activation::TakeFocus);
    pump.ProcessPending();
    const std::string file = "\\\\server\\share\\" + std::string(1000, 'x') + ".bat";
    ask(file);
    ASSERT_TRUE(handle);
    EXPECT_EQ(GetForegroundWindow(), typing.Handle());
    EXPECT_EQ(LOWORD(SendMessageW(handle, DM_GETDEFID, 0, 0)), IDC_cmdNo);
    HWND above = typing.Handle();
    while (above && above != handle)
        above = GetWindow(above, GW_HWNDPREV);
    EXPECT_EQ(above, handle);

    // The whole path, broken into lines, of which all are to be seen.
    RECT frame{}, work{}, lines{};
    GetWindowRect(handle, &frame);
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &work, 0);
    EXPECT_TRUE(frame.top >= work.top && frame.bottom <= work.bottom);
    const HWND box = GetDlgItem(handle, IDC_txtFile);
    SendMessageW(box, EM_GETRECT, 0, reinterpret_cast<LPARAM>(&lines));
    const LRESULT end = SendMessageW(box, EM_POSFROMCHAR, file.size() - 1, 0);
    EXPECT_LT(HIWORD(end), lines.bottom);
    EXPECT_LT(LOWORD(end), lines.right);

    turnTo(handle);
    EXPECT_FALSE(pressEverything());
    // Time that it has stood behind another window is none for who comes to it by a key.
    turnTo(typing.Handle());
    wait(1200);
    turnTo(handle);
    EXPECT_FALSE(pressEverything());
    wait(1200);
    EXPECT_FALSE(press(WM_CHAR, {'y', 'n', ' '}));
    press(WM_KEYDOWN, {VK_RETURN});
    EXPECT_EQ(answer, false);
    ask("C:\\report.exe");
    turnTo(handle);
    wait(1200);
    press(WM_SYSCHAR, {'y'}, kWithAlt);
    EXPECT_EQ(answer, true);
}

}  // namespace
}  // namespace kaz
