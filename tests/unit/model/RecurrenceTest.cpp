#include "model/Recurrence.h"

#include "base/RuntimeError.h"
#include "fakes/RecordingErrors.h"
#include "fakes/TestData.h"
#include "model/clsEvent.h"
#include "unit/model/SlowRecurrence.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <map>
#include <random>
#include <sstream>
#include <string>
#include <vector>

namespace kaz {
namespace {

clsEvent EventOf(const RecurrenceRule& rule) {
    clsEvent event;
    event.RecurrenceType(rule.type);
    event.WeekDays(rule.weekDays);
    event.DayOfMonth(rule.dayOfMonth);
    event.MonthNumber(rule.monthNumber);
    event.Period(rule.period);
    event.StartDate(rule.startDate);
    event.Daynumber(rule.dayNumber);
    event.DayOfWeek(rule.dayOfWeek);
    return event;
}

DateValue DateOf(const std::string& text) {
    int year = 0, month = 0, day = 0, hour = 0, minute = 0;
    EXPECT_GE(std::sscanf(text.c_str(), "%d-%d-%d %d:%d", &year, &month, &day, &hour, &minute), 3) << text;
    return DateValue::FromCivil(year, month, day).PlusMinutes(hour * 60 + minute);
}

// "3 StartDate=2024-01-01 Period=2"
RecurrenceRule RuleOf(const std::string& text) {
    static const std::map<std::string, std::int16_t RecurrenceRule::*> kFields{
        {"WeekDays", &RecurrenceRule::weekDays},       {"DayOfMonth", &RecurrenceRule::dayOfMonth},
        {"MonthNumber", &RecurrenceRule::monthNumber}, {"Period", &RecurrenceRule::period},
        {"Daynumber", &RecurrenceRule::dayNumber},     {"DayOfWeek", &RecurrenceRule::dayOfWeek}};
    RecurrenceRule rule;
    std::istringstream fields(text);
    fields >> rule.type;
    for (std::string name, value; std::getline(fields >> std::ws, name, '=') && fields >> value;)
        if (name == "StartDate")
            rule.startDate = DateOf(value);
        else
            rule.*kFields.at(name) = static_cast<std::int16_t>(std::stoi(value));
    return rule;
}

TEST(Recurrence, AnEventFollowsTheTableAndTellsOneErrorAtMost) {
    const DateValue before = DateValue::FromCivil(2001, 2, 3);
    for (const auto& row : GoldenTable("recurrence.txt")) {
        SCOPED_TRACE(row.at(0) + " | " + row.at(1));
        const RecurrenceRule rule = RuleOf(row[0]);
        const DateValue reference = DateOf(row[1]);
        const std::string &today = row.at(2), &due = row.at(3), &start = row.at(4);
        clsEvent event = EventOf(rule);
        event.DueDate(before);
        event.MailSent = true;
        RecordingErrors errors;
        event.CalcNextAfterDate(reference, today == "-" ? reference.DateOnly() : DateOf(today), errors);

        const bool stays = due == "unchanged" || due.starts_with("error ");
        EXPECT_EQ(event.DueDate(), stays ? before : DateOf(due));
        EXPECT_EQ(event.StartDate(), stays || start.empty() ? rule.startDate : DateOf(start));
        EXPECT_FALSE(event.MailSent);
        std::vector<std::string> told;
        if (due.starts_with("error ")) told.push_back(due.substr(6) + " CalcDueDate clsEvent");
        EXPECT_EQ(errors.told, told);
    }
}

// Rules that name a day, and dates around them; now and then far apart or at the ends of the calendar.
class RandomRules {
public:
    RecurrenceRule Rule() {
        RecurrenceRule rule;
        rule.type = Between(0, 5);
        rule.weekDays = Between16(2, 255);
        rule.dayOfMonth = Between16(1, 31);
        rule.monthNumber = rule.type == RecurNthWeekday ? Between16(0, 12) : Between16(1, 13);
        rule.period = Between(0, 9) == 0 ? Between16(1, 5000) : Between16(1, 30);
        rule.dayNumber = Between16(0, 6);
        rule.dayOfWeek = Between16(1, 7);
        rule.startDate = Anchor();
        return rule;
    }
    DateValue Near(DateValue date) {
        const int spread = Between(0, 99) == 0 ? 200 * 365 : 6 * 365;
        const int day = std::clamp(date.Day() + Between(-spread / 6, spread), kFirstDay, kLastDay);
        return DateValue(day, Between(0, 2) == 0 ? Between(0, 86399) : 0);
    }

private:
    int Between(int low, int high) { return std::uniform_int_distribution<int>(low, high)(engine_); }
    std::int16_t Between16(int low, int high) { return static_cast<std::int16_t>(Between(low, high)); }
    DateValue Anchor() {
        switch (Between(0, 19)) {
        case 0: return DateValue(kFirstDay + Between(0, 4000));
        case 1: return DateValue(kLastDay - Between(0, 4000));
        case 2: return DateValue(Between(-1000, 1000));
        default: return DateValue::FromCivil(Between(1990, 2060), Between(1, 12), Between(1, 31));
        }
    }
    std::mt19937 engine_{20240229};
};

TEST(Recurrence, TheQuickWayEndsWhereTheWalkEnds) {
    RandomRules random;
    for (int i = 0; i < 60000 && !HasFailure(); ++i) {
        const RecurrenceRule rule = random.Rule();
        const DateValue reference = random.Near(rule.startDate);
        const DateValue today = i % 3 == 0 ? random.Near(reference).DateOnly() : reference.DateOnly();
        SCOPED_TRACE("case " + std::to_string(i) + ", kind " + std::to_string(rule.type));
        const auto walked = WalkToOccurrence(rule, reference, today);
        try {
            const auto found = FirstOccurrence(rule, reference, today);
            ASSERT_TRUE(walked) << found->dueDate.Day();
            EXPECT_EQ(found->dueDate.Day(), walked->dueDate.Day());
            EXPECT_EQ(found->startDate.Day(), walked->startDate.Day());
            EXPECT_GE(found->dueDate, rule.type == RecurDayOfMonth ? reference : reference.DateOnly());
        } catch (const RuntimeError& error) {
            // The walk knows no 16-bit days; where only they fail, the number says so.
            EXPECT_TRUE(!walked || error.Number() == ErrorNumber::Overflow);
        }
    }
}

TEST(Recurrence, ASecondCalculationChangesNothing) {
    RandomRules random;
    RecordingErrors errors;
    for (int i = 0; i < 20000 && !HasFailure(); ++i) {
        const RecurrenceRule rule = random.Rule();
        const DateValue today = random.Near(rule.startDate).DateOnly();
        clsEvent event = EventOf(rule);
        event.CalcNextDueDate(today, errors);
        clsEvent again = event;
        again.CalcNextDueDate(today, errors);
        SCOPED_TRACE("case " + std::to_string(i) + ", kind " + std::to_string(rule.type));
        EXPECT_EQ(again.DueDate(), event.DueDate());
        EXPECT_EQ(again.StartDate(), event.StartDate());
    }
}

}  // namespace
}  // namespace kaz
