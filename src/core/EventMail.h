#pragma once

#include "core/Application.h"
#include "core/ComponentEvents.h"

#include <cstddef>
#include <string>

namespace kaz {

// Asks the host for the mails of events.
class EventMail {
public:
    enum class Answer {
        Taken,
        Nobody,  // has taken it, nor failed at it
        Failed,  // what the host said is in the log
        NotNow,  // it is being asked for that one already, or is in the middle of too many others
    };

    // Both outlive the object.
    EventMail(Application& application, ComponentEvents& host) : app_(application), host_(host) {}

    // `number` is the event's place in its database, counted from 1. The host may run anything before this
    // returns: neither the event nor its database need be what they were.
    Answer Raise(const clsEvent& event, std::size_t number, const std::string& text);
    // The mail of an occurrence that was missed, with the day on which it fell. Why it was not sent, for the
    // user; nothing when it has been taken.
    std::string SendMissed(const OccurrenceRef& occurrence);

    // The line of an event that is due today, as lists and mails have it.
    static std::string LineOf(const clsEvent& event, const LocaleData& locale);

private:
    Application& app_;
    ComponentEvents& host_;
};

}  // namespace kaz
