#pragma once

#include "reminders/ReminderLines.h"
#include "storage/VisibleEvents.h"
#include "storage/clsDbXml.h"

#include <cstdint>
#include <vector>

namespace kaz {

// What the user is told on one day, today or later: the engine shows it, and a look ahead lists it. It only
// looks; the events outlive it, unchanged.
class ReminderDay {
public:
    struct ComingUp {
        const clsEvent* event = nullptr;
        std::int32_t daysLeft = 1;  // or more
    };
    struct Alarm {
        const clsEvent* event = nullptr;
        DateValue minute;
        EventSource source = EventSource::Local;
    };

    ReminderDay(const VisibleEvents& visible, DateValue day) : visible_(visible), day_(day) {}

    // What comes up within its days of warning, and what is due, in the order of the collection. Of a
    // recurring event only its next day counts: on that day it is not told of as coming up as well.
    void AddReminders(const clsDbXml* events);
    // What rings, second warnings too, or runs a file, by the minute.
    void AddAlarms(const clsDbXml* database, EventSource source);

    DateValue Day() const { return day_; }
    const std::vector<ComingUp>& Upcoming() const { return upcoming_; }
    const std::vector<const clsEvent*>& Todays() const { return todays_; }
    const std::vector<Alarm>& Alarms() const { return alarms_; }
    // The lines of the windows, as they are added.
    std::vector<ReminderLine> UpcomingLines() const;
    std::vector<ReminderLine> TodaysLines() const;

private:
    VisibleEvents visible_;
    DateValue day_;
    std::vector<ComingUp> upcoming_;
    std::vector<const clsEvent*> todays_;
    std::vector<Alarm> alarms_;
};

}  // namespace kaz
