#include "ui/main/ReminderClock.h"

#include "FormTest.h"

namespace kaz {
namespace {

constexpr int kInterval = 30000;

class ReminderClockTest : public FormTest {
protected:
    clsEvent& AddAlarm(const std::string& description, int hour, int minute) {
        clsEvent& event = Add(*app.events, description, 0);
        return event = WithAlarm(event, hour, minute);
    }
};

TEST_F(ReminderClockTest, NothingIsRefilledOrSavedWhileNothingHappens) {
    Add(*app.events, "Dentist", 3);
    OpenMainAndTick();
    const int written = machine.files.written;
    machine.locale.data = FakeLocale::German();  // a list that is filled now has other names of days
    Tick();
    Tick();
    EXPECT_EQ(written, machine.files.written);
    // The same day of another month is no new day.
    machine.clock.Set(2023, 4, 15, 9);
    Tick();
    EXPECT_EQ("Sat", Column(kDayColumn));
}

TEST_F(ReminderClockTest, TheFirstBringsTheReminderWhichSleepsAndIsClosed) {
    Add(*app.events, "Dentist", 0);
    Add(*app.events, "Rent", 0);
    OpenMain();
    EXPECT_EQ(nullptr, stage->Find(IDD_REMINDER));
    stage->Wait(100);
    ASSERT_TRUE(TurnTo(IDD_REMINDER));
    EXPECT_EQ("TODAY!", Text(0));
    EXPECT_EQ("TODAY!", Text(IDC_lblHeading));
    EXPECT_THAT(window->Items(IDC_lstReminders), ElementsAre("Rent", "Dentist"));
    EXPECT_FALSE(window->IsVisible());
    stage->Tick(*window, IDT_Timer1);
    EXPECT_TRUE(window->IsVisible());
    Type(IDC_txtSleep, "5");
    Click(IDC_cmdRemindMe);
    EXPECT_FALSE(window->IsVisible());
    window->Show(Activation::KeepFocus);
    Click(IDC_cmdContinue);
    main->Unload();
    EXPECT_EQ(nullptr, stage->Find(IDD_REMINDER));
}

TEST_F(ReminderClockTest, FilesThatCouldNotBeOpenedStopNeitherItNorTheTimer) {
    if (!fakes) GTEST_SKIP() << "a real window does not tell of its timers";
    OpenMainAndTick();
    app.events.reset();
    app.expired.reset();
    machine.clock.AdvanceDays(1);
    Tick();
    EXPECT_EQ(kInterval, Fake().Interval(IDT_TimerRefresh));
    EXPECT_EQ("", Column());
}

TEST_F(ReminderClockTest, MessagesInTheMiddleOfOneCannotStartASecondOne) {
    if (!fakes) GTEST_SKIP() << "a real window does not tell of its timers";
    OpenMain();
    machine.pump.waiting = [&] {
        stage->Tell(*window, Raised::Resumed);
        EXPECT_EQ(0, Fake().Interval(IDT_TimerRefresh));
    };
    Tick();
    EXPECT_GT(machine.pump.processed, 0);
    EXPECT_EQ(kInterval, Fake().Interval(IDT_TimerRefresh));
}

TEST_F(ReminderClockTest, TheEndOfTheProgramInTheMiddleOfOneEndsIt) {
    AddAlarm("Call Ann", 9, 0);
    OpenMain();
    machine.pump.waiting = [&] {
        if (const auto leaving = std::exchange(main, nullptr)) leaving->Unload();
    };
    Tick();
    EXPECT_THAT(Reminders("ALARM!"), IsEmpty());
    if (fakes) {  // the form lives until its handler has ended
        EXPECT_EQ(0, Fake().Interval(IDT_TimerRefresh));
    }
    app.openWindows.UnloadAll();
    EXPECT_EQ(nullptr, stage->Find(IDD_MAIN));
}

TEST_F(ReminderClockTest, RingsUnderAnOpenEditorAndLooksAfterASleepOfTheComputer) {
    AddAlarm("Call Ann", 9, 1);
    Add(*app.events, "Exam", 31);
    machine.clock.Set(2023, 3, 15, 9, 0, 59);
    OpenMainAndTick();
    main->ShowWindow();
    InModal(IDD_EVENT, [this] {
        machine.clock.Set(2023, 3, 15, 9, 1, 0);
        stage->Wait(1200);  // by the timer itself
        EXPECT_THAT(Reminders("ALARM!"), ElementsAre("Call Ann"));
        Click(IDC_cmdAbort);
    });
    Click(IDM_EDIT);
    // To the same day of the next month.
    for (const auto moved : {Raised::Resumed, Raised::ClockChanged}) {
        EXPECT_THAT(Reminders("TODAY!"), Not(Contains("Exam")));
        machine.clock.Set(2023, 4, 15, 9);
        stage->Tell(*window, moved);
        stage->Wait(50);
        EXPECT_THAT(Reminders("TODAY!"), Contains("Exam"));
        app.openWindows.UnloadAll();
        main.reset();
        machine.clock.Set(2023, 3, 15, 9);
        OpenMainAndTick();
    }
}

}  // namespace
}  // namespace kaz
