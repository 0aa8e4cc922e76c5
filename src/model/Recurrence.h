#pragma once

#include "base/DateValue.h"
#include "base/Weekday.h"

#include <cstdint>
#include <optional>

namespace kaz {

// The six kinds of recurrence; the numbers stand in the files.
inline constexpr std::int32_t RecurWeekdays = 0;
inline constexpr std::int32_t RecurDayOfMonth = 1;
inline constexpr std::int32_t RecurEveryNMonths = 2;
inline constexpr std::int32_t RecurEveryNWeeks = 3;
inline constexpr std::int32_t RecurNthWeekday = 4;
inline constexpr std::int32_t RecurEveryNDays = 5;

// `monthNumber` of an event that falls in every month, by day of month and by n-th weekday.
inline constexpr std::int16_t kEveryMonthByDay = 13;
inline constexpr std::int16_t kEveryMonthByWeekday = 0;

// Weekdays of kind 0.
inline constexpr std::int16_t kMondayToFriday = 62;
inline constexpr std::int16_t kSaturdayAndSunday = 192;
inline constexpr std::int16_t kWholeWeek = 254;

// What decides the days of an event; each kind looks at its own fields only.
struct RecurrenceRule {
    std::int32_t type = RecurWeekdays;
    std::int16_t weekDays = 0;    // kind 0: bits 2 to 128 for Monday to Sunday
    std::int16_t dayOfMonth = 0;  // kind 1: 1 to 31
    std::int16_t monthNumber =
        0;                    // kind 1: 1 to 12 or 13 for every month; kind 4: 1 to 12 or 0 for every month
    std::int16_t period = 0;  // kinds 2, 3 and 5: months, weeks or days
    DateValue startDate;      // kinds 2, 3 and 5
    std::int16_t dayNumber = 0;  // kind 4: 1 to 4, 5 or more for the last
    std::int16_t dayOfWeek = 0;  // kind 4: Sunday = 1

    friend bool operator==(const RecurrenceRule&, const RecurrenceRule&) = default;
};

struct Occurrence {
    DateValue dueDate;
    DateValue startDate;  // moved to the due date by the kinds that count from it, else as it was
};

// The first occurrence on or after `reference`; nothing for an unknown kind. `today` is the clock's day: the
// day-of-month rule begins its search in the clock's month, and it alone regards the time of day of
// `reference`. The result is that of walking from occurrence to occurrence, but is reached without the walk.
// Throws InvalidCall when the rule names no day at all, never reaches the reference or leaves the years 100
// to 9999, and Overflow when the days of a number of weeks exceed 16 bits.
std::optional<Occurrence> FirstOccurrence(const RecurrenceRule& rule, DateValue reference, DateValue today);

// The day that `dayNumber` and `weekday` name in the month of `anyDay`. A number of 5 or more means the last,
// one below 1 the first of the month whatever its weekday.
DateValue NthWeekdayInMonth(DateValue anyDay, std::int16_t dayNumber, SundayWeekday weekday);

}  // namespace kaz
