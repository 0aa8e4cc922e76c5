#include "model/Recurrence.h"

#include "base/Numbers.h"
#include "base/RuntimeError.h"

#include <algorithm>
#include <chrono>

namespace kaz {

namespace {

[[noreturn]] void NoSuchDay() { throw RuntimeError(ErrorNumber::InvalidCall); }

void Require(bool valid) {
    if (!valid) NoSuchDay();
}

DateValue InRange(std::int64_t day) {
    Require(day >= kFirstDay && day <= kLastDay);
    return DateValue(static_cast<std::int32_t>(day));
}

// A month of a year as one number, so that stepping needs no carry.
struct Month {
    int index;  // year * 12 + month - 1

    static Month Of(DateValue date) {
        const CivilDate civil = date.Civil();
        return {civil.year * 12 + civil.month - 1};
    }
    int Year() const { return index / 12; }
    int Number() const { return index % 12 + 1; }
    Month Plus(int months) const { return {index + months}; }
    DateValue First() const { return DateValue::FromCivil(Year(), Number(), 1); }
    int Length() const {
        using namespace std::chrono;
        const auto length =
            year_month_day_last(year(Year()), month_day_last(month(static_cast<unsigned>(Number()))));
        return static_cast<int>(static_cast<unsigned>(length.day()));
    }
};

DateValue FirstInMask(std::int16_t weekDays, DateValue reference) {
    for (int ahead = 0; ahead < 7; ++ahead) {
        const DateValue day(reference.Day() + ahead);
        if (weekDays & (1 << day.WeekdayFromMonday().number)) return InRange(day.Day());
    }
    NoSuchDay();
}

// A day past the end of the month is the month's last day.
DateValue DayOfMonthIn(Month month, std::int16_t dayOfMonth) {
    return month.First().PlusDays(std::min<int>(dayOfMonth, month.Length()) - 1);
}

DateValue FirstDayOfMonth(const RecurrenceRule& rule, DateValue reference, DateValue today) {
    Require(rule.dayOfMonth >= 1 && rule.dayOfMonth <= 31);
    Require(rule.monthNumber >= 1 && rule.monthNumber <= kEveryMonthByDay);
    const bool everyMonth = rule.monthNumber == kEveryMonthByDay;

    // Kept on purpose: the search begins in the clock's month or year even when the
    // reference lies before it, and the reference counts with its time of day, so that any
    // time after midnight passes over the same day.
    const Month earliest = Month::Of(today);
    const Month wanted = Month::Of(reference);
    const Month from{std::max(earliest.index, wanted.index)};
    Month month = everyMonth ? from : Month{from.Year() * 12 + rule.monthNumber - 1};
    if (DayOfMonthIn(month, rule.dayOfMonth) < reference) month = month.Plus(everyMonth ? 1 : 12);
    return DayOfMonthIn(month, rule.dayOfMonth);
}

DateValue EveryNDays(DateValue start, std::int32_t days, DateValue reference) {
    Require(days > 0);
    const std::int64_t behind = std::int64_t{reference.Day()} - start.Day();
    const std::int64_t steps = (behind + days - 1) / days;
    return InRange(start.Day() + steps * days);
}

DateValue EveryNMonths(DateValue start, std::int16_t period, DateValue reference) {
    Require(period > 0);
    const Month last = Month::Of(reference);
    Month month = Month::Of(start);
    int day = start.Civil().day;

    // Kept on purpose: the day is not cut to the month's length. 31 January and one month is 3
    // March, and the series goes on from the 3rd. Only such days need to be walked, at most
    // once a month of the calendar's years.
    while (day > 28 && month.index < last.index) {
        month = month.Plus(period);
        if (const int length = month.Length(); day > length) {
            day -= length;
            month = month.Plus(1);
        }
    }
    if (month.index < last.index)
        month = month.Plus((last.index - month.index + period - 1) / period * period);

    const DateValue reached = month.First().PlusDays(day - 1);
    if (reached >= reference) return reached;
    // In the reference's month, but on an earlier day.
    const Month next = month.Plus(period);
    return next.First().PlusDays(day - 1);
}

DateValue FromStart(const RecurrenceRule& rule, DateValue reference) {
    if (rule.startDate >= reference) return rule.startDate;
    switch (rule.type) {
    case RecurEveryNMonths: return EveryNMonths(rule.startDate, rule.period, reference);
    case RecurEveryNWeeks:
        return EveryNDays(rule.startDate, ToInt16(std::int64_t{rule.period} * 7), reference);
    default: return EveryNDays(rule.startDate, rule.period, reference);
    }
}

DateValue FirstNthWeekday(const RecurrenceRule& rule, DateValue reference) {
    Require(rule.dayOfWeek >= 1 && rule.dayOfWeek <= 7);
    Require(rule.monthNumber >= 0 && rule.monthNumber <= 12);
    const bool everyMonth = rule.monthNumber == kEveryMonthByWeekday;
    const auto in = [&](Month month) {
        return NthWeekdayInMonth(month.First(), rule.dayNumber, {rule.dayOfWeek});
    };
    const Month from = Month::Of(reference);
    Month month = everyMonth ? from : Month{from.Year() * 12 + rule.monthNumber - 1};
    if (in(month) < reference) month = month.Plus(everyMonth ? 1 : 12);
    return in(month);
}

}  // namespace

DateValue NthWeekdayInMonth(DateValue anyDay, std::int16_t dayNumber, SundayWeekday weekday) {
    const Month month = Month::Of(anyDay);
    const DateValue first = month.First();
    if (dayNumber >= 5) {
        const DateValue last = first.PlusDays(month.Length() - 1);
        return last.PlusDays(-((last.WeekdayFromSunday().number - weekday.number + 7) % 7));
    }
    if (dayNumber < 1) return first;
    const int toFirst = (weekday.number - first.WeekdayFromSunday().number + 7) % 7;
    return first.PlusDays(toFirst + (dayNumber - 1) * 7);
}

std::optional<Occurrence> FirstOccurrence(const RecurrenceRule& rule, DateValue reference, DateValue today) {
    const DateValue day = reference.DateOnly();
    switch (rule.type) {
    case RecurWeekdays: return Occurrence{FirstInMask(rule.weekDays, day), rule.startDate};
    case RecurDayOfMonth: return Occurrence{FirstDayOfMonth(rule, reference, today), rule.startDate};
    case RecurNthWeekday: return Occurrence{FirstNthWeekday(rule, day), rule.startDate};
    case RecurEveryNMonths:
    case RecurEveryNWeeks:
    case RecurEveryNDays: {
        const DateValue due = FromStart(rule, day);
        return Occurrence{due, due};
    }
    default: return std::nullopt;
    }
}

}  // namespace kaz
