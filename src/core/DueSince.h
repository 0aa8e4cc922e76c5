#pragma once

#include "base/DateValue.h"
#include "base/LocaleData.h"
#include "storage/VisibleEvents.h"

#include <string>
#include <vector>

namespace kaz {

// What fell due while nobody looked, as lines such as "Tue 09:00 Tea" in the order of time: alarms whose
// minute lies between the two times, and events without an alarm of the days between. What is due today
// without an alarm is shown today anyway. No further back than a month.
std::vector<std::string> DueSince(const clsDbXml& events, const VisibleEvents& visible, DateValue since,
                                  DateValue now, const LocaleData& locale);

}  // namespace kaz
