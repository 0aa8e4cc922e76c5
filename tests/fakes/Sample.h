#pragma once

#include "base/Text.h"
#include "model/AlarmTime.h"
#include "storage/EventXml.h"
#include "storage/clsDbXml.h"

#include <string>
#include <utility>
#include <vector>

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

inline clsEvent WithAlarm(clsEvent event, int hour, int minute, std::int16_t warning = 0) {
    event.AlarmSet(true);
    event.DueTime(DateValue::FromTime(hour, minute));
    event.MinutesWarning(warning);
    event.AlarmTime(AlarmBefore(event.DueTime(), warning).time);
    return event;
}

inline clsEvent Of(const std::string& owner, clsEvent event) {
    event.Owner(owner);
    return event;
}

inline clsEvent SharedBy(const std::string& owner, clsEvent event, const std::string& with = "") {
    event.SharedEvent = true;
    event.ShareWithSpecific = !with.empty();
    event.ShareNames = with;
    return Of(owner, std::move(event));
}

inline clsEvent Warned(clsEvent event, std::int16_t days) {
    event.DaysWarning(days);
    return event;
}

inline clsEvent Mailed(clsEvent event, const std::string& address) {
    event.Email = address;
    return event;
}

inline clsEvent Loud(clsEvent event, const std::string& sound) {
    event.PlayWav = true;
    event.WavFile = sound;
    return event;
}

inline clsEvent Running(clsEvent event, const std::string& file) {
    event.ExecFile = true;
    event.Filename = file;
    return event;
}

// All events of a database, to be changed before anybody asks what of them is saved.
inline std::vector<clsEvent>& Changing(clsDbXml& database) {
    return *database.ChangeEvents([](std::vector<clsEvent>& events) { return &events; });
}

// What the events say, in their order.
inline std::vector<std::string> DescriptionsOf(const std::vector<clsEvent>& events) {
    std::vector<std::string> descriptions;
    for (const clsEvent& event : events)
        descriptions.push_back(event.Desc());
    return descriptions;
}

// The owners likewise, with " deleted" behind those whose event is.
inline std::vector<std::string> OwnersOf(const std::vector<clsEvent>& events) {
    std::vector<std::string> owners;
    for (const clsEvent& event : events)
        owners.push_back(event.Owner() + (event.Deleted ? " deleted" : ""));
    return owners;
}

// An event file's text.
inline std::string FileOf(const std::vector<clsEvent>& events) {
    std::string text(EventXml::kProlog);
    for (const clsEvent& event : events)
        EventXml::AppendBlock(text, event);
    return text;
}

}  // namespace kaz
