#pragma once

#include "model/clsEvent.h"

#include <optional>
#include <string>

namespace kaz {

// A day as it was said; which one it is depends on today and on whether a time of today has passed.
struct SaidDay {
    enum class Kind { None, Fixed, OfYear, OfMonth };
    Kind kind = Kind::None;
    DateValue fixed;
    int day = 0;      // of the month
    int month = 0;    // 1 to 12, of Kind::OfYear
    int weekday = 0;  // that it was said to be, Monday = 1; 0 for none
};

// What was said of when an event is.
struct When {
    SaidDay day;
    std::optional<DateValue> time;    // of day
    std::optional<DateValue> moment;  // from now on, to the minute, with its day
    std::optional<RecurrenceRule> rule;
    SaidDay from;         // where a rule of so many months starts
    int fromWeekday = 0;  // and one of so many weeks; Monday = 1, 0 for today
    std::optional<SaidDay> until;
    int times = 0;
    bool isWeak = false;  // a name or a fraction may look like it, such as "March" and "3/4"
    std::string fault;    // it is clear what was meant, and why it cannot be
};

// How dates are read and named.
struct WhenView {
    DateValue now;
    bool dayBeforeMonth = false;

    std::string Name(DateValue day) const;  // "Fri 27 Nov 2026"
};

// Of that month in a year; `year` 0 stands for one in which February is longest. 0 for no month.
int DaysInMonth(int month, int year);

// Puts the rule, the time, and the end into the event. What keeps it from that, for the user; "" when nothing
// does. Throws when a date leaves the years 100 to 9999.
std::string Decide(const When& when, const WhenView& view, clsEvent& event);

}  // namespace kaz
