#pragma once

#include "model/clsEvent.h"
#include "ui/event/RecurrenceFrames.h"

#include <string>

namespace kaz {

// What the event has beside its rule and its alarm, in short: "Not on: Fri 25/12/2026.  2 more warnings."
// Its end is told with its dates.
std::string ExtrasInWords(const clsEvent& event, const DateStyle& style);

// Why nobody would be told of the event, or not in time, if it were saved like this; "" when all is well.
// `today` is the clock's day.
std::string ExtrasFault(const clsEvent& event, const DateStyle& style, DateValue today);

// "Fri 25/12/2026", as the user writes dates.
std::string DayInWords(DateValue day, const DateStyle& style);

}  // namespace kaz
