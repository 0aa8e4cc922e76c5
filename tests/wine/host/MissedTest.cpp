#include "RunningHost.h"
#include "fakes/Sample.h"
#include "fakes/TestFolder.h"
#include "platform/win32/Win32Clock.h"
#include "resources/resource.h"

#include <commctrl.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

namespace kaz::test {
namespace {

const DateValue kFriday = DateValue::FromCivil(2027, 3, 5);

// What became of reminders, told with the real program on a clock that goes on without it. The stories on the
// fakes tell many more.
class Missed : public testing::Test {
protected:
    void SetUp() override {
        if (!std::getenv("KAZ_CLOCK")) GTEST_SKIP() << "to be run by tools/lib/with-clock";
        Set(kFriday, 18, 0);
        folder.Write("Kaz.ini", "OWNER,Single\r\nNOAUTOBACKUPS,-1\r\n");
    }
    void TearDown() override {
        if (std::getenv("KAZ_CLOCK")) SetClockAhead(0);
    }

    void Set(DateValue day, int hour, int minute, int second = 0) {
        const DateValue now = Win32Clock().Now();
        ahead_ += (day.Day() - now.Day()) * 86400 + DateValue::FromTime(hour, minute, second).SecondOfDay() -
                  now.SecondOfDay();
        SetClockAhead(ahead_);
    }
    // The clock moves while the program runs, as it does behind a sleep of the computer.
    void Jump(DateValue day, int hour, int minute) {
        Set(day, hour, minute);
        PostMessageW(host->VisibleWindow(L"KAZ"), WM_TIMECHANGE, 0, 0);
    }

    void Start(const std::vector<clsEvent>& events) {
        folder.Write("Events.xml", FileOf(events));
        Start();
    }
    void Start() {
        host = std::make_unique<RunningHost>(L"\"" + folder.Path().wstring() + L"\"");
        EXPECT_TRUE(Eventually([&] { return host->VisibleWindow(L"KAZ") != nullptr; }));
    }
    void Quit() {
        PostMessageW(host->VisibleWindow(L"KAZ"), WM_COMMAND, IDM_QUIT, 0);
        EXPECT_EQ(host->ExitCode(), 0);
    }
    void ExpectShown(const wchar_t* title) const {
        EXPECT_TRUE(Eventually([&] { return host->VisibleWindow(title) != nullptr; }));
    }
    // Long enough for the first tick and for the two seconds before a window appears.
    void ExpectNotShown(const wchar_t* title) const {
        Sleep(4000);
        EXPECT_FALSE(host->VisibleWindow(title));
    }
    void Press(const wchar_t* title, int command) const {
        SendMessageW(host->VisibleWindow(title), WM_COMMAND, static_cast<WPARAM>(command), 0);
        EXPECT_TRUE(Eventually([&] { return !host->VisibleWindow(title); }));
    }
    void AnswerAll() const {
        SendMessageW(host->VisibleWindow(L"MISSED"), WM_COMMAND, IDC_cmdMissedAll, 0);
        Press(L"MISSED", IDC_cmdMissedDone);
    }
    // Of each line its event and its note.
    void ExpectMissed(const std::vector<std::string>& expected) const {
        std::vector<std::string> lines;
        EXPECT_TRUE(Eventually([&] { return (lines = Missing()) == expected; }))
            << testing::PrintToString(lines);
    }

    TestFolder folder;
    std::unique_ptr<RunningHost> host;

private:
    std::vector<std::string> Missing() const {
        std::vector<std::string> lines;
        const HWND window = host->VisibleWindow(L"MISSED");
        const HWND list = GetDlgItem(window, IDC_lstMissed);
        const auto count = window ? static_cast<int>(SendMessageW(list, LVM_GETITEMCOUNT, 0, 0)) : 0;
        for (int row = 0; row < count; ++row)
            lines.push_back(host->CellText(list, row, 2) + "|" + host->CellText(list, row, 4));
        return lines;
    }

    int ahead_ = 0;
};

TEST_F(Missed, OffFromFridayToMondayEachOnceAndNeverAgain) {
    Start({WithAlarm(OneOff("1", "Chemist", kFriday), 20, 0), OneOff("2", "Dentist", kFriday.PlusDays(1)),
           Daily("3", "Pills", kFriday)});
    ExpectShown(L"TODAY!");
    Press(L"TODAY!", IDC_cmdContinue);
    Quit();
    Set(kFriday.PlusDays(3), 8, 0);
    Start();
    ExpectMissed({"Pills|2 times", "Dentist|", "Chemist|"});
    AnswerAll();
    Quit();
    Start();
    ExpectNotShown(L"MISSED");
}

TEST_F(Missed, KilledWithAnAlarmOnTheScreen) {
    Set(kFriday, 19, 59, 55);
    Start({WithAlarm(OneOff("1", "Chemist", kFriday), 20, 0)});
    ExpectShown(L"ALARM!");
    host.reset();
    Set(kFriday, 20, 10);
    Start();
    ExpectMissed({"Chemist|"});
}

TEST_F(Missed, AsleepOverTheProgramsEnd) {
    Set(kFriday, 19, 59, 55);
    Start({WithAlarm(OneOff("1", "Chemist", kFriday), 20, 0)});
    ExpectShown(L"ALARM!");
    const HWND alarm = host->VisibleWindow(L"ALARM!");
    SendMessageW(alarm, WM_COMMAND, IDM_AGAIN_60, 0);
    EXPECT_TRUE(Eventually([&] { return !host->VisibleWindow(L"ALARM!"); }));
    Quit();
    Set(kFriday, 20, 30);
    Start();
    ExpectNotShown(L"ALARM!");
    EXPECT_FALSE(host->VisibleWindow(L"MISSED"));
    Quit();
    Set(kFriday, 21, 5);
    Start();
    ExpectShown(L"ALARM!");
}

TEST_F(Missed, TheComputerAsleepForAMonth) {
    Start({Daily("1", "Pills", kFriday, 7), WithAlarm(OneOff("2", "Chemist", kFriday.PlusDays(2)), 20, 0)});
    ExpectShown(L"TODAY!");
    Press(L"TODAY!", IDC_cmdContinue);
    Jump(kFriday.PlusDays(31), 8, 0);
    ExpectMissed({"Pills|4 times", "Chemist|"});
}

TEST_F(Missed, AYearAheadAndBackTellsNothingTwice) {
    Start({WithAlarm(OneOff("1", "Chemist", kFriday), 18, 1), OneOff("2", "Dentist", kFriday.PlusDays(1))});
    ExpectShown(L"TODAY!");
    Press(L"TODAY!", IDC_cmdContinue);
    Jump(kFriday.PlusDays(365), 18, 0);
    ExpectMissed({"Dentist|", "Chemist|"});
    Jump(kFriday, 18, 2);
    ExpectMissed({"Chemist|"});
    AnswerAll();
    Jump(kFriday.PlusDays(1), 9, 0);
    ExpectNotShown(L"MISSED");
    EXPECT_TRUE(host->VisibleWindow(L"TODAY!"));
}

}  // namespace
}  // namespace kaz::test
