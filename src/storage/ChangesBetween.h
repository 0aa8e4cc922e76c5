#pragma once

#include "storage/ChangedEvent.h"
#include "storage/clsDbXml.h"

#include <vector>

namespace kaz {

// What a user sees as changed between two states of a database, by the codes of the events: that the days
// have moved a recurring event on is no change.
std::vector<ChangedEvent> ChangesBetween(const std::vector<clsEvent>& before,
                                         const std::vector<clsEvent>& after, bool expired);

// Gives the events what the file beside them says now; those that have something else by it.
std::vector<ChangedEvent> TakeChangedExtras(clsDbXml& database, bool expired);

}  // namespace kaz
