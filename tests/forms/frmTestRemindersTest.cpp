#include "FormTest.h"

namespace kaz {
namespace {

class frmTestRemindersTest : public FormTest {};

TEST_F(frmTestRemindersTest, SaysOfEachPartWhetherItWorksAndLeavesNothingBehind) {
    Changing(*app.events) = {Of("Smith", WithAlarm(OneOff("1", "Tea", kToday), 20, 0))};
    ASSERT_TRUE(app.events->SaveDB());
    OpenMainAndTick();
    Click(IDM_BACKUP);
    Told();
    constexpr FileTime kDay = 864'000'000'000;
    FileTime& made = machine.files.At("C:\\KAZ\\Autobackups\\Wed Manual.zip").time;
    made = (kToday.Day() + FileTime{109205}) * kDay;  // counted from 1601
    const auto files = machine.files.FilesIn("C:\\KAZ");
    const int shown = app.reminderWindows.TimesShown();
    const struct {
        std::function<void()> before;
        const char* found;
        const char* result;
    } cases[] = {
        {[] {}, "OK - Sound: you should hear C:\\KAZ\\alarm.wav on Speakers now.", "Your reminders work."},
        {[] {}, "OK - Windows: ", "Your reminders work."},
        {[] {}, "OK - Data folder: C:\\KAZ takes what is written there.", "Your reminders work."},
        {[&] { machine.clock.aheadOfUtc = -60; },
         "Backup: of 3/14/2023, with 1 event, in C:\\KAZ\\Autobackups\\Wed Manual.zip.",
         "Your reminders work."},
        {[] {}, "OK - Next alarm: Wed 03/15/2023 at 20:00, \"Tea\".", "Your reminders work."},
        {[&] { made -= 30 * kDay; }, "That is 31 days ago.",
         "Something is wrong: see what begins with NOT OK."},
        {[&] { made += 30 * kDay, app.settings.StoreSetting("NoSounds", true); }, "NOTE - Sound: off",
         "Your reminders work."},
        {[&] {
             app.settings.StoreSetting("NoSounds", false);
             machine.sound.busy = true;
         },
         "NOT OK - Sound: C:\\KAZ\\alarm.wav does not play on Speakers.",
         "Something is wrong: see what begins with NOT OK."},
        {[&] { machine.sound.devices = 0; }, "NOT OK - Sound: this computer has no sound device", nullptr},
        {[&] { machine.files.faults.FailAt(1, ErrorNumber::DiskFull, FaultInjector::Lasts::FromThenOn); },
         "NOT OK - Data folder: C:\\KAZ cannot be written: ", nullptr},
    };
    for (const auto& each : cases) {
        each.before();
        stage->Click(*stage->Find(IDD_MAIN), IDM_TESTREMINDERS);
        ASSERT_TRUE(TurnTo(IDD_TESTREMINDERS));
        EXPECT_THAT(Text(IDC_txtTestFindings), HasSubstr(each.found));
        if (each.result) {
            EXPECT_EQ(each.result, Text(IDC_lblTestResult)) << Text(IDC_txtTestFindings);
        }
    }
    machine.files.faults.FailAt(0);
    for (const char* caption : {"COMING UP (test)", "TODAY! (test)", "ALARM! (test)"})
        EXPECT_THAT(Reminders(caption), ElementsAre(StartsWith("TEST - ")));
    ASSERT_EQ(1U, stage->All(IDD_MISSED).size());
    stage->Click(*stage->Find(IDD_MISSED), IDC_cmdMissedDone);
    EXPECT_THAT(app.sideFile.All(), IsEmpty());
    EXPECT_THAT(Reminders("TODAY!"), ElementsAre("Tea"));
    Click(IDC_cmdCloseTest);
    stage->Wait(50);
    EXPECT_EQ(nullptr, Reminder("ALARM! (test)"));
    EXPECT_THAT(stage->All(IDD_MISSED), IsEmpty());
    EXPECT_THAT(Reminders("TODAY!"), ElementsAre("Tea"));
    EXPECT_EQ(shown, app.reminderWindows.TimesShown());
    EXPECT_EQ(files, machine.files.FilesIn("C:\\KAZ"));
}

}  // namespace
}  // namespace kaz
