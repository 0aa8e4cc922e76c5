#include "fakes/ErrorOf.h"
#include "platform/win32/LogonStart.h"
#include "platform/win32/Win32Clock.h"
#include "platform/win32/Win32FileSystem.h"
#include "platform/win32/Win32MessagePump.h"
#include "platform/win32/Win32Random.h"
#include "platform/win32/Win32Shell.h"
#include "platform/win32/Win32SystemInfo.h"

#include <windows.h>
#include <gtest/gtest.h>

#include <cmath>

namespace kaz {
namespace {

TEST(ServicesTest, TheClockIsTheUsersOwn) {
    SYSTEMTIME time{};
    GetLocalTime(&time);
    const Win32Clock clock;
    const DateValue expected = DateValue::FromCivil(time.wYear, time.wMonth, time.wDay);
    const double now = expected.Serial() + (time.wHour * 60.0 + time.wMinute) / 1440.0;
    EXPECT_NEAR(now, clock.Now().Serial(), 2.0 / 1440.0);
    EXPECT_NEAR(clock.Now().SecondOfDay(), clock.SecondsSinceMidnight(), 2.0);
}

TEST(ServicesTest, RandomNumbersSpreadAndASeedDoesNotRepeatThem) {
    Win32Random random;
    int tenths[10] = {};
    for (int i = 0; i < 10000; ++i) {
        const double number = random.Next();
        ASSERT_TRUE(number >= 0 && number < 1);
        ++tenths[static_cast<int>(number * 10)];
    }
    for (const int count : tenths)
        EXPECT_NEAR(1000, count, 200);
    random.Seed(12345.5);
    const double first = random.Next();
    random.Seed(12345.5);
    EXPECT_NE(first, random.Next());
}

TEST(ServicesTest, SystemAndModule) {
    const Win32SystemInfo system(GetModuleHandleW(nullptr));
    EXPECT_EQ("Windows ", system.OperatingSystem().substr(0, 8));
    EXPECT_NE(std::string::npos, system.OperatingSystem().find("."));
    EXPECT_EQ(PathKind::Folder, Win32FileSystem().Kind(system.ModuleFolder()));
    EXPECT_NE('\\', system.ModuleFolder().back());
}

TEST(ServicesTest, TheHostStartsAtLogonOnceForEachFolder) {
    EXPECT_EQ(std::nullopt, Win32SystemInfo(nullptr).StartsAtLogon("C:\\Data"));  // this is not the host
    const LogonStart mine(L"C:\\KAZ\\kaz2.exe", "D:\\"), other(L"C:\\KAZ\\KAZ2.exe", "D:\\Other");
    EXPECT_TRUE(mine.IsHost());
    mine.Turn(true);
    EXPECT_TRUE(mine.IsOn());
    EXPECT_FALSE(other.IsOn());
    EXPECT_FALSE(LogonStart(L"C:\\Elsewhere\\KAZ2.exe", "D:\\").IsOn());
    other.Turn(false);
    mine.Turn(false);
    EXPECT_FALSE(mine.IsOn());
}

TEST(ServicesTest, TheShellTellsWhatItCannotOpen) {
    Win32Shell shell;
    const auto numberOf = [&](const char* target) { return ErrorOf([&] { shell.Open(target); }); };
    EXPECT_EQ(53, numberOf("C:\\there is no such file.txt"));
    EXPECT_EQ(53, numberOf(""));
    Win32FileSystem files;
    files.Create("C:\\a.kazunknown")->Close();
    EXPECT_EQ(5, numberOf("C:\\a.kazunknown"));
    files.Delete("C:\\a.kazunknown");
}

// Such as a window that paints itself without an end.
LRESULT CALLBACK NeverDone(HWND window, UINT message, WPARAM wide, LPARAM narrow) {
    if (message == WM_APP) PostMessageW(window, WM_APP, 0, 0);
    return DefWindowProcW(window, message, wide, narrow);
}

TEST(ServicesTest, ThePumpComesToAnEndAndLeavesQuitToTheHost) {
    const HWND window = CreateWindowW(L"STATIC", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
    SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(NeverDone));
    PostMessageW(window, WM_APP, 0, 0);
    Win32MessagePump pump;
    pump.ProcessPending();
    DestroyWindow(window);
    PostQuitMessage(7);
    pump.ProcessPending();
    MSG message{};
    ASSERT_EQ(0, GetMessageW(&message, nullptr, 0, 0));
    EXPECT_EQ(7U, message.wParam);
}

}  // namespace
}  // namespace kaz
