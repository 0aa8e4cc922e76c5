#pragma once

namespace kaz {

// Two ways of counting weekdays meet in the event record; as two types they cannot be mixed up.

// Sunday = 1 to Saturday = 7: the n-th-weekday rule and the month grid.
struct SundayWeekday {
    int number = 1;
    friend constexpr bool operator==(SundayWeekday, SundayWeekday) = default;
};

// Monday = 1 to Sunday = 7: the weekday mask.
struct MondayWeekday {
    int number = 1;
    friend constexpr bool operator==(MondayWeekday, MondayWeekday) = default;
};

}  // namespace kaz
