#pragma once

#include "model/clsEvent.h"

#include <optional>
#include <string_view>
#include <vector>

namespace kaz {

// The longest warning of an alarm.
inline constexpr int kMostMinutesWarning = 60;

// A time of day as it is typed: exactly "HH:MM" of 24 hours, with ";" for ":" and blanks around it allowed.
// Nothing for any other text.
std::optional<DateValue> TypedTime(std::string_view text);

// The time of day that a short form such as "7:30", "7.30", "730", "7" or "3:15 pm" means. Nothing for what
// could mean another one, such as "7:3".
std::optional<DateValue> TimeInShort(std::string_view text);

// When the alarm of an event sounds.
struct AlarmMoment {
    DateValue time;      // without a date, as alarms are compared with the clock
    int daysBefore = 0;  // the minutes reach over midnight
};
AlarmMoment AlarmBefore(DateValue dueTime, int minutes);

// The minute in which the alarm rings of an event that falls on `day`. Where the time of the alarm is not
// that of the event less its minutes of warning, it is a time of the day itself. None without an alarm, or
// when its time has a date or seconds.
std::optional<DateValue> AlarmMinute(const clsEvent& event, DateValue day);

// The day of the event whose alarm rings in that minute.
DateValue DayOfAlarm(const clsEvent& event, DateValue minute);

// When an event that falls on `day` begins: at its time if it has an alarm, else with the end of the day,
// through all of which it is still told.
DateValue BeginningOf(const clsEvent& event, DateValue day);

// A second warning of one of its days.
struct DayWarning {
    DateValue day;
    DateValue minute;
};
// Those whose minute lies from `first` to `last`, both included.
std::vector<DayWarning> WarningsBetween(const clsEvent& event, DateValue first, DateValue last);
// Those whose minute has come at `now` while their event has not begun.
std::vector<DayWarning> WarningsAt(const clsEvent& event, DateValue now);

// The last minute in which the alarm rings from `first` to `last`, both included.
std::optional<DateValue> LastAlarm(const clsEvent& event, DateValue first, DateValue last);

}  // namespace kaz
