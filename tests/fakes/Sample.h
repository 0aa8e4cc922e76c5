#pragma once

#include "base/Text.h"
#include "model/clsEvent.h"
#include "storage/EventXml.h"

#include <initializer_list>
#include <string>

namespace kaz {

// Events as a user would have them, for tests that need some.
inline clsEvent OneOff(const std::string& code, const std::string& description, DateValue due) {
    clsEvent event;
    event.IDCode = code;
    event.Desc(description);
    event.DueDate(due);
    event.StartDate(due);
    event.RecurrenceType(RecurEveryNDays);
    event.Period(1);
    event.Layer(1);
    event.Owner("Single");
    return event;
}

inline clsEvent Daily(const std::string& code, const std::string& description, DateValue due,
                      std::int16_t days = 1) {
    clsEvent event = OneOff(code, description, due);
    event.Recurring(true);
    event.Period(days);
    return event;
}

// An event file's text.
inline std::string FileOf(std::initializer_list<clsEvent> events) {
    std::string text(EventXml::kProlog);
    for (const clsEvent& event : events)
        EventXml::AppendBlock(text, event);
    return text;
}

}  // namespace kaz
