#include "resources/resource.h"
#include "unit/reminders/ReminderDesk.h"

#include <gmock/gmock.h>

namespace kaz {
namespace {

using ::testing::ElementsAre;

constexpr const char* kAlarm = "ALARM!";

TEST(DisplayAlarms, RingsInItsMinuteOnceAndStaysUntilTheUserClosesIt) {
    ReminderDesk desk;
    desk.AddAlarm("Dentist", "09:30");
    desk.AddAlarm("Later", "09:31");
    desk.events.SaveDB();  // an alarm time is still a plain time after its way through the file
    desk.events.LoadDB(desk.events.DBFilename());
    desk.Alarms("09:29:59");
    EXPECT_EQ(desk.Window(kAlarm), nullptr);
    desk.Alarms("09:30:00");
    FakeWindow* window = desk.Window(kAlarm);
    ASSERT_NE(window, nullptr);
    EXPECT_TRUE(window->topMost);
    desk.Alarms("09:30:59");
    EXPECT_THAT(desk.List(kAlarm), ElementsAre("Dentist"));
    desk.Alarms("09:31:00");
    desk.Alarms("09:31:30");
    EXPECT_THAT(desk.List(kAlarm), ElementsAre("Later", "Dentist"));
    desk.Alarms("09:40:00");
    EXPECT_TRUE(window->IsVisible());
    EXPECT_THAT(desk.List(kAlarm), ElementsAre("Later", "Dentist"));
    EXPECT_EQ(desk.machine.windows.made, 1);
}

TEST(DisplayAlarms, OnlyAPlainTimeOfTodayRings) {
    ReminderDesk desk;
    desk.AddAlarm("Tomorrow", "09:30").DueDate(desk.machine.clock.Today().PlusDays(1));
    desk.AddAlarm("Off", "09:30").AlarmSet(false);
    desk.AddAlarm("With a date", "09:30").AlarmTime(desk.machine.clock.Today().PlusMinutes(570));
    desk.AddAlarm("With seconds", "09:30:05");
    desk.AddAlarm("Deleted", "09:30").Deleted = true;
    desk.Alarms("09:30:05");
    EXPECT_EQ(desk.Window(kAlarm), nullptr);
}

TEST(DisplayAlarms, TheSharedDatabaseAddsToTheSameWindow) {
    ReminderDesk desk;
    desk.AddAlarm("Mine", "09:30");
    clsEvent& theirs = desk.AddAlarm("Theirs", "09:30", &desk.shared);
    theirs.IDCode = desk.events.AllEvents().front().IDCode;
    for (const char* time : {"09:30:00", "09:30:30"}) {
        desk.Alarms(time);
        desk.Alarms(time, &desk.shared);
        EXPECT_THAT(desk.List(kAlarm), ElementsAre("Theirs", "Mine"));
    }
}

TEST(DisplayAlarms, ASecondTickLetsAWindowSleepAndANewAlarmWakesIt) {
    ReminderDesk desk;
    desk.machine.files.Put("C:\\KAZ\\gong.wav", SampleWave());
    desk.AddAlarm("Dentist", "09:30");
    clsEvent& bus = desk.AddAlarm("Bus", "09:32");
    bus.PlayWav = true;
    bus.WavFile = "C:\\KAZ\\gong.wav";
    desk.Alarms("09:30:00");
    FakeWindow* window = desk.Window(kAlarm);
    window->Type(IDC_txtSleep, "10");
    window->Click(IDC_cmdRemindMe);
    desk.Alarms("09:30:30");
    EXPECT_FALSE(window->IsVisible());
    desk.Alarms("09:32:00");
    EXPECT_TRUE(window->IsVisible());
    desk.machine.windows.Advance(2000);
    EXPECT_EQ(desk.machine.sound.calls.back().file, "C:\\KAZ\\gong.wav");
    EXPECT_EQ(window->Interval(IDT_Timer1), 30000);
}

TEST(DisplayAlarms, AFileIsRunOnceADayAndShowsNoWindow) {
    ReminderDesk desk;
    desk.machine.files.Put("C:\\tools\\backup.cmd", "");
    clsEvent& event = desk.AddAlarm("Backup", "09:30");
    event.ExecFile = true;
    event.Filename = "  C:\\tools\\backup.cmd ";
    clsEvent& missing = desk.AddAlarm("Missing", "09:30");
    missing.ExecFile = true;
    missing.Filename = " C:\\gone.exe";
    desk.Alarms("09:30:00");
    desk.Alarms("09:30:30");
    EXPECT_THAT(desk.machine.shell.opened, ElementsAre("C:\\tools\\backup.cmd"));
    EXPECT_THAT(desk.TakeLog(), ElementsAre("Can't run C:\\gone.exe - file not found"));
    EXPECT_EQ(desk.machine.windows.made, 0);

    desk.machine.clock.AdvanceDays(1);
    desk.events.AllEvents().front().DueDate(desk.machine.clock.Today());
    desk.machine.shell.refusal = ErrorNumber::PermissionDenied;
    desk.AddAlarm("Still shown", "09:30");
    desk.Alarms("09:30:00");
    EXPECT_THAT(desk.TakeLog(), ElementsAre("Error 70 (Permission denied) in DisplayAlarms of clsReminder"));
    EXPECT_THAT(desk.List(kAlarm), ElementsAre("Still shown"));
}

}  // namespace
}  // namespace kaz
