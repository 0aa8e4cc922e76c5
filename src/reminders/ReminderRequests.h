#pragma once

#include "model/clsEvent.h"
#include "reminders/Outcomes.h"

#include <cstddef>
#include <functional>
#include <string>

namespace kaz {

// What the windows of the reminders ask of the rest of the program; until somebody does it, in vain.
struct ReminderRequests {
    // The event of an occurrence, wherever it is now; null when it has gone. Good until the events change.
    std::function<const clsEvent*(const OccurrenceRef&)> eventOf = [](const OccurrenceRef&) {
        return static_cast<const clsEvent*>(nullptr);
    };
    // Opens it in the editor. True when it has another day or time now.
    std::function<bool(const OccurrenceRef&)> edit = [](const OccurrenceRef&) { return false; };
    // These say why it could not be done, for the user; nothing when it is done.
    using Done = std::function<std::string(const OccurrenceRef&)>;
    Done runFile = [](const OccurrenceRef&) { return "No file can be run just now."; };
    Done sendMail = [](const OccurrenceRef&) { return "No mail can be sent just now."; };
    // What is missed is something else now: so many events.
    std::function<void(std::size_t)> missedChanged = [](std::size_t) {};
    // Something has been answered or put off: what others show of it is out of date.
    std::function<void()> answered = [] {};
};

}  // namespace kaz
