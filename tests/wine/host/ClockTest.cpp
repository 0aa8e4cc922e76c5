#include "RunningHost.h"
#include "fakes/Sample.h"
#include "fakes/TestFolder.h"
#include "platform/win32/Win32Clock.h"
#include "resources/resource.h"

#include <commctrl.h>
#include <gtest/gtest.h>

#include <cstdlib>

namespace kaz::test {

namespace {

// The real program, and a clock that is moved under it. The stories on the fakes tell more.
TEST(Clock, AStartBehindExpiredEventsAndAnAlarmInItsFirstSeconds) {
    if (!std::getenv("KAZ_CLOCK")) GTEST_SKIP() << "to be run by tools/lib/with-clock";
    const TestFolder folder;
    const DateValue before = Win32Clock().Today().PlusDays(-1);
    SetClockAhead(DateValue::FromTime(9, 1, 50).SecondOfDay() - Win32Clock().Now().SecondOfDay());
    folder.Write("Kaz.ini", "OWNER,Single\r\nNOAUTOBACKUPS,-1\r\n");
    folder.Write("Events.xml",
                 FileOf({OneOff("1", "A", before), OneOff("2", "B", before), OneOff("3", "C", before),
                         WithAlarm(Daily("4", "Pills", before), 9, 2)}));
    const RunningHost host(L"\"" + folder.Path().wstring() + L"\"");
    for (const wchar_t* title : {L"KAZ", L"TODAY!", L"ALARM!"})
        EXPECT_TRUE(Eventually([&] { return host.VisibleWindow(title) != nullptr; }));
    const DateValue rung = Win32Clock().Now();
    EXPECT_EQ(rung.MinuteOfDay(), 9 * 60 + 2);
    EXPECT_LE(rung.SecondOfDay() % 60, 3);
    for (const wchar_t* title : {L"TODAY!", L"ALARM!"}) {
        const HWND list = GetDlgItem(host.VisibleWindow(title), IDC_lstReminders);
        EXPECT_EQ(1, SendMessageW(list, LVM_GETITEMCOUNT, 0, 0));
    }
    // What is closed stays closed with the ticks that follow in its minute.
    PostMessageW(host.VisibleWindow(L"ALARM!"), WM_COMMAND, IDC_cmdContinue, 0);
    EXPECT_TRUE(Eventually([&] { return !host.VisibleWindow(L"ALARM!"); }));
    PostMessageW(host.VisibleWindow(L"KAZ"), WM_TIMECHANGE, 0, 0);
    Sleep(2000);
    EXPECT_FALSE(host.VisibleWindow(L"ALARM!"));
    SetClockAhead(0);
}

}  // namespace
}  // namespace kaz::test
