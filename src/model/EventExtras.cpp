#include "model/EventExtras.h"

#include "base/RuntimeError.h"

#include <algorithm>

namespace kaz {

DateValue SecondWarning::MinuteFor(DateValue day, DateValue dueTime) const {
    if (time) return DateValue(day.PlusDays(-daysBefore).Day(), time->SecondOfDay());
    return DateValue(day.Day(), dueTime.ToMinute().SecondOfDay()).PlusMinutes(-minutes);
}

bool EventExtras::Skips(DateValue day) const {
    return std::binary_search(skipped.begin(), skipped.end(), day.Day());
}

void EventExtras::Skip(DateValue day) {
    const auto place = std::lower_bound(skipped.begin(), skipped.end(), day.Day());
    if (place == skipped.end() || *place != day.Day()) skipped.insert(place, day.Day());
}

void EventExtras::Unskip(DateValue day) { std::erase(skipped, day.Day()); }

std::optional<Occurrence> NextOccurrence(const RecurrenceRule& rule, const EventExtras& extras,
                                         DateValue reference, DateValue today) {
    RecurrenceRule from = rule;
    // Each round but the last finds a day that is skipped.
    for (std::size_t round = 0; round <= extras.skipped.size(); ++round) {
        const auto next = FirstOccurrence(from, reference, today);
        if (!next || extras.EndsBefore(next->dueDate)) return std::nullopt;
        if (!extras.Skips(next->dueDate)) return next;
        from.startDate = next->startDate;
        reference = next->dueDate.PlusDays(1);
    }
    return std::nullopt;
}

std::optional<DateValue> LastDayOf(RecurrenceRule rule, DateValue first, std::int32_t times,
                                   DateValue today) {
    std::optional<DateValue> last;
    DateValue reference = first.DateOnly();
    for (std::int32_t count = 0; count < times; ++count) {
        const auto next = FirstOccurrence(rule, reference, today);
        if (!next) return std::nullopt;
        last = next->dueDate;
        rule.startDate = next->startDate;
        reference = next->dueDate.PlusDays(1);
    }
    return last;
}

EventExtras UnderRule(EventExtras extras, const RecurrenceRule& rule, DateValue today) {
    try {
        std::erase_if(extras.skipped, [&](std::int32_t day) {
            const auto there = FirstOccurrence(rule, DateValue(day), today);
            return !there || there->dueDate.Day() != day;
        });
        if (extras.times > 0) extras.lastDay = LastDayOf(rule, today, extras.times, today);
    } catch (const RuntimeError&) {
        // The user is told where its dates are computed.
    }
    return extras;
}

}  // namespace kaz
