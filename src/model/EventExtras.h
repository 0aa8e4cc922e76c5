#pragma once

#include "base/DateValue.h"
#include "model/Recurrence.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace kaz {

// A warning besides the alarm, with a time of its own: so many minutes before the event's time, or at a time
// of day some days before.
struct SecondWarning {
    std::int32_t minutes = 0;  // before the event's time; counts when `time` is not set
    std::int32_t daysBefore = 0;
    std::optional<DateValue> time;  // of day, to the minute

    // The minute in which it rings for an event of that day and time. Throws InvalidCall outside the years
    // 100 to 9999.
    DateValue MinuteFor(DateValue day, DateValue dueTime) const;
    friend bool operator==(const SecondWarning&, const SecondWarning&) = default;
};

// What an event has beside the fields of the event file: the days on which it does not happen, its end, and
// how it is told.
struct EventExtras {
    std::vector<std::int32_t> skipped;  // days, each later than the one before
    std::optional<DateValue> lastDay;   // of the series, that day included
    std::int32_t times = 0;             // as the user gave the end: so many times; 0 for a day
    std::vector<SecondWarning> warnings;
    bool always = false;  // also in quiet hours

    bool Empty() const { return *this == EventExtras{}; }
    bool Skips(DateValue day) const;
    // A day that is skipped already stays so.
    void Skip(DateValue day);
    void Unskip(DateValue day);
    bool EndsBefore(DateValue day) const { return lastDay && *lastDay < day; }
    friend bool operator==(const EventExtras&, const EventExtras&) = default;
};

// The first occurrence on or after `reference` that happens: none is skipped, and none is behind the end of
// the series. Nothing when there is none, and for an unknown kind. Throws as FirstOccurrence does.
std::optional<Occurrence> NextOccurrence(const RecurrenceRule& rule, const EventExtras& extras,
                                         DateValue reference, DateValue today);

// The day of the `times`-th occurrence from `first` on, skipped ones counted; nothing when the rule names
// fewer. `times` is 1 to 10,000. Throws as FirstOccurrence does.
std::optional<DateValue> LastDayOf(RecurrenceRule rule, DateValue first, std::int32_t times, DateValue today);

// The extras of an event that gets another rule: its end after so many times is counted anew, from the first
// occurrence on or after `today`, and what the rule does not name is no longer skipped. With a rule that
// cannot be computed they stay.
EventExtras UnderRule(EventExtras extras, const RecurrenceRule& rule, DateValue today);

}  // namespace kaz
