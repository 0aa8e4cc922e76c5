#include "model/Occurrences.h"

#include "fakes/Sample.h"

#include <gtest/gtest.h>

#include <random>

namespace kaz {
namespace {

const DateValue kBase(45000);

std::vector<int> Days(Occurrences occurrences) {
    std::vector<int> days;
    for (const DateValue day : occurrences)
        days.push_back(day.Day());
    return days;
}

// The days as they are defined: a copy walks from occurrence to occurrence.
std::vector<int> Walked(clsEvent event, DaySpan span) {
    struct Silent : ErrorSink {
        int errors = 0;
        void Report(const ErrorInfo&, std::string_view, std::string_view) noexcept override { ++errors; }
    } silent;
    std::vector<int> days;
    while (event.DueDate() <= span.last) {
        const DateValue day = event.DueDate();
        if (day >= span.first) days.push_back(day.Day());
        if (!event.Recurring()) break;
        event.CalcNextAfterDate(day.PlusDays(1), kBase, silent);
        // An unknown kind stands still without an error.
        if (silent.errors > 0 || event.DueDate() == day) break;
    }
    return days;
}

TEST(Occurrences, TheJumpAheadFindsTheDaysOfTheWalk) {
    std::mt19937 engine(20230315);
    const auto between = [&](int low, int high) {
        return static_cast<std::int16_t>(std::uniform_int_distribution<int>(low, high)(engine));
    };
    for (int i = 0; i < 2500 && !HasFailure(); ++i) {
        clsEvent event = OneOff("000001", "Rent", kBase.PlusDays(between(-900, 200)));
        event.Recurring(between(0, 9) > 0);
        event.RecurrenceType(between(0, 6));
        event.StartDate(event.DueDate().PlusDays(between(0, 3) == 0 ? between(-500, 500) : 0));
        event.Period(between(0, 40));
        event.WeekDays(between(0, 255));
        event.DayOfMonth(between(0, 32));
        event.MonthNumber(between(0, 13));
        event.Daynumber(between(0, 6));
        event.DayOfWeek(between(1, 7));
        const DateValue first = kBase.PlusDays(between(-700, i % 25 == 0 ? 10000 : 1400));
        const DaySpan span{first, first.PlusDays(between(-1, 60))};
        SCOPED_TRACE("case " + std::to_string(i) + ", kind " + std::to_string(event.RecurrenceType()));
        EXPECT_EQ(Walked(event, span), Days({event, span, kBase}));
    }
}

TEST(Occurrences, OfARuleAskForNoDueDate) {
    const DaySpan span{kBase, kBase.PlusDays(7)};
    clsEvent event = Daily("1", "Tea", kBase.PlusDays(700), 3);
    event.StartDate(kBase.PlusDays(-1));
    EXPECT_EQ(Days(Occurrences::OfRule(event, span, kBase)), (std::vector{kBase.Day() + 2, kBase.Day() + 5}));
    event.Recurring(false);
    EXPECT_EQ(Days(Occurrences::OfRule(event, span, kBase)), std::vector{kBase.Day() + 2});
    EXPECT_TRUE(Occurrences(event, span, kBase).Empty());
}

}  // namespace
}  // namespace kaz
