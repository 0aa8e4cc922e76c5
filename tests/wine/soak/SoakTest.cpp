#include "ProcessCounts.h"
#include "core/clsComponent.h"
#include "fakes/RecordingHost.h"
#include "fakes/Sample.h"
#include "fakes/TestFolder.h"
#include "forms/win32/Win32Platform.h"
#include "platform/Clock.h"
#include "resources/resource.h"
#include "ui/FormFactory.h"

#include <windows.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <iostream>

namespace kaz {
namespace {

// The system's time, set forward as far as the test wants.
class ShiftedClock : public Clock {
public:
    DateValue Now() const override { return clock_.Now().PlusMinutes(minutes); }
    double SecondsSinceMidnight() const override { return Now().SecondOfDay(); }
    int minutes = 0;

private:
    Win32Clock clock_;
};

void Pump() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

HWND Main() { return FindWindowW(nullptr, L"KAZ"); }

// Not tooltips and drop-down lists: those belong to the windows.
bool IsDialogBesideMain(HWND window) {
    return window != Main() && GetClassLongPtrW(window, GCW_ATOM) == GetClassLongPtrW(Main(), GCW_ATOM);
}

BOOL CALLBACK CloseIfShown(HWND window, LPARAM) {
    if (IsDialogBesideMain(window) && IsWindowVisible(window)) PostMessageW(window, WM_CLOSE, 0, 0);
    return TRUE;
}
void CloseAllButMain() { EnumThreadWindows(GetCurrentThreadId(), CloseIfShown, 0); }

BOOL CALLBACK CloseBesideMain(HWND window, LPARAM) {
    if (IsDialogBesideMain(window)) PostMessageW(window, WM_CLOSE, 0, 0);
    return TRUE;
}

// Whether a reminder window waits for its first showing, or the pointer stands where the main window makes
// its tooltips, is chance at the moment of counting: the former go, the latter come.
void Settle() {
    SendMessageW(Main(), WM_SETCURSOR, reinterpret_cast<WPARAM>(Main()), MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
    EnumThreadWindows(GetCurrentThreadId(), CloseBesideMain, 0);
    // A form that is closed goes by a timer, once none of its handlers runs.
    for (int i = 0; i < 20; ++i) {
        Pump();
        Sleep(10);
    }
}

// Runs inside the loop of a dialog as well.
void CALLBACK CloseLater(HWND, UINT, UINT_PTR timer, DWORD) {
    KillTimer(nullptr, timer);
    CloseAllButMain();
}

void Command(int command) {
    SetTimer(nullptr, 0, 20, CloseLater);
    SendMessageW(Main(), WM_COMMAND, static_cast<WPARAM>(command), 0);
    Pump();
    CloseAllButMain();
    Pump();
}

// One round of everything that a user, the clock and other users do with the program, over and over.
class SoakOnWindows : public testing::Test {
protected:
    SoakOnWindows() {
        folder_.Write("KAZShared.ini", "Ann\r\nBob\r\n");
        folder_.Write("Kaz.ini", "OWNER,Ann\r\nNETWORKED,-1\r\nNOSOUNDS,-1\r\nDATAPATH," + Folder() +
                                     "\r\nSHAREDDATAPATH," + Folder() + "\r\n");
        const DateValue today = clock_.Today();
        std::vector<clsEvent> events;
        for (int hour = 0; hour < 24; ++hour) {
            clsEvent event = Daily(std::to_string(100001 + hour), "Alarm " + std::to_string(hour), today);
            event.Owner("Ann");
            events.push_back(WithAlarm(event, hour, 0));
        }
        folder_.Write("Events.xml", FileOf(events));
        Platform services = machine_.Services();
        component_ = std::make_unique<clsComponent>(Platform{clock_, services.dialogs, services.files,
                                                             services.locale, services.pump, services.printer,
                                                             services.random, services.shell, services.sound,
                                                             services.system, services.windows, services.zip},
                                                    MakeMainWindow, host_);
        component_->Startup(Folder());
        component_->ShowMain();
        component_->ScanEvents();
        Pump();
    }
    ~SoakOnWindows() override { component_->ShutDown(); }

    std::string Folder() const { return folder_.Path().string(); }

    void Round() {
        clsEvent party = OneOff("000009", "Party " + std::to_string(rounds_), clock_.Today().PlusDays(1));
        party.Owner("Bob");
        party.SharedEvent = true;
        folder_.Write("Shared_Bob.xml", FileOf({party}));
        // A day of 24 rounds, each with the alarm of its hour.
        clock_.minutes += 60 - clock_.Now().SecondOfDay() / 60 % 60;
        SendMessageW(Main(), WM_TIMER, IDT_TimerRefresh, 0);
        Pump();
        CloseAllButMain();
        Pump();
        for (const int command :
             {IDM_ADD, IDM_SETTINGS, IDM_EDITLAYERS, IDM_ABOUT, IDM_MONTHVIEW, IDM_TASKLIST, IDM_REFRESH})
            Command(command);
        component_->HideMain();
        component_->ShowMain();
        Pump();
        folder_.Write("Log_KAZ.txt", "");
        host_.raised.clear();
        ++rounds_;
    }
    void Soak(double seconds, int atLeast) {
        const ULONGLONG end = GetTickCount64() + static_cast<ULONGLONG>(seconds * 1000);
        for (int i = 0; i < atLeast || GetTickCount64() < end; ++i)
            Round();
        Settle();
    }

    TestFolder folder_;
    Win32Platform machine_{GetModuleHandleW(nullptr)};
    ShiftedClock clock_;
    RecordingHost host_;
    std::unique_ptr<clsComponent> component_;
    int rounds_ = 0;
};

// A few rounds in the usual run; tools/soak has them go on for minutes.
TEST_F(SoakOnWindows, EndsWithWhatItBeganWith) {
    const char* minutes = std::getenv("KAZ_SOAK_MINUTES");
    const double seconds = minutes ? 60 * std::atof(minutes) : 0;
    Soak(seconds / 20, 3);
    const ProcessCounts begin = CountNow();
    std::cout << "after " << rounds_ << " rounds: " << begin << std::endl;
    Soak(seconds * 19 / 20, 3);
    const ProcessCounts end = CountNow();
    std::cout << "after " << rounds_ << " rounds: " << end << std::endl;
    EXPECT_EQ(end.windows, begin.windows);
    EXPECT_LE(end.handles, begin.handles + 2);
    EXPECT_LE(end.gdiObjects, begin.gdiObjects + 2);
    EXPECT_LE(end.heapBytes, begin.heapBytes + 32768);
}

}  // namespace
}  // namespace kaz
