#pragma once

#include "base/DateValue.h"

namespace kaz {

// The wall clock in the user's own time zone.
class Clock {
public:
    virtual ~Clock() = default;
    virtual DateValue Now() const = 0;
    // Seconds since midnight with their fraction; it seeds the random generator.
    virtual double SecondsSinceMidnight() const = 0;
    // What the clock shows, or showed, in that moment of UTC.
    virtual DateValue LocalOf(DateValue utc) const = 0;

    DateValue Today() const { return Now().DateOnly(); }
};

}  // namespace kaz
