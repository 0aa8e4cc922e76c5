#include "RunningHost.h"
#include "fakes/Sample.h"
#include "fakes/TestFolder.h"
#include "platform/win32/Win32Clock.h"
#include "resources/resource.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <optional>
#include <string>
#include <vector>

namespace kaz::test {

namespace {

constexpr wchar_t kToday[] = L"TODAY!";
constexpr wchar_t kAlarm[] = L"ALARM!";

// The real program, and a clock that is moved under it. The stories on the fakes tell more.
class Clock : public testing::Test {
protected:
    void SetUp() override {
        if (!std::getenv("KAZ_CLOCK")) GTEST_SKIP() << "to be run by tools/lib/with-clock";
        folder.Write("Kaz.ini", "OWNER,Single\r\nNOAUTOBACKUPS,-1\r\n");
        day = Win32Clock().Today();
    }
    void TearDown() override {
        if (std::getenv("KAZ_CLOCK")) Put(0);
    }

    // So many days after today, at that time.
    void SetClock(int days, int hour, int minute, int second) {
        const DateValue now = Win32Clock().Now();
        const auto seconds = [](DateValue time) {
            return std::int64_t{time.Day()} * DateValue::kSecondsPerDay + time.SecondOfDay();
        };
        const DateValue time = DateValue::FromTime(hour, minute, second);
        Put(ahead + seconds(DateValue(day.Day() + days, time.SecondOfDay())) - seconds(now));
    }
    // The file is looked at when more than a second has passed, in whole seconds.
    void Put(std::int64_t seconds) {
        ahead = seconds;
        std::ofstream(std::getenv("KAZ_CLOCK")) << (seconds < 0 ? "" : "+") << seconds << "\n";
        Sleep(2100);
    }
    void Start(const std::vector<clsEvent>& events) {
        folder.Write("Events.xml", FileOf(events));
        host.emplace(L"\"" + folder.Path().wstring() + L"\"");
        EXPECT_TRUE(Eventually([&] { return Shows(L"KAZ"); }));
    }
    bool Shows(const wchar_t* title) const { return host->VisibleWindow(title) != nullptr; }
    // The lines of a reminder window, joined by "|"; none when it is not there.
    std::string Lines(const wchar_t* title) const {
        const HWND list = GetDlgItem(host->VisibleWindow(title), IDC_lstReminders);
        std::string lines;
        for (LRESULT i = 0; i < SendMessageW(list, LB_GETCOUNT, 0, 0); ++i) {
            wchar_t line[200] = L"";
            SendMessageW(list, LB_GETTEXT, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(line));
            lines.append(i ? "|" : "").append(std::filesystem::path(line).string());
        }
        return lines;
    }
    void ExpectSoon(const wchar_t* title, const char* lines) {
        EXPECT_TRUE(Eventually([&] { return Lines(title) == lines; })) << Lines(title) << " for " << lines;
    }
    // As a click on the button does.
    void Press(const wchar_t* title, int command) const {
        PostMessageW(host->VisibleWindow(title), WM_COMMAND, static_cast<WPARAM>(command), 0);
        EXPECT_TRUE(Eventually([&] { return !Shows(title); }));
    }
    void Tell(UINT message, WPARAM what) const {
        PostMessageW(host->VisibleWindow(L"KAZ"), message, what, 0);
    }

    TestFolder folder;
    DateValue day;
    std::int64_t ahead = 0;
    std::optional<RunningHost> host;
};

TEST_F(Clock, AStartBehindExpiredEventsAndAnAlarmInItsFirstSeconds) {
    SetClock(0, 9, 1, 50);
    const DateValue before = day.PlusDays(-1);
    Start({OneOff("1", "A", before), OneOff("2", "B", before), OneOff("3", "C", before),
           WithAlarm(Daily("4", "Pills", before), 9, 2)});
    ExpectSoon(kToday, "Pills");
    ExpectSoon(kAlarm, "Pills");
    const DateValue rung = Win32Clock().Now();
    EXPECT_EQ(rung.MinuteOfDay(), 9 * 60 + 2);
    EXPECT_LE(rung.SecondOfDay() % 60, 3);
    // What is closed stays closed with the ticks that follow in its minute.
    Press(kAlarm, IDC_cmdContinue);
    Tell(WM_TIMECHANGE, 0);
    Sleep(2000);
    EXPECT_FALSE(Shows(kAlarm));
}

TEST_F(Clock, AnEditorOpenOverMidnightHoldsNothingBack) {
    SetClock(0, 23, 59, 50);
    Start({WithAlarm(Daily("1", "Pills", day), 0, 0), OneOff("2", "Tea", day.PlusDays(1))});
    ExpectSoon(kToday, "Pills");
    Tell(WM_COMMAND, IDM_EDIT);
    EXPECT_TRUE(Eventually([&] { return Shows(L"KAZ - Add/Edit event"); }));
    ExpectSoon(kAlarm, "Pills");
    ExpectSoon(kToday, "Tea|Pills");
    EXPECT_TRUE(Shows(L"KAZ - Add/Edit event"));
}

TEST_F(Clock, ADayAfterASleepOfTheReminderItAppearsAnewAndAMonthAsleepIsSeen) {
    SetClock(0, 9, 0, 0);
    Start({Daily("1", "Pills", day)});
    ExpectSoon(kToday, "Pills");
    Press(kToday, IDC_cmdRemindMe);
    // The computer sleeps, and the reminder's ten minutes are over with it.
    SetClock(0, 11, 0, 0);
    EXPECT_TRUE(Eventually([&] { return Shows(kToday); }));
    Press(kToday, IDC_cmdRemindMe);
    SetClock(1, 0, 5, 0);
    Tell(WM_POWERBROADCAST, PBT_APMRESUMEAUTOMATIC);
    EXPECT_TRUE(Eventually([&] { return Shows(kToday); }));
    Press(kToday, IDC_cmdContinue);
    // Asleep for a month.
    const CivilDate civil = day.PlusDays(1).Civil();
    SetClock(DateValue::FromCivil(civil.year, civil.month + 1, civil.day).Day() - day.Day(), 9, 0, 0);
    Tell(WM_POWERBROADCAST, PBT_APMRESUMEAUTOMATIC);
    ExpectSoon(kToday, "Pills");
}

}  // namespace
}  // namespace kaz::test
