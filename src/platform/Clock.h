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

    DateValue Today() const { return Now().DateOnly(); }
};

}  // namespace kaz
