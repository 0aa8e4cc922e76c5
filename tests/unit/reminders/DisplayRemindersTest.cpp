#include "resources/resource.h"
#include "unit/reminders/ReminderDesk.h"

#include <gmock/gmock.h>

#include <algorithm>

namespace kaz {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr const char* kComingUp = "COMING UP";
constexpr const char* kToday = "TODAY!";

void Warn(clsEvent& event, std::int16_t days) { event.DaysWarning(days); }

TEST(DisplayReminders, ListsWhatComesUpTheNearestFirst) {
    ReminderDesk desk;
    Warn(desk.Add("A", 5), 5);
    Warn(desk.Add("B", 2), 30);
    Warn(desk.Add("C", 2), 2);
    Warn(desk.Add("Tomorrow", 1), 1);
    Warn(desk.Add("Too far", 3), 2);
    Warn(desk.Add("Never before its day", 1), 0);
    Warn(desk.Add("Deleted", 1), 1);
    desk.events.AllEvents().back().Deleted = true;
    desk.Engine().DisplayReminders();
    EXPECT_THAT(desk.List(kComingUp),
                ElementsAre("In 1 day: Tomorrow", "In 2 days: C", "In 2 days: B", "In 5 days: A"));
    EXPECT_THAT(desk.TakeLog(), ElementsAre("Showing upcoming reminders"));
    EXPECT_EQ(desk.Window(kToday), nullptr);
    EXPECT_EQ(desk.machine.pump.processed, 1);

    desk.machine.windows.Advance(2000);
    EXPECT_THAT(desk.machine.sound.calls, IsEmpty());
}

TEST(DisplayReminders, ListsTodaysWithTheSoundOfTheLastThatHasOne) {
    ReminderDesk desk;
    desk.machine.files.Put("C:\\KAZ\\gong.wav", SampleWave());
    desk.Add("Plain", 0).WavFile = "C:\\KAZ\\other.wav";
    clsEvent& loud = desk.Add("Loud", 0);
    loud.PlayWav = true;
    loud.WavFile = "C:\\KAZ\\gong.wav";
    desk.Add("Runs a file", 0).ExecFile = true;
    desk.Engine().DisplayReminders();
    EXPECT_THAT(desk.List(kToday), ElementsAre("Loud", "Plain"));
    EXPECT_THAT(desk.TakeLog(), ElementsAre("Showing today's reminders"));
    desk.machine.windows.Advance(2000);
    ASSERT_FALSE(desk.machine.sound.calls.empty());
    EXPECT_EQ(desk.machine.sound.calls.back().file, "C:\\KAZ\\gong.wav");
}

TEST(DisplayReminders, ALaterPassRefillsTheWindowAndClosesItWhenNothingIsLeft) {
    ReminderDesk desk;
    Warn(desk.Add("Trip", 2), 5);
    desk.Engine().DisplayReminders();
    FakeWindow* window = desk.Window(kComingUp);
    desk.Engine().DisplayReminders();
    EXPECT_EQ(window->Fills(IDC_lstReminders), 1);  // the same lines are not filled again

    // The new day's lines end a sleep.
    desk.machine.windows.Advance(2000);
    window->Type(IDC_txtSleep, "600");
    window->Click(IDC_cmdRemindMe);
    EXPECT_FALSE(window->IsVisible());
    desk.machine.clock.AdvanceDays(1);
    desk.Engine().DisplayReminders();
    EXPECT_EQ(desk.Window(kComingUp), window);
    EXPECT_THAT(desk.List(kComingUp), ElementsAre("In 1 day: Trip"));
    desk.machine.windows.Advance(2000);
    EXPECT_TRUE(window->IsVisible());

    desk.machine.clock.AdvanceDays(1);
    desk.Engine().DisplayReminders();
    EXPECT_EQ(desk.Window(kComingUp), nullptr);
    EXPECT_THAT(desk.List(kToday), ElementsAre("Trip"));
    EXPECT_EQ(desk.openWindows.Count(), 1U);
}

TEST(DisplayReminders, WhatTheUserHasClosedComesBackWithTheNextDayOrSomethingNew) {
    ReminderDesk desk;
    desk.Add("Tea\r\nwith Ann", 0).Recurring(true);
    const auto isBack = [&] {
        desk.Engine().DisplayReminders();
        desk.machine.windows.Advance(2000);
        const FakeWindow* window = desk.Window(kToday);
        return window && window->IsVisible();
    };
    ASSERT_TRUE(isBack());
    desk.Window(kToday)->Click(IDC_cmdContinue);
    EXPECT_EQ(desk.openWindows.Count(), 0U);
    EXPECT_FALSE(isBack());
    desk.machine.clock.AdvanceDays(1);
    EXPECT_TRUE(isBack());
    desk.Window(kToday)->Click(IDC_cmdContinue);
    desk.Add("Dentist", 0);
    EXPECT_TRUE(isBack());
    EXPECT_THAT(desk.List(kToday), ElementsAre("Dentist", "Tea with Ann"));
}

TEST(DisplayReminders, ManyLinesAreFilledOnceInTheOrderOfOneByOne) {
    ReminderDesk desk;
    std::vector<std::pair<int, std::string>> expected;
    for (int i = 0; i < 1231; ++i) {
        const int days = 2 + i * 7 % 30;
        const std::string name = "Event " + std::to_string(i);
        Warn(desk.Add(name, days), 40);
        const auto place = std::find_if(expected.begin(), expected.end(),
                                        [&](const auto& other) { return other.first >= days; });
        expected.emplace(place, days, "In " + std::to_string(days) + " days: " + name);
    }
    desk.Engine().DisplayReminders();
    EXPECT_EQ(desk.Window(kComingUp)->Fills(IDC_lstReminders), 1);
    const auto lines = desk.List(kComingUp);
    ASSERT_EQ(lines.size(), expected.size());
    for (std::size_t i = 0; i < lines.size(); ++i)
        EXPECT_EQ(lines[i], expected[i].second);
}

TEST(DisplayReminders, AWindowThatCannotBeMadeIsLoggedAndTheOtherIsShown) {
    ReminderDesk desk;
    Warn(desk.Add("Trip", 2), 5);
    desk.Add("Dentist", 0);
    desk.machine.windows.failures = 1;
    desk.Engine().DisplayReminders();
    EXPECT_THAT(desk.List(kToday), ElementsAre("Dentist"));
    EXPECT_THAT(desk.TakeLog(), Contains("Error 51 (Internal error) in DisplayReminders of clsReminder"));
}

TEST(ReminderLines, AreOrderedByTheDaysOrTheLeadingDigits) {
    EXPECT_EQ(ReminderLines::NumberOf("In 12 days: In 3 words"), 12);
    EXPECT_EQ(ReminderLines::NumberOf("Dentist at 3"), 0);
    EXPECT_EQ(ReminderLines::NumberOf("3 eggs"), 3);
    EXPECT_EQ(ReminderLines::NumberOf("in 3 days"), 0);
    EXPECT_EQ(ReminderLines::NumberOf("99999 miles"), 32767);
    EXPECT_EQ(ReminderLines::NumberOf("-1e300"), -32768);
    EXPECT_EQ(ReminderLines::NumberOf(""), 0);
}

}  // namespace
}  // namespace kaz
