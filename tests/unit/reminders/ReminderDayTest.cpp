#include "reminders/ReminderDay.h"

#include "ReminderDesk.h"
#include "reminders/ReminderLines.h"

#include <gmock/gmock.h>

#include <random>

namespace kaz {
namespace {

class ReminderDayTest : public testing::Test, protected ReminderDesk {
protected:
    int Random(int least, int most) { return std::uniform_int_distribution(least, most)(random_); }

    clsEvent RandomEvent(int number) {
        const DateValue today = machine.clock.Today();
        clsEvent event =
            OneOff(std::to_string(number), "Event " + std::to_string(number), today.PlusDays(Random(0, 16)));
        event.Owner("Ann");
        event.Recurring(Random(0, 3) > 0);
        event.RecurrenceType(Random(0, 5));
        event.WeekDays(static_cast<std::int16_t>(2 * Random(1, 127)));
        event.DayOfMonth(static_cast<std::int16_t>(Random(1, 31)));
        event.MonthNumber(static_cast<std::int16_t>(event.RecurrenceType() == RecurDayOfMonth ? 13 : 0));
        event.Period(static_cast<std::int16_t>(Random(1, 5)));
        event.Daynumber(static_cast<std::int16_t>(Random(1, 5)));
        event.DayOfWeek(static_cast<std::int16_t>(Random(1, 7)));
        event.StartDate(today.PlusDays(-Random(0, 60)));
        if (event.Recurring() && Random(0, 3) > 0) event.CalcNextDueDate(today, log);
        event.DaysWarning(static_cast<std::int16_t>(Random(0, 6)));
        event.ExecFile = Random(0, 5) == 0;
        if (Random(0, 1) == 0) return event;
        return WithAlarm(event, Random(0, 1) * Random(0, 23), Random(0, 59),
                         static_cast<std::int16_t>(Random(0, 60)));
    }
    std::vector<std::string> Screen(const char* caption) const {
        const FakeWindow* window = machine.windows.WithCaption(caption);
        return window ? window->Items(IDC_lstReminders) : std::vector<std::string>{};
    }
    static std::vector<std::string> InOrder(const std::vector<ReminderLine>& added) {
        ReminderLines lines;
        lines.Add(added);
        std::vector<std::string> texts;
        for (const ReminderLine& line : lines.All())
            texts.push_back(line.text);
        return texts;
    }

private:
    std::mt19937 random_{17};
};

TEST_F(ReminderDayTest, TheLookAheadSaysWhatTheEngineShowsWhenTheDayHasCome) {
    for (int round = 0; round < 20; ++round) {
        std::vector<clsEvent> drawn;
        for (int number = 0; number < 25; ++number)
            drawn.push_back(RandomEvent(number));
        Changing(events) = drawn;
        const DateValue first = machine.clock.Today();
        const VisibleEvents visible(settings);
        std::vector<std::vector<std::string>> upcoming, todays, alarms;
        for (int day = 0; day < 14; ++day) {
            ReminderDay ahead(visible, first.PlusDays(day));
            ahead.AddReminders(&events);
            ahead.AddAlarms(&events, EventSource::Local);
            upcoming.push_back(InOrder(ahead.UpcomingLines()));
            todays.push_back(InOrder(ahead.TodaysLines()));
            std::vector<std::string> ringing;
            for (const ReminderDay::Alarm& alarm : ahead.Alarms())
                if (!alarm.event->ExecFile) ringing.emplace_back(alarm.event->Desc());
            alarms.push_back(ringing);
        }
        for (std::size_t day = 0; day < 14; ++day) {
            SCOPED_TRACE("round " + std::to_string(round) + ", day " + std::to_string(day));
            machine.clock.now = first.PlusDays(static_cast<int>(day));
            Engine().DisplayReminders();
            EXPECT_EQ(upcoming[day], Screen("COMING UP"));
            EXPECT_EQ(todays[day], Screen("TODAY!"));
            machine.clock.now = machine.clock.now.PlusMinutes(24 * 60 - 1);
            Engine().DisplayAlarms(events, machine.clock.now.PlusDays(-1));
            EXPECT_THAT(Screen("ALARM!"), testing::UnorderedElementsAreArray(alarms[day]));
            windows.Close(ReminderKind::Alarm);
        }
        machine.clock.now = first.PlusDays(20);
    }
}

}  // namespace
}  // namespace kaz
