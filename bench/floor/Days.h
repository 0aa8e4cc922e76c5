#pragma once

#include <chrono>

namespace bare {

// Day numbers count from 1 January 1970. A month beyond 12 carries into the year, a day beyond the month's
// end into the next month.
inline int DayNumber(int year, int month, int day) {
    const std::chrono::year_month first = std::chrono::year(year + (month - 1) / 12) /
                                          std::chrono::month(static_cast<unsigned>((month - 1) % 12 + 1));
    return static_cast<int>(std::chrono::sys_days(first / 1).time_since_epoch().count()) + day - 1;
}

struct Civil {
    int year, month, day;
};

inline Civil CivilOf(int day) {
    const std::chrono::year_month_day date{std::chrono::sys_days(std::chrono::days(day))};
    return {static_cast<int>(date.year()), static_cast<int>(static_cast<unsigned>(date.month())),
            static_cast<int>(static_cast<unsigned>(date.day()))};
}

// Monday is 1.
inline int MondayFirst(int day) { return ((day + 3) % 7 + 7) % 7 + 1; }
// Sunday is 1.
inline int SundayFirst(int day) { return ((day + 4) % 7 + 7) % 7 + 1; }

}  // namespace bare
