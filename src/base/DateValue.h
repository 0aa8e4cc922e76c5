#pragma once

#include "base/Weekday.h"

#include <compare>
#include <cstdint>

namespace kaz {

struct CivilDate {
    int year = 1899;
    int month = 12;
    int day = 30;
    friend constexpr auto operator<=>(const CivilDate&, const CivilDate&) = default;
};

// A calendar day and a time of day to the second. The default value is 30 December 1899, midnight, the zero
// of the files; a pure time of day is a time on that day.
class DateValue {
public:
    static constexpr std::int32_t kSecondsPerDay = 86400;

    constexpr DateValue() = default;

    // `day` counts days since 30 December 1899; `second` is 0 to 86399.
    constexpr explicit DateValue(std::int32_t day, std::int32_t second = 0) : day_(day), second_(second) {}

    // The day of year, month and day, where a month outside 1-12 carries into other years and a day outside
    // the month into other months: (2023, 2, 31) is 3 March 2023, day 0 the last day of the month before.
    // Throws InvalidCall when the result leaves the years 100 to 9999.
    static DateValue FromCivil(int year, int month, int day);

    // A time on day zero; hour, minute and second must be in range. Throws InvalidCall otherwise.
    static DateValue FromTime(int hour, int minute, int second = 0);

    // From a double counting days since 30 December 1899 with the time of day as fraction (for days before
    // that, the fraction still counts forward from midnight). Rounds to the second.
    // Throws Overflow outside the years 100 to 9999 and for values that are no number.
    static DateValue FromSerial(double serial);

    constexpr std::int32_t Day() const { return day_; }
    constexpr std::int32_t SecondOfDay() const { return second_; }
    constexpr std::int32_t MinuteOfDay() const { return second_ / 60; }
    double Serial() const;

    constexpr DateValue DateOnly() const { return DateValue(day_); }
    constexpr DateValue TimeOnly() const { return DateValue(0, second_); }
    constexpr DateValue ToMinute() const { return DateValue(day_, second_ - second_ % 60); }

    // Throws InvalidCall when the result leaves the years 100 to 9999.
    DateValue PlusDays(std::int32_t days) const;
    DateValue PlusMinutes(std::int32_t minutes) const;

    CivilDate Civil() const;
    SundayWeekday WeekdayFromSunday() const;
    MondayWeekday WeekdayFromMonday() const;

    friend constexpr auto operator<=>(const DateValue&, const DateValue&) = default;

private:
    std::int32_t day_ = 0;
    std::int32_t second_ = 0;
};

// The span of days that a date may have: 1 January 100 to 31 December 9999.
inline constexpr std::int32_t kFirstDay = -657434;
inline constexpr std::int32_t kLastDay = 2958465;

}  // namespace kaz
