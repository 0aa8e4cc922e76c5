#include "reminders/ReminderDay.h"

#include "model/AlarmTime.h"
#include "model/Occurrences.h"
#include "reminders/ReminderText.h"

#include <algorithm>
#include <optional>

namespace kaz {

namespace {

// The next day of the event on or after `day`, if it is not farther away than its days of warning.
std::optional<DateValue> NextDay(const clsEvent& event, DateValue day) {
    const std::int32_t last = std::min(day.Day() + std::max<std::int32_t>(event.DaysWarning(), 0), kLastDay);
    // Most events are farther away.
    if (event.DueDate().Day() > last) return std::nullopt;
    for (const DateValue next : Occurrences(event, {day, DateValue(last)}, day))
        return next;
    return std::nullopt;
}

}  // namespace

void ReminderDay::AddReminders(const clsDbXml* events) {
    visible_.ForEach(events, EventSource::Local, [&](const VisibleEvent& seen) {
        const auto next = NextDay(seen.event, day_);
        if (!next) return;
        if (*next > day_)
            upcoming_.push_back({&seen.event, next->Day() - day_.Day()});
        else if (!seen.event.ExecFile)
            todays_.push_back(&seen.event);
    });
}

void ReminderDay::AddAlarms(const clsDbXml* database, EventSource source) {
    const DateValue first(day_.Day(), 0);
    const DateValue last(day_.Day(), DateValue::kSecondsPerDay - 60);
    visible_.ForEach(database, source, [&](const VisibleEvent& seen) {
        if (const auto minute = LastAlarm(seen.event, first, last))
            alarms_.push_back({&seen.event, *minute, source});
        if (seen.event.ExecFile || seen.event.Extras().warnings.empty()) return;
        for (const DayWarning& warning : WarningsBetween(seen.event, first, last))
            alarms_.push_back({&seen.event, warning.minute, source});
    });
    std::stable_sort(alarms_.begin(), alarms_.end(),
                     [](const Alarm& a, const Alarm& b) { return a.minute < b.minute; });
}

std::vector<ReminderLine> ReminderDay::UpcomingLines() const {
    std::vector<ReminderLine> lines;
    for (const auto& [event, daysLeft] : upcoming_) {
        lines.push_back(LineOf(*event, OwnOccurrence(*event, DateValue(day_.Day() + daysLeft)),
                               UpcomingLine(daysLeft, event->DescShown())));
        lines.back().breaksQuiet = false;
        lines.back().tellsDay = true;
    }
    return lines;
}

std::vector<ReminderLine> ReminderDay::TodaysLines() const {
    std::vector<ReminderLine> lines;
    for (const clsEvent* event : todays_) {
        lines.push_back(LineOf(*event, OwnOccurrence(*event, day_), std::string(event->DescShown())));
        // It has its alarm for that.
        if (event->AlarmSet()) lines.back().breaksQuiet = false;
    }
    return lines;
}

}  // namespace kaz
