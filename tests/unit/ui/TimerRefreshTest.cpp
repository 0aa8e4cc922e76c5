#include "MainWindowFixture.h"

#include <gmock/gmock.h>

namespace kaz {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

constexpr int kInterval = 30000;

class TimerRefreshTest : public MainWindowFixture {
protected:
    void Tick() { machine.windows.Advance(kInterval); }
    clsEvent& AddAlarm(clsDbXml& database, const std::string& description, int hour, int minute) {
        clsEvent& event = Add(database, description, 0);
        return event = WithAlarm(event, hour, minute);
    }
};

TEST_F(TimerRefreshTest, NothingIsRefilledOrSavedWhileNothingHappens) {
    Add(*app.events, "Dentist", 3);
    OpenAndTick();
    const int refreshes = List().refreshes;
    const int written = machine.files.written;
    Tick();
    Tick();
    EXPECT_EQ(refreshes, List().refreshes);
    EXPECT_EQ(written, machine.files.written);

    // The same day of another month is no new day.
    machine.clock.Set(2023, 4, 15, 9);
    Tick();
    EXPECT_EQ(refreshes, List().refreshes);
}

TEST_F(TimerRefreshTest, ALateTickMakesUpForTheMinutesThatNoneHasSeen) {
    const auto addFile = [&](const std::string& file, int hour, int minute) {
        machine.files.Put(file, "");
        clsEvent& event = AddAlarm(*app.events, file, hour, minute);
        event.ExecFile = true;
        event.Filename = file;
    };
    AddAlarm(*app.events, "Before the start", 8, 59);
    AddAlarm(*app.events, "Call Ann", 9, 1);
    AddAlarm(*app.events, "Bus", 11, 0);
    AddAlarm(*app.events, "Last train", 23, 59);
    addFile("C:\\night.cmd", 9, 59);
    addFile("C:\\lunch.cmd", 10, 0);
    OpenAndTick();
    machine.clock.Set(2023, 3, 15, 11, 0, 20);
    Tick();
    EXPECT_THAT(Reminders("ALARM!"), ElementsAre("Bus", "Call Ann"));
    EXPECT_THAT(machine.shell.opened, ElementsAre("C:\\lunch.cmd"));

    // Neither the ticks that follow nor a clock that is set back bring anything up again.
    machine.windows.WithCaption("ALARM!")->CloseBox();
    machine.clock.Set(2023, 3, 15, 11, 1);
    Tick();
    machine.clock.Set(2023, 3, 15, 9, 30);
    Tick();
    machine.clock.Set(2023, 3, 15, 23, 58, 50);
    Tick();
    EXPECT_EQ(nullptr, machine.windows.WithCaption("ALARM!"));
    machine.clock.Set(2023, 3, 16, 0, 0, 30);
    Tick();
    EXPECT_THAT(Reminders("ALARM!"), ElementsAre("Last train"));
    EXPECT_THAT(machine.shell.opened, ElementsAre("C:\\lunch.cmd"));
}

TEST_F(TimerRefreshTest, WhatAnotherProgramSavedIsReadBeforeAnythingIsWritten) {
    Add(*app.events, "mine", 1);
    ASSERT_TRUE(app.events->SaveDB());
    OpenAndTick();

    clsDbXml other(app.Storage());
    other.LoadDB("C:\\KAZ\\Events.xml");
    Add(other, "theirs", 2);
    ASSERT_TRUE(other.SaveDB());
    Tick();
    EXPECT_EQ("mine|theirs", Column(kEventColumn));

    Add(other, "theirs at midnight", 2);
    ASSERT_TRUE(other.SaveDB());
    machine.clock.AdvanceDays(1);
    Tick();
    EXPECT_EQ("mine|theirs|theirs at midnight", Column(kEventColumn));
    EXPECT_THAT(machine.files.Text("C:\\KAZ\\Events.xml"), HasSubstr("midnight"));
}

TEST_F(TimerRefreshTest, AFileThatCannotBeReadKeepsTheListAndIsTriedAgain) {
    Add(*app.events, "mine", 1);
    ASSERT_TRUE(app.events->SaveDB());
    OpenAndTick();
    machine.files.Put("C:\\KAZ\\Events.xml", machine.files.Text("C:\\KAZ\\Events.xml"));
    machine.files.At("C:\\KAZ\\Events.xml").locked = true;
    const int refreshes = List().refreshes;
    Tick();
    EXPECT_EQ(refreshes, List().refreshes);
    machine.files.At("C:\\KAZ\\Events.xml").locked = false;
    Tick();
    EXPECT_EQ("mine", Column(kEventColumn));
    EXPECT_FALSE(app.events->DatabaseChanged());
}

TEST_F(TimerRefreshTest, AFailingStepStopsNeitherTheOthersNorTheTimer) {
    AddAlarm(*app.events, "Call Ann", 9, 0);
    Open();
    machine.windows.failures = 1;  // the window for today's events
    machine.windows.Advance(1);
    EXPECT_THAT(Reminders("ALARM!"), ElementsAre("Call Ann"));
    EXPECT_EQ(kInterval, window->Interval(IDT_TimerRefresh));

    app.events.reset();
    app.expired.reset();
    machine.clock.AdvanceDays(1);
    Tick();
    EXPECT_EQ(kInterval, window->Interval(IDT_TimerRefresh));
    EXPECT_EQ(0, List().RowCount());
}

TEST_F(TimerRefreshTest, MessagesInTheMiddleOfATickCannotStartASecondOne) {
    Open();
    machine.pump.waiting = [&] {
        window->Raise(0, Raised::Resumed);
        EXPECT_EQ(0, window->Interval(IDT_TimerRefresh));
    };
    machine.windows.Advance(1);
    EXPECT_GT(machine.pump.processed, 0);
    EXPECT_EQ(kInterval, window->Interval(IDT_TimerRefresh));
}

TEST_F(TimerRefreshTest, TheEndOfTheProgramInTheMiddleOfATickEndsTheTick) {
    AddAlarm(*app.events, "Call Ann", 9, 0);
    Open();
    machine.pump.waiting = [&] {
        if (const auto leaving = std::exchange(main, nullptr)) leaving->Unload();
    };
    machine.windows.Advance(1);
    EXPECT_EQ(nullptr, machine.windows.WithCaption("ALARM!"));
    EXPECT_EQ(0, window->Interval(IDT_TimerRefresh));  // the form lives until its handler has ended
    app.openWindows.UnloadAll();
    EXPECT_EQ(nullptr, machine.windows.Newest(IDD_MAIN));
}

}  // namespace
}  // namespace kaz
