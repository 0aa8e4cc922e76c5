#pragma once

#include "model/clsEvent.h"
#include "ui/event/RecurrenceFrames.h"

#include <optional>
#include <string>
#include <vector>

namespace kaz {

// What can be saved and is hardly meant.
struct Doubt {
    std::string question;  // a yes saves it all the same
    bool ofDay = false;    // rather than of the description
};
// `before` is the event as it was opened.
std::vector<Doubt> DoubtsOf(const clsEvent& event, const clsEvent& before, const DateStyle& style,
                            DateValue now);

// The day on which an event that is shown once would have to start, and cannot any more.
std::optional<DateValue> PassedDay(const clsEvent& event, DateValue today);

}  // namespace kaz
