#pragma once

#include "base/DateValue.h"

#include <optional>
#include <string_view>

namespace kaz {

// The longest warning of an alarm.
inline constexpr int kMostMinutesWarning = 60;

// A time of day as it is typed: exactly "HH:MM" of 24 hours, with ";" for ":" and blanks around it allowed.
// Nothing for any other text.
std::optional<DateValue> TypedTime(std::string_view text);

// When the alarm of an event sounds.
struct AlarmMoment {
    DateValue time;          // without a date, as alarms are compared with the clock
    bool dayBefore = false;  // the minutes reach over midnight
};
AlarmMoment AlarmBefore(DateValue dueTime, int minutes);

}  // namespace kaz
