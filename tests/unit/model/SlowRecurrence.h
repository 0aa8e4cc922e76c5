#pragma once

#include "model/Recurrence.h"

#include <optional>

namespace kaz {

// The rules as they are told, walking from day to day and from occurrence to occurrence: what the quick
// calculation is held against. Nothing when the walk leaves the years 100 to 9999 or finds no end.
std::optional<Occurrence> WalkToOccurrence(const RecurrenceRule& rule, DateValue reference, DateValue today);

}  // namespace kaz
