#pragma once

#include "base/LocaleData.h"
#include "model/clsEvent.h"

#include <string>

namespace kaz {

// How often an event happens: "once", "every weekday", "every 2 weeks on Tuesday", "on the last Friday of
// every month". "" for a rule that names no day. The names of days and months are the locale's.
std::string RuleInWords(const clsEvent& event, const LocaleData& locale, bool dayBeforeMonth);

}  // namespace kaz
