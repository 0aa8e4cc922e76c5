#pragma once

#include "core/Application.h"
#include "model/MonthGrid.h"

#include <cstdint>

namespace kaz {

// Reads the event files that somebody else has changed; the main list is filled at its next tick then. What
// could not be saved yet stays in memory.
void ReloadForMonth(Application& application);

// The month with the local events and, in a network, those that others share. `category` is that of the
// filter, 0 to 19, or clsLayers::kAll. Throws InvalidCall for a month outside the calendar.
MonthGrid FillMonth(const Application& application, int month, int year, std::int16_t category);

}  // namespace kaz
