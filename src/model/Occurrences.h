#pragma once

#include "model/clsEvent.h"

#include <iterator>

namespace kaz {

// Both days included.
struct DaySpan {
    DateValue first;
    DateValue last;
};

// The days of a span on which an event happens, in order, for a range-for: none is skipped, and none is
// behind the end of its series. The event stays as it is, and outlives the walk. They end where its rule
// names no further day, also when it cannot be computed: that was told when the event last moved on. Each day
// is later than the one before, so there are at most as many as the span has.
class Occurrences {
public:
    // None before its due date. `today` is the clock's day: the day-of-month rule begins its search in the
    // clock's month.
    Occurrences(const clsEvent& event, DaySpan span, DateValue today);
    // Those that its rule names, whatever its due date is; of an event that is shown once, the first.
    static Occurrences OfRule(const clsEvent& event, DaySpan span, DateValue today);

    bool Empty() const { return ended_; }

    class Iterator {
    public:
        explicit Iterator(Occurrences& walk) : walk_(walk) {}
        DateValue operator*() const { return walk_.day_; }
        void operator++() { walk_.Step(); }
        bool operator==(std::default_sentinel_t) const { return walk_.ended_; }

    private:
        Occurrences& walk_;
    };
    // The walk goes one way: a second loop goes on where the first one ended.
    Iterator begin() { return Iterator(*this); }
    std::default_sentinel_t end() const { return {}; }

private:
    Occurrences(const clsEvent& event, DateValue from, DateValue last, DateValue today);
    bool IsLeftOut(DateValue day) const;
    void Step();
    void MoveTo(std::int32_t reference);

    RecurrenceRule rule_;
    const EventExtras& extras_;
    DateValue day_;
    DateValue last_;
    DateValue today_;
    bool repeats_;
    bool ended_ = false;
};

}  // namespace kaz
