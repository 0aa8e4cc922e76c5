#pragma once

#include "floor/Record.h"

namespace bare {

// Moves the event on to its first day at or behind `reference`, day by day, week by week, period by period.
void MoveOn(Record& record, int reference, int today);

}  // namespace bare
